#include "BottomFrame.h"

#include "PixelFont.h"
#include "Screens.h"
#include "Tips.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

enum ButtonId {
    FirstScreen,
    Time = FirstScreen + screenCount,
    Stop,
    Pause,
    Play,
    RunTime,
    TempoMinus,
    TempoDisplay,
    TempoDisplayBpm,
    TempoPlus,
    FirstPreset, // of the fifth, which stands at the left
    ButtonCount = FirstPreset + BottomFrame::presetCount
};

enum class Size { Large, Medium, Text };

constexpr int spacing = 8;

} // namespace

struct BottomFrame::Row
{
    const char *name;
    const char *group; // the widget in which it stands; null for the frame itself
    const char *tip;
    CommandCall call;
    Size size;
};

const BottomFrame::Row BottomFrame::table[] = {
    {"buttonList",
     "widgetScreenSwitch",
     nullptr,
     {Command::ShowScreen, LibraryScreen},
     Size::Large},
    {"buttonPositions",
     "widgetScreenSwitch",
     nullptr,
     {Command::ShowScreen, PositionsScreen},
     Size::Large},
    {"buttonPDF",
     "widgetScreenSwitch",
     nullptr,
     {Command::ShowScreen, ChoreographyScreen},
     Size::Large},
    {"buttonSettings",
     "widgetScreenSwitch",
     nullptr,
     {Command::ShowScreen, SettingsScreen},
     Size::Large},
    {"buttonHelp", "widgetScreenSwitch", nullptr, {Command::ShowScreen, HelpScreen}, Size::Large},
    {"buttonTime",
     nullptr,
     QT_TR_NOOP("Uhrzeit       C"),
     {Command::StepTimeDisplay, 0},
     Size::Text},
    {"buttonStop",
     "widgetControlButtons",
     QT_TR_NOOP("Musikwiedergabe stoppen       S"),
     {Command::Stop, 0},
     Size::Large},
    {"buttonPause",
     "widgetControlButtons",
     QT_TR_NOOP("Musikwiedergabe pausieren       A"),
     {Command::Pause, 0},
     Size::Large},
    {"buttonPlay",
     "widgetControlButtons",
     QT_TR_NOOP("Musikwiedergabe starten       P"),
     {Command::Play, 0},
     Size::Large},
    {"buttonRunTime",
     nullptr,
     QT_TR_NOOP("Spielzeit       C"),
     {Command::StepTimeDisplay, 0},
     Size::Text},
    {"buttonTempoMinus",
     "widgetTempoAdjust",
     QT_TR_NOOP("Langsamer       -"),
     {Command::StepTempo, -1},
     Size::Medium},
    {"buttonTempoDisplay",
     "widgetTempoAdjust",
     QT_TR_NOOP("Tempo in Prozent       B"),
     {Command::StepBpmDisplay, 0},
     Size::Text},
    {"buttonTempoDisplayBPM",
     "widgetTempoAdjust",
     QT_TR_NOOP("Tempo in Beats pro Minute       B"),
     {Command::StepBpmDisplay, 0},
     Size::Text},
    {"buttonTempoPlus",
     "widgetTempoAdjust",
     QT_TR_NOOP("Schneller       +"),
     {Command::StepTempo, 1},
     Size::Medium},
    {"buttonTempoPercent5",
     "widgetTempoPresets",
     QT_TR_NOOP("Tempo       F8"),
     {Command::SetTempoPreset, 5},
     Size::Large},
    {"buttonTempoPercent4",
     "widgetTempoPresets",
     QT_TR_NOOP("Tempo       F9"),
     {Command::SetTempoPreset, 4},
     Size::Large},
    {"buttonTempoPercent3",
     "widgetTempoPresets",
     QT_TR_NOOP("Tempo       F10"),
     {Command::SetTempoPreset, 3},
     Size::Large},
    {"buttonTempoPercent2",
     "widgetTempoPresets",
     QT_TR_NOOP("Tempo       F11"),
     {Command::SetTempoPreset, 2},
     Size::Large},
    {"buttonTempoPercent1",
     "widgetTempoPresets",
     QT_TR_NOOP("Tempo       F12"),
     {Command::SetTempoPreset, 1},
     Size::Large},
};

BottomFrame::BottomFrame(QWidget *parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("buttonFrame"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(spacing, 2, spacing, 2);
    layout->setSpacing(spacing);
    for (const Row &row : table)
        addButton(row);
    for (int screen = 0; screen < screenCount; ++screen)
        button(FirstScreen + screen)->setCheckable(true);
    for (int preset = 0; preset < presetCount; ++preset)
        button(FirstPreset + preset)->setCheckable(true);
    button(RunTime)->setText(QStringLiteral("00:00"));
    retranslate();
}

// A group begins with its first button.
void BottomFrame::addButton(const Row &row)
{
    QWidget *parent = this;
    if (row.group) {
        const QString name = QLatin1String(row.group);
        parent = findChild<QWidget *>(name, Qt::FindDirectChildrenOnly);
        if (!parent) {
            parent = new QWidget(this);
            parent->setObjectName(name);
            auto *inner = new QHBoxLayout(parent);
            inner->setContentsMargins(0, 0, 0, 0);
            inner->setSpacing(spacing / 2);
            groups.append(parent);
        }
    }
    auto *made = new QPushButton(parent);
    made->setObjectName(QLatin1String(row.name));
    made->setFocusPolicy(Qt::NoFocus);
    connect(made, &QPushButton::clicked, this, [this, call = row.call] { Q_EMIT requested(call); });
    buttons.append(made);
    auto *outer = static_cast<QHBoxLayout *>(layout());
    if (parent != this)
        parent->layout()->addWidget(made);
    QWidget *placed = parent == this ? made : parent;
    if (outer->indexOf(placed) >= 0)
        return;
    if (outer->count() > 0)
        outer->addStretch(1);
    outer->addWidget(placed);
}

void BottomFrame::retranslate()
{
    for (int id = 0; id < ButtonCount; ++id)
        describe(button(id), table[id].tip ? tr(table[id].tip) : screenTip(id));
}

void BottomFrame::setScreen(int screen)
{
    for (int i = 0; i < screenCount; ++i)
        button(i)->setChecked(i == screen);
}

void BottomFrame::setScreenEnabled(int screen, bool enabled)
{
    button(screen)->setEnabled(enabled);
}

bool BottomFrame::isScreenEnabled(int screen) const
{
    return button(screen)->isEnabled();
}

void BottomFrame::setFrameHeight(int height)
{
    setFixedHeight(height * 7 / 5);
    const int medium = height * 4 / 5;
    for (int id = 0; id < ButtonCount; ++id) {
        if (table[id].size == Size::Text)
            setTabularPixelSize(button(id), height);
        else if (table[id].size == Size::Medium)
            button(id)->setFixedSize(medium, medium);
        else
            button(id)->setFixedSize(height, height);
    }
    button(TempoDisplay)
        ->setFixedWidth(widthAt(button(TempoDisplay), height, QStringLiteral("+50%")) + spacing);
    button(TempoDisplayBpm)
        ->setFixedWidth(widthAt(button(TempoDisplayBpm), height, QStringLiteral("100b")) + spacing);
}

void BottomFrame::setTimeDisplayMode(int mode)
{
    timeMode = mode;
    button(Time)->setVisible(mode != RunTimeOnly);
    button(RunTime)->setVisible(mode == RunTimeOnly || mode == ParallelTime);
}

void BottomFrame::setClock(const QString &text)
{
    button(Time)->setText(text);
}

void BottomFrame::setRunTime(const QString &text)
{
    if (timeMode == AlternatingTime)
        button(Time)->setText(text);
    else if (timeMode != ClockOnly)
        button(RunTime)->setText(text);
}

void BottomFrame::setTempo(const QString &percent, const QString &bpm)
{
    button(TempoDisplay)->setText(percent);
    button(TempoDisplayBpm)->setText(bpm);
}

QString BottomFrame::tempoText() const
{
    return button(TempoDisplay)->text();
}

void BottomFrame::setBpmDisplay(int display)
{
    button(TempoDisplay)->setVisible(display != BpmOnly);
    button(TempoDisplayBpm)->setVisible(display != PercentOnly);
}

void BottomFrame::showAgain()
{
    button(TempoDisplay)->show();
    groups.constFirst()->show();
}

void BottomFrame::setPreset(int number, const QString &text)
{
    button(ButtonCount - number)->setText(text);
}

void BottomFrame::setPresetChecked(int number, bool checked)
{
    button(ButtonCount - number)->setChecked(checked);
}

void BottomFrame::setPresetsShown(bool shown)
{
    groups.constLast()->setVisible(shown);
}
