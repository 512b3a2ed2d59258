<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>Actions</name>
    <message>
        <source>Musikwiedergabe starten</source>
        <translation>Start the music</translation>
    </message>
    <message>
        <source>Abspielen in Endlosschleife</source>
        <translation>Play in an endless loop</translation>
    </message>
    <message>
        <source>Musikwiedergabe pausieren</source>
        <translation>Pause the music</translation>
    </message>
    <message>
        <source>Musikwiedergabe stoppen</source>
        <translation>Stop the music</translation>
    </message>
    <message>
        <source>Musik</source>
        <translation>Music</translation>
    </message>
    <message>
        <source>Positionen</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>Choreografie</source>
        <translation>Choreography</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Hilfe</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Alle Filter zurücksetzen</source>
        <translation>Reset all filters</translation>
    </message>
    <message>
        <source>Tag-Bearbeitung ...</source>
        <translation>Edit tags ...</translation>
    </message>
    <message>
        <source>Dateien neu einlesen</source>
        <translation>Read files again</translation>
    </message>
    <message>
        <source>Spaltenbreiten anpassen</source>
        <translation>Fit the column widths</translation>
    </message>
    <message>
        <source>Angezeigte Liste exportieren (Titel, Interpret, Album)</source>
        <translation>Export the list shown (title, artist, album)</translation>
    </message>
    <message>
        <source>Angezeigte Liste exportieren (Alle sichtbaren Spalten)</source>
        <translation>Export the list shown (all visible columns)</translation>
    </message>
    <message>
        <source>Musikdatei kopieren</source>
        <translation>Copy music file</translation>
    </message>
    <message>
        <source>Musikdatei(en) duplizieren/kopieren ...</source>
        <translation>Duplicate/copy music file(s) ...</translation>
    </message>
    <message>
        <source>Musikdatei(en) umbenennen/verschieben ...</source>
        <translation>Rename/move music file(s) ...</translation>
    </message>
    <message>
        <source>Musikdatei(en) konvertieren ...</source>
        <translation>Convert music file(s) ...</translation>
    </message>
    <message>
        <source>Musikdatei(en) importieren ...</source>
        <translation>Import music file(s) ...</translation>
    </message>
    <message>
        <source>Positionen bearbeiten ...</source>
        <translation>Edit positions ...</translation>
    </message>
    <message>
        <source>Alle Positionen kopieren</source>
        <translation>Copy all positions</translation>
    </message>
    <message>
        <source>Position kopieren</source>
        <translation>Copy position</translation>
    </message>
    <message>
        <source>Position einfügen</source>
        <translation>Paste position</translation>
    </message>
    <message>
        <source>Choreografie exportieren ...</source>
        <translation>Export choreography ...</translation>
    </message>
    <message>
        <source>Choreografie importieren ...</source>
        <translation>Import choreography ...</translation>
    </message>
    <message>
        <source>Choreografie entfernen ...</source>
        <translation>Remove choreography ...</translation>
    </message>
    <message>
        <source>Choreografie kopieren</source>
        <translation>Copy choreography</translation>
    </message>
    <message>
        <source>Positionen exportieren ...</source>
        <translation>Export positions ...</translation>
    </message>
    <message>
        <source>Positionen importieren ...</source>
        <translation>Import positions ...</translation>
    </message>
    <message>
        <source>Ersetzen ...</source>
        <translation>Replace ...</translation>
    </message>
    <message>
        <source>Zeiten verschieben ...</source>
        <translation>Shift times ...</translation>
    </message>
    <message>
        <source>Positionen formatieren ...</source>
        <translation>Format positions ...</translation>
    </message>
    <message>
        <source>Countdown bearbeiten ...</source>
        <translation>Edit countdowns ...</translation>
    </message>
    <message>
        <source>Verschiedene Positionen anzeigen ...</source>
        <translation>Show different positions ...</translation>
    </message>
    <message>
        <source>Eventliste anzeigen ...</source>
        <translation>Show event list ...</translation>
    </message>
    <message>
        <source>Spalte mit Parts anzeigen</source>
        <translation>Show column of parts</translation>
    </message>
    <message>
        <source>Spalte mit Beats anzeigen</source>
        <translation>Show column of beats</translation>
    </message>
    <message>
        <source>Spalte mit Zeitpunkt anzeigen</source>
        <translation>Show column of times</translation>
    </message>
    <message>
        <source>Abspielfortschritt</source>
        <translation>Playing progress</translation>
    </message>
    <message>
        <source>Portable USB-Stick Version erstellen ...</source>
        <translation>Make a portable USB stick version ...</translation>
    </message>
    <message>
        <source>Werkseinstellung</source>
        <translation>Factory settings</translation>
    </message>
    <message>
        <source>Rücksetzen Fensterpositionen</source>
        <translation>Reset window positions</translation>
    </message>
    <message>
        <source>Metadaten exportieren ...</source>
        <translation>Export metadata ...</translation>
    </message>
    <message>
        <source>Metadaten importieren ...</source>
        <translation>Import metadata ...</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>In die Cloud exportieren</source>
        <translation>Export to the cloud</translation>
    </message>
    <message>
        <source>Aus der Cloud importieren</source>
        <translation>Import from the cloud</translation>
    </message>
    <message>
        <source>Schreibschutz aktivieren</source>
        <translation>Set write protection</translation>
    </message>
    <message>
        <source>Schreibschutz entfernen</source>
        <translation>Remove write protection</translation>
    </message>
    <message>
        <source>Dateicache bereinigen</source>
        <translation>Clean file cache</translation>
    </message>
    <message>
        <source>Löschen ...</source>
        <translation>Delete ...</translation>
    </message>
    <message>
        <source>Musikdatei kopieren ...</source>
        <translation>Copy music file ...</translation>
    </message>
    <message>
        <source>Musikdateien kopieren ...</source>
        <translation>Copy music files ...</translation>
    </message>
    <message>
        <source>Musikdatei verschieben ...</source>
        <translation>Move music file ...</translation>
    </message>
    <message>
        <source>Musikdateien verschieben ...</source>
        <translation>Move music files ...</translation>
    </message>
    <message>
        <source>Musikdateien</source>
        <translation>Music files</translation>
    </message>
    <message>
        <source>Choreografien</source>
        <translation>Choreographies</translation>
    </message>
    <message>
        <source>Metadaten</source>
        <translation>Metadata</translation>
    </message>
    <message>
        <source>Anzeigen</source>
        <translation>Show</translation>
    </message>
    <message>
        <source>Selektierte Liste exportieren</source>
        <translation>Export the selected list</translation>
    </message>
    <message>
        <source>Komplette Liste exportieren</source>
        <translation>Export the whole list</translation>
    </message>
</context>
<context>
    <name>BottomFrame</name>
    <message>
        <source>Musikwiedergabe stoppen       S</source>
        <translation>Stop the music       S</translation>
    </message>
    <message>
        <source>Musikwiedergabe pausieren       A</source>
        <translation>Pause the music       A</translation>
    </message>
    <message>
        <source>Musikwiedergabe starten       P</source>
        <translation>Play the music       P</translation>
    </message>
    <message>
        <source>Langsamer       -</source>
        <translation>Slower       -</translation>
    </message>
    <message>
        <source>Schneller       +</source>
        <translation>Faster       +</translation>
    </message>
    <message>
        <source>Uhrzeit       C</source>
        <translation>Time of day       C</translation>
    </message>
    <message>
        <source>Spielzeit       C</source>
        <translation>Run time       C</translation>
    </message>
    <message>
        <source>Tempo in Prozent       B</source>
        <translation>Tempo in percent       B</translation>
    </message>
    <message>
        <source>Tempo in Beats pro Minute       B</source>
        <translation>Tempo in beats per minute       B</translation>
    </message>
    <message>
        <source>Tempo       F8</source>
        <translation>Tempo       F8</translation>
    </message>
    <message>
        <source>Tempo       F9</source>
        <translation>Tempo       F9</translation>
    </message>
    <message>
        <source>Tempo       F10</source>
        <translation>Tempo       F10</translation>
    </message>
    <message>
        <source>Tempo       F11</source>
        <translation>Tempo       F11</translation>
    </message>
    <message>
        <source>Tempo       F12</source>
        <translation>Tempo       F12</translation>
    </message>
</context>
<context>
    <name>ChoreographyPage</name>
    <message>
        <source>Für diesen Song wurde noch keine Choreografie ausgewählt.</source>
        <translation>No choreography has been chosen for this song yet.</translation>
    </message>
</context>
<context>
    <name>CountDownDisplayDialog</name>
    <message>
        <source>Countdown</source>
        <translation>Countdown</translation>
    </message>
</context>
<context>
    <name>DirectoryTools</name>
    <message>
        <source>Fehler: Ungültiges Verzeichnis &apos;%1&apos;!</source>
        <translation>Error: invalid directory &apos;%1&apos;!</translation>
    </message>
    <message>
        <source>Fehler beim kopieren von Datei&lt;br&gt;&apos;%1&apos;!</source>
        <translation>Error while copying the file&lt;br&gt;&apos;%1&apos;!</translation>
    </message>
</context>
<context>
    <name>HelpPage</name>
    <message>
        <source>Tastaturbelegung</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Über Tarvelo</source>
        <translation>About Tarvelo</translation>
    </message>
    <message>
        <source>Einführung</source>
        <translation>Introduction</translation>
    </message>
    <message>
        <source>Bedienung</source>
        <translation>First steps</translation>
    </message>
    <message>
        <source>Umstieg</source>
        <translation>Changing over</translation>
    </message>
    <message>
        <source>Tabellenspalten / Felder</source>
        <translation>Table columns / fields</translation>
    </message>
    <message>
        <source>Problembehandlung</source>
        <translation>Problems</translation>
    </message>
    <message>
        <source>Versionen</source>
        <translation>Versions</translation>
    </message>
    <message>
        <source>Hilfe</source>
        <translation>Help</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Bitte wähle das Verzeichnis Deiner Clogging-Musiksammlung (Musikverzeichnis -&gt; Bearbeiten). Die meisten anderen Einstellungen können auch später noch vorgenomen werden.</source>
        <translation>Please choose the directory of your clogging music (Music directory -&gt; Change). Most other settings can be made later.</translation>
    </message>
    <message>
        <source>&lt;p&gt;Das konfigurierte Verzeichnis&lt;/p&gt;&lt;code&gt;</source>
        <translation>&lt;p&gt;The configured directory&lt;/p&gt;&lt;code&gt;</translation>
    </message>
    <message>
        <source>&lt;/code&gt;&lt;p&gt;kann nicht beschrieben werden!&lt;/p&gt;Mögliche Ursachen:&lt;ul&gt;</source>
        <translation>&lt;/code&gt;&lt;p&gt;can&apos;t be written to!&lt;/p&gt;Possible causes:&lt;ul&gt;</translation>
    </message>
    <message>
        <source>&lt;li&gt;Unzureichende Freigabe im Virenscanner&lt;br&gt;&lt;b&gt;Abhilfe:&lt;/b&gt; In den Einstellungen des benutzten Virenscanners das Musikverzeichnis als vertrauenswürdige Ausnahme definieren.&lt;br&gt;&lt;/li&gt;</source>
        <translation>&lt;li&gt;The virus scanner doesn&apos;t allow it&lt;br&gt;&lt;b&gt;Remedy:&lt;/b&gt; Name the music directory as a trusted exception in the settings of the virus scanner.&lt;br&gt;&lt;/li&gt;</translation>
    </message>
    <message>
        <source>&lt;li&gt;Fehlende Lese- oder Schreibrechte für den aktuellen Benutzer auf dieses Verzeichnis&lt;br&gt;&lt;b&gt;Abhilfe:&lt;/b&gt; Testen, ob Du unter Windows Dateien hineinkopieren, ändern und löschen kannst.&lt;br&gt;&lt;/li&gt;</source>
        <translation>&lt;li&gt;The current user may not read or write this directory&lt;br&gt;&lt;b&gt;Remedy:&lt;/b&gt; Try whether you can copy files into it, change and delete them there.&lt;br&gt;&lt;/li&gt;</translation>
    </message>
    <message>
        <source>&lt;li&gt;Mieses Karma&lt;br&gt;&lt;b&gt;Abhilfe:&lt;/b&gt; Den Tarvelo Entwicklern eine Kiste Malzbier spendieren (bevorzugt Oettinger)!&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>&lt;li&gt;Bad karma&lt;br&gt;&lt;b&gt;Remedy:&lt;/b&gt; Treat the Tarvelo developers to a crate of malt beer (Oettinger preferred)!&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Konfigurationsproblem:&lt;br&gt;Das Verzeichnis&lt;br&gt;%1&lt;br&gt;mit Sprachinformationen fehlt oder ist unvollständig!</source>
        <translation>Configuration problem:&lt;br&gt;The directory&lt;br&gt;%1&lt;br&gt;with the languages is missing or incomplete!</translation>
    </message>
    <message>
        <source>Style Sheet %1 in Datei %2 konnte nicht gefunden werden.</source>
        <translation>Style sheet %1 could not be found in file %2.</translation>
    </message>
    <message>
        <source>Wenn Du auf &apos;Ja&apos; oder &apos;Nein&apos; klickst, wird Tarvelo auf Werkseinstellungen zurücksetzt. Alle Einstellungen sowie der Cache werden komplett gelöscht. Es werden dabei keine Musikdaten verändert.&lt;br&gt;&lt;br&gt;Willst Du anschließend das Programm wieder neu starten?</source>
        <translation>If you click &apos;Yes&apos; or &apos;No&apos;, Tarvelo is reset to its factory settings. All settings and the cache are deleted. No music data is changed.&lt;br&gt;&lt;br&gt;Do you want to start the program again afterwards?</translation>
    </message>
    <message>
        <source>Alle Fensterpositionen sind auf Werkseinstellung zurückgesetzt worden.</source>
        <translation>All window positions have been reset to their factory settings.</translation>
    </message>
    <message>
        <source>Zeige %1/%2
Ausgewählt: %3</source>
        <translation>Showing %1/%2
Selected: %3</translation>
    </message>
    <message>
        <source>Dieser Song enthält einen Countdown, aber keine BPM Angabe, daher wird der Countdown nicht angezeigt.&lt;br&gt;Wenn der Countdown angezeigt werden soll, ist eine korrekte BPM Angabe notwendig.</source>
        <translation>This song has a countdown but no BPM value, so the countdown is not shown.&lt;br&gt;If the countdown is to be shown, a correct BPM value is needed.</translation>
    </message>
    <message>
        <source>Die Datei&lt;br&gt;%1&lt;br&gt;kann nicht geschrieben werden. Der Song ist unverändert. Bitte wähle ein anderes Verzeichnis.</source>
        <translation>The file&lt;br&gt;%1&lt;br&gt;cannot be written. The song is unchanged. Please choose another directory.</translation>
    </message>
</context>
<context>
    <name>MessageBoxes</name>
    <message>
        <source>Fehler ...</source>
        <translation>Error ...</translation>
    </message>
    <message>
        <source>Information ...</source>
        <translation>Information ...</translation>
    </message>
    <message>
        <source>Frage ...</source>
        <translation>Question ...</translation>
    </message>
    <message>
        <source>Ja</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Nein</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Abbruch</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Problem ...</source>
        <translation>Problem ...</translation>
    </message>
    <message>
        <source>Sorry ...</source>
        <translation>Sorry ...</translation>
    </message>
    <message>
        <source>Diese Datei ist schreibgeschützt, daher können keine Änderungen vorgenommen werden.</source>
        <translation>This file is write-protected, so no changes can be made.</translation>
    </message>
    <message>
        <source>Diese Funktion steht leider noch nicht zur Verfügung.</source>
        <translation>Sorry, this function is not available yet.</translation>
    </message>
</context>
<context>
    <name>PlaylistFile</name>
    <message>
        <source>&lt;Neue Playlist&gt;</source>
        <translation>&lt;New Playlist&gt;</translation>
    </message>
</context>
<context>
    <name>PlaylistMaster</name>
    <message>
        <source>&lt;Musikbibliothek&gt;</source>
        <translation>&lt;Music Library&gt;</translation>
    </message>
</context>
<context>
    <name>PositionSlider</name>
    <message>
        <source>Abspielfortschritt       Strg+O</source>
        <translation>Playing progress       Ctrl+O</translation>
    </message>
</context>
<context>
    <name>PositionsHeader</name>
    <message>
        <source>ang. von</source>
        <translation>adapt. by</translation>
    </message>
    <message>
        <source>Level:</source>
        <translation>Level:</translation>
    </message>
    <message>
        <source>Choreograf:</source>
        <translation>Choreographer:</translation>
    </message>
</context>
<context>
    <name>PositionsPage</name>
    <message>
        <source>Part</source>
        <translation>Part</translation>
    </message>
    <message>
        <source>Zeitpunkt</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Beats</source>
        <translation>Beats</translation>
    </message>
    <message>
        <source>Positionen</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>Ab hier abspielen</source>
        <translation>Play from here</translation>
    </message>
</context>
<context>
    <name>ProgressDisplay</name>
    <message>
        <source>Fortschritt</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Abbruch</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>Screens</name>
    <message>
        <source>Musik</source>
        <translation>Music</translation>
    </message>
    <message>
        <source>Positionen</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>Choreografie</source>
        <translation>Choreography</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Hilfe</source>
        <translation>Help</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>Allgemein</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Musikverzeichnis:</source>
        <translation>Music directory:</translation>
    </message>
    <message>
        <source>Bearbeiten ...</source>
        <translation>Change ...</translation>
    </message>
    <message>
        <source>Schriftgröße:</source>
        <translation>Font size:</translation>
    </message>
    <message>
        <source>Rahmengröße:</source>
        <translation>Frame size:</translation>
    </message>
    <message>
        <source>Max. Schriftgröße Positionsanzeige:</source>
        <translation>Max. font size of the positions:</translation>
    </message>
    <message>
        <source>Verzeichnis mit Musik auswählen:</source>
        <translation>Choose the directory with your music:</translation>
    </message>
</context>
<context>
    <name>SongFileExport</name>
    <message>
        <source>Keine Musikdatei ausgewählt.</source>
        <translation>No music file selected.</translation>
    </message>
    <message>
        <source>Datei exportieren nach</source>
        <translation>Export file to</translation>
    </message>
    <message>
        <source>Audio Datei (*.wav *.mp3)</source>
        <translation>Audio file (*.wav *.mp3)</translation>
    </message>
    <message>
        <source>Die Datei&lt;br&gt;%1&lt;br&gt;ist eine Musikdatei und wird nicht überschrieben. Bitte wähle einen anderen Namen.</source>
        <translation>The file&lt;br&gt;%1&lt;br&gt;is a music file and will not be overwritten. Please choose another name.</translation>
    </message>
</context>
<context>
    <name>SongListPanel</name>
    <message>
        <source>Playlist öffnen</source>
        <translation>Open playlist</translation>
    </message>
    <message>
        <source>Playlist speichern</source>
        <translation>Save playlist</translation>
    </message>
    <message>
        <source>AltGr+S</source>
        <translation>AltGr+S</translation>
    </message>
    <message>
        <source>Playlist speichern unter</source>
        <translation>Save playlist as</translation>
    </message>
    <message>
        <source>Playlist löschen</source>
        <translation>Delete playlist</translation>
    </message>
    <message>
        <source>Liste in die Zwischenablage kopieren</source>
        <translation>Copy list to the clipboard</translation>
    </message>
    <message>
        <source>Alle Dateien der Liste in einen Ordner kopieren</source>
        <translation>Copy all files of the list to a folder</translation>
    </message>
    <message>
        <source>Ausgewählte Songs der anderen Liste hinzufügen</source>
        <translation>Add the selected songs of the other list</translation>
    </message>
    <message>
        <source>AltGr+Einfg</source>
        <translation>AltGr+Ins</translation>
    </message>
    <message>
        <source>Eintrag aus der Liste entfernen</source>
        <translation>Remove entry from the list</translation>
    </message>
    <message>
        <source>AltGr+Entf</source>
        <translation>AltGr+Del</translation>
    </message>
    <message>
        <source>Eintrag nach oben verschieben</source>
        <translation>Move entry up</translation>
    </message>
    <message>
        <source>Eintrag nach unten verschieben</source>
        <translation>Move entry down</translation>
    </message>
    <message>
        <source>Nach jedem Song den nächsten abspielen</source>
        <translation>Play the next song after each song</translation>
    </message>
    <message>
        <source>%1 Songs  %2 Spielzeit</source>
        <translation>%1 songs  %2 playing time</translation>
    </message>
    <message>
        <source>%1/%2 Songs  %3 Spielzeit</source>
        <translation>%1/%2 songs  %3 playing time</translation>
    </message>
    <message>
        <source>Schnellzugriff auf die letzten 20 Listen</source>
        <translation>Quick access to the last 20 lists</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>Musikliste</source>
        <translation>Music list</translation>
    </message>
</context>
<context>
    <name>SongListTableModel</name>
    <message>
        <source>Titel</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Künstler</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Level</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Länge</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Choreograf</source>
        <translation>Choreographer</translation>
    </message>
    <message>
        <source>Letztes Tempo</source>
        <translation>Last tempo</translation>
    </message>
    <message>
        <source>Auswahl</source>
        <translation>Selection</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>Kommentar</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Jahr</source>
        <translation>Year</translation>
    </message>
    <message>
        <source>Positionen J/N</source>
        <translation>Positions Y/N</translation>
    </message>
    <message>
        <source>Choreografie J/N</source>
        <translation>Choreography Y/N</translation>
    </message>
    <message>
        <source>Dateidatum</source>
        <translation>File date</translation>
    </message>
    <message>
        <source>Verzeichnis</source>
        <translation>Directory</translation>
    </message>
    <message>
        <source>Bewertung</source>
        <translation>Rating</translation>
    </message>
    <message>
        <source>Besitzer</source>
        <translation>Owner</translation>
    </message>
    <message>
        <source>Angepasst von</source>
        <translation>Adapted by</translation>
    </message>
    <message>
        <source>Event Anzahl</source>
        <translation>Event count</translation>
    </message>
    <message>
        <source>Event Datum</source>
        <translation>Event date</translation>
    </message>
    <message>
        <source>Event Kategorie</source>
        <translation>Event category</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Event</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Track-Nr.</source>
        <translation>Track no.</translation>
    </message>
    <message>
        <source>Positionen</source>
        <translation>Positions</translation>
    </message>
    <message>
        <source>Pfad</source>
        <translation>Path</translation>
    </message>
    <message>
        <source>Cloud ID</source>
        <translation>Cloud ID</translation>
    </message>
    <message>
        <source>Version Choreografie</source>
        <translation>Choreography version</translation>
    </message>
    <message>
        <source>Version Positionen</source>
        <translation>Positions version</translation>
    </message>
    <message>
        <source>Datei beschreibbar</source>
        <translation>File writable</translation>
    </message>
    <message>
        <source>Countdown J/N</source>
        <translation>Countdown Y/N</translation>
    </message>
    <message>
        <source>ISWC Nummer</source>
        <translation>ISWC number</translation>
    </message>
    <message>
        <source>Unbekannt</source>
        <translation>Unknown</translation>
    </message>
</context>
<context>
    <name>TopFrame</name>
    <message>
        <source>Schaltet um zwischen voller Breite und ganzem Text      W</source>
        <translation>Switches between full width and the whole text      W</translation>
    </message>
    <message>
        <source>Menü</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Alle Filter zurücksetzen       R</source>
        <translation>Reset all filters       R</translation>
    </message>
    <message>
        <source>Auswahl aufheben       Strg+Umschalt+A</source>
        <translation>Clear the selection       Ctrl+Shift+A</translation>
    </message>
    <message>
        <source>Countdown bearbeiten       Alt+C</source>
        <translation>Edit countdowns       Alt+C</translation>
    </message>
    <message>
        <source>Zweite Liste wählen und bearbeiten</source>
        <translation>Choose and edit the second list</translation>
    </message>
    <message>
        <source>Playlist anzeigen       L</source>
        <translation>Show the playlist       L</translation>
    </message>
    <message>
        <source>Bildschirm wählen       F1 ... F5</source>
        <translation>Choose a screen       F1 ... F5</translation>
    </message>
    <message>
        <source>Suche in allen Spalten       F</source>
        <translation>Search all columns       F</translation>
    </message>
    <message>
        <source>Suchen</source>
        <translation>Search</translation>
    </message>
</context>
</TS>
