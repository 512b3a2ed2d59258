#include "BottomFrame.h"
#include "DialogRunner.h"
#include "FileDialogs.h"
#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "Log.h"
#include "MessageBoxes.h"
#include "PositionsTable.h"
#include "SettingsPage.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>

#include <memory>

using Settings::Key;

// The settings screen: what each widget takes, what it does at once, and what it tells.
class TestSettingsPage : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init();
    void cleanup();

    void tabsInTheirOrder();
    void informationTexts_data();
    void informationTexts();
    void numbersAndTheirButtons_data();
    void numbersAndTheirButtons();
    void fieldsTakeSoMuch_data();
    void fieldsTakeSoMuch();
    void tempoLimitsKeepTheirOrder();
    void ninthPresetGoes();
    void longPresetIsCut();
    void emptyPresetsStay();
    void writtenAtOnce_data();
    void writtenAtOnce();
    void languageAndBack();
    void designAndBack();
    void levelName();
    void tempoPresetsFollow();
    void tempoButtonsHide();
    void roundingIsSaved();
    void alignmentRebuildsThePage();
    void alignmentShowsTheMiddle();
    void moreInfos();
    void timeDisplayBothWays();
    void sampleShowsTheFont();
    void fontButtonsSave();
    void frameButtonsStopAtTheEnds();
    void musicDirOfItsOwn();
    void musicDirWithThePlaylists();
    void musicDirLeftAsItWas();
    void changedListIsAskedAbout();
    void musicDirOfAFirstRun();
    void playlistDir();
    void cacheOffAndOn();
    void cacheElsewhere();
    void cacheThatCannotBe();
    void logIsClearedWhenAsked();
    void notYet_data();
    void notYet();
    void eventButton();
    void testUpdateIsForTesters();
    void cloudFields();
    void passwordIsNeverKept();

private:
    QSpinBox *number(const char *name) const { return find<QSpinBox>(name); }
    SettingsPage *page() const { return find<SettingsPage>("tabWidgetSettings"); }
    void click(const char *name) const { find<QAbstractButton>(name)->click(); }
    void choose(const char *name, int index) const;
    void startAtSettings();
    QString touch(const QString &path) const;

    QString directory; // what the user chooses next
    QStringList asked; // title and start of the directory dialogs
    std::unique_ptr<QTemporaryDir> other;
};

void TestSettingsPage::init()
{
    prepareWindow();
    directory.clear();
    asked.clear();
    other = std::make_unique<QTemporaryDir>();
    setDirectoryChooser([this](const QString &title, const QString &from) {
        asked += {title, from};
        return directory;
    });
}

void TestSettingsPage::cleanup()
{
    dropWindow();
    setDirectoryChooser({});
}

void TestSettingsPage::startAtSettings()
{
    useLibrary();
    start();
    window->showScreen(SettingsScreen);
}

// As a user does it.
void TestSettingsPage::choose(const char *name, int index) const
{
    auto *box = find<QComboBox>(name);
    box->setCurrentIndex(index);
    Q_EMIT box->activated(index);
}

QString TestSettingsPage::touch(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) ? path : QString();
}

void TestSettingsPage::tabsInTheirOrder()
{
    startAtSettings();
    QStringList titles;
    for (int tab = 0; tab < page()->count(); ++tab)
        titles.append(page()->tabText(tab));
    QCOMPARE(titles, (QStringList{u"Allgemein"_qs, u"Anpassen"_qs, u"Cloud"_qs,
                                  u"Systeminformation"_qs, u"Protokoll"_qs}));
    for (const char *name : {"tabCommon", "tabAdaptions", "tabCloud", "tabEasterEgg", "tab_2"})
        QVERIFY2(find<QWidget>(name), name);
    for (int tab = 1; tab <= 5; ++tab) {
        key(Qt::Key_F4);
        QCOMPARE(page()->currentIndex(), tab % 5);
    }
}

void TestSettingsPage::informationTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("buttonAutoEventInfo")
        << "Mit diesem Schalter fragt Tarvelo bei jedem Start nach dem aktuellen Event. Oh"
           "ne diesen Schalter wird jedes Event anonym eingetragen.";
    QTest::newRow("buttonAutoEventTimeInfo")
        << "Tarvelo pflegt eine Liste gespielter Lieder. Hier kann eingetragen werden, ab "
           "wieviel Sekunden ununterbrochener Spielzeit ein Lied als 'gespielt' anerkannt "
           "wird.";
    QTest::newRow("buttonCacheInfo")
        << "Zur Geschwindigkeitssteigerung beim Programmstart kann Tarvelo die Information"
           "en aus den Musikdateien in einen Cache schreiben. Um den Cache einzuschalten m"
           "uss die Box selektiert sein. Um den Cache auszuschalten oder zu löschen muss d"
           "ie Box leer sein.";
    QTest::newRow("buttonCharSizeInfo") << "Hier kann die Göße der Zeichen eingestellt werden.";
    QTest::newRow("buttonFrameSizeInfo")
        << "Hier kann die Größe des oberen und unteren Rahmens angepasst werden.";
    QTest::newRow("buttonLoggingInfo")
        << "Hier kann das Logging ein- und ausgeschaltet werden. Für normale Anwendungsfäl"
           "le kann dieser Schalter immer aus bleiben.";
    QTest::newRow("buttonMergeEventInfo")
        << "Die Events können zusammengefasst werden, damit die statistische Auswertung me"
           "hr Sinn ergibt. Zum Beispiel bedeutet &quot;eine Stunde&quot;, das Events igno"
           "riert werden, die innerhalb einer Stunde wieder aufgetreten sind. Das bedeutet"
           ": Wenn ein Song innerhalb eines Workshops mehrfach gespielt wird, wird er über"
           "all nur als ein Event angezeigt und ausgewertet. Diese Einstellung betrifft nu"
           "r die Anzeige & Auswertung, die Daten werden nicht geändert!";
    QTest::newRow("buttonMusicDirInfo")
        << "Aus diesem Verzeichnis und aus allen Unterordnern liest Tarvelo die mp3-Dateie"
           "n.<br><br>Anmerkung: Wird dieses Verzeichnis geändert, wird automatisch das Pl"
           "aylistverzeichnis angepasst!";
    QTest::newRow("buttonPlaylistDirInfo")
        << "Aus diesem Verzeichnis liest Tarvelo die Playlist-Dateien (Endung: .m3u8).<br>"
           "<br>Anmerkung:<ul><li>Playlisten in Unterordnern werden ignoriert.</li><li>Wer"
           "den mit Tarvelo neue Playlisten erzeugt, werden sie in diesem Ordner abgelegt."
           "</li></ul>";
    QTest::newRow("buttonPosAlignInfo")
        << "Diese Einstellung betrifft die vertikale Ausrichtung der Zeilen im Positionsfe"
           "nster. Sie wird nur bei mehrzeiligen Positionen sichtbar.";
    QTest::newRow("buttonPosSeparatorsInfo")
        << "Diese Einstellung betrifft nur die Funktion &quot;Verschiedene Positionen anze"
           "igen&quot;. Wenn Du diese Funktion nicht benutzt oder mit der Funktionsweise z"
           "ufrieden bist, solltest du hier nichts ändern.<br><br>Hier können die Trennzei"
           "chen definiert werden, die eine Position von der nächsten trennen. Das Format "
           "sind die regular expressions für C++.";
    QTest::newRow("buttonSpecialCharsInfo")
        << "Hier können Sonderzeichen eingetragen werden, die nicht über die Tastatur zu e"
           "rreichen sind (z.B. •, ¼, ½ oder ¾). Im Positionseditor werden dann entspreche"
           "nde Schaltflächen eingeblendet. Maximal 15 Zeichen können spezifiziert werden.";
    QTest::newRow("buttonTimeDisplayInfo")
        << "Hier kann die Anzeige der Uhrzeit und der Spieldauer eingestellt werden.<br><u"
           "l><li>Abwechselnd<br>Die Spieldauer wird nur während des Abspielens angezeigt,"
           " sonst die Systemzeit.<br></li><li>Uhrzeit<br>Es wird nur die Systemzeit angez"
           "eigt.<br></li><li>Spieldauer<br>Es wird nur die Spieldauer angezeigt.<br></li>"
           "<li>Parallel<br>Systemzeit und Spieldauer werden gleichzeitig angezeigt.<br></"
           "li></ul><br>Anmerkung: Dies kann auch durch ein- oder mehrmaliges klicken auf "
           "die Zeitanzeigen geändert werden.";
    QTest::newRow("buttonUserDefPartsInfo")
        << "Hier können eigene Vorgaben für neue Parts im Positions-Editor definiert werde"
           "n. Die einzelnen Einträge dürfen maximal 7 Buchstaben lang sein und müssen dur"
           "ch &lt;RETURN&gt; getrennt werden. Es sind maximal 8 Einträge erlaubt.<br><br>"
           "Die neuen Schaltflächen tauchen in der Positionsbearbeitung unter der Liste de"
           "r bereits existieren Part-Vorgaben auf.";
    QTest::newRow("buttonCloudUserData")
        << "Wir erheben keinerlei persönliche Daten, uns interessiert lediglich welche Opt"
           "ionen benutzt werden, um die Verwendung von Tarvelo optimieren zu können. Auf "
           "diese Art können wir z.B. festellen, welche Spalten sich die Nutzer anzeigen l"
           "assen oder welche Designs gewählt werden. Mit diesen Informationen können wir "
           "die Voreinstellungen besser anpassen und Weiterentwicklungen besser planen.";
}

void TestSettingsPage::informationTexts()
{
    const SettingsPage alone;
    alone.findChild<QAbstractButton *>(QLatin1String(QTest::currentDataTag()))->click();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().title, u"Information ..."_qs);
    QTEST(boxes.constFirst().text, "text");
}

void TestSettingsPage::numbersAndTheirButtons_data()
{
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("RegisterPlay") << 2 << 999 << 1 << " Sekunden";
    QTest::newRow("FontSize") << 8 << 70 << 1 << "";
    QTest::newRow("FrameSize") << 20 << 80 << 5 << " px";
    QTest::newRow("MaxFontSizePositions") << 10 << 999 << 1 << "";
    for (const char *preset : {"Percent1", "Percent2", "Percent3", "Percent4", "Percent5"})
        QTest::newRow(preset) << -50 << 50 << 1 << "";
}

void TestSettingsPage::numbersAndTheirButtons()
{
    QFETCH(int, step);
    const SettingsPage alone;
    const QString name = QLatin1String(QTest::currentDataTag());
    auto *box = alone.findChild<QSpinBox *>(u"spinBox"_qs + name);
    QTEST(box->minimum(), "least");
    QTEST(box->maximum(), "most");
    QTEST(box->suffix(), "suffix");
    QCOMPARE(box->singleStep(), step);
    QCOMPARE(box->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QVERIFY(box->alignment() & Qt::AlignRight);
    box->setValue(50);
    const int before = box->value();
    auto *plus = alone.findChild<QPushButton *>(u"button%1Plus"_qs.arg(name));
    auto *minus = alone.findChild<QPushButton *>(u"button%1Minus"_qs.arg(name));
    QCOMPARE(plus->width(), plus->height());
    QCOMPARE(minus->size(), plus->size());
    QSignalSpy stepped(&alone, &SettingsPage::stepped);
    minus->click();
    plus->click();
    QCOMPARE(stepped.size(), 2);
    QCOMPARE(stepped.at(0).at(1).toInt(), -step);
    QCOMPARE(stepped.at(1).at(1).toInt(), step);
    // The frame's height is the window's to set.
    const bool follows = name != u"FrameSize"_qs;
    box->setValue(before - (follows ? step : 0));
    plus->click();
    QCOMPARE(box->value(), before);
}

void TestSettingsPage::fieldsTakeSoMuch_data()
{
    QTest::addColumn<int>("most");
    QTest::newRow("lineEditMusicDir") << 1024;
    QTest::newRow("lineEditPlaylistDir") << 1024;
    QTest::newRow("lineEditPosSeparators") << 100;
    QTest::newRow("lineEditSpecialCharacters") << 15;
    QTest::newRow("lineEditUserId") << 32;
    QTest::newRow("lineEditUserName") << 256;
    QTest::newRow("lineEditEmail") << 256;
    QTest::newRow("lineEditPassword") << 256;
}

void TestSettingsPage::fieldsTakeSoMuch()
{
    const SettingsPage alone;
    const QLatin1String name(QTest::currentDataTag());
    QTEST(alone.findChild<QLineEdit *>(name)->maxLength(), "most");
}

void TestSettingsPage::tempoLimitsKeepTheirOrder()
{
    useLibrary();
    const Key keys[] = {Key::Tempo12, Key::Tempo23, Key::Tempo34, Key::Tempo45};
    const int stored[] = {120, 130, 140, 150};
    for (int i = 0; i < 4; ++i)
        Settings::setValue(keys[i], stored[i]);
    start();
    QSpinBox *boxesOfLimits[] = {number("spinBoxTempo12"), number("spinBoxTempo23"),
                                 number("spinBoxTempo34"), number("spinBoxTempo45")};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(boxesOfLimits[i]->value(), stored[i]);
    QCOMPARE(boxesOfLimits[0]->minimum(), 10);
    QCOMPARE(boxesOfLimits[0]->maximum(), 130);
    QCOMPARE(boxesOfLimits[1]->minimum(), 120);
    QCOMPARE(boxesOfLimits[1]->maximum(), 140);
    QCOMPARE(boxesOfLimits[2]->minimum(), 130);
    QCOMPARE(boxesOfLimits[2]->maximum(), 150);
    QCOMPARE(boxesOfLimits[3]->minimum(), 140);
    QCOMPARE(boxesOfLimits[3]->maximum(), 200);
    // Equal values are allowed, crossing ones are not.
    boxesOfLimits[0]->setValue(199);
    QCOMPARE(boxesOfLimits[0]->value(), 130);
    boxesOfLimits[2]->setValue(10);
    QCOMPARE(boxesOfLimits[2]->value(), 130);
    QCOMPARE(boxesOfLimits[3]->minimum(), 130);
    QCOMPARE(boxesOfLimits[1]->maximum(), 130);
}

void TestSettingsPage::ninthPresetGoes()
{
    startAtSettings();
    auto *edit = find<QPlainTextEdit>("plainTextEditUserPartPresets");
    edit->setPlainText(u"1\n2\n3\n4\n5\n6\n7\n8"_qs);
    QVERIFY(boxes.isEmpty());
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(3);
    edit->setTextCursor(cursor);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().title, u"Fehler ..."_qs);
    QCOMPARE(boxes.constFirst().text, u"Max. 8 Einträge erlaubt!"_qs);
    QCOMPARE(edit->toPlainText(), u"1\n2\n\n3\n4\n5\n6\n7"_qs);
    QCOMPARE(edit->textCursor().position(), 4);
    cursor = edit->textCursor();
    cursor.movePosition(QTextCursor::End);
    edit->setTextCursor(cursor);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(edit->toPlainText(), u"1\n2\n\n3\n4\n5\n6\n7"_qs);
    QVERIFY(edit->textCursor().atEnd());
}

void TestSettingsPage::longPresetIsCut()
{
    startAtSettings();
    auto *edit = find<QPlainTextEdit>("plainTextEditUserPartPresets");
    edit->setPlainText(u"Refrain\nEnde"_qs);
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(2);
    edit->setTextCursor(cursor);
    QTest::keyClick(edit, Qt::Key_X);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text, u"Max. 7 Buchstaben pro Eintrag!"_qs);
    QCOMPARE(edit->toPlainText(), u"Rexfrai\nEnde"_qs);
    QCOMPARE(edit->textCursor().position(), 3);
    // One box for each entry that is too long.
    edit->setPlainText(u"12345678\n1\n123456789"_qs);
    QCOMPARE(boxes.size(), 3);
    QCOMPARE(edit->toPlainText(), u"1234567\n1\n1234567"_qs);
    QCOMPARE(page()->value(Key::UserDefPartPresets).toString(), edit->toPlainText());
}

void TestSettingsPage::emptyPresetsStay()
{
    useLibrary();
    Settings::setValue(Key::UserDefPartPresets, u"\n\nA much too long one\n\n\n\n\n\n\n"_qs);
    start();
    QVERIFY(boxes.isEmpty());
    QCOMPARE(find<QPlainTextEdit>("plainTextEditUserPartPresets")->toPlainText(),
             u"\n\nA much \n\n\n\n\n"_qs);
}

void TestSettingsPage::writtenAtOnce_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QVariant>("value");
    const auto add = [](const char *name, Key which, const QVariant &stored) {
        QTest::newRow(name) << static_cast<int>(which) << stored;
    };
    add("spinBoxRegisterPlay", Key::RegisterPlay, 45);
    add("checkBoxLogging", Key::LoggingEnabled, true);
    add("comboBoxCountDownType", Key::CountDownType, 2);
    add("comboBoxTimeDisplay", Key::TimeDisplayMode, 1);
    add("comboBoxStyleSheet", Key::StyleSheet, u"Bright Morning"_qs);
    add("radioButtonRoundingDay", Key::EventRounding, 86400);
    add("radioButtonPosAlignBottom", Key::PositionAlignment, 64);
    // Chosen already, as the store isn't looked at.
    add("radioButtonPosAlignCenter", Key::PositionAlignment, 128);
}

void TestSettingsPage::writtenAtOnce()
{
    QFETCH(int, key);
    QFETCH(QVariant, value);
    useLibrary();
    Settings::setValue(Key::PositionAlignment, 32);
    start();
    auto *widget = find<QWidget>(QTest::currentDataTag());
    if (auto *box = qobject_cast<QSpinBox *>(widget))
        box->setValue(value.toInt());
    else if (auto *list = qobject_cast<QComboBox *>(widget))
        choose(QTest::currentDataTag(), list->findData(value));
    else
        click(QTest::currentDataTag());
    const Settings::Entry &row = Settings::entry(static_cast<Key>(key));
    QSettings written(Settings::instance()->fileName(), QSettings::NativeFormat);
    QCOMPARE(written.value(QLatin1String(row.name)).toString(), value.toString());
}

void TestSettingsPage::languageAndBack()
{
    startAtSettings();
    QCOMPARE(find<QComboBox>("comboBoxLanguage")->count(), 2);
    QVERIFY(!find<QComboBox>("comboBoxLanguage")->itemIcon(1).isNull());
    choose("comboBoxLanguage", 1);
    QTRY_COMPARE(find<QLabel>("labelScreen")->text(), u"Settings"_qs);
    QCOMPARE(find<QComboBox>("comboBoxLanguage")->currentIndex(), 1);
    QCOMPARE(QLocale().name(), u"en_US"_qs);
    choose("comboBoxLanguage", 0);
    QTRY_COMPARE(find<QLabel>("labelScreen")->text(), u"Einstellungen"_qs);
    QCOMPARE(find<QPushButton>("buttonSetEvent")->text(), u"Jetzt setzen"_qs);
}

void TestSettingsPage::designAndBack()
{
    startAtSettings();
    const QColor dark = qApp->palette().color(QPalette::Window);
    choose("comboBoxStyleSheet", 1);
    QTRY_COMPARE(qApp->palette().color(QPalette::Window), QColor(Qt::white));
    QVERIFY(qApp->styleSheet().contains(u":/Bright_Morning/"_qs));
    choose("comboBoxStyleSheet", 0);
    QTRY_COMPARE(qApp->palette().color(QPalette::Window), dark);
}

void TestSettingsPage::levelName()
{
    useLibrary();
    Settings::setValue(Key::HighIntermediate, u"Intermediate+"_qs);
    {
        const Tarvelo stores;
        Song song(music->filePath(u"2.mp3"_qs), false);
        song.setLevel(u"Intermediate-Advanced"_qs);
        QVERIFY(song.save());
    }
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const auto *info = find<QLabel>("labelPositionsAdditionalInfoR");
    QVERIFY(info->text().contains(u"Intermediate+"_qs));
    const SongListTableModel *model = find<LibraryPage>("page1_MusicList")->songList()->model();
    QSignalSpy told(model, &SongListTableModel::notifyModelChanged);
    QSignalSpy changed(model, &SongListTableModel::dataChanged);
    choose("comboBoxHighIntermediate", 0);
    QVERIFY(info->text().contains(u"High Intermediate"_qs));
    QCOMPARE(told.size(), 1);
    QVERIFY(!changed.isEmpty());
    QVERIFY(window->getCurrentSong());
}

void TestSettingsPage::tempoPresetsFollow()
{
    startAtSettings();
    number("spinBoxPercent3")->setValue(4);
    QCOMPARE(find<QPushButton>("buttonTempoPercent3")->text(), u"+4%"_qs);
    number("spinBoxPercent3")->setValue(-12);
    QCOMPARE(find<QPushButton>("buttonTempoPercent3")->text(), u"-12%"_qs);
    key(Qt::Key_F10);
    QCOMPARE(window->getTempo(), -12);
}

void TestSettingsPage::tempoButtonsHide()
{
    startAtSettings();
    QVERIFY(find<QCheckBox>("checkBoxShowTempoButtons")->isChecked());
    QVERIFY(find<QWidget>("widgetTempoPresets")->isVisible());
    click("checkBoxShowTempoButtons");
    QVERIFY(find<QWidget>("widgetTempoPresets")->isHidden());
    QVERIFY(window->byeBye());
    QVERIFY(Settings::value(Key::HideTempoButtons).toBool());
}

void TestSettingsPage::roundingIsSaved()
{
    useLibrary();
    Settings::setValue(Key::EventRounding, 4711);
    start();
    QVERIFY(find<QRadioButton>("radioButtonRoundingHour")->isChecked());
    number("spinBoxPercent1")->setValue(3);
    click("radioButtonRoundingNone");
    QCOMPARE(Settings::value(Key::EventRounding).toInt(), 0);
    // All the rest goes with it.
    QCOMPARE(Settings::value(Key::TempoDefault1).toInt(), 3);
}

void TestSettingsPage::alignmentRebuildsThePage()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const auto *table = find<QTableWidget>("tableWidgetPositions");
    click("radioButtonPosAlignTop");
    QVERIFY(table->item(0, StepsColumn)->textAlignment() & Qt::AlignTop);
    click("radioButtonPosAlignBottom");
    QVERIFY(table->item(0, StepsColumn)->textAlignment() & Qt::AlignBottom);
}

void TestSettingsPage::alignmentShowsTheMiddle()
{
    useLibrary();
    Settings::setValue(Key::PositionAlignment, 32);
    start();
    QVERIFY(find<QRadioButton>("radioButtonPosAlignCenter")->isChecked());
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::PositionAlignment).toInt(), 32);
}

void TestSettingsPage::moreInfos()
{
    useLibrary();
    {
        const Tarvelo stores;
        Song song(music->filePath(u"2.mp3"_qs), false);
        song.setLevel(u"Easy"_qs);
        QVERIFY(song.save());
    }
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const auto *info = find<QLabel>("labelPositionsAdditionalInfoL");
    QVERIFY(!info->text().isEmpty());
    click("checkBoxShowMorePositionsInfo");
    QVERIFY(info->text().isEmpty());
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::ShowMoreLyricsInfo).toInt(), 0);
}

void TestSettingsPage::timeDisplayBothWays()
{
    startAtSettings();
    auto *box = find<QComboBox>("comboBoxTimeDisplay");
    QCOMPARE(box->count(), 4);
    QCOMPARE(box->currentIndex(), 3);
    key(Qt::Key_C);
    QCOMPARE(box->currentIndex(), 0);
    choose("comboBoxTimeDisplay", 2);
    QVERIFY(find<QWidget>("buttonTime")->isHidden());
    QVERIFY(!find<QWidget>("buttonRunTime")->isHidden());
    QCOMPARE(find<BottomFrame>("buttonFrame")->timeDisplayMode(), 2);
}

void TestSettingsPage::sampleShowsTheFont()
{
    startAtSettings();
    page()->setCurrentIndex(1);
    const auto *sample = find<QLabel>("labelLoremIpsum");
    QCOMPARE(sample->text(), u"Tarvelo"_qs);
    QCOMPARE(sample->font().pointSize(), 70);
    number("spinBoxMaxFontSizePositions")->setValue(33);
    QCOMPARE(sample->font().pointSize(), 33);
    const int width = number("spinBoxTempo45")->width();
    for (const char *name : {"spinBoxTempo12", "spinBoxTempo23", "spinBoxTempo34"})
        QCOMPARE(number(name)->width(), width);
    QCOMPARE(number("spinBoxMaxFontSizePositions")->width(), number("spinBoxPercent5")->width());
}

void TestSettingsPage::fontButtonsSave()
{
    startAtSettings();
    click("buttonFontSizePlus");
    QCOMPARE(number("spinBoxFontSize")->value(), 16);
    QCOMPARE(Settings::value(Key::FontSize).toInt(), 16);
    QTRY_VERIFY(qApp->styleSheet().contains(u"font-size: 16pt"_qs));
    for (const SongListPanel *panel : window->findChildren<SongListPanel *>())
        QVERIFY(panel->table()->verticalHeader()->defaultSectionSize() >= 27);
    click("buttonFontSizeMinus");
    QCOMPARE(Settings::value(Key::FontSize).toInt(), 15);
}

void TestSettingsPage::frameButtonsStopAtTheEnds()
{
    useLibrary();
    Settings::setValue(Key::FrameHeight, 79);
    Settings::setValue(Key::FontSize, 8);
    start();
    click("buttonFrameSizePlus");
    QCOMPARE(number("spinBoxFrameSize")->value(), 80);
    QCOMPARE(find<QFrame>("frameTop")->height(), 79);
    click("buttonFrameSizeMinus");
    QCOMPARE(number("spinBoxFrameSize")->value(), 74);
    QTRY_COMPARE(find<QFrame>("frameTop")->height(), 74);
    QCOMPARE(Settings::value(Key::FrameHeight).toInt(), 74);
}

void TestSettingsPage::musicDirOfItsOwn()
{
    useLibrary();
    Settings::setValue(Key::PlaylistDir, u"/lists"_qs);
    Settings::setValue(Key::PosImExDir, u"/exchange"_qs);
    start();
    directory = other->path();
    click("buttonMusicDir");
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text,
             u"Achtung:<br>Die Verzeichnisse für die Musikdateien und für die Playlisten sind "
             "unterschiedlich!<br>Die Playlisten werden nach einem Verzeichniswechsel nicht mehr "
             "funktionieren, wenn das Playlist-Verzeichnis nicht auch entsprechend verschoben "
             "wird!"_qs);
    QCOMPARE(asked, (QStringList{u"Verzeichnis mit Musik auswählen:"_qs, music->path()}));
    QCOMPARE(Settings::musicDir(), other->path());
    QCOMPARE(Settings::playlistDir(), u"/lists"_qs);
    QCOMPARE(Settings::posImExDir(), u"/exchange"_qs);
    QCOMPARE(find<QLineEdit>("lineEditMusicDir")->text(), other->path());
    QCOMPARE(find<QLineEdit>("lineEditPlaylistDir")->text(), u"/lists"_qs);
    QVERIFY(tarvelo->getSongManager()->getSongs().isEmpty());
}

void TestSettingsPage::musicDirWithThePlaylists()
{
    useLibrary();
    Settings::setValue(Key::MusicDir, QString());
    Settings::setValue(Key::PlaylistDir, QString());
    start();
    boxes.clear();
    directory = music->path();
    click("buttonMusicDir");
    QVERIFY(boxes.isEmpty());
    QCOMPARE(tarvelo->getSongManager()->getSongs().size(), 3);
    for (const QString &stored :
         {Settings::musicDir(), Settings::playlistDir(), Settings::posImExDir()})
        QCOMPARE(stored, music->path());
    QCOMPARE(find<QLineEdit>("lineEditPlaylistDir")->text(), music->path());
}

void TestSettingsPage::musicDirLeftAsItWas()
{
    startAtSettings();
    Settings::setValue(Key::PlaylistDir, music->path());
    click("buttonMusicDir");
    QCOMPARE(asked.size(), 2);
    QCOMPARE(Settings::musicDir(), music->path());
    QCOMPARE(tarvelo->getSongManager()->getSongs().size(), 3);
}

void TestSettingsPage::changedListIsAskedAbout()
{
    startAtSettings();
    auto *list = find<SongListPanel>("framePlaylist");
    const SongPtr song = tarvelo->getSongManager()->getSongs().values().constFirst();
    list->model()->addSongs({song});
    directory = other->path();
    for (const char *button : {"buttonMusicDir", "buttonPlaylistDir"}) {
        boxes.clear();
        answer = QMessageBox::Cancel;
        click(button);
        QVERIFY(boxes.constLast().text.contains(u"wurde geändert.<br>Speichern?"_qs));
        QCOMPARE(Settings::musicDir(), music->path());
        QVERIFY(list->list()->isModified());
    }
    answer = QMessageBox::No;
    for (const char *button : {"buttonPlaylistDir", "buttonMusicDir"}) {
        boxes.clear();
        click(button);
        QCOMPARE(boxes.constLast().text.count(u"wurde geändert.<br>Speichern?"_qs), 1);
        QVERIFY(boxes.size() <= 2); // that the directories differ, and once about the list
    }
    QCOMPARE(Settings::playlistDir(), other->path());
    QCOMPARE(Settings::musicDir(), other->path());
}

// The columns are fitted to the first songs; later on the user's widths stay.
void TestSettingsPage::musicDirOfAFirstRun()
{
    useLibrary();
    const QString songs = music->path();
    Settings::instance()->clear();
    start();
    const QTableView *table = find<QTableView>("tableViewMusicList");
    directory = songs;
    click("buttonMusicDir");
    QCOMPARE(table->horizontalHeader()->sortIndicatorSection(), 0);
    QCOMPARE(table->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    window->findChild<QTableView *>(u"tableViewMusicList"_qs)->sortByColumn(2, Qt::DescendingOrder);
    click("buttonMusicDir");
    QCOMPARE(table->horizontalHeader()->sortIndicatorSection(), 2);
}

void TestSettingsPage::playlistDir()
{
    startAtSettings();
    QFile list(other->filePath(u"Ball.m3u8"_qs));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write("#EXTM3U\n");
    list.close();
    directory = other->path();
    click("buttonPlaylistDir");
    QCOMPARE(asked.constFirst(), u"Playlist-Verzeichnis auswählen:"_qs);
    QCOMPARE(Settings::playlistDir(), other->path());
    QCOMPARE(find<QLineEdit>("lineEditPlaylistDir")->text(), other->path());
    QVERIFY(find<QComboBox>("comboBoxPlaylistSelectionL")->findText(u"Ball"_qs, Qt::MatchContains)
            >= 0);
    // And so were all the settings.
    QCOMPARE(Settings::value(Key::Tempo12).toInt(), number("spinBoxTempo12")->value());
}

void TestSettingsPage::cacheOffAndOn()
{
    useLibrary();
    Settings::setValue(Key::CacheDir, other->path());
    const QString hash(32, u'a');
    const QString upper = u"0123456789ABCDEF0123456789abcdef"_qs;
    const QString within = u"x-"_qs + hash + u".tmp"_qs;
    const QString song = u"My song.mp3"_qs;
    const QString shorter(31, u'a');
    for (const QString &name : {hash, upper, within, song, shorter})
        QVERIFY(!touch(other->filePath(name)).isEmpty());
    start();
    QVERIFY(find<QCheckBox>("checkBoxUseCache")->isChecked());
    QVERIFY(find<QPushButton>("buttonChangeCacheDir")->isEnabled());
    click("checkBoxUseCache");
    QVERIFY(boxes.isEmpty());
    QStringList left = QDir(other->path()).entryList(QDir::Files, QDir::Name);
    left.removeAll(u"cache.db"_qs);
    QCOMPARE(left, (QStringList{song, shorter}));
    QVERIFY(Settings::contains(Key::CacheDir));
    QCOMPARE(Settings::cacheDir(), QString());
    QVERIFY(!find<QPushButton>("buttonChangeCacheDir")->isEnabled());
    QVERIFY(find<QLineEdit>("lineEditCacheDir")->text().isEmpty());

    click("checkBoxUseCache");
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text,
             u"Der Cache ist jetzt eingeschaltet. Er wird beim nächsten Programmstart aufgebaut, "
             "danach (also beim übernächsten Programmstart) sollte das Programm <b>deutlich</b> "
             "schneller starten."_qs);
    QCOMPARE(Settings::cacheDir(), QDir::tempPath() + u"/Tarvelo"_qs);
    QVERIFY(QDir(Settings::cacheDir()).exists());
    QVERIFY(find<QPushButton>("buttonChangeCacheDir")->isEnabled());
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::cacheDir(), QDir::tempPath() + u"/Tarvelo"_qs);
}

void TestSettingsPage::cacheElsewhere()
{
    useLibrary();
    const QString before = other->filePath(u"before"_qs);
    QVERIFY(QDir().mkpath(before));
    Settings::setValue(Key::CacheDir, before);
    start();
    const QString cached = touch(before + u'/' + QString(32, u'0'));
    click("buttonChangeCacheDir");
    QVERIFY(QFile::exists(cached));
    directory = other->filePath(u"later"_qs);
    click("buttonChangeCacheDir");
    QCOMPARE(asked.constLast(), before);
    QCOMPARE(asked.at(2), u"Cache-Verzeichnis auswählen:"_qs);
    QVERIFY(!QFile::exists(cached));
    QCOMPARE(Settings::cacheDir(), directory);
    QVERIFY(QDir(directory).exists());
    QVERIFY(find<QCheckBox>("checkBoxUseCache")->isChecked());
}

void TestSettingsPage::cacheThatCannotBe()
{
    startAtSettings();
    Settings::setValue(Key::CacheDir, other->path());
    directory = other->filePath(u"a/b/c"_qs);
    find<QPushButton>("buttonChangeCacheDir")->setEnabled(true);
    click("buttonChangeCacheDir");
    QVERIFY(!QDir(directory).exists());
    QCOMPARE(Settings::cacheDir(), QString());
    QVERIFY(!find<QCheckBox>("checkBoxUseCache")->isChecked());
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::cacheDir(), QString());
}

void TestSettingsPage::logIsClearedWhenAsked()
{
    Settings::setValue(Key::LoggingEnabled, true);
    startAtSettings();
    Settings::setValue(Key::LoggingEnabled, true);
    page()->setCurrentIndex(static_cast<int>(SettingsTab::Log));
    qDebug("a line to be forgotten");
    const auto contents = [] {
        QFile file(Log::logFileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(contents().contains("a line to be forgotten"));
    answer = QMessageBox::No;
    click("buttonLoggingClear");
    QCOMPARE(boxes.constLast().text,
             u"Sollen die mitgeschriebenen Informationen gelöscht werden?"_qs);
    QVERIFY(contents().contains("a line to be forgotten"));
    answer = QMessageBox::Yes;
    click("buttonLoggingClear");
    QVERIFY(!contents().contains("a line to be forgotten"));
}

void TestSettingsPage::notYet_data()
{
    QTest::addColumn<bool>("needsCloud");
    QTest::newRow("buttonSearchForUpdates") << false;
    QTest::newRow("buttonTestUpdate") << false;
    QTest::newRow("buttonNewCloudAccount") << true;
}

void TestSettingsPage::notYet()
{
    startAtSettings();
    click("checkBoxCloudOn");
    click(QTest::currentDataTag());
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text, u"Diese Funktion steht leider noch nicht zur Verfügung."_qs);
}

void TestSettingsPage::eventButton()
{
    startAtSettings();
    int questions = 0;
    setDialogRunner([&questions](QDialog &) {
        ++questions;
        return int(QDialog::Rejected);
    });
    click("buttonSetEvent");
    setDialogRunner({});
    QCOMPARE(questions, 1);
}

void TestSettingsPage::testUpdateIsForTesters()
{
    startAtSettings();
    QVERIFY(find<QWidget>("buttonTestUpdate")->isHidden());
    dropWindow();
    Settings::setValue(Key::TestMode, 1);
    start();
    QVERIFY(!find<QWidget>("buttonTestUpdate")->isHidden());
}

void TestSettingsPage::cloudFields()
{
    startAtSettings();
    const char *const fields[]
        = {"lineEditUserId",   "lineEditUserName",      "lineEditEmail",
           "lineEditPassword", "buttonNewCloudAccount", "checkBoxUsageStats"};
    for (const bool on : {false, true, false}) {
        QCOMPARE(find<QCheckBox>("checkBoxCloudOn")->isChecked(), on);
        for (const char *name : fields)
            QCOMPARE(find<QWidget>(name)->isEnabled(), on);
        QVERIFY(find<QWidget>("buttonCloudUserData")->isEnabled());
        click("checkBoxCloudOn");
    }
    QCOMPARE(find<QLineEdit>("lineEditUserId")->placeholderText(),
             u"Eindeutige Benutzerkennung (Wird vom System vergeben)"_qs);
    QCOMPARE(find<QLineEdit>("lineEditUserName")->placeholderText(), u"Max Mustermann"_qs);
    QCOMPARE(find<QLineEdit>("lineEditSpecialCharacters")->placeholderText(),
             u"Sonderzeichen hier eingeben"_qs);
}

void TestSettingsPage::passwordIsNeverKept()
{
    startAtSettings();
    click("checkBoxCloudOn");
    auto *field = find<QLineEdit>("lineEditPassword");
    QCOMPARE(field->echoMode(), QLineEdit::Password);
    QTest::keyClicks(field, u"geheim4711"_qs);
    QVERIFY(window->byeBye());
    Settings::instance()->sync();
    QFile store(Settings::instance()->fileName());
    QVERIFY(store.open(QIODevice::ReadOnly));
    QVERIFY(!store.readAll().contains("geheim4711"));
}

TARVELO_TEST_MAIN(TestSettingsPage, QApplication)
#include "tst_SettingsPage.moc"
