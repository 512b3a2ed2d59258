#include "FilterComboBox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostVisible = 999;

} // namespace

FilterComboBox::FilterComboBox(int popupExtra, QWidget *parent)
    : QComboBox(parent)
    , extraWidth(popupExtra)
{
    setObjectName(u"filterCombo"_s);
    auto *field = new QLineEdit;
    field->setObjectName(u"filterLineEdit"_s);
    field->setReadOnly(true);
    setLineEdit(field);
    field->installEventFilter(this);
    field->setFocusPolicy(Qt::NoFocus);
    field->setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::NoFocus);
    setMaxVisibleItems(mostVisible);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    connect(field, &QLineEdit::textChanged, this, &FilterComboBox::showText);
    connect(this, &QComboBox::activated, this, [this](int index) {
        showText();
        if (index > 0 && index == indexBefore)
            Q_EMIT chosenAgain();
    });
}

void FilterComboBox::refill(const QStringList &entries)
{
    const QString chosen = currentText();
    clear();
    insertItems(0, entries);
    if (!chosen.isEmpty())
        setCurrentIndex(static_cast<int>(entries.indexOf(chosen)));
}

// From its beginning; and a style sheet looks at properties once.
void FilterComboBox::showText()
{
    lineEdit()->home(false);
    lineEdit()->style()->polish(lineEdit());
}

void FilterComboBox::setFieldStyleSheet(const QString &sheet)
{
    // Never for nothing: it takes long.
    if (lineEdit()->styleSheet() != sheet)
        lineEdit()->setStyleSheet(sheet);
}

// Measured when it is needed: ten thousand songs have many entries, and the font may change.
int FilterComboBox::popupWidth() const
{
    const QFontMetrics metrics(font());
    int widest = 0;
    for (int index = 0; index < count(); ++index)
        widest = std::max(widest, metrics.horizontalAdvance(itemText(index)));
    return std::min(widest + metrics.maxWidth() / 2 + extraWidth,
                    screen()->availableGeometry().width());
}

void FilterComboBox::showPopup()
{
    if (indexBefore < 0)
        setItemDelegate(new QStyledItemDelegate(this));
    indexBefore = std::max(currentIndex(), 0);
    view()->setMinimumWidth(popupWidth());
    QComboBox::showPopup();
}

// At the release: what the press opens the release may choose from.
bool FilterComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton && isEnabled())
        showPopup();
    return QComboBox::eventFilter(watched, event);
}

void FilterComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
