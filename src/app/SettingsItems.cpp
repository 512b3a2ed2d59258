#include "SettingsItems.h"

#include "PartPresets.h"

#include <QCoreApplication>

using Settings::Key;
using Kind = SettingsKind;
using Act = SettingsButton;

namespace {

constexpr int pathLength = 1024;
constexpr int separatorsLength = 100;
constexpr int specialCharsLength = 15;
constexpr int userIdLength = 32;
constexpr int cloudTextLength = 256;
constexpr int mostPoints = 999;

constexpr SettingsItem items[] = {
    {.kind = Kind::Tab,
     .name = "tabCommon",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Allgemein")},

    {.kind = Kind::Row,
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Beim Start nach Updates suchen:")},
    {.kind = Kind::CheckBox, .name = "checkBoxAutoUpdate", .key = Key::AutoUpdate},
    {.kind = Kind::Button,
     .name = "buttonSearchForUpdates",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Jetzt suchen"),
     .button = Act::SearchForUpdates},
    {.kind = Kind::Button,
     .name = "buttonTestUpdate",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Test"),
     .button = Act::TestUpdate},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Beim Start Event setzen:")},
    {.kind = Kind::CheckBox, .name = "checkBoxAutoEvent", .key = Key::AutoEvent},
    {.kind = Kind::Button,
     .name = "buttonSetEvent",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Jetzt setzen"),
     .button = Act::SetEvent},
    {.kind = Kind::InfoButton,
     .name = "buttonAutoEventInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Mit diesem Schalter fragt Tarvelo bei jedem Start nach dem aktuellen Event. Ohne "
         "diesen Schalter wird jedes Event anonym eingetragen.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Als gespielt markieren nach:")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxRegisterPlay",
     .key = Key::RegisterPlay,
     .minimum = 2,
     .maximum = 999,
     .suffix = QT_TRANSLATE_NOOP("SettingsPage", " Sekunden")},
    {.kind = Kind::InfoButton,
     .name = "buttonAutoEventTimeInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Tarvelo pflegt eine Liste gespielter Lieder. Hier kann eingetragen werden, ab "
         "wieviel Sekunden ununterbrochener Spielzeit ein Lied als 'gespielt' anerkannt "
         "wird.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Sprache:")},
    {.kind = Kind::ComboBox, .name = "comboBoxLanguage", .key = Key::Language},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Design:")},
    {.kind = Kind::ComboBox, .name = "comboBoxStyleSheet", .key = Key::StyleSheet},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Musikverzeichnis:")},
    {.kind = Kind::DirectoryField,
     .name = "lineEditMusicDir",
     .key = Key::MusicDir,
     .maximum = pathLength},
    {.kind = Kind::Button,
     .name = "buttonMusicDir",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Bearbeiten ..."),
     .button = Act::MusicDir},
    {.kind = Kind::InfoButton,
     .name = "buttonMusicDirInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Aus diesem Verzeichnis und aus allen Unterordnern liest Tarvelo die mp3-Dateien."
         "<br><br>Anmerkung: Wird dieses Verzeichnis geändert, wird automatisch das "
         "Playlistverzeichnis angepasst!")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Playlistverzeichnis:")},
    {.kind = Kind::DirectoryField,
     .name = "lineEditPlaylistDir",
     .key = Key::PlaylistDir,
     .maximum = pathLength},
    {.kind = Kind::Button,
     .name = "buttonPlaylistDir",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Bearbeiten ..."),
     .button = Act::PlaylistDir},
    {.kind = Kind::InfoButton,
     .name = "buttonPlaylistDirInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Aus diesem Verzeichnis liest Tarvelo die Playlist-Dateien (Endung: .m3u8).<br>"
         "<br>Anmerkung:<ul><li>Playlisten in Unterordnern werden ignoriert.</li><li>Werden "
         "mit Tarvelo neue Playlisten erzeugt, werden sie in diesem Ordner abgelegt.</li>"
         "</ul>")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Schriftgröße:")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxFontSize",
     .key = Key::FontSize,
     .minimum = 8,
     .maximum = 70},
    {.kind = Kind::InfoButton,
     .name = "buttonCharSizeInfo",
     .info
     = QT_TRANSLATE_NOOP("SettingsPage", "Hier kann die Göße der Zeichen eingestellt werden.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Rahmengröße:")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxFrameSize",
     .key = Key::FrameHeight,
     .minimum = 20,
     .maximum = 80,
     .step = 5,
     .suffix = QT_TRANSLATE_NOOP("SettingsPage", " px")},
    {.kind = Kind::InfoButton,
     .name = "buttonFrameSizeInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage", "Hier kann die Größe des oberen und unteren Rahmens angepasst werden.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Cache:")},
    {.kind = Kind::CheckBox, .name = "checkBoxUseCache"},
    {.kind = Kind::DirectoryField, .name = "lineEditCacheDir", .key = Key::CacheDir},
    {.kind = Kind::Button,
     .name = "buttonChangeCacheDir",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Bearbeiten ..."),
     .button = Act::CacheDir},
    {.kind = Kind::InfoButton,
     .name = "buttonCacheInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Zur Geschwindigkeitssteigerung beim Programmstart kann Tarvelo die Informationen "
         "aus den Musikdateien in einen Cache schreiben. Um den Cache einzuschalten muss "
         "die Box selektiert sein. Um den Cache auszuschalten oder zu löschen muss die Box "
         "leer sein.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Protokoll:")},
    {.kind = Kind::CheckBox, .name = "checkBoxLogging", .key = Key::LoggingEnabled},
    {.kind = Kind::Button,
     .name = "buttonLoggingClear",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Löschen ..."),
     .button = Act::ClearLog},
    {.kind = Kind::InfoButton,
     .name = "buttonLoggingInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Hier kann das Logging ein- und ausgeschaltet werden. Für normale Anwendungsfälle "
         "kann dieser Schalter immer aus bleiben.")},

    {.kind = Kind::Tab,
     .name = "tabAdaptions",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Anpassen")},

    {.kind = Kind::Row,
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Anzeige von High Intermediate als:")},
    {.kind = Kind::ComboBox, .name = "comboBoxHighIntermediate", .key = Key::HighIntermediate},

    {.kind = Kind::Row,
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Max. Schriftgröße Positionsanzeige:")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxMaxFontSizePositions",
     .key = Key::MaxFontSizeLyrics,
     .minimum = 10,
     .maximum = mostPoints},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Tempoeinstufung:")},
    {.kind = Kind::Word, .text = QT_TRANSLATE_NOOP("SettingsPage", "Sehr Langsam")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxTempo12",
     .key = Key::Tempo12,
     .minimum = 10,
     .maximum = 197},
    {.kind = Kind::Word, .text = QT_TRANSLATE_NOOP("SettingsPage", "Langsam")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxTempo23",
     .key = Key::Tempo23,
     .minimum = 11,
     .maximum = 198},
    {.kind = Kind::Word, .text = QT_TRANSLATE_NOOP("SettingsPage", "Normal")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxTempo34",
     .key = Key::Tempo34,
     .minimum = 12,
     .maximum = 199},
    {.kind = Kind::Word, .text = QT_TRANSLATE_NOOP("SettingsPage", "Schnell")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxTempo45",
     .key = Key::Tempo45,
     .minimum = 13,
     .maximum = 200},
    {.kind = Kind::Word, .text = QT_TRANSLATE_NOOP("SettingsPage", "Sehr Schnell")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Temporegelung:")},
    {.kind = Kind::SpinBox,
     .name = "spinBoxPercent1",
     .key = Key::TempoDefault1,
     .minimum = -50,
     .maximum = 50},
    {.kind = Kind::SpinBox,
     .name = "spinBoxPercent2",
     .key = Key::TempoDefault2,
     .minimum = -50,
     .maximum = 50},
    {.kind = Kind::SpinBox,
     .name = "spinBoxPercent3",
     .key = Key::TempoDefault3,
     .minimum = -50,
     .maximum = 50},
    {.kind = Kind::SpinBox,
     .name = "spinBoxPercent4",
     .key = Key::TempoDefault4,
     .minimum = -50,
     .maximum = 50},
    {.kind = Kind::SpinBox,
     .name = "spinBoxPercent5",
     .key = Key::TempoDefault5,
     .minimum = -50,
     .maximum = 50},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Zusammenfassung der Events:")},
    {.kind = Kind::RadioButton,
     .name = "radioButtonRoundingNone",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Keine"),
     .key = Key::EventRounding,
     .value = 0},
    {.kind = Kind::RadioButton,
     .name = "radioButtonRoundingHour",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Stunde"),
     .key = Key::EventRounding,
     .value = 3600},
    {.kind = Kind::RadioButton,
     .name = "radioButtonRoundingDay",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Tag"),
     .key = Key::EventRounding,
     .value = 86400},
    {.kind = Kind::InfoButton,
     .name = "buttonMergeEventInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Die Events können zusammengefasst werden, damit die statistische Auswertung mehr "
         "Sinn ergibt. Zum Beispiel bedeutet &quot;eine Stunde&quot;, das Events ignoriert "
         "werden, die innerhalb einer Stunde wieder aufgetreten sind. Das bedeutet: Wenn "
         "ein Song innerhalb eines Workshops mehrfach gespielt wird, wird er überall nur "
         "als ein Event angezeigt und ausgewertet. Diese Einstellung betrifft nur die "
         "Anzeige & Auswertung, die Daten werden nicht geändert!")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Temporegelung Schaltflächen:")},
    {.kind = Kind::CheckBox,
     .name = "checkBoxShowTempoButtons",
     .key = Key::HideTempoButtons,
     .inverted = true},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Positionstrennzeichen:")},
    {.kind = Kind::LineEdit,
     .name = "lineEditPosSeparators",
     .key = Key::PosSeparators,
     .maximum = separatorsLength},
    {.kind = Kind::InfoButton,
     .name = "buttonPosSeparatorsInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Diese Einstellung betrifft nur die Funktion &quot;Verschiedene Positionen "
         "anzeigen&quot;. Wenn Du diese Funktion nicht benutzt oder mit der "
         "Funktionsweise zufrieden bist, solltest du hier nichts ändern.<br><br>Hier "
         "können die Trennzeichen definiert werden, die eine Position von der nächsten "
         "trennen. Das Format sind die regular expressions für C++.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Anzeige zusätzlicher Infos:")},
    {.kind = Kind::CheckBox,
     .name = "checkBoxShowMorePositionsInfo",
     .key = Key::ShowMoreLyricsInfo},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Sonderzeichen:")},
    {.kind = Kind::LineEdit,
     .name = "lineEditSpecialCharacters",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Sonderzeichen hier eingeben"),
     .key = Key::SpecialChars,
     .maximum = specialCharsLength},
    {.kind = Kind::InfoButton,
     .name = "buttonSpecialCharsInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Hier können Sonderzeichen eingetragen werden, die nicht über die Tastatur zu "
         "erreichen sind (z.B. •, ¼, ½ oder ¾). Im Positionseditor werden dann "
         "entsprechende Schaltflächen eingeblendet. Maximal %1 Zeichen können "
         "spezifiziert werden."),
     .arguments = {specialCharsLength}},

    {.kind = Kind::Row,
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Ausrichtung der Positionsanzeige:")},
    {.kind = Kind::RadioButton,
     .name = "radioButtonPosAlignTop",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Oben"),
     .key = Key::PositionAlignment,
     .value = Qt::AlignTop},
    {.kind = Kind::RadioButton,
     .name = "radioButtonPosAlignCenter",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Mitte"),
     .key = Key::PositionAlignment,
     .value = Qt::AlignVCenter},
    {.kind = Kind::RadioButton,
     .name = "radioButtonPosAlignBottom",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Unten"),
     .key = Key::PositionAlignment,
     .value = Qt::AlignBottom},
    {.kind = Kind::InfoButton,
     .name = "buttonPosAlignInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage", "Diese Einstellung betrifft die vertikale Ausrichtung der Zeilen im "
                         "Positionsfenster. Sie wird nur bei mehrzeiligen Positionen sichtbar.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Spiel- und Uhrzeitanzeige:")},
    {.kind = Kind::ComboBox, .name = "comboBoxTimeDisplay", .key = Key::TimeDisplayMode},
    {.kind = Kind::InfoButton,
     .name = "buttonTimeDisplayInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Hier kann die Anzeige der Uhrzeit und der Spieldauer eingestellt werden.<br><ul>"
         "<li>Abwechselnd<br>Die Spieldauer wird nur während des Abspielens angezeigt, "
         "sonst die Systemzeit.<br></li><li>Uhrzeit<br>Es wird nur die Systemzeit "
         "angezeigt.<br></li><li>Spieldauer<br>Es wird nur die Spieldauer angezeigt.<br>"
         "</li><li>Parallel<br>Systemzeit und Spieldauer werden gleichzeitig angezeigt."
         "<br></li></ul><br>Anmerkung: Dies kann auch durch ein- oder mehrmaliges klicken "
         "auf die Zeitanzeigen geändert werden.")},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Countdown Anzeige:")},
    {.kind = Kind::ComboBox, .name = "comboBoxCountDownType", .key = Key::CountDownType},

    {.kind = Kind::Row},
    {.kind = Kind::Sample, .name = "labelLoremIpsum", .text = "Tarvelo"},

    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Part Vorgaben:")},
    {.kind = Kind::TextEdit,
     .name = "plainTextEditUserPartPresets",
     .key = Key::UserDefPartPresets},
    {.kind = Kind::InfoButton,
     .name = "buttonUserDefPartsInfo",
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Hier können eigene Vorgaben für neue Parts im Positions-Editor definiert "
         "werden. Die einzelnen Einträge dürfen maximal %1 Buchstaben lang sein und müssen "
         "durch &lt;RETURN&gt; getrennt werden. Es sind maximal %2 Einträge erlaubt.<br>"
         "<br>Die neuen Schaltflächen tauchen in der Positionsbearbeitung unter der Liste "
         "der bereits existieren Part-Vorgaben auf."),
     .arguments = {PartPresets::mostLetters, PartPresets::mostEntries}},

    {.kind = Kind::Tab, .name = "tabCloud", .text = QT_TRANSLATE_NOOP("SettingsPage", "Cloud")},

    {.kind = Kind::Row, .wide = true},
    {.kind = Kind::CheckBox,
     .name = "checkBoxCloudOn",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Cloudfunktionen einschalten"),
     .key = Key::CloudOn},
    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "ID"), .wide = true},
    {.kind = Kind::LineEdit,
     .name = "lineEditUserId",
     .text
     = QT_TRANSLATE_NOOP("SettingsPage", "Eindeutige Benutzerkennung (Wird vom System vergeben)"),
     .key = Key::CloudUserId,
     .maximum = userIdLength,
     .needsCloud = true},
    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Name"), .wide = true},
    {.kind = Kind::LineEdit,
     .name = "lineEditUserName",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Max Mustermann"),
     .key = Key::CloudName,
     .maximum = cloudTextLength,
     .needsCloud = true},
    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "email Addresse"), .wide = true},
    {.kind = Kind::LineEdit,
     .name = "lineEditEmail",
     .key = Key::CloudEmail,
     .maximum = cloudTextLength,
     .needsCloud = true},
    {.kind = Kind::Row, .text = QT_TRANSLATE_NOOP("SettingsPage", "Passwort"), .wide = true},
    {.kind = Kind::PasswordEdit,
     .name = "lineEditPassword",
     .maximum = cloudTextLength,
     .needsCloud = true},
    {.kind = Kind::Row, .wide = true},
    {.kind = Kind::Button,
     .name = "buttonNewCloudAccount",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Neues Konto beantragen"),
     .needsCloud = true,
     .button = Act::NewCloudAccount},
    {.kind = Kind::Row, .wide = true},
    {.kind = Kind::CheckBox,
     .name = "checkBoxUsageStats",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Nutzungsdaten ermitteln"),
     .key = Key::CloudUserData,
     .needsCloud = true},
    {.kind = Kind::Button,
     .name = "buttonCloudUserData",
     .text = QT_TRANSLATE_NOOP("SettingsPage", "Was wird ermittelt?"),
     .info = QT_TRANSLATE_NOOP(
         "SettingsPage",
         "Wir erheben keinerlei persönliche Daten, uns interessiert lediglich welche "
         "Optionen benutzt werden, um die Verwendung von Tarvelo optimieren zu können. Auf "
         "diese Art können wir z.B. festellen, welche Spalten sich die Nutzer anzeigen "
         "lassen oder welche Designs gewählt werden. Mit diesen Informationen können wir "
         "die Voreinstellungen besser anpassen und Weiterentwicklungen besser planen.")},
};

constexpr SettingsChoice choices[] = {
    {.key = Key::Language, .text = "Deutsch", .value = "de", .picture = "de.png"},
    {.key = Key::Language, .text = "English", .value = "en", .picture = "us.png"},
    {.key = Key::StyleSheet, .text = "Dark Night", .value = "Dark Night"},
    {.key = Key::StyleSheet, .text = "Bright Morning", .value = "Bright Morning"},
    {.key = Key::HighIntermediate, .text = "High Intermediate", .value = "High Intermediate"},
    {.key = Key::HighIntermediate,
     .text = "Intermediate-Advanced",
     .value = "Intermediate-Advanced"},
    {.key = Key::HighIntermediate, .text = "Intermediate+", .value = "Intermediate+"},
    {.key = Key::TimeDisplayMode, .text = QT_TRANSLATE_NOOP("SettingsPage", "Abwechselnd")},
    {.key = Key::TimeDisplayMode, .text = QT_TRANSLATE_NOOP("SettingsPage", "Nur Uhrzeit")},
    {.key = Key::TimeDisplayMode, .text = QT_TRANSLATE_NOOP("SettingsPage", "Nur Spieldauer")},
    {.key = Key::TimeDisplayMode, .text = QT_TRANSLATE_NOOP("SettingsPage", "Parallel")},
    {.key = Key::CountDownType, .text = QT_TRANSLATE_NOOP("SettingsPage", "Einfach")},
    {.key = Key::CountDownType, .text = QT_TRANSLATE_NOOP("SettingsPage", "Fenster")},
    {.key = Key::CountDownType, .text = QT_TRANSLATE_NOOP("SettingsPage", "Cool")},
};

} // namespace

std::span<const SettingsItem> settingsItems()
{
    return items;
}

std::span<const SettingsChoice> settingsChoices()
{
    return choices;
}

QString settingsText(const char *text)
{
    return text ? QCoreApplication::translate("SettingsPage", text) : QString();
}
