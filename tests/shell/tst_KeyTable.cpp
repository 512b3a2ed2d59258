#include "KeyTable.h"
#include "PositionsTexts.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QKeySequence>

#include <algorithm>

namespace {

// How the modifiers of a row are meant.
enum Held {
    Any,
    None,
    Shift,
    Ctrl,
    Alt,
    CtrlShift,
    AltGr,
    WithCtrl,
    WithoutCtrl,
    WithoutCtrlAlt,
};

constexpr unsigned onLibrary = 1U << LibraryScreen;
constexpr unsigned onPositions = 1U << PositionsScreen;
constexpr unsigned onChoreography = 1U << ChoreographyScreen;
constexpr unsigned onSettings = 1U << SettingsScreen;
constexpr unsigned onHelp = 1U << HelpScreen;
constexpr unsigned onLists = onLibrary | onPositions | onChoreography;
constexpr unsigned onAll = onLists | onSettings | onHelp;

struct Expectation
{
    const char *name;
    int key;
    Held held;
    unsigned screens;
    Command command;
    int argument;
};

// What the keys are to do. Where two fit, the first counts.
const Expectation expectations[] = {
    {"F1", Qt::Key_F1, Any, onAll, Command::ShowScreen, 0},
    {"F2", Qt::Key_F2, Any, onAll, Command::ShowScreen, 1},
    {"F3", Qt::Key_F3, Any, onAll, Command::ShowScreen, 2},
    {"F4", Qt::Key_F4, Any, onAll, Command::ShowScreen, 3},
    {"F5", Qt::Key_F5, Any, onAll, Command::ShowScreen, 4},
    {"F8", Qt::Key_F8, Any, onAll, Command::SetTempoPreset, 5},
    {"F9", Qt::Key_F9, Any, onAll, Command::SetTempoPreset, 4},
    {"F10", Qt::Key_F10, Any, onAll, Command::SetTempoPreset, 3},
    {"F11", Qt::Key_F11, Any, onAll, Command::SetTempoPreset, 2},
    {"F12", Qt::Key_F12, Any, onAll, Command::SetTempoPreset, 1},
    {"Esc", Qt::Key_Escape, Any, onAll, Command::LeaveFilter, 0},
    {"Ctrl+Shift+Tab", Qt::Key_Backtab, CtrlShift, onAll, Command::ShowNextScreen, -1},
    {"Ctrl+Shift+Tab, plain", Qt::Key_Tab, CtrlShift, onAll, Command::ShowNextScreen, -1},
    {"Ctrl+Tab", Qt::Key_Tab, WithCtrl, onAll, Command::ShowNextScreen, 1},
    {"Return in the library", Qt::Key_Return, Any, onLibrary, Command::LoadAndShowPositions, 0},
    {"Return", Qt::Key_Return, Any, onAll & ~onLibrary, Command::ShowScreen, 0},
    {"AltGr+Ins", Qt::Key_Insert, AltGr, onAll, Command::AddToPlaylist, 0},
    {"Del", Qt::Key_Delete, None, onLibrary, Command::RemoveSongFiles, 0},
    {"AltGr+Del", Qt::Key_Delete, AltGr, onAll, Command::RemoveFromPlaylist, 0},
    {"AltGr+Home", Qt::Key_Home, AltGr, onLists, Command::ShowPlaylistEnd, -1},
    {"AltGr+End", Qt::Key_End, AltGr, onLists, Command::ShowPlaylistEnd, 1},
    {"Home, library", Qt::Key_Home, None, onLibrary, Command::ScrollLibrary, -999999},
    {"End, library", Qt::Key_End, None, onLibrary, Command::ScrollLibrary, 999999},
    {"Home, positions", Qt::Key_Home, None, onPositions, Command::ScrollPositions, -999999},
    {"End, positions", Qt::Key_End, None, onPositions, Command::ScrollPositions, 999999},
    {"Home, choreography", Qt::Key_Home, None, onChoreography, Command::ScrollChoreography,
     -999999},
    {"End, choreography", Qt::Key_End, None, onChoreography, Command::ScrollChoreography, 999999},
    {"Up, library", Qt::Key_Up, None, onLibrary, Command::ScrollLibrary, -1},
    {"Down, library", Qt::Key_Down, None, onLibrary, Command::ScrollLibrary, 1},
    {"Up, positions", Qt::Key_Up, None, onPositions, Command::ScrollPositions, -1},
    {"Down, positions", Qt::Key_Down, None, onPositions, Command::ScrollPositions, 1},
    {"Up, choreography", Qt::Key_Up, None, onChoreography, Command::ScrollChoreography, -10},
    {"Down, choreography", Qt::Key_Down, None, onChoreography, Command::ScrollChoreography, 10},
    {"Shift+Up", Qt::Key_Up, Shift, onLibrary, Command::ExtendSelection, -1},
    {"Shift+Down", Qt::Key_Down, Shift, onLibrary, Command::ExtendSelection, 1},
    {"AltGr+Up", Qt::Key_Up, AltGr, onLists, Command::ScrollPlaylist, -1},
    {"AltGr+Down", Qt::Key_Down, AltGr, onLists, Command::ScrollPlaylist, 1},
    {"PgUp, library", Qt::Key_PageUp, None, onLibrary, Command::PageLibrary, -1},
    {"PgDn, library", Qt::Key_PageDown, None, onLibrary, Command::PageLibrary, 1},
    {"PgUp, positions", Qt::Key_PageUp, None, onPositions, Command::ScrollPositions, -5},
    {"PgDn, positions", Qt::Key_PageDown, None, onPositions, Command::ScrollPositions, 5},
    {"PgUp, choreography", Qt::Key_PageUp, None, onChoreography, Command::PageChoreography, -1},
    {"PgDn, choreography", Qt::Key_PageDown, None, onChoreography, Command::PageChoreography, 1},
    {"AltGr+PgUp", Qt::Key_PageUp, AltGr, onLists, Command::PagePlaylist, -1},
    {"AltGr+PgDn", Qt::Key_PageDown, AltGr, onLists, Command::PagePlaylist, 1},
    {"Home, help", Qt::Key_Home, None, onHelp, Command::ScrollHelp, -999999},
    {"End, help", Qt::Key_End, None, onHelp, Command::ScrollHelp, 999999},
    {"Up, help", Qt::Key_Up, None, onHelp, Command::ScrollHelp, -1},
    {"Down, help", Qt::Key_Down, None, onHelp, Command::ScrollHelp, 1},
    {"PgUp, help", Qt::Key_PageUp, None, onHelp, Command::ScrollHelp, -10},
    {"PgDn, help", Qt::Key_PageDown, None, onHelp, Command::ScrollHelp, 10},
    {"menu", Qt::Key_Menu, Any, onAll, Command::OpenMenu, 0},
    {"Left", Qt::Key_Left, Any, onAll, Command::Seek, -5000},
    {"Right", Qt::Key_Right, Any, onAll, Command::Seek, 5000},
    {"Alt++", Qt::Key_Plus, Alt, onAll, Command::StepFontSize, 1},
    {"+", Qt::Key_Plus, WithoutCtrlAlt, onAll, Command::StepTempo, 1},
    {"Alt+-", Qt::Key_Minus, Alt, onAll, Command::StepFontSize, -1},
    {"-", Qt::Key_Minus, WithoutCtrlAlt, onAll, Command::StepTempo, -1},
    {"Ctrl+,", Qt::Key_Comma, WithCtrl, onAll, Command::StepFrameHeight, -5},
    {"Ctrl+.", Qt::Key_Period, WithCtrl, onAll, Command::StepFrameHeight, 5},
    {"1", Qt::Key_1, WithoutCtrl, onAll, Command::StartPart, 0},
    {"2", Qt::Key_2, WithoutCtrl, onAll, Command::StartPart, 1},
    {"3", Qt::Key_3, WithoutCtrl, onAll, Command::StartPart, 2},
    {"4", Qt::Key_4, WithoutCtrl, onAll, Command::StartPart, 3},
    {"5", Qt::Key_5, WithoutCtrl, onAll, Command::StartPart, 4},
    {"6", Qt::Key_6, WithoutCtrl, onAll, Command::StartPart, 5},
    {"7", Qt::Key_7, WithoutCtrl, onAll, Command::StartPart, 6},
    {"8", Qt::Key_8, WithoutCtrl, onAll, Command::StartPart, 7},
    {"9", Qt::Key_9, WithoutCtrl, onAll, Command::StartPart, 8},
    {"0", Qt::Key_0, WithoutCtrl, onAll, Command::StartPart, 9},
    {"Ctrl+1", Qt::Key_1, WithCtrl, onAll, Command::StartPart, 10},
    {"Ctrl+2", Qt::Key_2, WithCtrl, onAll, Command::StartPart, 11},
    {"Ctrl+3", Qt::Key_3, WithCtrl, onAll, Command::StartPart, 12},
    {"Ctrl+4", Qt::Key_4, WithCtrl, onAll, Command::StartPart, 13},
    {"Ctrl+5", Qt::Key_5, WithCtrl, onAll, Command::StartPart, 14},
    {"Ctrl+6", Qt::Key_6, WithCtrl, onAll, Command::StartPart, 15},
    {"Ctrl+7", Qt::Key_7, WithCtrl, onAll, Command::StartPart, 16},
    {"Ctrl+8", Qt::Key_8, WithCtrl, onAll, Command::StartPart, 17},
    {"Ctrl+9", Qt::Key_9, WithCtrl, onAll, Command::StartPart, 18},
    {"Ctrl+0", Qt::Key_0, WithCtrl, onAll, Command::StartPart, 19},
    {"A", Qt::Key_A, None, onAll, Command::Pause, 0},
    {"Ctrl+A", Qt::Key_A, Ctrl, onAll, Command::SelectAllSongs, 0},
    {"Ctrl+Shift+A", Qt::Key_A, CtrlShift, onAll, Command::SelectNoSong, 0},
    {"B", Qt::Key_B, Any, onAll, Command::StepBpmDisplay, 0},
    {"C", Qt::Key_C, None, onAll, Command::StepTimeDisplay, 0},
    {"Ctrl+D", Qt::Key_D, WithCtrl, onLibrary, Command::CopySongFiles, 0},
    {"E, library", Qt::Key_E, None, onLibrary, Command::EditTags, 0},
    {"E, positions", Qt::Key_E, None, onPositions, Command::EditPositions, 0},
    {"F", Qt::Key_F, None, onLibrary, Command::FocusFilter, 0},
    {"Ctrl+F", Qt::Key_F, Ctrl, onLibrary, Command::FocusFilter, 0},
    {"L", Qt::Key_L, None, onLists, Command::TogglePlaylistPanel, 0},
    {"M", Qt::Key_M, None, onAll, Command::ToggleMaximised, 0},
    {"Ctrl+M", Qt::Key_M, WithCtrl, onAll, Command::MoveSongFiles, 0},
    {"Ctrl+O", Qt::Key_O, WithCtrl, onAll, Command::ToggleSlider, 0},
    {"O", Qt::Key_O, WithoutCtrl, onAll, Command::OpenPlaylistSelection, 0},
    {"P", Qt::Key_P, None, onAll, Command::Play, 0},
    {"Shift+P", Qt::Key_P, Shift, onAll, Command::MarkedPartLoop, 0},
    {"Ctrl+P", Qt::Key_P, WithCtrl, onPositions, Command::ToggleColumn, PartColumn},
    {"R, library", Qt::Key_R, None, onLibrary, Command::ResetFilters, 0},
    {"Ctrl+R", Qt::Key_R, WithCtrl, onLibrary, Command::Rescan, 0},
    {"R, positions", Qt::Key_R, None, onPositions, Command::Replace, 0},
    {"S", Qt::Key_S, None, onAll, Command::Stop, 0},
    {"AltGr+S", Qt::Key_S, AltGr, onAll, Command::SavePlaylist, 0},
    {"T", Qt::Key_T, None, onPositions, Command::ShiftTimes, 0},
    {"Ctrl+X", Qt::Key_X, WithCtrl, onAll, Command::Quit, 0},
    {"media play", Qt::Key_MediaPlay, Any, onAll, Command::Play, 0},
    {"media stop", Qt::Key_MediaStop, Any, onAll, Command::Stop, 0},
    {"media pause", Qt::Key_MediaPause, Any, onAll, Command::Pause, 0},
    {"media next", Qt::Key_MediaNext, Any, onAll, Command::PlayPlaylistEntry, 1},
    {"media previous", Qt::Key_MediaPrevious, Any, onAll, Command::PlayPlaylistEntry, -1},
    {"media play/pause", Qt::Key_MediaTogglePlayPause, Any, onAll, Command::PlayPause, 0},
};

// Keys beside the listed ones, of which none may do anything.
constexpr int otherKeys[]
    = {Qt::Key_F6, Qt::Key_F7,    Qt::Key_G, Qt::Key_H,   Qt::Key_I,    Qt::Key_J,
       Qt::Key_K,  Qt::Key_N,     Qt::Key_Q, Qt::Key_U,   Qt::Key_V,    Qt::Key_W,
       Qt::Key_Y,  Qt::Key_Space, Qt::Key_Z, Qt::Key_Tab, Qt::Key_Enter};

bool fits(Held held, bool shift, bool ctrl, bool alt, bool meta)
{
    switch (held) {
    case Any:
        return true;
    case None:
        return !shift && !ctrl && !alt && !meta;
    case Shift:
        return shift && !ctrl && !alt && !meta;
    case Ctrl:
        return !shift && ctrl && !alt && !meta;
    case Alt:
        return !shift && !ctrl && alt && !meta;
    case CtrlShift:
        return shift && ctrl && !alt && !meta;
    case AltGr:
        return !shift && ctrl && alt && !meta;
    case WithCtrl:
        return ctrl;
    case WithoutCtrl:
        return !ctrl;
    case WithoutCtrlAlt:
        return !ctrl && !alt;
    }
    return false;
}

const Expectation *expected(int key, Qt::KeyboardModifiers modifiers, int screen)
{
    const bool altGr = modifiers.testFlag(Qt::GroupSwitchModifier);
    const auto isHit = [&](const Expectation &e) {
        return e.key == key && (e.screens & (1U << screen)) != 0
               && fits(e.held, modifiers.testFlag(Qt::ShiftModifier),
                       altGr || modifiers.testFlag(Qt::ControlModifier),
                       altGr || modifiers.testFlag(Qt::AltModifier),
                       modifiers.testFlag(Qt::MetaModifier));
    };
    const auto *hit = std::find_if(std::begin(expectations), std::end(expectations), isHit);
    return hit == std::end(expectations) ? nullptr : hit;
}

QList<Qt::KeyboardModifiers> allModifiers()
{
    constexpr Qt::KeyboardModifier each[]
        = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier,
           Qt::MetaModifier,  Qt::KeypadModifier,  Qt::GroupSwitchModifier};
    QList<Qt::KeyboardModifiers> all;
    for (unsigned bits = 0; bits < (1U << std::size(each)); ++bits) {
        Qt::KeyboardModifiers modifiers;
        for (unsigned i = 0; i < std::size(each); ++i)
            modifiers.setFlag(each[i], (bits & (1U << i)) != 0);
        all.append(modifiers);
    }
    return all;
}

} // namespace

// The key table against a second one, with every combination of modifiers, on every screen.
class TestKeyTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void command_data();
    void command();
    void otherKeysDoNothing();
    void everyRowIsReached();
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
    const int key = expectations[row].key;
    int hits = 0;
    for (int screen = 0; screen < screenCount; ++screen) {
        for (const Qt::KeyboardModifiers modifiers : allModifiers()) {
            const Expectation *wanted = expected(key, modifiers, screen);
            const auto found = commandForKey(key, modifiers, screen);
            QCOMPARE(found.has_value(), wanted != nullptr);
            if (!wanted)
                continue;
            QCOMPARE(static_cast<int>(found->command), static_cast<int>(wanted->command));
            QCOMPARE(found->argument, wanted->argument);
            hits += wanted == &expectations[row] ? 1 : 0;
        }
    }
    QVERIFY(hits > 0);
}

void TestKeyTable::otherKeysDoNothing()
{
    for (const int key : otherKeys)
        for (int screen = 0; screen < screenCount; ++screen)
            for (const Qt::KeyboardModifiers modifiers : allModifiers())
                if (!expected(key, modifiers, screen))
                    QVERIFY2(!commandForKey(key, modifiers, screen),
                             qPrintable(QKeySequence(key).toString()));
}

// No row stands in the shadow of another one, and none does what nobody expects.
void TestKeyTable::everyRowIsReached()
{
    for (const KeyRow &row : keyTable()) {
        bool reached = false;
        for (int screen = 0; screen < screenCount; ++screen)
            for (const Qt::KeyboardModifiers modifiers : allModifiers()) {
                const auto found = commandForKey(row.key, modifiers, screen);
                const bool own = (modifiers & row.modifiers.mask) == row.modifiers.value
                                 && (row.screens & (1U << screen)) != 0;
                reached = reached
                          || (own && found && found->command == row.command
                              && found->argument == row.argument
                              && expected(row.key, modifiers, screen) != nullptr);
            }
        QVERIFY2(reached, qPrintable(QKeySequence(row.key).toString()));
    }
}

TARVELO_TEST_MAIN(TestKeyTable, QCoreApplication)
#include "tst_KeyTable.moc"
