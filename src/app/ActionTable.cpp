#include "ActionTable.h"

#include "PositionsTexts.h"
#include "Screens.h"

#include <QCoreApplication>

namespace {

constexpr Shortcut noKey{};
constexpr Shortcut keys(QKeyCombination combination)
{
    return {combination.toCombined(), QKeySequence::UnknownKey};
}
constexpr Shortcut standard(QKeySequence::StandardKey key)
{
    return {0, key};
}

constexpr auto ctrlShift = Qt::CTRL | Qt::SHIFT;

// clang-format off
constexpr ActionRow table[] = {
    {ActionId::Play, QT_TRANSLATE_NOOP("Actions", "Musikwiedergabe starten"),
     keys(Qt::Key_P), Command::PlayContextRow, 0, "Play2", false},
    {ActionId::LoopPart, QT_TRANSLATE_NOOP("Actions", "Abspielen in Endlosschleife"),
     keys(Qt::SHIFT | Qt::Key_P), Command::LoopContextRow, 0, "Refresh", false},
    {ActionId::Pause, QT_TRANSLATE_NOOP("Actions", "Musikwiedergabe pausieren"),
     keys(Qt::Key_A), Command::Pause, 0, "Pause", false},
    {ActionId::Stop, QT_TRANSLATE_NOOP("Actions", "Musikwiedergabe stoppen"),
     keys(Qt::Key_S), Command::Stop, 0, "Stop", false},
    {ActionId::ShowLibrary, QT_TRANSLATE_NOOP("Actions", "Musik"),
     keys(Qt::Key_F1), Command::ShowScreen, LibraryScreen, "Library", false},
    {ActionId::ShowPositions, QT_TRANSLATE_NOOP("Actions", "Positionen"),
     keys(Qt::Key_F2), Command::ShowScreen, PositionsScreen, "Positions", false},
    {ActionId::ShowChoreography, QT_TRANSLATE_NOOP("Actions", "Choreografie"),
     keys(Qt::Key_F3), Command::ShowScreen, ChoreographyScreen, "PDF", false},
    {ActionId::ShowSettings, QT_TRANSLATE_NOOP("Actions", "Einstellungen"),
     keys(Qt::Key_F4), Command::ShowScreen, SettingsScreen, "Settings", false},
    {ActionId::ShowHelp, QT_TRANSLATE_NOOP("Actions", "Hilfe"),
     keys(Qt::Key_F5), Command::ShowScreen, HelpScreen, "Help", false},
    {ActionId::ResetFilters, QT_TRANSLATE_NOOP("Actions", "Alle Filter zurücksetzen"),
     keys(Qt::Key_R), Command::ResetFilters, 0, "Undo", false},
    {ActionId::EditTags, QT_TRANSLATE_NOOP("Actions", "Tag-Bearbeitung ..."),
     keys(Qt::Key_E), Command::EditTags, 0, "Edit", false},
    {ActionId::Rescan, QT_TRANSLATE_NOOP("Actions", "Dateien neu einlesen"),
     keys(Qt::CTRL | Qt::Key_R), Command::Rescan, 0, "Refresh", false},
    {ActionId::FitColumns, QT_TRANSLATE_NOOP("Actions", "Spaltenbreiten anpassen"),
     keys(Qt::ALT | Qt::Key_W), Command::FitColumns, 0, "FullWidth", false},
    {ActionId::ExportShortList,
     QT_TRANSLATE_NOOP("Actions", "Angezeigte Liste exportieren (Titel, Interpret, Album)"),
     keys(Qt::Key_X), Command::ExportShortList, 0, "Copy", false},
    {ActionId::ExportLongList,
     QT_TRANSLATE_NOOP("Actions", "Angezeigte Liste exportieren (Alle sichtbaren Spalten)"),
     keys(Qt::SHIFT | Qt::Key_X), Command::ExportLongList, 0, "Copy", false},
    {ActionId::CopyFile, QT_TRANSLATE_NOOP("Actions", "Musikdatei kopieren"),
     standard(QKeySequence::Copy), Command::CopyFile, 0, "Copy", false},
    {ActionId::CopySongFiles,
     QT_TRANSLATE_NOOP("Actions", "Musikdatei(en) duplizieren/kopieren ..."),
     keys(Qt::CTRL | Qt::Key_D), Command::CopySongFiles, 0, "Copy", false},
    {ActionId::MoveSongFiles,
     QT_TRANSLATE_NOOP("Actions", "Musikdatei(en) umbenennen/verschieben ..."),
     keys(Qt::CTRL | Qt::Key_M), Command::MoveSongFiles, 0, "Edit", false},
    {ActionId::ConvertFile, QT_TRANSLATE_NOOP("Actions", "Musikdatei(en) konvertieren ..."),
     keys(Qt::ALT | Qt::Key_E), Command::ConvertFile, 0, "Export", false},
    {ActionId::ImportSongFiles, QT_TRANSLATE_NOOP("Actions", "Musikdatei(en) importieren ..."),
     keys(Qt::ALT | Qt::Key_I), Command::ImportSongFiles, 0, "Import", false},
    {ActionId::EditPositions, QT_TRANSLATE_NOOP("Actions", "Positionen bearbeiten ..."),
     keys(Qt::Key_E), Command::EditPositions, 0, "Edit", false},
    {ActionId::CopyAllPositions, QT_TRANSLATE_NOOP("Actions", "Alle Positionen kopieren"),
     keys(ctrlShift | Qt::Key_C), Command::CopyAllPositions, 0, "Document", false},
    {ActionId::CopyPosition, QT_TRANSLATE_NOOP("Actions", "Position kopieren"),
     standard(QKeySequence::Copy), Command::CopyPosition, 0, "Copy", false},
    {ActionId::PastePosition, QT_TRANSLATE_NOOP("Actions", "Position einfügen"),
     keys(Qt::CTRL | Qt::Key_V), Command::PastePosition, 0, "Paste", false},
    {ActionId::ExportChoreography, QT_TRANSLATE_NOOP("Actions", "Choreografie exportieren ..."),
     keys(ctrlShift | Qt::Key_E), Command::ExportChoreography, 0, "Export", false},
    {ActionId::ImportChoreography, QT_TRANSLATE_NOOP("Actions", "Choreografie importieren ..."),
     keys(ctrlShift | Qt::Key_I), Command::ImportChoreography, 0, "Import", false},
    {ActionId::RemoveChoreography, QT_TRANSLATE_NOOP("Actions", "Choreografie entfernen ..."),
     keys(Qt::ALT | Qt::Key_R), Command::RemoveChoreography, 0, "Remove", false},
    {ActionId::CopyChoreography, QT_TRANSLATE_NOOP("Actions", "Choreografie kopieren"),
     standard(QKeySequence::Copy), Command::CopyChoreography, 0, "Copy", false},
    {ActionId::ExportPositions, QT_TRANSLATE_NOOP("Actions", "Positionen exportieren ..."),
     keys(Qt::CTRL | Qt::Key_E), Command::ExportPositions, 0, "Export", false},
    {ActionId::ImportPositions, QT_TRANSLATE_NOOP("Actions", "Positionen importieren ..."),
     keys(Qt::CTRL | Qt::Key_I), Command::ImportPositions, 0, "Import", false},
    {ActionId::Replace, QT_TRANSLATE_NOOP("Actions", "Ersetzen ..."),
     standard(QKeySequence::Replace), Command::Replace, 0, "Search+Replace", false},
    {ActionId::ShiftTimes, QT_TRANSLATE_NOOP("Actions", "Zeiten verschieben ..."),
     keys(Qt::Key_T), Command::ShiftTimes, 0, "Stopwatch", false},
    {ActionId::FormatPositions, QT_TRANSLATE_NOOP("Actions", "Positionen formatieren ..."),
     keys(Qt::Key_F), Command::FormatPositions, 0, "Brush", false},
    {ActionId::EditCountDown, QT_TRANSLATE_NOOP("Actions", "Countdown bearbeiten ..."),
     keys(Qt::ALT | Qt::Key_C), Command::EditCountDown, 0, "Emptywatch", false},
    {ActionId::CompareSongPositions,
     QT_TRANSLATE_NOOP("Actions", "Verschiedene Positionen anzeigen ..."),
     keys(Qt::CTRL | Qt::Key_S), Command::CompareSongPositions, 0, "Document", false},
    {ActionId::ShowEventList, QT_TRANSLATE_NOOP("Actions", "Eventliste anzeigen ..."),
     keys(Qt::Key_V), Command::ShowEventList, 0, "Document", false},
    {ActionId::PartColumn, QT_TRANSLATE_NOOP("Actions", "Spalte mit Parts anzeigen"),
     keys(Qt::CTRL | Qt::Key_P), Command::ToggleColumn, PartColumn, nullptr, true},
    {ActionId::BeatsColumn, QT_TRANSLATE_NOOP("Actions", "Spalte mit Beats anzeigen"),
     keys(Qt::CTRL | Qt::Key_B), Command::ToggleColumn, BeatsColumn, nullptr, true},
    {ActionId::TimeColumn, QT_TRANSLATE_NOOP("Actions", "Spalte mit Zeitpunkt anzeigen"),
     keys(Qt::CTRL | Qt::Key_T), Command::ToggleColumn, TimeColumn, nullptr, true},
    {ActionId::Slider, QT_TRANSLATE_NOOP("Actions", "Abspielfortschritt"),
     keys(Qt::CTRL | Qt::Key_O), Command::ToggleSlider, 0, nullptr, true},
    {ActionId::CreatePortableApp,
     QT_TRANSLATE_NOOP("Actions", "Portable USB-Stick Version erstellen ..."),
     noKey, Command::CreatePortableApp, 0, "Export", false},
    {ActionId::FactoryReset, QT_TRANSLATE_NOOP("Actions", "Werkseinstellung"),
     noKey, Command::FactoryReset, 0, "FactorySettings", false},
    {ActionId::FactoryResetWindows,
     QT_TRANSLATE_NOOP("Actions", "Rücksetzen Fensterpositionen"),
     noKey, Command::FactoryResetWindows, 0, "Undo", false},
    {ActionId::ExportMetadata, QT_TRANSLATE_NOOP("Actions", "Metadaten exportieren ..."),
     noKey, Command::ExportMetadata, 0, "Export", false},
    {ActionId::ImportMetadata, QT_TRANSLATE_NOOP("Actions", "Metadaten importieren ..."),
     noKey, Command::ImportMetadata, 0, "Import", false},
    {ActionId::Quit, QT_TRANSLATE_NOOP("Actions", "Beenden"),
     keys(Qt::CTRL | Qt::Key_X), Command::Quit, 0, "Exit", false},
    {ActionId::ExportToCloud, QT_TRANSLATE_NOOP("Actions", "In die Cloud exportieren"),
     noKey, Command::ExportToCloud, 0, "ExportCloud", false},
    {ActionId::ImportFromCloud, QT_TRANSLATE_NOOP("Actions", "Aus der Cloud importieren"),
     noKey, Command::ImportFromCloud, 0, "ImportCloud", false},
    {ActionId::SetWriteProtection, QT_TRANSLATE_NOOP("Actions", "Schreibschutz aktivieren"),
     noKey, Command::SetWriteProtection, 0, "Lock", false},
    {ActionId::RemoveWriteProtection, QT_TRANSLATE_NOOP("Actions", "Schreibschutz entfernen"),
     noKey, Command::RemoveWriteProtection, 0, "Unlock", false},
    {ActionId::RemoveFileCache, QT_TRANSLATE_NOOP("Actions", "Dateicache bereinigen"),
     noKey, Command::RemoveFileCache, 0, "Brush", false},
    {ActionId::RemoveSongFiles, QT_TRANSLATE_NOOP("Actions", "Löschen ..."),
     keys(Qt::Key_Delete), Command::RemoveSongFiles, 0, "Remove", false},
};
// clang-format on
static_assert(std::size(table) == static_cast<std::size_t>(ActionId::Count));

// Texts that speak of one song or of several, in place of the table's.
struct CountedText
{
    ActionId id;
    const char *one;
    const char *several;
};
constexpr CountedText countedTexts[] = {
    {ActionId::CopySongFiles, QT_TRANSLATE_NOOP("Actions", "Musikdatei kopieren ..."),
     QT_TRANSLATE_NOOP("Actions", "Musikdateien kopieren ...")},
    {ActionId::MoveSongFiles, QT_TRANSLATE_NOOP("Actions", "Musikdatei verschieben ..."),
     QT_TRANSLATE_NOOP("Actions", "Musikdateien verschieben ...")},
};

constexpr const char *listExport = "Komplette Liste exportieren ...";

constexpr MenuEntry item(ActionId id)
{
    return {MenuEntry::Action, id, nullptr};
}
constexpr MenuEntry line{};
constexpr MenuEntry submenu(const char *title)
{
    return {MenuEntry::Submenu, ActionId::Count, title};
}
constexpr MenuEntry submenuEnd{MenuEntry::SubmenuEnd, ActionId::Count, nullptr};

constexpr MenuEntry libraryMenu[] = {
    item(ActionId::EditTags),
    line,
    submenu(listExport),
    item(ActionId::ExportShortList),
    item(ActionId::ExportLongList),
    submenuEnd,
    submenu(QT_TRANSLATE_NOOP("Actions", "Musikdateien")),
    item(ActionId::Rescan),
    line,
    item(ActionId::CopyFile),
    item(ActionId::CopySongFiles),
    item(ActionId::MoveSongFiles),
    item(ActionId::ConvertFile),
    item(ActionId::ImportSongFiles),
    submenuEnd,
    submenu(QT_TRANSLATE_NOOP("Actions", "Positionen")),
    item(ActionId::ExportPositions),
    item(ActionId::ImportPositions),
    line,
    item(ActionId::CompareSongPositions),
    submenuEnd,
    submenu(QT_TRANSLATE_NOOP("Actions", "Choreografien")),
    item(ActionId::ExportChoreography),
    item(ActionId::ImportChoreography),
    item(ActionId::RemoveChoreography),
    submenuEnd,
    submenu(QT_TRANSLATE_NOOP("Actions", "Metadaten")),
    item(ActionId::ExportMetadata),
    item(ActionId::ImportMetadata),
    submenuEnd,
    line,
    item(ActionId::ShowEventList),
    line,
    item(ActionId::ResetFilters),
    item(ActionId::FitColumns),
    item(ActionId::Slider),
    line,
    item(ActionId::Quit),
};

constexpr MenuEntry positionsMenu[] = {
    item(ActionId::EditPositions),
    line,
    item(ActionId::CopyAllPositions),
    item(ActionId::CopyPosition),
    item(ActionId::PastePosition),
    line,
    item(ActionId::ExportPositions),
    item(ActionId::ImportPositions),
    line,
    item(ActionId::Replace),
    item(ActionId::ShiftTimes),
    item(ActionId::FormatPositions),
    item(ActionId::EditCountDown),
    item(ActionId::CompareSongPositions),
    line,
    submenu(QT_TRANSLATE_NOOP("Actions", "Anzeigen")),
    item(ActionId::PartColumn),
    item(ActionId::BeatsColumn),
    item(ActionId::TimeColumn),
    item(ActionId::Slider),
    submenuEnd,
    line,
    item(ActionId::Quit),
};

constexpr MenuEntry choreographyMenu[] = {
    item(ActionId::ExportChoreography),
    item(ActionId::ImportChoreography),
    item(ActionId::RemoveChoreography),
    item(ActionId::CopyChoreography),
    line,
    item(ActionId::CompareSongPositions),
    line,
    item(ActionId::Slider),
    line,
    item(ActionId::Quit),
};

constexpr MenuEntry settingsMenu[] = {
    item(ActionId::CreatePortableApp),
    item(ActionId::FactoryReset),
    item(ActionId::FactoryResetWindows),
    line,
    item(ActionId::Slider),
    line,
    item(ActionId::Quit),
};

constexpr MenuEntry helpMenu[] = {item(ActionId::Quit)};

constexpr MenuEntry screensMenu[] = {
    item(ActionId::ShowLibrary),  item(ActionId::ShowPositions), item(ActionId::ShowChoreography),
    item(ActionId::ShowSettings), item(ActionId::ShowHelp),
};

constexpr MenuEntry positionsPlay[] = {
    item(ActionId::Play),
    item(ActionId::LoopPart),
    item(ActionId::Pause),
    item(ActionId::Stop),
};

constexpr MenuEntry positionsEdit[] = {
    item(ActionId::EditPositions),
    item(ActionId::FormatPositions),
    line,
    item(ActionId::CopyAllPositions),
    item(ActionId::CopyPosition),
    item(ActionId::PastePosition),
    line,
    item(ActionId::ExportPositions),
    item(ActionId::ImportPositions),
    line,
    item(ActionId::Replace),
    item(ActionId::ShiftTimes),
    item(ActionId::CompareSongPositions),
    item(ActionId::EditCountDown),
};

constexpr MenuEntry libraryContext[] = {
    item(ActionId::EditTags),
    line,
    item(ActionId::CopyFile),
    item(ActionId::CopySongFiles),
    item(ActionId::MoveSongFiles),
    item(ActionId::ConvertFile),
    line,
    item(ActionId::SetWriteProtection),
    item(ActionId::RemoveWriteProtection),
    item(ActionId::RemoveFileCache),
    line,
    item(ActionId::ExportToCloud),
    item(ActionId::ImportFromCloud),
    line,
    item(ActionId::RemoveSongFiles),
};

constexpr std::span<const MenuEntry> menus[] = {
    libraryMenu, positionsMenu, choreographyMenu, settingsMenu,   helpMenu,
    screensMenu, positionsPlay, positionsEdit,    libraryContext,
};
static_assert(std::size(menus) == static_cast<std::size_t>(MenuId::Count));

QString translated(const char *text)
{
    return QCoreApplication::translate("Actions", text);
}

} // namespace

QKeySequence Shortcut::sequence() const
{
    if (standard != QKeySequence::UnknownKey)
        return QKeySequence(standard);
    return keys == 0 ? QKeySequence() : QKeySequence(keys);
}

std::span<const ActionRow> actionTable()
{
    return table;
}

const ActionRow &actionRow(ActionId id)
{
    return table[static_cast<int>(id)];
}

QString actionText(ActionId id, int songsSelected)
{
    for (const CountedText &counted : countedTexts)
        if (counted.id == id)
            return translated(songsSelected > 1 ? counted.several : counted.one);
    return translated(actionRow(id).text);
}

std::span<const MenuEntry> menuEntries(MenuId menu)
{
    return menus[static_cast<int>(menu)];
}

// With a selection the list of the selected songs alone is exported.
QString submenuTitle(const char *title, int songsSelected)
{
    if (title != listExport)
        return translated(title);
    return translated(songsSelected > 0
                          ? QT_TRANSLATE_NOOP("Actions", "Selektierte Liste exportieren")
                          : QT_TRANSLATE_NOOP("Actions", "Komplette Liste exportieren"));
}
