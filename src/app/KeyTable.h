#pragma once

#include "Screens.h"

#include <Qt>

#include <optional>
#include <span>

// The one table of the window's keys. Shortcuts of menu entries work in addition to it.

enum class Command {
    ShowScreen, // argument: the screen
    LoadAndShowPositions,
    ShowLibrary,
    LibraryUp, // argument: rows
    LibraryDown,
    LibraryPageUp,
    LibraryPageDown,
    PositionsUp, // argument: rows
    PositionsDown,
    SeekBack, // argument: milliseconds
    SeekAhead,
    TempoUp,
    TempoDown,
    StartPart, // argument: row of the positions
    Play,
    Pause,
    PlayPause,
    Stop,
    TogglePartColumn,
    Rescan,
    Quit,
};

// Which of the modifiers have to be down: those of mask that are in value, and no other of mask.
struct ModifierRule
{
    Qt::KeyboardModifiers mask;
    Qt::KeyboardModifiers value;
};

struct KeyRow
{
    Qt::Key key;
    ModifierRule modifiers;
    unsigned screens; // one bit a screen
    Command command;
    int argument;
};

struct KeyCommand
{
    Command command;
    int argument;
};

std::span<const KeyRow> keyTable();

// What a key does on a screen; nothing for a key that the table doesn't list. The keypad's
// modifier doesn't count.
std::optional<KeyCommand> commandForKey(int key, Qt::KeyboardModifiers modifiers, int screen);
