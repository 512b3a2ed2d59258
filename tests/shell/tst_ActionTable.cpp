#include "ActionRules.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// What the actions are to be called, by which key they come and which menus hold them: L, P, C, S
// and H of the screens, X and Y of the positions page's context menu, T of the songs', F of the
// screen's choice.
struct Expectation
{
    ActionId id;
    const char *text;
    const char *several; // with several songs chosen, where it differs
    const char *shortcut;
    const char *menus;
    // One mark a state of states() below: x enabled, . disabled. Null: always as it is.
    const char *enabled;
    // By the loading of a song with nothing, with positions, with a choreography, with positions
    // while a text is in the clipboard. Null: left as it is.
    const char *loaded;
};

// clang-format off
const Expectation expectations[] = {
    //                                                                                                  -1234567890
    {ActionId::Play, "Musikwiedergabe starten", nullptr, "P", "X",                                     ".x.xxxxx...", nullptr},
    {ActionId::LoopPart, "Abspielen in Endlosschleife", nullptr, "Shift+P", "X",                       nullptr, nullptr},
    {ActionId::Pause, "Musikwiedergabe pausieren", nullptr, "A", "X",                                  nullptr, nullptr},
    {ActionId::Stop, "Musikwiedergabe stoppen", nullptr, "S", "X",                                     nullptr, nullptr},
    {ActionId::ShowLibrary, "Musik", nullptr, "F1", "F",                                               nullptr, nullptr},
    {ActionId::ShowPositions, "Positionen", nullptr, "F2", "F",                                        nullptr, nullptr},
    {ActionId::ShowChoreography, "Choreografie", nullptr, "F3", "F",                                   nullptr, nullptr},
    {ActionId::ShowSettings, "Einstellungen", nullptr, "F4", "F",                                      "xxxx.xxxx.x", nullptr},
    {ActionId::ShowHelp, "Hilfe", nullptr, "F5", "F",                                                  nullptr, nullptr},
    {ActionId::ResetFilters, "Alle Filter zurücksetzen", nullptr, "R", "L",                            "xxxx.xxxx.x", nullptr},
    {ActionId::EditTags, "Tag-Bearbeitung ...", nullptr, "E", "LT",                                    ".x.x.xxx...", "xxxx"},
    {ActionId::Rescan, "Dateien neu einlesen", nullptr, "Ctrl+R", "L",                                 "xxxx.xxxx.x", nullptr},
    {ActionId::FitColumns, "Spaltenbreiten anpassen", nullptr, "Alt+W", "L",                           "xxxx.xxxx.x", nullptr},
    {ActionId::ExportShortList, "Angezeigte Liste exportieren (Titel, Interpret, Album)", nullptr, "X", "L", nullptr, nullptr},
    {ActionId::ExportLongList, "Angezeigte Liste exportieren (Alle sichtbaren Spalten)", nullptr, "Shift+X", "L", nullptr, nullptr},
    {ActionId::CopyFile, "Musikdatei kopieren", nullptr, "Ctrl+C", "LT",                               ".x.xxxxx...", "xxxx"},
    {ActionId::CopySongFiles, "Musikdatei kopieren ...", "Musikdateien kopieren ...", "Ctrl+D", "LT",  ".xxx.xxxx..", "xxxx"},
    {ActionId::MoveSongFiles, "Musikdatei verschieben ...", "Musikdateien verschieben ...", "Ctrl+M", "LT", ".xx.xxxxxxx", "xxxx"},
    {ActionId::ConvertFile, "Musikdatei(en) konvertieren ...", nullptr, "Alt+E", "LT",                 ".x.xxxxx...", "xxxx"},
    {ActionId::ImportSongFiles, "Musikdatei(en) importieren ...", nullptr, "Alt+I", "L",               nullptr, nullptr},
    {ActionId::EditPositions, "Positionen bearbeiten ...", nullptr, "E", "PY",                         ".xxx.xxxx..", nullptr},
    {ActionId::CopyAllPositions, "Alle Positionen kopieren", nullptr, "Ctrl+Shift+C", "PY",            ".....xx.x.x", ".x.x"},
    {ActionId::CopyPosition, "Position kopieren", nullptr, "Ctrl+C", "PY",                             ".....xx..x.", ".x.x"},
    {ActionId::PastePosition, "Position einfügen", nullptr, "Ctrl+V", "PY",                            "......x....", "...x"},
    {ActionId::ExportChoreography, "Choreografie exportieren ...", nullptr, "Ctrl+Shift+E", "LC",      ".......xx..", "..x."},
    {ActionId::ImportChoreography, "Choreografie importieren ...", nullptr, "Ctrl+Shift+I", "LC",      ".x.x.xxx...", "xxxx"},
    {ActionId::RemoveChoreography, "Choreografie entfernen ...", nullptr, "Alt+R", "LC",               ".......xx..", "..x."},
    {ActionId::CopyChoreography, "Choreografie kopieren", nullptr, "Ctrl+C", "C",                      ".......x...", "..x."},
    {ActionId::ExportPositions, "Positionen exportieren ...", nullptr, "Ctrl+E", "LPY",                ".......xx..", ".x.x"},
    {ActionId::ImportPositions, "Positionen importieren ...", nullptr, "Ctrl+I", "LPY",                ".x.x.xxx...", "xxxx"},
    {ActionId::Replace, "Ersetzen ...", nullptr, nullptr, "PY",                                        ".....xx.x.x", nullptr},
    {ActionId::ShiftTimes, "Zeiten verschieben ...", nullptr, "T", "PY",                               ".....xx.x.x", nullptr},
    {ActionId::FormatPositions, "Positionen formatieren ...", nullptr, "F", "PY",                      ".....xx.x.x", nullptr},
    {ActionId::EditCountDown, "Countdown bearbeiten ...", nullptr, "Alt+C", "PY",                      "xxxx.xxxx.x", nullptr},
    {ActionId::CompareSongPositions, "Verschiedene Positionen anzeigen ...", nullptr, "Ctrl+S", "LPCY", ".xxx.xxxx..", "xxxx"},
    {ActionId::ShowEventList, "Eventliste anzeigen ...", nullptr, "V", "L",                            "xxxx.xxxx.x", nullptr},
    {ActionId::PartColumn, "Spalte mit Parts anzeigen", nullptr, "Ctrl+P", "P",                        nullptr, nullptr},
    {ActionId::BeatsColumn, "Spalte mit Beats anzeigen", nullptr, "Ctrl+B", "P",                       nullptr, nullptr},
    {ActionId::TimeColumn, "Spalte mit Zeitpunkt anzeigen", nullptr, "Ctrl+T", "P",                    nullptr, nullptr},
    {ActionId::Slider, "Abspielfortschritt", nullptr, "Ctrl+O", "LPCS",                                nullptr, nullptr},
    {ActionId::CreatePortableApp, "Portable USB-Stick Version erstellen ...", nullptr, "", "S",        nullptr, nullptr},
    {ActionId::FactoryReset, "Werkseinstellung", nullptr, "", "S",                                     nullptr, nullptr},
    {ActionId::FactoryResetWindows, "Rücksetzen Fensterpositionen", nullptr, "", "S",                  nullptr, nullptr},
    {ActionId::ExportMetadata, "Metadaten exportieren ...", nullptr, "", "L",                          ".xxx.xxxx..", nullptr},
    {ActionId::ImportMetadata, "Metadaten importieren ...", nullptr, "", "L",                          ".x.x.xxx...", nullptr},
    {ActionId::Quit, "Beenden", nullptr, "Ctrl+X", "LPCSH",                                            nullptr, nullptr},
    {ActionId::ExportToCloud, "In die Cloud exportieren", nullptr, "", "T",                            nullptr, nullptr},
    {ActionId::ImportFromCloud, "Aus der Cloud importieren", nullptr, "", "T",                         nullptr, nullptr},
    {ActionId::SetWriteProtection, "Schreibschutz aktivieren", nullptr, "", "T",                       nullptr, nullptr},
    {ActionId::RemoveWriteProtection, "Schreibschutz entfernen", nullptr, "", "T",                     nullptr, nullptr},
    {ActionId::RemoveFileCache, "Dateicache bereinigen", nullptr, "", "T",                             nullptr, nullptr},
    {ActionId::RemoveSongFiles, "Löschen ...", nullptr, "Del", "T",                                    "xxx.xxxxxxx", nullptr},
};
// clang-format on

QList<ActionState> states()
{
    return {
        {},                                                     // - nothing chosen
        {.songsSelected = 1},                                   // 1
        {.songsSelected = 2},                                   // 2
        {.songsSelected = 1, .playing = true, .hasSong = true}, // 3
        {.songsSelected = 1, .rows = 9, .locked = true},        // 4 the editor is open
        {.songsSelected = 1, .rows = 9, .hasMarkedRow = true},  // 5 clipboard empty
        {.songsSelected = 1, .rows = 9, .hasMarkedRow = true, .clipboardEmpty = false},   // 6
        {.songsSelected = 1, .withChoreography = 1, .withPositions = 1},                  // 7
        {.songsSelected = 3, .rows = 9, .withChoreography = 1, .withPositions = 2},       // 8
        {.hasMarkedRow = true, .clipboardEmpty = false, .locked = true, .hasSong = true}, // 9
        {.rows = 9, .hasSong = true}, // 0 a song, none chosen
    };
}

constexpr char menuMarks[] = "LPCSHFXYT"; // in the order of MenuId

QStringList entryTexts(MenuId menu)
{
    QStringList texts;
    for (const MenuEntry &entry : menuEntries(menu)) {
        if (entry.kind == MenuEntry::Action)
            texts.append(QString::fromUtf8(actionRow(entry.action).text));
        else if (entry.kind == MenuEntry::Separator)
            texts.append(u"-"_qs);
        else if (entry.kind == MenuEntry::Submenu)
            texts.append(QString::fromUtf8(entry.title) + u" {"_qs);
        else
            texts.append(u"}"_qs);
    }
    return texts;
}

} // namespace

class TestActionTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void action_data();
    void action();
    void menu_data();
    void menu();
    void exportTellsWhatItTakes();
    void sameKeyNeverTwiceInAMenu();
};

void TestActionTable::action_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < static_cast<int>(std::size(expectations)); ++row)
        QTest::newRow(actionRow(expectations[row].id).text) << row;
    QCOMPARE(std::size(expectations), actionTable().size());
}

void TestActionTable::action()
{
    QFETCH(int, row);
    const Expectation &wanted = expectations[row];
    QCOMPARE(static_cast<int>(actionRow(wanted.id).id), static_cast<int>(wanted.id));
    QCOMPARE(actionText(wanted.id, 0), QString::fromUtf8(wanted.text));
    QCOMPARE(actionText(wanted.id, 1), QString::fromUtf8(wanted.text));
    QCOMPARE(actionText(wanted.id, 2),
             QString::fromUtf8(wanted.several ? wanted.several : wanted.text));
    const QKeySequence keys = actionRow(wanted.id).shortcut.sequence();
    QCOMPARE(keys.toString(), wanted.shortcut ? QString::fromLatin1(wanted.shortcut)
                                              : QKeySequence(QKeySequence::Replace).toString());

    QString menus;
    for (int id = 0; id < static_cast<int>(MenuId::Count); ++id)
        for (const MenuEntry &entry : menuEntries(static_cast<MenuId>(id)))
            if (entry.kind == MenuEntry::Action && entry.action == wanted.id)
                menus.append(QLatin1Char(menuMarks[id]));
    QCOMPARE(menus, QString::fromLatin1(wanted.menus));

    QString marks;
    for (const ActionState &state : states()) {
        const auto enabled = isActionEnabled(wanted.id, state);
        QCOMPARE(enabled.has_value(), wanted.enabled != nullptr);
        marks.append(QLatin1Char(enabled.value_or(false) ? 'x' : '.'));
    }
    if (wanted.enabled)
        QCOMPARE(marks, QString::fromLatin1(wanted.enabled));

    marks.clear();
    for (const SongState &state :
         {SongState{}, SongState{.hasPositions = true}, SongState{.hasChoreography = true},
          SongState{.hasPositions = true, .clipboardEmpty = false}}) {
        const auto enabled = isActionEnabledByLoading(wanted.id, state);
        QCOMPARE(enabled.has_value(), wanted.loaded != nullptr);
        marks.append(QLatin1Char(enabled.value_or(false) ? 'x' : '.'));
    }
    if (wanted.loaded)
        QCOMPARE(marks, QString::fromLatin1(wanted.loaded));
}

void TestActionTable::menu_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("entries");
    const auto row = [](const char *name, MenuId id, const QString &entries) {
        QTest::newRow(name) << static_cast<int>(id) << entries;
    };
    row("library", MenuId::Library,
        u"Tag-Bearbeitung ...|-|Komplette Liste exportieren ... {|"
        "Angezeigte Liste exportieren (Titel, Interpret, Album)|"
        "Angezeigte Liste exportieren (Alle sichtbaren Spalten)|}|"
        "Musikdateien {|Dateien neu einlesen|-|Musikdatei kopieren|"
        "Musikdatei(en) duplizieren/kopieren ...|Musikdatei(en) umbenennen/verschieben ...|"
        "Musikdatei(en) konvertieren ...|Musikdatei(en) importieren ...|}|"
        "Positionen {|Positionen exportieren ...|Positionen importieren ...|-|"
        "Verschiedene Positionen anzeigen ...|}|"
        "Choreografien {|Choreografie exportieren ...|Choreografie importieren ...|"
        "Choreografie entfernen ...|}|Metadaten {|Metadaten exportieren ...|"
        "Metadaten importieren ...|}|-|Eventliste anzeigen ...|-|Alle Filter zurücksetzen|"
        "Spaltenbreiten anpassen|Abspielfortschritt|-|Beenden"_qs);
    row("positions", MenuId::Positions,
        u"Positionen bearbeiten ...|-|Alle Positionen kopieren|Position kopieren|"
        "Position einfügen|-|Positionen exportieren ...|Positionen importieren ...|-|"
        "Ersetzen ...|Zeiten verschieben ...|Positionen formatieren ...|"
        "Countdown bearbeiten ...|Verschiedene Positionen anzeigen ...|-|"
        "Anzeigen {|Spalte mit Parts anzeigen|Spalte mit Beats anzeigen|"
        "Spalte mit Zeitpunkt anzeigen|Abspielfortschritt|}|-|Beenden"_qs);
    row("choreography", MenuId::Choreography,
        u"Choreografie exportieren ...|Choreografie importieren ...|Choreografie entfernen ...|"
        "Choreografie kopieren|-|Verschiedene Positionen anzeigen ...|-|Abspielfortschritt|-|"
        "Beenden"_qs);
    row("settings", MenuId::Settings,
        u"Portable USB-Stick Version erstellen ...|Werkseinstellung|"
        "Rücksetzen Fensterpositionen|-|Abspielfortschritt|-|Beenden"_qs);
    row("help", MenuId::Help, u"Beenden"_qs);
    row("screens", MenuId::Screens, u"Musik|Positionen|Choreografie|Einstellungen|Hilfe"_qs);
    row("context, with positions", MenuId::PositionsPlay,
        u"Musikwiedergabe starten|Abspielen in Endlosschleife|Musikwiedergabe pausieren|"
        "Musikwiedergabe stoppen"_qs);
    row("context", MenuId::PositionsEdit,
        u"Positionen bearbeiten ...|Positionen formatieren ...|-|Alle Positionen kopieren|"
        "Position kopieren|Position einfügen|-|Positionen exportieren ...|"
        "Positionen importieren ...|-|Ersetzen ...|Zeiten verschieben ...|"
        "Verschiedene Positionen anzeigen ...|Countdown bearbeiten ..."_qs);
}

void TestActionTable::menu()
{
    QFETCH(int, id);
    QFETCH(QString, entries);
    QCOMPARE(entryTexts(static_cast<MenuId>(id)).join(u'|'), entries);
}

void TestActionTable::exportTellsWhatItTakes()
{
    const MenuEntry *found = nullptr;
    for (const MenuEntry &entry : menuEntries(MenuId::Library))
        if (entry.kind == MenuEntry::Submenu && !found)
            found = &entry;
    QVERIFY(found);
    QCOMPARE(submenuTitle(found->title, 0), u"Komplette Liste exportieren"_qs);
    QCOMPARE(submenuTitle(found->title, 1), u"Selektierte Liste exportieren"_qs);
    QCOMPARE(submenuTitle(found->title, 7), u"Selektierte Liste exportieren"_qs);
}

// Two actions of one menu with the same key would block each other.
void TestActionTable::sameKeyNeverTwiceInAMenu()
{
    for (int id = 0; id <= static_cast<int>(MenuId::Screens); ++id) {
        QStringList keys;
        for (const MenuEntry &entry : menuEntries(static_cast<MenuId>(id)))
            if (entry.kind == MenuEntry::Action)
                keys.append(actionRow(entry.action).shortcut.sequence().toString());
        keys.removeAll(QString());
        QCOMPARE(keys.removeDuplicates(), 0);
    }
}

TARVELO_TEST_MAIN(TestActionTable, QGuiApplication)
#include "tst_ActionTable.moc"
