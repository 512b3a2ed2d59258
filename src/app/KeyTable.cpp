#include "KeyTable.h"

#include "PositionsTexts.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr Qt::KeyboardModifiers all{Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier
                                    | Qt::MetaModifier};

constexpr ModifierRule any{Qt::NoModifier, Qt::NoModifier};
constexpr ModifierRule none{all, Qt::NoModifier};
constexpr ModifierRule shift{all, Qt::ShiftModifier};
constexpr ModifierRule control{all, Qt::ControlModifier};
constexpr ModifierRule alt{all, Qt::AltModifier};
constexpr ModifierRule controlShift{all, Qt::ControlModifier | Qt::ShiftModifier};
constexpr ModifierRule altGr{all, Qt::ControlModifier | Qt::AltModifier};
constexpr ModifierRule withControl{Qt::ControlModifier, Qt::ControlModifier};
constexpr ModifierRule withoutControl{Qt::ControlModifier, Qt::NoModifier};
constexpr ModifierRule withoutControlAlt{Qt::ControlModifier | Qt::AltModifier, Qt::NoModifier};

constexpr unsigned on(Screen screen)
{
    return 1U << screen;
}
constexpr unsigned everywhere = (1U << screenCount) - 1;
constexpr unsigned withLists = on(LibraryScreen) | on(PositionsScreen) | on(ChoreographyScreen);

constexpr int toTheEnd = 999999;     // rows or pixels
constexpr int seekStep = 5000;       // milliseconds
constexpr int positionsPage = 5;     // rows
constexpr int helpPage = 10;         // lines
constexpr int choreographyStep = 10; // pixels
constexpr int frameStep = 5;         // pixels

// The first row that fits counts.
constexpr KeyRow table[] = {
    {Qt::Key_F1, any, everywhere, Command::ShowScreen, LibraryScreen},
    {Qt::Key_F2, any, everywhere, Command::ShowScreen, PositionsScreen},
    {Qt::Key_F3, any, everywhere, Command::ShowScreen, ChoreographyScreen},
    {Qt::Key_F4, any, everywhere, Command::ShowScreen, SettingsScreen},
    {Qt::Key_F5, any, everywhere, Command::ShowScreen, HelpScreen},
    {Qt::Key_F8, any, everywhere, Command::SetTempoPreset, 5},
    {Qt::Key_F9, any, everywhere, Command::SetTempoPreset, 4},
    {Qt::Key_F10, any, everywhere, Command::SetTempoPreset, 3},
    {Qt::Key_F11, any, everywhere, Command::SetTempoPreset, 2},
    {Qt::Key_F12, any, everywhere, Command::SetTempoPreset, 1},
    {Qt::Key_Escape, any, everywhere, Command::LeaveFilter, 0},
    // With Shift the key has a name of its own.
    {Qt::Key_Backtab, controlShift, everywhere, Command::ShowNextScreen, -1},
    {Qt::Key_Tab, controlShift, everywhere, Command::ShowNextScreen, -1},
    {Qt::Key_Tab, withControl, everywhere, Command::ShowNextScreen, 1},
    {Qt::Key_Return, any, on(LibraryScreen), Command::LoadAndShowPositions, 0},
    {Qt::Key_Return, any, everywhere & ~on(LibraryScreen), Command::ShowScreen, LibraryScreen},

    {Qt::Key_Insert, altGr, everywhere, Command::AddToPlaylist, 0},
    {Qt::Key_Delete, none, on(LibraryScreen), Command::RemoveSongFiles, 0},
    {Qt::Key_Delete, altGr, everywhere, Command::RemoveFromPlaylist, 0},
    {Qt::Key_Home, altGr, withLists, Command::ShowPlaylistEnd, -1},
    {Qt::Key_End, altGr, withLists, Command::ShowPlaylistEnd, 1},
    {Qt::Key_Home, none, on(LibraryScreen), Command::ScrollLibrary, -toTheEnd},
    {Qt::Key_End, none, on(LibraryScreen), Command::ScrollLibrary, toTheEnd},
    {Qt::Key_Home, none, on(PositionsScreen), Command::ScrollPositions, -toTheEnd},
    {Qt::Key_End, none, on(PositionsScreen), Command::ScrollPositions, toTheEnd},
    {Qt::Key_Home, none, on(ChoreographyScreen), Command::ScrollChoreography, -toTheEnd},
    {Qt::Key_End, none, on(ChoreographyScreen), Command::ScrollChoreography, toTheEnd},
    {Qt::Key_Up, none, on(LibraryScreen), Command::ScrollLibrary, -1},
    {Qt::Key_Down, none, on(LibraryScreen), Command::ScrollLibrary, 1},
    {Qt::Key_Up, none, on(PositionsScreen), Command::ScrollPositions, -1},
    {Qt::Key_Down, none, on(PositionsScreen), Command::ScrollPositions, 1},
    {Qt::Key_Up, none, on(ChoreographyScreen), Command::ScrollChoreography, -choreographyStep},
    {Qt::Key_Down, none, on(ChoreographyScreen), Command::ScrollChoreography, choreographyStep},
    {Qt::Key_Up, shift, on(LibraryScreen), Command::ExtendSelection, -1},
    {Qt::Key_Down, shift, on(LibraryScreen), Command::ExtendSelection, 1},
    {Qt::Key_Up, altGr, withLists, Command::ScrollPlaylist, -1},
    {Qt::Key_Down, altGr, withLists, Command::ScrollPlaylist, 1},
    {Qt::Key_PageUp, none, on(LibraryScreen), Command::PageLibrary, -1},
    {Qt::Key_PageDown, none, on(LibraryScreen), Command::PageLibrary, 1},
    {Qt::Key_PageUp, none, on(PositionsScreen), Command::ScrollPositions, -positionsPage},
    {Qt::Key_PageDown, none, on(PositionsScreen), Command::ScrollPositions, positionsPage},
    {Qt::Key_PageUp, none, on(ChoreographyScreen), Command::PageChoreography, -1},
    {Qt::Key_PageDown, none, on(ChoreographyScreen), Command::PageChoreography, 1},
    {Qt::Key_PageUp, altGr, withLists, Command::PagePlaylist, -1},
    {Qt::Key_PageDown, altGr, withLists, Command::PagePlaylist, 1},

    {Qt::Key_Home, none, on(HelpScreen), Command::ScrollHelp, -toTheEnd},
    {Qt::Key_End, none, on(HelpScreen), Command::ScrollHelp, toTheEnd},
    {Qt::Key_Up, none, on(HelpScreen), Command::ScrollHelp, -1},
    {Qt::Key_Down, none, on(HelpScreen), Command::ScrollHelp, 1},
    {Qt::Key_PageUp, none, on(HelpScreen), Command::ScrollHelp, -helpPage},
    {Qt::Key_PageDown, none, on(HelpScreen), Command::ScrollHelp, helpPage},
    {Qt::Key_Menu, any, everywhere, Command::OpenMenu, 0},

    {Qt::Key_Left, any, everywhere, Command::Seek, -seekStep},
    {Qt::Key_Right, any, everywhere, Command::Seek, seekStep},
    {Qt::Key_Plus, alt, everywhere, Command::StepFontSize, 1},
    {Qt::Key_Plus, withoutControlAlt, everywhere, Command::StepTempo, 1},
    {Qt::Key_Minus, alt, everywhere, Command::StepFontSize, -1},
    {Qt::Key_Minus, withoutControlAlt, everywhere, Command::StepTempo, -1},
    {Qt::Key_Comma, withControl, everywhere, Command::StepFrameHeight, -frameStep},
    {Qt::Key_Period, withControl, everywhere, Command::StepFrameHeight, frameStep},

    {Qt::Key_1, withoutControl, everywhere, Command::StartPart, 0},
    {Qt::Key_2, withoutControl, everywhere, Command::StartPart, 1},
    {Qt::Key_3, withoutControl, everywhere, Command::StartPart, 2},
    {Qt::Key_4, withoutControl, everywhere, Command::StartPart, 3},
    {Qt::Key_5, withoutControl, everywhere, Command::StartPart, 4},
    {Qt::Key_6, withoutControl, everywhere, Command::StartPart, 5},
    {Qt::Key_7, withoutControl, everywhere, Command::StartPart, 6},
    {Qt::Key_8, withoutControl, everywhere, Command::StartPart, 7},
    {Qt::Key_9, withoutControl, everywhere, Command::StartPart, 8},
    {Qt::Key_0, withoutControl, everywhere, Command::StartPart, 9},
    {Qt::Key_1, withControl, everywhere, Command::StartPart, 10},
    {Qt::Key_2, withControl, everywhere, Command::StartPart, 11},
    {Qt::Key_3, withControl, everywhere, Command::StartPart, 12},
    {Qt::Key_4, withControl, everywhere, Command::StartPart, 13},
    {Qt::Key_5, withControl, everywhere, Command::StartPart, 14},
    {Qt::Key_6, withControl, everywhere, Command::StartPart, 15},
    {Qt::Key_7, withControl, everywhere, Command::StartPart, 16},
    {Qt::Key_8, withControl, everywhere, Command::StartPart, 17},
    {Qt::Key_9, withControl, everywhere, Command::StartPart, 18},
    {Qt::Key_0, withControl, everywhere, Command::StartPart, 19},

    {Qt::Key_A, none, everywhere, Command::Pause, 0},
    {Qt::Key_A, control, everywhere, Command::SelectAllSongs, 0},
    {Qt::Key_A, controlShift, everywhere, Command::SelectNoSong, 0},
    {Qt::Key_B, any, everywhere, Command::StepBpmDisplay, 0},
    {Qt::Key_C, none, everywhere, Command::StepTimeDisplay, 0},
    {Qt::Key_D, withControl, on(LibraryScreen), Command::CopySongFiles, 0},
    {Qt::Key_E, none, on(LibraryScreen), Command::EditTags, 0},
    {Qt::Key_E, none, on(PositionsScreen), Command::EditPositions, 0},
    {Qt::Key_F, none, on(LibraryScreen), Command::FocusFilter, 0},
    {Qt::Key_F, control, on(LibraryScreen), Command::FocusFilter, 0},
    {Qt::Key_L, none, withLists, Command::TogglePlaylistPanel, 0},
    {Qt::Key_M, none, everywhere, Command::ToggleMaximised, 0},
    {Qt::Key_M, withControl, everywhere, Command::MoveSongFiles, 0},
    {Qt::Key_O, withControl, everywhere, Command::ToggleSlider, 0},
    {Qt::Key_O, withoutControl, everywhere, Command::OpenPlaylistSelection, 0},
    {Qt::Key_P, none, everywhere, Command::Play, 0},
    {Qt::Key_P, shift, everywhere, Command::MarkedPartLoop, 0},
    {Qt::Key_P, withControl, on(PositionsScreen), Command::ToggleColumn, PartColumn},
    {Qt::Key_R, none, on(LibraryScreen), Command::ResetFilters, 0},
    {Qt::Key_R, withControl, on(LibraryScreen), Command::Rescan, 0},
    {Qt::Key_R, none, on(PositionsScreen), Command::Replace, 0},
    {Qt::Key_S, none, everywhere, Command::Stop, 0},
    {Qt::Key_S, altGr, everywhere, Command::SavePlaylist, 0},
    {Qt::Key_T, none, on(PositionsScreen), Command::ShiftTimes, 0},
    {Qt::Key_X, withControl, everywhere, Command::Quit, 0},

    {Qt::Key_MediaPlay, any, everywhere, Command::Play, 0},
    {Qt::Key_MediaStop, any, everywhere, Command::Stop, 0},
    {Qt::Key_MediaPause, any, everywhere, Command::Pause, 0},
    {Qt::Key_MediaNext, any, everywhere, Command::PlayPlaylistEntry, 1},
    {Qt::Key_MediaPrevious, any, everywhere, Command::PlayPlaylistEntry, -1},
    {Qt::Key_MediaTogglePlayPause, any, everywhere, Command::PlayPause, 0},
};

} // namespace

std::span<const KeyRow> keyTable()
{
    return table;
}

Qt::KeyboardModifiers meantModifiers(Qt::KeyboardModifiers modifiers)
{
    modifiers &= ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (modifiers.testFlag(Qt::GroupSwitchModifier)) {
        modifiers &= ~Qt::KeyboardModifiers(Qt::GroupSwitchModifier);
        modifiers |= Qt::ControlModifier | Qt::AltModifier;
    }
    return modifiers;
}

std::optional<CommandCall> commandForKey(int key, Qt::KeyboardModifiers modifiers, int screen)
{
    const Qt::KeyboardModifiers meant = meantModifiers(modifiers);
    const auto matches = [=](const KeyRow &row) {
        return row.key == key && (meant & row.modifiers.mask) == row.modifiers.value
               && (row.screens & (1U << screen)) != 0;
    };
    const auto *row = std::find_if(std::begin(table), std::end(table), matches);
    if (row == std::end(table))
        return std::nullopt;
    return CommandCall{row->command, row->argument};
}
