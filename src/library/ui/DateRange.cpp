#include "DateRange.h"

#include "DialogRunner.h"
#include "MessageBoxes.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double disabledOpacity = 0.35;
constexpr double roomInUse = 0.9; // of the screen; the window has a frame as well
constexpr int leastPoints = 6;

// Days that can't be chosen look like it.
class BoundedCalendar : public QCalendarWidget
{
public:
    using QCalendarWidget::QCalendarWidget;

protected:
    void paintCell(QPainter *painter, const QRect &rect, QDate date) const override
    {
        painter->save();
        if (date < minimumDate() || date > maximumDate())
            painter->setOpacity(disabledOpacity);
        QCalendarWidget::paintCell(painter, rect, date);
        painter->restore();
    }
};

// Red stands for errors: no day is one.
void setUp(QCalendarWidget *calendar, const QString &name)
{
    calendar->setAccessibleName(name);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        calendar->setWeekdayTextFormat(day, calendar->weekdayTextFormat(Qt::Monday));
}

} // namespace

void askDateRange(QDate *from, QDate *to, QWidget *parent)
{
    DateRange dialog(from, to, parent);
    centerOnActiveWindow(&dialog);
    runDialog(dialog);
}

DateRange::DateRange(QDate *from, QDate *to, QWidget *parent)
    : QDialog(parent)
    , fromDate(from)
    , toDate(to)
    , first(new BoundedCalendar(this))
    , last(new BoundedCalendar(this))
{
    setWindowTitle(tr("Zeitspanne eingeben:"));
    first->setSelectedDate(*from);
    last->setSelectedDate(*to);
    connectCalendars();
    layOut();
    fitToScreen();
}

void DateRange::connectCalendars()
{
    const auto bound = [this] {
        first->setMaximumDate(last->selectedDate());
        last->setMinimumDate(first->selectedDate());
    };
    bound();
    connect(first, &QCalendarWidget::selectionChanged, this, bound);
    connect(last, &QCalendarWidget::selectionChanged, this, bound);
    connect(first, &QCalendarWidget::activated, last, &QCalendarWidget::setSelectedDate);
}

void DateRange::layOut()
{
    auto *layout = new QGridLayout(this);
    int column = 0;
    for (const auto &[calendar, label] :
         {std::pair(first, tr("Zeitspanne von:")), std::pair(last, tr("bis:"))}) {
        setUp(calendar, label);
        auto *caption = new QLabel(label, this);
        caption->setBuddy(calendar);
        layout->addWidget(caption, 0, column);
        layout->addWidget(calendar, 1, column++);
    }
    layout->addWidget(makeButtons(), 2, 0, 1, column);
}

// Two calendars in the largest letters are wider than a small screen.
void DateRange::fitToScreen()
{
    ensurePolished();
    const QSize room = screen()->availableSize();
    const QSize wanted = sizeHint();
    const double scale
        = std::min(1.0 * room.width() / wanted.width(), 1.0 * room.height() / wanted.height());
    const int points = static_cast<int>(QFontInfo(font()).pointSize() * scale * roomInUse);
    if (scale < 1.0)
        setStyleSheet(u"QWidget { font-size: %1pt; }"_s.arg(std::max(points, leastPoints)));
}

QWidget *DateRange::makeButtons()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Return"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Abbruch"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void DateRange::done(int result)
{
    const bool chosen = result == Accepted;
    *fromDate = chosen ? first->selectedDate() : QDate();
    *toDate = chosen ? last->selectedDate() : QDate();
    QDialog::done(result);
}
