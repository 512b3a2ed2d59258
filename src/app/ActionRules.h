#pragma once

#include "ActionTable.h"

#include <optional>

// When an action can be used. Plain rules, no widgets.

// What the rules look at.
struct ActionState
{
    int songsSelected = 0;      // rows of the active song table
    int rows = 0;               // of the positions table
    bool hasMarkedRow = false;  // in the positions table
    bool clipboardEmpty = true; // of texts
    bool playing = false;
    bool locked = false; // the position editor is open
    bool hasSong = false;
    // Of the selected songs.
    int withChoreography = 0;
    int withPositions = 0;
};

// Nothing for an action that the rules leave as it is.
std::optional<bool> isActionEnabled(ActionId action, const ActionState &state);

// What a song changes by becoming the current one.
struct SongState
{
    bool hasPositions = false;
    bool hasChoreography = false;
    bool clipboardEmpty = true;
};

std::optional<bool> isActionEnabledByLoading(ActionId action, const SongState &state);
