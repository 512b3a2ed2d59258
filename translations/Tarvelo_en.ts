<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>BottomFrame</name>
    <message>
        <source>Uhrzeit</source>
        <translation>Time of day</translation>
    </message>
    <message>
        <source>Spielzeit</source>
        <translation>Run time</translation>
    </message>
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
        <source>Tempo in Prozent</source>
        <translation>Tempo in percent</translation>
    </message>
    <message>
        <source>Tempo in Beats pro Minute</source>
        <translation>Tempo in beats per minute</translation>
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
    <name>HelpPage</name>
    <message>
        <source>Bildschirm wählen</source>
        <translation>Choose the screen</translation>
    </message>
    <message>
        <source>Song oder Position wählen</source>
        <translation>Choose a song or a position</translation>
    </message>
    <message>
        <source>Song laden und seine Positionen zeigen; zurück</source>
        <translation>Load the song and show its positions; back</translation>
    </message>
    <message>
        <source>Musikwiedergabe starten</source>
        <translation>Play the music</translation>
    </message>
    <message>
        <source>Musikwiedergabe pausieren, fortsetzen</source>
        <translation>Pause the music, resume it</translation>
    </message>
    <message>
        <source>Musikwiedergabe stoppen</source>
        <translation>Stop the music</translation>
    </message>
    <message>
        <source>Tempo um ein Prozent schneller, langsamer</source>
        <translation>Tempo one percent faster, slower</translation>
    </message>
    <message>
        <source>Fünf Sekunden zurück, vor</source>
        <translation>Five seconds back, ahead</translation>
    </message>
    <message>
        <source>Part 1 bis 10 spielen; mit Strg Part 11 bis 20</source>
        <translation>Play part 1 to 10; with Ctrl part 11 to 20</translation>
    </message>
    <message>
        <source>Positionen in voller Breite oder als ganzer Text</source>
        <translation>Positions at full width or as the whole text</translation>
    </message>
    <message>
        <source>Spalte der Parts, der Beats, der Zeitpunkte zeigen</source>
        <translation>Show the column of parts, of beats, of times</translation>
    </message>
    <message>
        <source>Dateien neu einlesen (Musik)</source>
        <translation>Read the files again (Music)</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Tastaturbelegung</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Über Tarvelo</source>
        <translation>About Tarvelo</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Tarvelo %1&lt;/h2&gt;&lt;p&gt;Ein mp3-Spieler für Clogging-Lehrer.&lt;/p&gt;&lt;p&gt;%2&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Tarvelo %1&lt;/h2&gt;&lt;p&gt;An mp3 player for clogging instructors.&lt;/p&gt;&lt;p&gt;%2&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Bitte wähle das Verzeichnis Deiner Clogging-Musiksammlung (Musikverzeichnis -&gt; Bearbeiten). Die meisten anderen Einstellungen können auch später noch vorgenomen werden.</source>
        <translation>Please choose the directory of your clogging music (Music directory -&gt; Change). Most other settings can be made later.</translation>
    </message>
    <message>
        <source>Dateien neu einlesen</source>
        <translation>Read the files again</translation>
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
        <source>Spalte mit Parts anzeigen</source>
        <translation>Show the column of parts</translation>
    </message>
    <message>
        <source>Spalte mit Beats anzeigen</source>
        <translation>Show the column of beats</translation>
    </message>
    <message>
        <source>Spalte mit Zeitpunkt anzeigen</source>
        <translation>Show the column of times</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
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
        <source>Bildschirm wählen</source>
        <translation>Choose the screen</translation>
    </message>
</context>
</TS>
