#pragma once

#include <Qt>

// What keys and menu entries ask of the window. What a command's number means stands beside it.
enum class Command {
    // Screens
    ShowScreen,     // the screen
    ShowNextScreen, // +1 or -1, around
    LoadAndShowPositions,
    ToggleMaximised,
    StepFontSize,    // points
    StepFrameHeight, // pixels
    LeaveFilter,     // out of the search field, else the library's filters go
    FocusFilter,
    OpenMenu, // of the screen
    // Songs of the library
    ScrollLibrary,   // rows, up below 0
    PageLibrary,     // pages
    ExtendSelection, // +1 down, -1 up
    SelectAllSongs,
    SelectNoSong,
    ResetFilters,
    Rescan,
    FitColumns,
    // The left playlist
    TogglePlaylistPanel,
    TogglePlaylistManager,
    OpenPlaylistSelection,
    AddToPlaylist,
    RemoveFromPlaylist,
    SavePlaylist,
    ScrollPlaylist,    // rows, around
    PagePlaylist,      // pages
    ShowPlaylistEnd,   // -1 the first row, +1 the last
    PlayPlaylistEntry, // +1 the next, -1 the one before
    // Positions and choreography
    ScrollPositions,        // rows
    TogglePositionsDisplay, // full width or whole text
    MarkedPartLoop,
    ToggleColumn,       // an optional column of the positions
    ScrollChoreography, // pixels
    PageChoreography,   // pages
    ScrollHelp,         // lines
    // Playing
    Play,
    Pause,
    PlayPause,
    Stop,
    StartPart,      // row of the positions
    Seek,           // milliseconds
    StepTempo,      // percent
    SetTempoPreset, // 1 to 5
    StepBpmDisplay,
    StepTimeDisplay,
    ToggleSlider,
    PlayContextRow, // the row under the positions page's context menu
    LoopContextRow,
    // Song files and what lies in them
    EditTags,
    EditPositions,
    EditCountDown,
    Replace,
    ShiftTimes,
    FormatPositions,
    CopyPosition,
    PastePosition,
    CopyAllPositions,
    ExportPositions,
    ImportPositions,
    CompareSongPositions,
    ShowEventList,
    ExportChoreography,
    ImportChoreography,
    RemoveChoreography,
    CopyChoreography,
    ExportMetadata,
    ImportMetadata,
    ExportShortList,
    ExportLongList,
    CopyFile,
    CopySongFiles,
    MoveSongFiles,
    ConvertFile,
    ImportSongFiles,
    RemoveSongFiles,
    SetWriteProtection,
    RemoveWriteProtection,
    RemoveFileCache,
    ExportToCloud,
    ImportFromCloud,
    // The program
    CreatePortableApp,
    FactoryReset,
    FactoryResetWindows,
    Quit,
};

// A command with its number, as a key or a menu entry gives it.
struct CommandCall
{
    Command command;
    int argument;
};
