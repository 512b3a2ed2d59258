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
    <name>CopyPage</name>
    <message>
        <source>Kopieren</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>%1 kopieren</source>
        <translation>Copy %1</translation>
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
    <name>DateRange</name>
    <message>
        <source>Zeitspanne eingeben:</source>
        <translation>Enter a span of dates:</translation>
    </message>
    <message>
        <source>Zeitspanne von:</source>
        <translation>From:</translation>
    </message>
    <message>
        <source>bis:</source>
        <translation>To:</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Abbruch</source>
        <translation>Cancel</translation>
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
    <name>EventEditor</name>
    <message>
        <source>Training</source>
        <translation>Training</translation>
    </message>
    <message>
        <source>Convention</source>
        <translation>Convention</translation>
    </message>
    <message>
        <source>Special</source>
        <translation>Special</translation>
    </message>
    <message>
        <source>Vorbereitung</source>
        <translation>Preparation</translation>
    </message>
    <message>
        <source>Event Editor</source>
        <translation>Event Editor</translation>
    </message>
    <message>
        <source>Datum &amp; Uhrzeit:</source>
        <translation>Date &amp; Time:</translation>
    </message>
    <message>
        <source>Kategorie:</source>
        <translation>Category:</translation>
    </message>
    <message>
        <source>Event:</source>
        <translation>Event:</translation>
    </message>
    <message>
        <source>Tempo:</source>
        <translation>Tempo:</translation>
    </message>
    <message>
        <source>Tempo in Prozent</source>
        <translation>Tempo in percent</translation>
    </message>
    <message>
        <source>Tempo in BPM</source>
        <translation>Tempo in BPM</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>FilterTexts</name>
    <message>
        <source>Zeitspanne eingeben ...</source>
        <translation>Enter time span ...</translation>
    </message>
    <message>
        <source>Heute</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>Seit Gestern</source>
        <translation>Since yesterday</translation>
    </message>
    <message>
        <source>Seit Vorgestern</source>
        <translation>Since the day before yesterday</translation>
    </message>
    <message>
        <source>Diese Woche</source>
        <translation>This week</translation>
    </message>
    <message>
        <source>Seit letzter Woche</source>
        <translation>Since last week</translation>
    </message>
    <message>
        <source>Seit vorletzter Woche</source>
        <translation>Since the week before last</translation>
    </message>
    <message>
        <source>Seit 3 Wochen</source>
        <translation>Since 3 weeks ago</translation>
    </message>
    <message>
        <source>Dieser Monat</source>
        <translation>This month</translation>
    </message>
    <message>
        <source>Seit letztem Monat</source>
        <translation>Since last month</translation>
    </message>
    <message>
        <source>Heute vor einer Woche</source>
        <translation>One week ago today</translation>
    </message>
    <message>
        <source>Heute vor zwei Wochen</source>
        <translation>Two weeks ago today</translation>
    </message>
    <message>
        <source>Heute vor drei Wochen</source>
        <translation>Three weeks ago today</translation>
    </message>
    <message>
        <source>Heute vor vier Wochen</source>
        <translation>Four weeks ago today</translation>
    </message>
    <message>
        <source>Montags</source>
        <translation>Mondays</translation>
    </message>
    <message>
        <source>Dienstags</source>
        <translation>Tuesdays</translation>
    </message>
    <message>
        <source>Mittwochs</source>
        <translation>Wednesdays</translation>
    </message>
    <message>
        <source>Donnerstags</source>
        <translation>Thursdays</translation>
    </message>
    <message>
        <source>Freitags</source>
        <translation>Fridays</translation>
    </message>
    <message>
        <source>Samstags</source>
        <translation>Saturdays</translation>
    </message>
    <message>
        <source>Sonntags</source>
        <translation>Sundays</translation>
    </message>
    <message>
        <source>&lt;Kein Eintrag&gt;</source>
        <translation>&lt;No entry&gt;</translation>
    </message>
    <message>
        <source>&lt;Irgendein Eintrag&gt;</source>
        <translation>&lt;Any entry&gt;</translation>
    </message>
    <message>
        <source>Sehr langsam</source>
        <translation>Very slow</translation>
    </message>
    <message>
        <source>Langsam</source>
        <translation>Slow</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Schnell</source>
        <translation>Fast</translation>
    </message>
    <message>
        <source>Sehr schnell</source>
        <translation>Very fast</translation>
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
    <name>ListExport</name>
    <message>
        <source>Die Liste wurde in die Windows Zwischenablage kopiert.&lt;br&gt;Du kannst sie in einem Programm Deiner Wahl einfügen, z.B. mit Strg-V oder über die rechte Maustaste -&gt; Einfügen.</source>
        <translation>The list has been copied to the Windows clipboard.&lt;br&gt;You can paste it into a program of your choice, e.g. with Ctrl-V or by the right mouse button -&gt; Paste.</translation>
    </message>
</context>
<context>
    <name>ListFilesCopy</name>
    <message>
        <source>&lt;p&gt;Das Kopieren der Datei &lt;br&gt;%1&lt;br&gt;nach&lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;/p&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Die Datei ist von einem anderen Programm geöffnet&lt;/li&gt;&lt;li&gt;Es ist kein Speicher mehr frei&lt;/li&gt;&lt;li&gt;Es gibt keine Schreibberechtigung&lt;/li&gt;&lt;/ul&gt;Willst Du mit den übrigen Dateien weitermachen?</source>
        <translation>&lt;p&gt;Copying the file &lt;br&gt;%1&lt;br&gt;to&lt;br&gt;%2&lt;br&gt;did not work!&lt;/p&gt;Possible causes:&lt;ul&gt;&lt;li&gt;The file is opened by another program&lt;/li&gt;&lt;li&gt;There is no free space left&lt;/li&gt;&lt;li&gt;There is no permission to write&lt;/li&gt;&lt;/ul&gt;Do you want to go on with the other files?</translation>
    </message>
    <message>
        <source>Zielverzeichnis auswählen</source>
        <translation>Choose Target Directory</translation>
    </message>
    <message>
        <source>Kopiere Dateien ...</source>
        <translation>Copying files ...</translation>
    </message>
    <message>
        <source>%1 Dateien erfolgreich kopiert.</source>
        <translation>%1 files copied successfully.</translation>
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
    <message>
        <source>Achtung:&lt;br&gt;Die Verzeichnisse für die Musikdateien und für die Playlisten sind unterschiedlich!&lt;br&gt;Die Playlisten werden nach einem Verzeichniswechsel nicht mehr funktionieren, wenn das Playlist-Verzeichnis nicht auch entsprechend verschoben wird!</source>
        <translation>Attention:&lt;br&gt;The directories of the music files and of the playlists differ!&lt;br&gt;After a change of the directory the playlists will no longer work, unless the playlist directory is moved as well!</translation>
    </message>
    <message>
        <source>Verzeichnis mit Musik auswählen:</source>
        <translation>Choose the directory with your music:</translation>
    </message>
    <message>
        <source>Playlist-Verzeichnis auswählen:</source>
        <translation>Choose the playlist directory:</translation>
    </message>
    <message>
        <source>Der Cache ist jetzt eingeschaltet. Er wird beim nächsten Programmstart aufgebaut, danach (also beim übernächsten Programmstart) sollte das Programm &lt;b&gt;deutlich&lt;/b&gt; schneller starten.</source>
        <translation>The cache is switched on now. It is built at the next start of the program; after that (at the start after the next one) the program should start &lt;b&gt;much&lt;/b&gt; faster.</translation>
    </message>
    <message>
        <source>Cache-Verzeichnis auswählen:</source>
        <translation>Choose the cache directory:</translation>
    </message>
    <message>
        <source>Sollen die mitgeschriebenen Informationen gelöscht werden?</source>
        <translation>Shall the logged information be deleted?</translation>
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
    <name>PlaylistOperations</name>
    <message>
        <source>Die Playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;wurde geändert.&lt;br&gt;Speichern?</source>
        <translation>The playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;has been changed.&lt;br&gt;Save it?</translation>
    </message>
    <message>
        <source>Playlist speichern</source>
        <translation>Save Playlist</translation>
    </message>
    <message>
        <source>Playlists (*.m3u8 *.m3u *.pls)</source>
        <translation>Playlists (*.m3u8 *.m3u *.pls)</translation>
    </message>
    <message>
        <source>Die Playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;gibt es schon. Willst Du sie überschreiben?</source>
        <translation>The playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;exists already. Do you want to overwrite it?</translation>
    </message>
    <message>
        <source>Playlist öffnen</source>
        <translation>Open Playlist</translation>
    </message>
    <message>
        <source>Playlist (*.m3u8 *.m3u *.pls)</source>
        <translation>Playlist (*.m3u8 *.m3u *.pls)</translation>
    </message>
    <message>
        <source>Willst Du die Playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;wirklich löschen?</source>
        <translation>Do you really want to delete the playlist&lt;br&gt;&apos;%1&apos;?</translation>
    </message>
    <message>
        <source>Fehler: Die Playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;konnte nicht gelöscht werden!</source>
        <translation>Error: The playlist&lt;br&gt;&apos;%1&apos;&lt;br&gt;could not be deleted!</translation>
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
        <source>Beim Start nach Updates suchen:</source>
        <translation>Look for updates at start:</translation>
    </message>
    <message>
        <source>Jetzt suchen</source>
        <translation>Look now</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Beim Start Event setzen:</source>
        <translation>Set the event at start:</translation>
    </message>
    <message>
        <source>Jetzt setzen</source>
        <translation>Set now</translation>
    </message>
    <message>
        <source>Mit diesem Schalter fragt Tarvelo bei jedem Start nach dem aktuellen Event. Ohne diesen Schalter wird jedes Event anonym eingetragen.</source>
        <translation>With this switch on, Tarvelo asks for the current event at each start. With it off, each event is entered without a name.</translation>
    </message>
    <message>
        <source>Als gespielt markieren nach:</source>
        <translation>Mark as played after:</translation>
    </message>
    <message>
        <source> Sekunden</source>
        <translation> seconds</translation>
    </message>
    <message>
        <source>Tarvelo pflegt eine Liste gespielter Lieder. Hier kann eingetragen werden, ab wieviel Sekunden ununterbrochener Spielzeit ein Lied als &apos;gespielt&apos; anerkannt wird.</source>
        <translation>Tarvelo keeps a list of played songs. Here you can enter after how many seconds of uninterrupted play a song counts as &apos;played&apos;.</translation>
    </message>
    <message>
        <source>Sprache:</source>
        <translation>Language:</translation>
    </message>
    <message>
        <source>Design:</source>
        <translation>Design:</translation>
    </message>
    <message>
        <source>Aus diesem Verzeichnis und aus allen Unterordnern liest Tarvelo die mp3-Dateien.&lt;br&gt;&lt;br&gt;Anmerkung: Wird dieses Verzeichnis geändert, wird automatisch das Playlistverzeichnis angepasst!</source>
        <translation>Tarvelo reads the mp3 files from this directory and from all folders below it.&lt;br&gt;&lt;br&gt;Note: When this directory is changed, the playlist directory follows by itself!</translation>
    </message>
    <message>
        <source>Playlistverzeichnis:</source>
        <translation>Playlist directory:</translation>
    </message>
    <message>
        <source>Aus diesem Verzeichnis liest Tarvelo die Playlist-Dateien (Endung: .m3u8).&lt;br&gt;&lt;br&gt;Anmerkung:&lt;ul&gt;&lt;li&gt;Playlisten in Unterordnern werden ignoriert.&lt;/li&gt;&lt;li&gt;Werden mit Tarvelo neue Playlisten erzeugt, werden sie in diesem Ordner abgelegt.&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Tarvelo reads the playlist files (ending: .m3u8) from this directory.&lt;br&gt;&lt;br&gt;Note:&lt;ul&gt;&lt;li&gt;Playlists in folders below it are ignored.&lt;/li&gt;&lt;li&gt;New playlists that are made with Tarvelo are stored in this folder.&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Hier kann die Göße der Zeichen eingestellt werden.</source>
        <translation>Here you can set the size of the letters.</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Hier kann die Größe des oberen und unteren Rahmens angepasst werden.</source>
        <translation>Here you can set the size of the upper and the lower frame.</translation>
    </message>
    <message>
        <source>Cache:</source>
        <translation>Cache:</translation>
    </message>
    <message>
        <source>Zur Geschwindigkeitssteigerung beim Programmstart kann Tarvelo die Informationen aus den Musikdateien in einen Cache schreiben. Um den Cache einzuschalten muss die Box selektiert sein. Um den Cache auszuschalten oder zu löschen muss die Box leer sein.</source>
        <translation>To make the start of the program faster, Tarvelo can write the information from the music files to a cache. To switch the cache on, the box has to be checked. To switch the cache off or to delete it, the box has to be empty.</translation>
    </message>
    <message>
        <source>Protokoll:</source>
        <translation>Log:</translation>
    </message>
    <message>
        <source>Löschen ...</source>
        <translation>Delete ...</translation>
    </message>
    <message>
        <source>Hier kann das Logging ein- und ausgeschaltet werden. Für normale Anwendungsfälle kann dieser Schalter immer aus bleiben.</source>
        <translation>Here you can switch the logging on and off. In normal use this switch can always stay off.</translation>
    </message>
    <message>
        <source>Anpassen</source>
        <translation>Customise</translation>
    </message>
    <message>
        <source>Anzeige von High Intermediate als:</source>
        <translation>Show High Intermediate as:</translation>
    </message>
    <message>
        <source>Tempoeinstufung:</source>
        <translation>Tempo classes:</translation>
    </message>
    <message>
        <source>Sehr Langsam</source>
        <translation>Very slow</translation>
    </message>
    <message>
        <source>Langsam</source>
        <translation>Slow</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Schnell</source>
        <translation>Fast</translation>
    </message>
    <message>
        <source>Sehr Schnell</source>
        <translation>Very fast</translation>
    </message>
    <message>
        <source>Temporegelung:</source>
        <translation>Tempo presets:</translation>
    </message>
    <message>
        <source>Zusammenfassung der Events:</source>
        <translation>Merge events:</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Stunde</source>
        <translation>Hour</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Die Events können zusammengefasst werden, damit die statistische Auswertung mehr Sinn ergibt. Zum Beispiel bedeutet &amp;quot;eine Stunde&amp;quot;, das Events ignoriert werden, die innerhalb einer Stunde wieder aufgetreten sind. Das bedeutet: Wenn ein Song innerhalb eines Workshops mehrfach gespielt wird, wird er überall nur als ein Event angezeigt und ausgewertet. Diese Einstellung betrifft nur die Anzeige &amp; Auswertung, die Daten werden nicht geändert!</source>
        <translation>Events can be merged so that the statistics make more sense. For example, &amp;quot;hour&amp;quot; means that events are ignored which happened again within an hour. That is: a song that is played several times in a workshop is shown and counted as one event everywhere. This setting concerns what is shown &amp; counted only, the data are not changed!</translation>
    </message>
    <message>
        <source>Temporegelung Schaltflächen:</source>
        <translation>Buttons for the tempo presets:</translation>
    </message>
    <message>
        <source>Positionstrennzeichen:</source>
        <translation>Position separators:</translation>
    </message>
    <message>
        <source>Diese Einstellung betrifft nur die Funktion &amp;quot;Verschiedene Positionen anzeigen&amp;quot;. Wenn Du diese Funktion nicht benutzt oder mit der Funktionsweise zufrieden bist, solltest du hier nichts ändern.&lt;br&gt;&lt;br&gt;Hier können die Trennzeichen definiert werden, die eine Position von der nächsten trennen. Das Format sind die regular expressions für C++.</source>
        <translation>This setting concerns the function &amp;quot;Show different positions&amp;quot; only. If you don&apos;t use this function or if you are content with how it works, you should not change anything here.&lt;br&gt;&lt;br&gt;Here you can define the separators that part one position from the next. The format is that of the regular expressions of C++.</translation>
    </message>
    <message>
        <source>Anzeige zusätzlicher Infos:</source>
        <translation>Show additional information:</translation>
    </message>
    <message>
        <source>Sonderzeichen:</source>
        <translation>Special characters:</translation>
    </message>
    <message>
        <source>Sonderzeichen hier eingeben</source>
        <translation>Enter special characters here</translation>
    </message>
    <message>
        <source>Hier können Sonderzeichen eingetragen werden, die nicht über die Tastatur zu erreichen sind (z.B. •, ¼, ½ oder ¾). Im Positionseditor werden dann entsprechende Schaltflächen eingeblendet. Maximal %1 Zeichen können spezifiziert werden.</source>
        <translation>Here you can enter special characters that can&apos;t be typed on the keyboard (such as •, ¼, ½ or ¾). The position editor then shows a button for each of them. At most %1 characters can be entered.</translation>
    </message>
    <message>
        <source>Ausrichtung der Positionsanzeige:</source>
        <translation>Alignment of the positions:</translation>
    </message>
    <message>
        <source>Oben</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>Mitte</source>
        <translation>Middle</translation>
    </message>
    <message>
        <source>Unten</source>
        <translation>Bottom</translation>
    </message>
    <message>
        <source>Diese Einstellung betrifft die vertikale Ausrichtung der Zeilen im Positionsfenster. Sie wird nur bei mehrzeiligen Positionen sichtbar.</source>
        <translation>This setting concerns the vertical alignment of the rows in the positions window. It can be seen only with positions of several lines.</translation>
    </message>
    <message>
        <source>Spiel- und Uhrzeitanzeige:</source>
        <translation>Run time and clock:</translation>
    </message>
    <message>
        <source>Hier kann die Anzeige der Uhrzeit und der Spieldauer eingestellt werden.&lt;br&gt;&lt;ul&gt;&lt;li&gt;Abwechselnd&lt;br&gt;Die Spieldauer wird nur während des Abspielens angezeigt, sonst die Systemzeit.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Uhrzeit&lt;br&gt;Es wird nur die Systemzeit angezeigt.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Spieldauer&lt;br&gt;Es wird nur die Spieldauer angezeigt.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Parallel&lt;br&gt;Systemzeit und Spieldauer werden gleichzeitig angezeigt.&lt;br&gt;&lt;/li&gt;&lt;/ul&gt;&lt;br&gt;Anmerkung: Dies kann auch durch ein- oder mehrmaliges klicken auf die Zeitanzeigen geändert werden.</source>
        <translation>Here you can set how clock and run time are shown.&lt;br&gt;&lt;ul&gt;&lt;li&gt;Alternating&lt;br&gt;The run time is shown only while a song plays, otherwise the system time.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Clock&lt;br&gt;Only the system time is shown.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Run time&lt;br&gt;Only the run time is shown.&lt;br&gt;&lt;/li&gt;&lt;li&gt;Parallel&lt;br&gt;System time and run time are shown side by side.&lt;br&gt;&lt;/li&gt;&lt;/ul&gt;&lt;br&gt;Note: This can also be changed by clicking on the time displays once or several times.</translation>
    </message>
    <message>
        <source>Countdown Anzeige:</source>
        <translation>Countdown display:</translation>
    </message>
    <message>
        <source>Part Vorgaben:</source>
        <translation>Part presets:</translation>
    </message>
    <message>
        <source>Hier können eigene Vorgaben für neue Parts im Positions-Editor definiert werden. Die einzelnen Einträge dürfen maximal %1 Buchstaben lang sein und müssen durch &amp;lt;RETURN&amp;gt; getrennt werden. Es sind maximal %2 Einträge erlaubt.&lt;br&gt;&lt;br&gt;Die neuen Schaltflächen tauchen in der Positionsbearbeitung unter der Liste der bereits existieren Part-Vorgaben auf.</source>
        <translation>Here you can define presets of your own for new parts in the position editor. Each entry may have at most %1 letters, and they have to be parted by &amp;lt;RETURN&amp;gt;. At most %2 entries are allowed.&lt;br&gt;&lt;br&gt;The new buttons appear in the position editor below the list of the part presets that are already there.</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>Cloud</translation>
    </message>
    <message>
        <source>Cloudfunktionen einschalten</source>
        <translation>Switch the cloud functions on</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Eindeutige Benutzerkennung (Wird vom System vergeben)</source>
        <translation>Unique user ID (given by the system)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Max Mustermann</source>
        <translation>Jane Doe</translation>
    </message>
    <message>
        <source>email Addresse</source>
        <translation>email address</translation>
    </message>
    <message>
        <source>Passwort</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Neues Konto beantragen</source>
        <translation>Apply for a new account</translation>
    </message>
    <message>
        <source>Nutzungsdaten ermitteln</source>
        <translation>Collect usage data</translation>
    </message>
    <message>
        <source>Was wird ermittelt?</source>
        <translation>What is collected?</translation>
    </message>
    <message>
        <source>Wir erheben keinerlei persönliche Daten, uns interessiert lediglich welche Optionen benutzt werden, um die Verwendung von Tarvelo optimieren zu können. Auf diese Art können wir z.B. festellen, welche Spalten sich die Nutzer anzeigen lassen oder welche Designs gewählt werden. Mit diesen Informationen können wir die Voreinstellungen besser anpassen und Weiterentwicklungen besser planen.</source>
        <translation>We don&apos;t collect any personal data; we only want to know which options are used, so that the use of Tarvelo can be made better. In this way we can see, for example, which columns users have on show or which designs are chosen. With this information we can choose better defaults and plan better what comes next.</translation>
    </message>
    <message>
        <source>Abwechselnd</source>
        <translation>Alternating</translation>
    </message>
    <message>
        <source>Nur Uhrzeit</source>
        <translation>Clock only</translation>
    </message>
    <message>
        <source>Nur Spieldauer</source>
        <translation>Run time only</translation>
    </message>
    <message>
        <source>Parallel</source>
        <translation>Parallel</translation>
    </message>
    <message>
        <source>Einfach</source>
        <translation>Simple</translation>
    </message>
    <message>
        <source>Fenster</source>
        <translation>Window</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>Cool</translation>
    </message>
    <message>
        <source>Max. %1 Einträge erlaubt!</source>
        <translation>Max. %1 entries allowed!</translation>
    </message>
    <message>
        <source>Max. %1 Buchstaben pro Eintrag!</source>
        <translation>Max. %1 letters for each entry!</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Systeminformation</source>
        <translation>System information</translation>
    </message>
    <message>
        <source>Protokoll</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>Information: %1</source>
        <translation>Information: %1</translation>
    </message>
    <message>
        <source>%1 verringern</source>
        <translation>Decrease %1</translation>
    </message>
    <message>
        <source>Alt+-</source>
        <translation>Alt+-</translation>
    </message>
    <message>
        <source>Strg+,</source>
        <translation>Ctrl+,</translation>
    </message>
    <message>
        <source>%1 erhöhen</source>
        <translation>Increase %1</translation>
    </message>
    <message>
        <source>Alt++</source>
        <translation>Alt++</translation>
    </message>
    <message>
        <source>Strg+.</source>
        <translation>Ctrl+.</translation>
    </message>
</context>
<context>
    <name>SongFileActions</name>
    <message>
        <source>Datei kopieren nach</source>
        <translation>Copy file to</translation>
    </message>
    <message>
        <source>Das Kopieren der Datei &lt;br&gt;%1&lt;br&gt;nach&lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Die Datei ist von einem anderen Programm geöffnet&lt;/li&gt;&lt;li&gt;Die Datei existiert bereits im Zielordner&lt;/li&gt;&lt;li&gt;Es ist kein Speicher mehr frei&lt;/li&gt;&lt;li&gt;Es gibt keine Schreibberechtigung&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Copying the file &lt;br&gt;%1&lt;br&gt;to&lt;br&gt;%2&lt;br&gt;did not work!&lt;br&gt;&lt;br&gt;Possible causes:&lt;ul&gt;&lt;li&gt;Another program has the file open&lt;/li&gt;&lt;li&gt;The file exists in the target folder already&lt;/li&gt;&lt;li&gt;There is no space left&lt;/li&gt;&lt;li&gt;There is no write permission&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Kopiere Dateien ...</source>
        <translation>Copying files ...</translation>
    </message>
    <message>
        <source>Das Kopieren der Datei&lt;br&gt;%1&lt;br&gt;nach&lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Der Virenscanner blockiert den Kopiervorgang&lt;/li&gt;&lt;li&gt;Die Datei existiert bereits im Zielordner&lt;/li&gt;&lt;li&gt;Es ist kein Speicher mehr frei&lt;/li&gt;&lt;li&gt;Es gibt keine Schreibberechtigung&lt;/li&gt;&lt;li&gt;Mieses Karma&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Copying the file&lt;br&gt;%1&lt;br&gt;to&lt;br&gt;%2&lt;br&gt;did not work!&lt;br&gt;&lt;br&gt;Possible causes:&lt;ul&gt;&lt;li&gt;The virus scanner blocks the copying&lt;/li&gt;&lt;li&gt;The file exists in the target folder already&lt;/li&gt;&lt;li&gt;There is no space left&lt;/li&gt;&lt;li&gt;There is no write permission&lt;/li&gt;&lt;li&gt;Bad karma&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>%1 Dateien erfolgreich kopiert.</source>
        <translation>%1 files copied.</translation>
    </message>
    <message>
        <source>Datei verschieben nach</source>
        <translation>Move file to</translation>
    </message>
    <message>
        <source>Das Verschieben der Datei &lt;br&gt;%1&lt;br&gt;nach&lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Die Datei ist von einem anderen Programm geöffnet&lt;/li&gt;&lt;li&gt;Die Datei existiert bereits im Zielordner&lt;/li&gt;&lt;li&gt;Es gibt keine Schreibberechtigung&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Moving the file &lt;br&gt;%1&lt;br&gt;to&lt;br&gt;%2&lt;br&gt;did not work!&lt;br&gt;&lt;br&gt;Possible causes:&lt;ul&gt;&lt;li&gt;Another program has the file open&lt;/li&gt;&lt;li&gt;The file exists in the target folder already&lt;/li&gt;&lt;li&gt;There is no write permission&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Verschiebe Dateien ...</source>
        <translation>Moving files ...</translation>
    </message>
    <message>
        <source>Das Verschieben der Datei&lt;br&gt;%1&lt;br&gt;nach&lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Der Virenscanner blockiert den Kopiervorgang&lt;/li&gt;&lt;li&gt;Die Datei ist von einem anderen Programm geöffnet&lt;/li&gt;&lt;li&gt;Die Datei existiert bereits im Zielordner&lt;/li&gt;&lt;li&gt;Es gibt keine Schreibberechtigung&lt;/li&gt;&lt;li&gt;Mieses Karma&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>Moving the file&lt;br&gt;%1&lt;br&gt;to&lt;br&gt;%2&lt;br&gt;did not work!&lt;br&gt;&lt;br&gt;Possible causes:&lt;ul&gt;&lt;li&gt;The virus scanner blocks the copying&lt;/li&gt;&lt;li&gt;Another program has the file open&lt;/li&gt;&lt;li&gt;The file exists in the target folder already&lt;/li&gt;&lt;li&gt;There is no write permission&lt;/li&gt;&lt;li&gt;Bad karma&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>%1 Dateien erfolgreich verschoben.</source>
        <translation>%1 files moved.</translation>
    </message>
    <message>
        <source>Keine Musikdatei ausgewählt.</source>
        <translation>No music file selected.</translation>
    </message>
    <message>
        <source>Audio Datei (*.mp3)</source>
        <translation>Audio file (*.mp3)</translation>
    </message>
    <message>
        <source>Zielverzeichnis auswählen</source>
        <translation>Choose the target directory</translation>
    </message>
    <message>
        <source>Aufräumen ...</source>
        <translation>Tidying up ...</translation>
    </message>
    <message>
        <source>Willst Du die ausgewählte Datei&lt;br&gt;%1&lt;br&gt;wirklich löschen?</source>
        <translation>Do you really want to delete the selected file&lt;br&gt;%1&lt;br&gt;?</translation>
    </message>
    <message>
        <source>Willst Du die %1 ausgewählten Dateien wirklich löschen?</source>
        <translation>Do you really want to delete the %1 selected files?</translation>
    </message>
    <message>
        <source>Die Datei&lt;br&gt;&lt;br&gt;%1&lt;br&gt;&lt;br&gt;konnte nicht gelöscht werden!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;br&gt;&lt;ul&gt;&lt;li&gt;Der Virenscanner blockiert den Kopiervorgang&lt;/li&gt;&lt;li&gt;Die Datei ist von einem anderen Programm geöffnet&lt;/li&gt;&lt;li&gt;Die Datei wurde zwischenzeitlich entfernt&lt;/li&gt;&lt;/ul&gt;</source>
        <translation>The file&lt;br&gt;&lt;br&gt;%1&lt;br&gt;&lt;br&gt;could not be deleted!&lt;br&gt;&lt;br&gt;Possible causes:&lt;br&gt;&lt;ul&gt;&lt;li&gt;The virus scanner blocks the copying&lt;/li&gt;&lt;li&gt;Another program has the file open&lt;/li&gt;&lt;li&gt;The file was removed in the meantime&lt;/li&gt;&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Songs importieren</source>
        <translation>Import songs</translation>
    </message>
    <message>
        <source>Das Musikverzeichnis muss vorher festgelegt werden.</source>
        <translation>The music directory has to be chosen first.</translation>
    </message>
    <message>
        <source>Beim Anlegen des Verzeichnisses %1 ist ein Fehler aufgetreten. Die Operation wird abgebrochen.</source>
        <translation>An error occurred while making the directory %1. The operation is cancelled.</translation>
    </message>
    <message>
        <source>Es wurde keine Datei kopiert!</source>
        <translation>No file was copied!</translation>
    </message>
    <message>
        <source>Das Kopieren von&lt;br&gt;%1&lt;br&gt; nach &lt;br&gt;%2&lt;br&gt;hat nicht funktioniert!&lt;br&gt;&lt;br&gt;Mögliche Ursachen:&lt;ul&gt;&lt;li&gt;Der Virenscanner blockiert den Kopiervorgang&lt;/li&gt;&lt;li&gt;Die Datei existiert bereits im Zielordner&lt;/li&gt;&lt;li&gt;Kein freier Speicher mehr&lt;/li&gt;&lt;/ul&gt;&lt;br&gt;&lt;br&gt;Fortfahren?</source>
        <translation>Copying&lt;br&gt;%1&lt;br&gt; to &lt;br&gt;%2&lt;br&gt;did not work!&lt;br&gt;&lt;br&gt;Possible causes:&lt;ul&gt;&lt;li&gt;The virus scanner blocks the copying&lt;/li&gt;&lt;li&gt;The file exists in the target folder already&lt;/li&gt;&lt;li&gt;No space left&lt;/li&gt;&lt;/ul&gt;&lt;br&gt;&lt;br&gt;Continue?</translation>
    </message>
    <message>
        <source>Es wurde eine Datei in das Unterverzeichnis &apos;%1&apos; kopiert.</source>
        <translation>One file was copied to the subdirectory &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Es wurden %1 Dateien in das Unterverzeichnis &apos;%2&apos; kopiert.</source>
        <translation>%1 files were copied to the subdirectory &apos;%2&apos;.</translation>
    </message>
    <message>
        <source>Die Datei ist in die Windows Zwischenablage kopiert worden und kann jetzt z.B. auf den Desktop oder in ein beliebiges Verzeichnis eingefügt werden.</source>
        <translation>The file was copied to the clipboard and can now be pasted, for example, onto the desktop or into any directory.</translation>
    </message>
    <message>
        <source>Der Cache für die Datei&lt;br&gt;%1&lt;br&gt;konnte nicht bereinigt werden oder wurde bereits gelöscht!</source>
        <translation>The cache of the file&lt;br&gt;%1&lt;br&gt;could not be cleaned or was deleted already!</translation>
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
    <name>SongListFilterHandler</name>
    <message>
        <source>Filtern nach %1</source>
        <translation>Filter by %1</translation>
    </message>
    <message>
        <source>Filtern nach Titel</source>
        <translation>Filter by title</translation>
    </message>
    <message>
        <source>Filtern nach Künstler</source>
        <translation>Filter by artist</translation>
    </message>
    <message>
        <source>Filtern nach Level</source>
        <translation>Filter by level</translation>
    </message>
    <message>
        <source>Filtern nach BPM</source>
        <translation>Filter by BPM</translation>
    </message>
    <message>
        <source>Filtern nach Kommentar</source>
        <translation>Filter by comment</translation>
    </message>
    <message>
        <source>Filtern nach Genre</source>
        <translation>Filter by genre</translation>
    </message>
    <message>
        <source>Filtern nach Jahr</source>
        <translation>Filter by year</translation>
    </message>
    <message>
        <source>Filtern nach Choreograf</source>
        <translation>Filter by choreographer</translation>
    </message>
    <message>
        <source>Filtern nach Dateidatum</source>
        <translation>Filter by file date</translation>
    </message>
    <message>
        <source>Filtern nach Verzeichnis</source>
        <translation>Filter by directory</translation>
    </message>
    <message>
        <source>Filtern nach Bewertung</source>
        <translation>Filter by rating</translation>
    </message>
    <message>
        <source>Filtern nach Angepasst</source>
        <translation>Filter by adapted by</translation>
    </message>
    <message>
        <source>Filtern nach Eventdatum</source>
        <translation>Filter by event date</translation>
    </message>
    <message>
        <source>Filtern nach Event Kategorie</source>
        <translation>Filter by event category</translation>
    </message>
    <message>
        <source>Filtern nach Eventname</source>
        <translation>Filter by event name</translation>
    </message>
    <message>
        <source>Filtern nach Album</source>
        <translation>Filter by album</translation>
    </message>
    <message>
        <source>Filtern nach Track-Nr.</source>
        <translation>Filter by track no.</translation>
    </message>
    <message>
        <source>Filtern nach Positionen</source>
        <translation>Filter by positions</translation>
    </message>
    <message>
        <source>Filtern nach Dateipfad</source>
        <translation>Filter by file path</translation>
    </message>
    <message>
        <source>Filtern nach ISWC Nummer</source>
        <translation>Filter by ISWC number</translation>
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
    <name>SongTableColumns</name>
    <message>
        <source>Breite anpassen</source>
        <translation>Fit Width</translation>
    </message>
    <message>
        <source>Spalte ausblenden</source>
        <translation>Hide Column</translation>
    </message>
    <message>
        <source>Spalte links einblenden</source>
        <translation>Show Column to the Left</translation>
    </message>
    <message>
        <source>Spalte rechts einblenden</source>
        <translation>Show Column to the Right</translation>
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
