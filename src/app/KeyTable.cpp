#include "KeyTable.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr ModifierRule any{Qt::NoModifier, Qt::NoModifier};
constexpr Qt::KeyboardModifiers all{Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier
                                    | Qt::MetaModifier | Qt::GroupSwitchModifier};
constexpr ModifierRule none{all, Qt::NoModifier};
constexpr ModifierRule withControl{Qt::ControlModifier, Qt::ControlModifier};
constexpr ModifierRule withoutControl{Qt::ControlModifier, Qt::NoModifier};
constexpr ModifierRule withoutControlAlt{Qt::ControlModifier | Qt::AltModifier, Qt::NoModifier};

constexpr unsigned on(Screen screen)
{
    return 1U << screen;
}
constexpr unsigned everywhere = (1U << screenCount) - 1;

constexpr int toTheEnd = 999999; // rows
constexpr int seekStep = 5000;   // milliseconds

constexpr KeyRow table[] = {
    {Qt::Key_F1, any, everywhere, Command::ShowScreen, LibraryScreen},
    {Qt::Key_F2, any, everywhere, Command::ShowScreen, PositionsScreen},
    {Qt::Key_F3, any, everywhere, Command::ShowScreen, ChoreographyScreen},
    {Qt::Key_F4, any, everywhere, Command::ShowScreen, SettingsScreen},
    {Qt::Key_F5, any, everywhere, Command::ShowScreen, HelpScreen},
    {Qt::Key_Return, any, on(LibraryScreen), Command::LoadAndShowPositions, 0},
    {Qt::Key_Return, any, everywhere & ~on(LibraryScreen), Command::ShowLibrary, 0},
    {Qt::Key_Home, none, on(LibraryScreen), Command::LibraryUp, toTheEnd},
    {Qt::Key_End, none, on(LibraryScreen), Command::LibraryDown, toTheEnd},
    {Qt::Key_Up, none, on(LibraryScreen), Command::LibraryUp, 1},
    {Qt::Key_Down, none, on(LibraryScreen), Command::LibraryDown, 1},
    {Qt::Key_PageUp, none, on(LibraryScreen), Command::LibraryPageUp, 0},
    {Qt::Key_PageDown, none, on(LibraryScreen), Command::LibraryPageDown, 0},
    {Qt::Key_Home, none, on(PositionsScreen), Command::PositionsUp, toTheEnd},
    {Qt::Key_End, none, on(PositionsScreen), Command::PositionsDown, toTheEnd},
    {Qt::Key_Up, none, on(PositionsScreen), Command::PositionsUp, 1},
    {Qt::Key_Down, none, on(PositionsScreen), Command::PositionsDown, 1},
    {Qt::Key_PageUp, none, on(PositionsScreen), Command::PositionsUp, 5},
    {Qt::Key_PageDown, none, on(PositionsScreen), Command::PositionsDown, 5},
    {Qt::Key_Left, any, everywhere, Command::SeekBack, seekStep},
    {Qt::Key_Right, any, everywhere, Command::SeekAhead, seekStep},
    {Qt::Key_Plus, withoutControlAlt, everywhere, Command::TempoUp, 1},
    {Qt::Key_Minus, withoutControlAlt, everywhere, Command::TempoDown, 1},
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
    {Qt::Key_P, none, everywhere, Command::Play, 0},
    {Qt::Key_P, withControl, on(PositionsScreen), Command::TogglePartColumn, 0},
    {Qt::Key_R, withControl, on(LibraryScreen), Command::Rescan, 0},
    {Qt::Key_S, none, everywhere, Command::Stop, 0},
    {Qt::Key_X, withControl, everywhere, Command::Quit, 0},
    {Qt::Key_MediaPlay, any, everywhere, Command::Play, 0},
    {Qt::Key_MediaStop, any, everywhere, Command::Stop, 0},
    {Qt::Key_MediaPause, any, everywhere, Command::Pause, 0},
    {Qt::Key_MediaTogglePlayPause, any, everywhere, Command::PlayPause, 0},
};

} // namespace

std::span<const KeyRow> keyTable()
{
    return table;
}

std::optional<KeyCommand> commandForKey(int key, Qt::KeyboardModifiers modifiers, int screen)
{
    const auto matches = [=](const KeyRow &row) {
        return row.key == key && (modifiers & row.modifiers.mask) == row.modifiers.value
               && (row.screens & (1U << screen)) != 0;
    };
    const auto *row = std::find_if(std::begin(table), std::end(table), matches);
    if (row == std::end(table))
        return std::nullopt;
    return KeyCommand{row->command, row->argument};
}
