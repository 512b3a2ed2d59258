#include "KeyTable.h"
#include "TestMain.h"
#include <QKeySequence>

#include <QCoreApplication>

namespace {

constexpr int everyScreen = -1;

struct Expectation
{
    const char *name;
    int key;
    Qt::KeyboardModifiers modifiers;
    int screen; // or everyScreen
    Command command;
    int argument;
};

const Expectation expectations[] = {
    {"F1", Qt::Key_F1, {}, everyScreen, Command::ShowScreen, LibraryScreen},
    {"F2", Qt::Key_F2, {}, everyScreen, Command::ShowScreen, PositionsScreen},
    {"F2 with Shift", Qt::Key_F2, Qt::ShiftModifier, everyScreen, Command::ShowScreen,
     PositionsScreen},
    {"F3", Qt::Key_F3, {}, everyScreen, Command::ShowScreen, ChoreographyScreen},
    {"F4", Qt::Key_F4, {}, everyScreen, Command::ShowScreen, SettingsScreen},
    {"F5", Qt::Key_F5, {}, everyScreen, Command::ShowScreen, HelpScreen},
    {"Return in the library", Qt::Key_Return, {}, LibraryScreen, Command::LoadAndShowPositions, 0},
    {"Return on positions", Qt::Key_Return, {}, PositionsScreen, Command::ShowLibrary, 0},
    {"Return in choreography", Qt::Key_Return, {}, ChoreographyScreen, Command::ShowLibrary, 0},
    {"Return in settings", Qt::Key_Return, {}, SettingsScreen, Command::ShowLibrary, 0},
    {"Return in help", Qt::Key_Return, {}, HelpScreen, Command::ShowLibrary, 0},
    {"Up in the library", Qt::Key_Up, {}, LibraryScreen, Command::LibraryUp, 1},
    {"Down in the library", Qt::Key_Down, {}, LibraryScreen, Command::LibraryDown, 1},
    {"keypad Down", Qt::Key_Down, Qt::KeypadModifier, LibraryScreen, Command::LibraryDown, 1},
    {"Home in the library", Qt::Key_Home, {}, LibraryScreen, Command::LibraryUp, 999999},
    {"End in the library", Qt::Key_End, {}, LibraryScreen, Command::LibraryDown, 999999},
    {"PgUp in the library", Qt::Key_PageUp, {}, LibraryScreen, Command::LibraryPageUp, 0},
    {"PgDn in the library", Qt::Key_PageDown, {}, LibraryScreen, Command::LibraryPageDown, 0},
    {"Up on positions", Qt::Key_Up, {}, PositionsScreen, Command::PositionsUp, 1},
    {"Down on positions", Qt::Key_Down, {}, PositionsScreen, Command::PositionsDown, 1},
    {"Home on positions", Qt::Key_Home, {}, PositionsScreen, Command::PositionsUp, 999999},
    {"End on positions", Qt::Key_End, {}, PositionsScreen, Command::PositionsDown, 999999},
    {"PgUp on positions", Qt::Key_PageUp, {}, PositionsScreen, Command::PositionsUp, 5},
    {"PgDn on positions", Qt::Key_PageDown, {}, PositionsScreen, Command::PositionsDown, 5},
    {"Left", Qt::Key_Left, {}, everyScreen, Command::SeekBack, 5000},
    {"Right", Qt::Key_Right, {}, everyScreen, Command::SeekAhead, 5000},
    {"+", Qt::Key_Plus, {}, everyScreen, Command::TempoUp, 1},
    {"+ with Shift", Qt::Key_Plus, Qt::ShiftModifier, everyScreen, Command::TempoUp, 1},
    {"keypad +", Qt::Key_Plus, Qt::KeypadModifier, everyScreen, Command::TempoUp, 1},
    {"-", Qt::Key_Minus, {}, everyScreen, Command::TempoDown, 1},
    {"1", Qt::Key_1, {}, everyScreen, Command::StartPart, 0},
    {"2", Qt::Key_2, {}, everyScreen, Command::StartPart, 1},
    {"3", Qt::Key_3, {}, everyScreen, Command::StartPart, 2},
    {"4", Qt::Key_4, {}, everyScreen, Command::StartPart, 3},
    {"5", Qt::Key_5, {}, everyScreen, Command::StartPart, 4},
    {"6", Qt::Key_6, {}, everyScreen, Command::StartPart, 5},
    {"7", Qt::Key_7, {}, everyScreen, Command::StartPart, 6},
    {"8", Qt::Key_8, {}, everyScreen, Command::StartPart, 7},
    {"9", Qt::Key_9, {}, everyScreen, Command::StartPart, 8},
    {"0", Qt::Key_0, {}, everyScreen, Command::StartPart, 9},
    {"Ctrl+1", Qt::Key_1, Qt::ControlModifier, everyScreen, Command::StartPart, 10},
    {"Ctrl+2", Qt::Key_2, Qt::ControlModifier, everyScreen, Command::StartPart, 11},
    {"Ctrl+3", Qt::Key_3, Qt::ControlModifier, everyScreen, Command::StartPart, 12},
    {"Ctrl+4", Qt::Key_4, Qt::ControlModifier, everyScreen, Command::StartPart, 13},
    {"Ctrl+5", Qt::Key_5, Qt::ControlModifier, everyScreen, Command::StartPart, 14},
    {"Ctrl+6", Qt::Key_6, Qt::ControlModifier, everyScreen, Command::StartPart, 15},
    {"Ctrl+7", Qt::Key_7, Qt::ControlModifier, everyScreen, Command::StartPart, 16},
    {"Ctrl+8", Qt::Key_8, Qt::ControlModifier, everyScreen, Command::StartPart, 17},
    {"Ctrl+9", Qt::Key_9, Qt::ControlModifier, everyScreen, Command::StartPart, 18},
    {"Ctrl+0", Qt::Key_0, Qt::ControlModifier, everyScreen, Command::StartPart, 19},
    {"A", Qt::Key_A, {}, everyScreen, Command::Pause, 0},
    {"P", Qt::Key_P, {}, everyScreen, Command::Play, 0},
    {"Ctrl+P on positions", Qt::Key_P, Qt::ControlModifier, PositionsScreen,
     Command::TogglePartColumn, 0},
    {"S", Qt::Key_S, {}, everyScreen, Command::Stop, 0},
    {"Ctrl+R in the library", Qt::Key_R, Qt::ControlModifier, LibraryScreen, Command::Rescan, 0},
    {"Ctrl+X", Qt::Key_X, Qt::ControlModifier, everyScreen, Command::Quit, 0},
    {"media play", Qt::Key_MediaPlay, {}, everyScreen, Command::Play, 0},
    {"media stop", Qt::Key_MediaStop, {}, everyScreen, Command::Stop, 0},
    {"media pause", Qt::Key_MediaPause, {}, everyScreen, Command::Pause, 0},
    {"media play/pause", Qt::Key_MediaTogglePlayPause, {}, everyScreen, Command::PlayPause, 0},
};

} // namespace

class TestKeyTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void command_data();
    void command();
    void everyRowIsExpected();
    void nothing_data();
    void nothing();
};

void TestKeyTable::command_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < static_cast<int>(std::size(expectations)); ++row)
        QTest::newRow(expectations[row].name) << row;
}

void TestKeyTable::command()
{
    QFETCH(int, row);
    const Expectation &expected = expectations[row];
    for (int screen = 0; screen < screenCount; ++screen) {
        if (expected.screen != everyScreen && expected.screen != screen)
            continue;
        const auto found = commandForKey(expected.key, expected.modifiers, screen);
        QVERIFY(found);
        QCOMPARE(static_cast<int>(found->command), static_cast<int>(expected.command));
        QCOMPARE(found->argument, expected.argument);
    }
}

// Each row of the table is reached by one of the expectations above, on each of its screens.
void TestKeyTable::everyRowIsExpected()
{
    for (const KeyRow &row : keyTable()) {
        for (int screen = 0; screen < screenCount; ++screen) {
            if ((row.screens & (1U << screen)) == 0)
                continue;
            const bool expected = std::any_of(
                std::begin(expectations), std::end(expectations), [&](const Expectation &e) {
                    return e.key == row.key && e.command == row.command
                           && e.argument == row.argument
                           && (e.modifiers & row.modifiers.mask) == row.modifiers.value
                           && (e.screen == everyScreen || e.screen == screen);
                });
            QVERIFY2(expected, qPrintable(QKeySequence(row.key).toString()));
        }
    }
}

void TestKeyTable::nothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("screen");
    const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers, int screen) {
        QTest::newRow(name) << key << static_cast<int>(modifiers) << screen;
    };
    row("+ with Ctrl", Qt::Key_Plus, Qt::ControlModifier, 0);
    row("+ with Alt", Qt::Key_Plus, Qt::AltModifier, 0);
    row("- with Ctrl", Qt::Key_Minus, Qt::ControlModifier, 0);
    row("A with Shift", Qt::Key_A, Qt::ShiftModifier, 0);
    row("P with Ctrl in the library", Qt::Key_P, Qt::ControlModifier, LibraryScreen);
    row("S with AltGr", Qt::Key_S, Qt::ControlModifier | Qt::AltModifier, 0);
    row("S with AltGr of X11", Qt::Key_S, Qt::GroupSwitchModifier, 0);
    row("Up with AltGr", Qt::Key_Up, Qt::GroupSwitchModifier, LibraryScreen);
    row("Up with Shift", Qt::Key_Up, Qt::ShiftModifier, LibraryScreen);
    row("Up in settings", Qt::Key_Up, {}, SettingsScreen);
    row("Home in help", Qt::Key_Home, {}, HelpScreen);
    row("Ctrl+R on positions", Qt::Key_R, Qt::ControlModifier, PositionsScreen);
    row("X alone", Qt::Key_X, {}, 0);
    row("Z", Qt::Key_Z, {}, 0);
}

void TestKeyTable::nothing()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, screen);
    QVERIFY(!commandForKey(key, Qt::KeyboardModifiers::fromInt(modifiers), screen));
}

TARVELO_TEST_MAIN(TestKeyTable, QCoreApplication)
#include "tst_KeyTable.moc"
