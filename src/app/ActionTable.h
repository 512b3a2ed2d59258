#pragma once

#include "Commands.h"

#include <QKeySequence>

#include <span>

// The one table of the window's actions: what the menus hold. Plain data, no widgets; Actions
// makes them.

enum class ActionId {
    Play,
    LoopPart,
    Pause,
    Stop,
    ShowLibrary,
    ShowPositions,
    ShowChoreography,
    ShowSettings,
    ShowHelp,
    ResetFilters,
    EditTags,
    Rescan,
    FitColumns,
    ExportShortList,
    ExportLongList,
    CopyFile,
    CopySongFiles,
    MoveSongFiles,
    ConvertFile,
    ImportSongFiles,
    EditPositions,
    CopyAllPositions,
    CopyPosition,
    PastePosition,
    ExportChoreography,
    ImportChoreography,
    RemoveChoreography,
    CopyChoreography,
    ExportPositions,
    ImportPositions,
    Replace,
    ShiftTimes,
    FormatPositions,
    EditCountDown,
    CompareSongPositions,
    ShowEventList,
    PartColumn,
    BeatsColumn,
    TimeColumn,
    Slider,
    CreatePortableApp,
    FactoryReset,
    FactoryResetWindows,
    ExportMetadata,
    ImportMetadata,
    Quit,
    ExportToCloud,
    ImportFromCloud,
    SetWriteProtection,
    RemoveWriteProtection,
    RemoveFileCache,
    RemoveSongFiles,
    Count
};

// A combination of keys, or what the platform uses for a thing.
struct Shortcut
{
    int keys = 0;
    QKeySequence::StandardKey standard = QKeySequence::UnknownKey;

    QKeySequence sequence() const;
};

struct ActionRow
{
    ActionId id;
    const char *text; // German source, to be translated in the context "Actions"
    Shortcut shortcut;
    Command command;
    int argument;
    const char *picture; // base name of the theme's picture; null for none
    bool checkable;
};

// In the order of ActionId.
std::span<const ActionRow> actionTable();
const ActionRow &actionRow(ActionId id);

// The text of an action in the language in force, for so many selected songs: some speak of one
// file or of several.
QString actionText(ActionId id, int songsSelected);

enum class MenuId {
    Library, // the first five belong to the screens, in their order
    Positions,
    Choreography,
    Settings,
    Help,
    Screens,       // in which a screen is chosen
    PositionsPlay, // the parts of the positions page's context menu
    PositionsEdit,
    LibraryContext,
    Count
};

struct MenuEntry
{
    enum Kind { Action, Separator, Submenu, SubmenuEnd };
    Kind kind = Separator;
    ActionId action = ActionId::Count;
    const char *title = nullptr; // of a submenu, German source in the context "Actions"
};

std::span<const MenuEntry> menuEntries(MenuId menu);

// The title of a submenu in the language in force.
QString submenuTitle(const char *title, int songsSelected);
