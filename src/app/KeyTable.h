#pragma once

#include "Commands.h"
#include "Screens.h"

#include <Qt>

#include <optional>
#include <span>

// The one table of the window's keys. Shortcuts of menu entries work in addition to it.

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

std::span<const KeyRow> keyTable();

// The modifiers as the table means them: the keypad's doesn't count, and the AltGr key, which is a
// modifier of its own on some platforms, is Ctrl and Alt together.
Qt::KeyboardModifiers meantModifiers(Qt::KeyboardModifiers modifiers);

// What a key does on a screen; nothing for a key that the table doesn't list.
std::optional<CommandCall> commandForKey(int key, Qt::KeyboardModifiers modifiers, int screen);
