// How the settings screen is put together from its table.

#include "CopyPage.h"
#include "FlowLayout.h"
#include "MessageBoxes.h"
#include "SettingsPage.h"
#include "SettingsWidgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>

#include <algorithm>

using Settings::Key;

struct SettingsPage::Place
{
    QGridLayout *grid = nullptr;
    int row = -1;
    QLayout *cell = nullptr;
    const char *label = nullptr;
    QWidget *page = nullptr;
};

namespace {

enum Column { LabelColumn, WidgetColumn, InfoColumn };
constexpr int columnCount = 3;

bool isField(SettingsKind kind)
{
    return kind == SettingsKind::LineEdit || kind == SettingsKind::PasswordEdit
           || kind == SettingsKind::DirectoryField;
}

bool startsSomething(const SettingsItem &item)
{
    return item.kind == SettingsKind::Row || item.kind == SettingsKind::Tab;
}

// A row with a field takes all the room there is; in any other one, what doesn't fit goes below.
bool hasField(std::span<const SettingsItem> row)
{
    return std::any_of(row.begin(), row.end(),
                       [](const SettingsItem &item) { return isField(item.kind); });
}

std::span<const SettingsItem> rowAt(std::size_t first)
{
    const auto items = settingsItems();
    std::size_t end = first + 1;
    while (end < items.size() && !startsSomething(items[end]))
        ++end;
    return items.subspan(first, end - first);
}

// Which of several boxes of its row this one is, from 1; 0 for the only one.
int numberInRow(std::span<const SettingsItem> row, const SettingsItem &item)
{
    const auto isSuch = [&](const SettingsItem &other) { return other.kind == item.kind; };
    if (item.kind != SettingsKind::SpinBox || std::count_if(row.begin(), row.end(), isSuch) < 2)
        return 0;
    return 1
           + static_cast<int>(
               std::count_if(row.begin(), row.begin() + (&item - row.data()), isSuch));
}

} // namespace

SettingsPage::SettingsPage(QWidget *parent)
    : QTabWidget(parent)
{
    setObjectName(QStringLiteral("tabWidgetSettings"));
    setFocusPolicy(Qt::NoFocus);
    build();
    buildTextPages();
    // The window's keys change the tabs.
    tabBar()->setFocusPolicy(Qt::NoFocus);
    for (auto *button : tabBar()->findChildren<QAbstractButton *>())
        button->setFocusPolicy(Qt::NoFocus);
    connectTempoChain();
    groups.value(static_cast<int>(Key::PositionAlignment))
        ->button(Qt::AlignVCenter)
        ->setChecked(true);
    enableCloud();
    setTestUpdateShown(false);
    retranslate();
    fitDistances();
    // What has never been on show doesn't have the theme's measures yet.
    connect(this, &QTabWidget::currentChanged, this, &SettingsPage::fitSizes);
}

void SettingsPage::build()
{
    Place place;
    const auto items = settingsItems();
    for (std::size_t first = 0; first < items.size();) {
        const auto row = rowAt(first);
        first += row.size();
        if (row.front().kind == SettingsKind::Tab) {
            addTabPage(place, row.front());
            continue;
        }
        addRow(place, row.front(), hasField(row));
        for (const SettingsItem &item : row.subspan(1)) {
            addItem(place, item);
            builtItems.last().number = numberInRow(row, item);
        }
    }
    for (QGridLayout *grid : std::as_const(grids))
        grid->setRowStretch(grid->rowCount(), 1);
}

// A page that is larger than the window scrolls: it doesn't make the window grow.
void SettingsPage::addTabPage(Place &place, const SettingsItem &item)
{
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto *page = new QWidget(area);
    page->setObjectName(QLatin1String(item.name));
    auto *grid = new QGridLayout(page);
    grid->setColumnStretch(WidgetColumn, 1);
    area->setWidget(page);
    addTab(area, QString());
    grids.append(grid);
    place = {.grid = grid, .page = page};
}

void SettingsPage::addRow(Place &place, const SettingsItem &item, bool stretches)
{
    ++place.row;
    place.label = item.text;
    if (stretches)
        place.cell = new QHBoxLayout;
    else
        place.cell = new FlowLayout;
    rows.append(place.cell);
    auto *label = new QLabel(place.page);
    builtItems.append({&item, label, item.text, 0});
    if (item.wide) {
        place.grid->addWidget(label, place.row, LabelColumn, 1, columnCount);
        label->setVisible(item.text);
        place.grid->addLayout(place.cell, ++place.row, LabelColumn, 1, columnCount);
        return;
    }
    addCell(label);
    place.grid->addWidget(label, place.row, LabelColumn, Qt::AlignTop);
    place.grid->addLayout(place.cell, place.row, WidgetColumn);
}

void SettingsPage::addCell(QWidget *widget)
{
    cells.append(widget);
}

void SettingsPage::addItem(Place &place, const SettingsItem &item)
{
    QWidget *widget = makeSettingsWidget(item, place.page);
    builtItems.append({&item, widget, place.label, 0});
    connectItem(item, widget);
    widget->installEventFilter(this);
    if (item.kind == SettingsKind::InfoButton) {
        smallButtons.append(qobject_cast<QAbstractButton *>(widget));
        auto *cell = new QWidget(place.page);
        auto *centred = new QVBoxLayout(cell);
        centred->setContentsMargins(0, 0, 0, 0);
        centred->addWidget(widget, 0, Qt::AlignVCenter);
        addCell(cell);
        place.grid->addWidget(cell, place.row, InfoColumn, Qt::AlignTop);
        return;
    }
    QWidget *cell = item.kind == SettingsKind::SpinBox ? withStepButtons(item, widget) : widget;
    place.cell->addWidget(cell);
    if (item.kind != SettingsKind::TextEdit && item.kind != SettingsKind::Sample)
        addCell(cell);
}

QWidget *SettingsPage::withStepButtons(const SettingsItem &item, QWidget *box)
{
    auto *cell = new QWidget(box->parentWidget());
    auto *layout = new QHBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(makeStepButton(item, "Minus", -item.step, cell));
    layout->addWidget(box);
    layout->addWidget(makeStepButton(item, "Plus", item.step, cell));
    return cell;
}

// Who works without a mouse has the arrow keys in the box itself.
QAbstractButton *SettingsPage::makeStepButton(const SettingsItem &item, const char *ending,
                                              int step, QWidget *parent)
{
    auto *button = new QPushButton(parent);
    const QString name = QLatin1String(item.name).mid(QLatin1String("spinBox").size());
    button->setObjectName(QStringLiteral("button%1%2").arg(name, QLatin1String(ending)));
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRepeat(true);
    smallButtons.append(button);
    connect(button, &QPushButton::clicked, this, [this, key = *item.key, step] {
        auto *box = widgetOf<QSpinBox>(key);
        if (key != Key::FrameHeight)
            step < 0 ? box->stepDown() : box->stepUp();
        Q_EMIT stepped(key, step);
    });
    return button;
}

void SettingsPage::buildTextPages()
{
    systemInfoPage = new CopyPage("tabEasterEgg", "textEditSystemInfo", "buttonCopySysInfo",
                                  CopyPage::CopyAs::Markdown, this);
    logPage
        = new CopyPage("tab_2", "textEditLog", "buttonCopyLog", CopyPage::CopyAs::PlainText, this);
    addTab(systemInfoPage, QString());
    addTab(logPage, QString());
    for (CopyPage *page : {systemInfoPage, logPage}) {
        for (QWidget *widget : page->findChildren<QPushButton *>())
            widget->installEventFilter(this);
    }
}

void SettingsPage::connectItem(const SettingsItem &item, QWidget *widget)
{
    const Key key = item.key.value_or(Key::Count);
    const auto change = [this, key] { tellChange(key); };
    const auto choice = [this, key] { tellChoice(key); };
    if (item.kind == SettingsKind::RadioButton)
        connectRadioButton(item, qobject_cast<QAbstractButton *>(widget));
    else if (auto *number = qobject_cast<QSpinBox *>(widget))
        connect(number, &QSpinBox::valueChanged, this, choice);
    else if (auto *box = qobject_cast<QComboBox *>(widget))
        connect(box, &QComboBox::activated, this, choice);
    else if (auto *button = qobject_cast<QPushButton *>(widget))
        connect(button, &QPushButton::clicked, this, [this, &item] {
            if (item.info)
                showInfoOf(item);
            else
                Q_EMIT pressed(item.button);
        });
    else if (auto *edit = qobject_cast<QPlainTextEdit *>(widget))
        connect(edit, &QPlainTextEdit::textChanged, this, [this, key] {
            checkPartPresets();
            tellChange(key);
        });
    else if (auto *field = qobject_cast<QLineEdit *>(widget))
        connect(field, &QLineEdit::textEdited, this, change);
    else if (auto *check = qobject_cast<QCheckBox *>(widget); check && item.key)
        connect(check, &QCheckBox::toggled, this, change);
    else if (check)
        connect(check, &QCheckBox::clicked, this, &SettingsPage::cacheToggled);
    if (key == Key::CloudOn)
        connect(qobject_cast<QCheckBox *>(widget), &QCheckBox::toggled, this,
                &SettingsPage::enableCloud);
    if (key == Key::MaxFontSizeLyrics)
        connect(qobject_cast<QSpinBox *>(widget), &QSpinBox::valueChanged, this,
                &SettingsPage::showSample);
}

// Clicked also when it is the chosen one: what is stored may be another.
void SettingsPage::connectRadioButton(const SettingsItem &item, QAbstractButton *button)
{
    const Key key = *item.key;
    QButtonGroup *&group = groups[static_cast<int>(key)];
    if (!group) {
        group = new QButtonGroup(this);
        connect(group, &QButtonGroup::idClicked, this, [this, key] { tellChoice(key); });
    }
    group->addButton(button, item.value);
}
