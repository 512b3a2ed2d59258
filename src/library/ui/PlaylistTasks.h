#pragma once

// What the buttons above a song list do to it.
enum class PlaylistTask {
    Open,
    Save,
    SaveAs,
    Remove,
    CopyText,
    CopyFiles,
    AddSongs,
    RemoveEntry,
    MoveUp,
    MoveDown
};

// What decides whether they can.
struct PlaylistState
{
    bool isLibrary = false;
    bool isNew = false; // without a file
    bool isModified = false;
    int entries = 0;
    int selectedEntry = 0;        // the one selected, from 1; 0 when none or several are
    bool isOtherSelected = false; // songs of the other side
};

// Plain rules, no widgets. The library's songs are neither moved nor removed this way: they have no
// order, and removing one would throw its file away.
bool isTaskEnabled(PlaylistTask task, const PlaylistState &state);
