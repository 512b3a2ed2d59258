#include "LibraryPage.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionsPage.h"
#include "Samples.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "Tarvelo.h"
#include "TestMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QToolButton>

#include <unistd.h>

using Settings::Key;

namespace {

struct Box
{
    QString title;
    QString text;
};

} // namespace

// The window coming up, going away, and what its keys do without a sound.
class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void firstRunAsksForTheMusic();
    void laterRunShowsTheLibrary();
    void unwritableMusicDirectoryIsTold();
    void missingMusicDirectoryIsTold();
    void quitDuringStartSkipsTheEventLoop();
    void closingSavesTheSettings();
    void nothingIsSavedBeforeTheEnd();
    void partColumnOfAnOldStore();
    void frameHeightFollowsTheStore_data();
    void frameHeightFollowsTheStore();
    void bothLanguages_data();
    void bothLanguages();
    void frenchSettingsBecomeEnglish();
    void factoryReset_data();
    void factoryReset();
    void windowPositionsAreForgotten();
    void choosingTheMusicDirectoryReadsIt();

    void songsAreListedByTitle();
    void keysChooseASong();
    void returnLoadsTheSongAndComesBack();
    void playLoadsTheSelectedSong();
    void tempoStopsAtItsLimits();
    void tempoIsTheSongsLast();
    void screensFollowTheirKeys();
    void settingsKeyAgainMovesToTheNextTab();
    void clockAndRunTimeFollowTheMode_data();
    void clockAndRunTimeFollowTheMode();
    void rescanLetsGoOfTheSong();
    void menusBelongToTheirScreens();
    void columnsSwitchByShortcut();
    void widthSwitchesByShortcut();
    void keysWithoutASongDoNothing();

private:
    void start();
    void useLibrary();
    void key(int key, Qt::KeyboardModifiers modifiers = {});
    template <typename Widget> Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> music;
    QTemporaryDir samples;
    QList<Box> boxes;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    std::unique_ptr<Tarvelo> tarvelo;
    std::unique_ptr<MainWindow> window;
};

void TestMainWindow::initTestCase()
{
    // The organisation's names come from the application object; the store doesn't need them.
    QVERIFY(Samples::writeTone(samples.filePath(QStringLiteral("a.mp3")), {.seconds = 1.0}));
}

void TestMainWindow::init()
{
    Settings::factoryReset();
    boxes.clear();
    answer = QMessageBox::Ok;
    music = std::make_unique<QTemporaryDir>();
    setBoxRunner([this](QMessageBox &box) {
        boxes.append({box.windowTitle(), box.text()});
        return answer;
    });
}

void TestMainWindow::cleanup()
{
    window.reset();
    tarvelo.reset();
    setBoxRunner({});
}

void TestMainWindow::start()
{
    tarvelo = std::make_unique<Tarvelo>();
    window = std::make_unique<MainWindow>(tarvelo.get());
    window->decoupledStartActions();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

// Three songs, of which the first two have positions.
void TestMainWindow::useLibrary()
{
    Settings::setValue(Key::Version, QStringLiteral("8.0.0"));
    Settings::setValue(Key::Language, QStringLiteral("de_DE"));
    Settings::setValue(Key::MusicDir, music->path());
    Settings::setValue(Key::FontSize, 15);
    Settings::setValue(Key::MaxFontSizeLyrics, 70);
    Settings::setValue(Key::ShowPartColumn, true);
    Settings::setValue(Key::ShowBeatColumn, true);
    Settings::setValue(Key::TimeDisplayMode, 3);
    const Tarvelo stores;
    int number = 0;
    for (const char *title : {"Cotton Eyed Joe", "Rocky Top", "Äpfel"}) {
        const QString path = music->filePath(QStringLiteral("%1.mp3").arg(++number));
        QVERIFY(QFile::copy(samples.filePath(QStringLiteral("a.mp3")), path));
        Song song(path, false);
        song.setTitle(QString::fromUtf8(title));
        song.setBpm(QStringLiteral("120"));
        song.setTempo(number == 2 ? -7 : 0);
        for (int i = 0; i < 12 && number < 3; ++i)
            song.getPositions().insert(i, {i * 50, QStringLiteral("P%1").arg(i), {}});
        QVERIFY(song.save());
    }
}

void TestMainWindow::key(int code, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window->centralWidget(), static_cast<Qt::Key>(code), modifiers);
}

void TestMainWindow::firstRunAsksForTheMusic()
{
    bool windowWasVisible = false;
    setBoxRunner([&](QMessageBox &box) {
        boxes.append({box.windowTitle(), box.text()});
        for (const QWidget *widget : QApplication::topLevelWidgets())
            windowWasVisible |= widget->inherits("MainWindow") && widget->isVisible();
        return QMessageBox::Ok;
    });
    start();
    QCOMPARE(window->currentScreen(), static_cast<int>(SettingsScreen));
    QCOMPARE(find<SettingsPage>("tabWidgetSettings")->currentIndex(), 0);
    QCOMPARE(boxes.size(), 1);
    QVERIFY(windowWasVisible);
    const bool german = QLocale::system().name().startsWith(QStringLiteral("de"));
    QVERIFY(boxes.constFirst().text.startsWith(german ? QStringLiteral("Bitte wähle das Verz")
                                                      : QStringLiteral("Please choose the dir")));
    // The settings are written at the end alone, but for the cache's directory.
    QCOMPARE(Settings::instance()->allKeys(), QStringList{QStringLiteral("cacheDir")});
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::Version).toString(), QStringLiteral("8.0.0"));
    QCOMPARE(Settings::value(Key::Tempo12).toInt(), 85);
}

void TestMainWindow::laterRunShowsTheLibrary()
{
    useLibrary();
    start();
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
    QVERIFY(boxes.isEmpty());
    QCOMPARE(window->windowTitle(), QStringLiteral("Tarvelo 8"));
    QVERIFY(!window->isQuitRequested());
    QVERIFY(!window->getCurrentSong());
}

void TestMainWindow::unwritableMusicDirectoryIsTold()
{
    if (geteuid() == 0)
        QSKIP("root writes everywhere");
    useLibrary();
    QFile::setPermissions(music->path(), QFile::ReadOwner | QFile::ExeOwner);
    start();
    QFile::setPermissions(music->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().title, QStringLiteral("Fehler ..."));
    QCOMPARE(
        boxes.constFirst().text,
        QStringLiteral(
            "<p>Das konfigurierte Verzeichnis</p><code>%1</code><p>kann nicht beschrieben "
            "werden!</p>Mögliche Ursachen:<ul><li>Unzureichende Freigabe im Virenscanner<br><b>"
            "Abhilfe:</b> In den Einstellungen des benutzten Virenscanners das Musikverzeichnis "
            "als vertrauenswürdige Ausnahme definieren.<br></li><li>Fehlende Lese- oder "
            "Schreibrechte für den aktuellen Benutzer auf dieses Verzeichnis<br><b>Abhilfe:</b> "
            "Testen, ob Du unter Windows Dateien hineinkopieren, ändern und löschen kannst.<br>"
            "</li><li>Mieses Karma<br><b>Abhilfe:</b> Den Tarvelo Entwicklern eine Kiste Malzbier "
            "spendieren (bevorzugt Oettinger)!</li></ul>")
            .arg(music->path()));
    // The program goes on after the box.
    QVERIFY(window->isVisible());
    QCOMPARE(tarvelo->getSongManager()->getSongs().size(), 3);
}

void TestMainWindow::missingMusicDirectoryIsTold()
{
    useLibrary();
    Settings::setValue(Key::MusicDir, QStringLiteral("/nowhere"));
    start();
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.constFirst().text.contains(QStringLiteral("<code>/nowhere</code>")));
    QVERIFY(tarvelo->getSongManager()->getSongs().isEmpty());
}

void TestMainWindow::quitDuringStartSkipsTheEventLoop()
{
    bool answered = false;
    setBoxRunner([&](QMessageBox &) {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *main = qobject_cast<MainWindow *>(widget))
                answered = main->byeBye();
        }
        return QMessageBox::Ok;
    });
    start();
    QVERIFY(answered);
    QVERIFY(window->isQuitRequested());
    QCOMPARE(Settings::value(Key::Version).toString(), QStringLiteral("8.0.0"));
}

void TestMainWindow::closingSavesTheSettings()
{
    useLibrary();
    start();
    find<SettingsPage>("tabWidgetSettings")->setFontSize(18);
    QVERIFY(window->close());
    QCOMPARE(Settings::value(Key::FontSize).toInt(), 18);
    QVERIFY(!Settings::value(Key::MainWindowGeometry).toByteArray().isEmpty());
    QVERIFY(!Settings::value(Key::ColumnConfig).toByteArray().isEmpty());
    QVERIFY(!window->isQuitRequested());
}

void TestMainWindow::nothingIsSavedBeforeTheEnd()
{
    useLibrary();
    start();
    find<SettingsPage>("tabWidgetSettings")->setFontSize(18);
    QCOMPARE(Settings::value(Key::FontSize).toInt(), 15);
}

void TestMainWindow::partColumnOfAnOldStore()
{
    useLibrary();
    Settings::setValue(Key::Version, QStringLiteral("1.5.3"));
    Settings::setValue(Key::ShowPartColumn, false);
    start();
    QVERIFY(!find<QTableWidget>("tableWidgetPositions")->isColumnHidden(PartColumn));
}

void TestMainWindow::frameHeightFollowsTheStore_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("height");
    QTest::newRow("far too high") << 200 << 80;
    QTest::newRow("middle") << 45 << 45;
    QTest::newRow("far too low") << 1 << 20;
}

void TestMainWindow::frameHeightFollowsTheStore()
{
    QFETCH(int, stored);
    QFETCH(int, height);
    useLibrary();
    Settings::setValue(Key::FrameHeight, stored);
    start();
    QCOMPARE(find<QFrame>("frameTop")->height(), height);
    QCOMPARE(find<QSpinBox>("spinBoxFrameSize")->value(), height);
    QCOMPARE(find<QFrame>("buttonFrame")->height(), height * 7 / 5);
    QCOMPARE(find<QPushButton>("buttonPlay")->size(), QSize(height, height));
}

void TestMainWindow::bothLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("locale");
    QTest::newRow("German") << "de_DE"
                            << "Positionen"
                            << "Zeitpunkt"
                            << "de_DE";
    QTest::newRow("English") << "en_US"
                             << "Positions"
                             << "Time"
                             << "en_US";
}

void TestMainWindow::bothLanguages()
{
    QFETCH(QString, language);
    useLibrary();
    Settings::setValue(Key::Language, language);
    start();
    window->showScreen(PositionsScreen);
    QTEST(find<QLabel>("labelScreen")->text(), "screen");
    QTEST(find<QTableWidget>("tableWidgetPositions")->horizontalHeaderItem(TimeColumn)->text(),
          "heading");
    QTEST(QLocale().name(), "locale");
}

void TestMainWindow::frenchSettingsBecomeEnglish()
{
    useLibrary();
    Settings::setValue(Key::Language, QStringLiteral("fr_FR"));
    start();
    QCOMPARE(find<QLabel>("labelScreen")->text(), QStringLiteral("Music"));
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::Language).toString(), QStringLiteral("en_US"));
}

void TestMainWindow::factoryReset_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("reset");
    QTest::addColumn<bool>("restart");
    QTest::newRow("Abbruch") << static_cast<int>(QMessageBox::Cancel) << false << false;
    QTest::newRow("Nein") << static_cast<int>(QMessageBox::No) << true << false;
    QTest::newRow("Ja") << static_cast<int>(QMessageBox::Yes) << true << true;
}

void TestMainWindow::factoryReset()
{
    QFETCH(int, button);
    QFETCH(bool, reset);
    useLibrary();
    const QTemporaryDir cache;
    Settings::setValue(Key::CacheDir, cache.path());
    const QString cached = cache.filePath(QStringLiteral("0123456789abcdef0123456789ABCDEF"));
    const QString other = cache.filePath(QStringLiteral("song.mp3"));
    for (const QString &path : {cached, other}) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    start();
    answer = static_cast<QMessageBox::StandardButton>(button);
    window->factoryReset();
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.constFirst().text.startsWith(QStringLiteral(
        "Wenn Du auf 'Ja' oder 'Nein' klickst, wird Tarvelo auf Werkseinstellungen zurücksetzt.")));
    QCOMPARE(Settings::instance()->allKeys().isEmpty(), reset);
    QCOMPARE(QFile::exists(cached), !reset);
    QVERIFY(QFile::exists(other));
    QTEST(MainWindow::isRestartRequested(), "restart");
    // The end of the program doesn't write the old settings back.
    window->close();
    QCOMPARE(Settings::instance()->allKeys().isEmpty(), reset);
}

void TestMainWindow::windowPositionsAreForgotten()
{
    useLibrary();
    const QStringList keys{
        QStringLiteral("mainWindowGeometry"),
        QStringLiteral("countDown/displayWindowGeometry"),
        QStringLiteral("countDown/configWindowGeometry"),
        QStringLiteral("tagEditorGeometry"),
        QStringLiteral("searchAndReplaceGeometry"),
        QStringLiteral("searchAndReplaceDialogGeometry"),
        QStringLiteral("posEditorGeometry"),
        QStringLiteral("formPosGeometry"),
        QStringLiteral("eventListWindowGeometry"),
        QStringLiteral("eventEditorGeometry"),
        QStringLiteral("bpmCalculatorGeometry"),
        QStringLiteral("metadata/windowGeometry"),
    };
    for (const QString &name : keys)
        Settings::instance()->setValue(name, QByteArray("x"));
    Settings::setValue(Key::TimeShiftGeometry, QByteArray("stays"));
    start();
    window->factoryResetWinPos();
    for (const QString &name : keys)
        QVERIFY2(!Settings::instance()->contains(name), qPrintable(name));
    QVERIFY(Settings::contains(Key::TimeShiftGeometry));
    QCOMPARE(boxes.constLast().text,
             QStringLiteral("Alle Fensterpositionen sind auf Werkseinstellung zurückgesetzt "
                            "worden."));
}

void TestMainWindow::choosingTheMusicDirectoryReadsIt()
{
    useLibrary();
    Settings::setValue(Key::MusicDir, QString());
    Settings::setValue(Key::PlaylistDir, QString());
    start();
    QVERIFY(tarvelo->getSongManager()->getSongs().isEmpty());
    Q_EMIT find<SettingsPage>("tabWidgetSettings")->musicDirChosen(music->path());
    QCOMPARE(tarvelo->getSongManager()->getSongs().size(), 3);
    // Directories that were the same stay the same; the exchange directory starts there.
    QCOMPARE(Settings::musicDir(), music->path());
    QCOMPARE(Settings::playlistDir(), music->path());
    QCOMPARE(Settings::posImExDir(), music->path());
}

void TestMainWindow::songsAreListedByTitle()
{
    useLibrary();
    start();
    const QAbstractItemModel *model = find<QTableView>("tableViewMusicList")->model();
    QStringList titles;
    for (int row = 0; row < model->rowCount(); ++row)
        titles.append(model->index(row, 0).data().toString());
    QCOMPARE(titles.size(), 3);
    QVERIFY(titles.indexOf(QStringLiteral("Cotton Eyed Joe"))
            < titles.indexOf(QStringLiteral("Rocky Top")));
    QCOMPARE(model->index(static_cast<int>(titles.indexOf(QStringLiteral("Rocky Top"))), 6)
                 .data()
                 .toString(),
             QStringLiteral("-7,0"));
}

void TestMainWindow::keysChooseASong()
{
    useLibrary();
    start();
    auto *library = find<LibraryPage>("page1_MusicList");
    QVERIFY(!library->selectedSong());
    key(Qt::Key_Down);
    QVERIFY(!library->selectedSong());
    key(Qt::Key_Up);
    const SongPtr end = library->selectedSong();
    QVERIFY(end);
    key(Qt::Key_Home);
    const SongPtr first = library->selectedSong();
    QVERIFY(first != end);
    key(Qt::Key_Down);
    QVERIFY(library->selectedSong() != first);
    key(Qt::Key_Up);
    QCOMPARE(library->selectedSong(), first);
    key(Qt::Key_Up);
    QCOMPARE(library->selectedSong(), first);
    key(Qt::Key_End);
    const SongPtr last = library->selectedSong();
    QCOMPARE(last, end);
    key(Qt::Key_Down);
    QCOMPARE(library->selectedSong(), last);
    key(Qt::Key_Home);
    QCOMPARE(library->selectedSong(), first);
    key(Qt::Key_PageDown);
    QCOMPARE(library->selectedSong(), last);
    key(Qt::Key_PageUp);
    QCOMPARE(library->selectedSong(), first);
}

void TestMainWindow::returnLoadsTheSongAndComesBack()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    QVERIFY(window->getCurrentSong());
    QCOMPARE(window->currentScreen(), static_cast<int>(PositionsScreen));
    QVERIFY(window->windowTitle().startsWith(window->getCurrentSong()->getTitle()));
    QCOMPARE(find<PositionsPage>("page2_Lyrics")->rowCount(),
             window->getCurrentSong()->getPositions().count());
    key(Qt::Key_Return);
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
}

void TestMainWindow::playLoadsTheSelectedSong()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_P);
    const SongPtr first = window->getCurrentSong();
    QVERIFY(first);
    key(Qt::Key_S);
    key(Qt::Key_Down);
    key(Qt::Key_P);
    QVERIFY(window->getCurrentSong() != first);
}

void TestMainWindow::tempoStopsAtItsLimits()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    window->setTempo(49);
    key(Qt::Key_Plus);
    QCOMPARE(window->getTempo(), 50);
    QCOMPARE(find<QPushButton>("buttonTempoDisplay")->text(), QStringLiteral("+50%"));
    key(Qt::Key_Plus);
    QCOMPARE(window->getTempo(), 50);
    window->setTempo(-49);
    key(Qt::Key_Minus);
    key(Qt::Key_Minus);
    QCOMPARE(window->getTempo(), -50);
    QCOMPARE(find<QPushButton>("buttonTempoDisplayBPM")->text(), QStringLiteral("60b"));
}

void TestMainWindow::tempoIsTheSongsLast()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    while (find<LibraryPage>("page1_MusicList")->selectedSong()->getTitle()
           != QStringLiteral("Rocky Top"))
        key(Qt::Key_Down);
    key(Qt::Key_Return);
    QCOMPARE(window->getTempo(), -7);
    QCOMPARE(find<QPushButton>("buttonTempoDisplay")->text(), QStringLiteral(" -7%"));
    QCOMPARE(qRound(tarvelo->getPlayer()->getTempo()), -7);
}

void TestMainWindow::screensFollowTheirKeys()
{
    useLibrary();
    start();
    const char *const buttons[]
        = {"buttonList", "buttonPositions", "buttonPDF", "buttonSettings", "buttonHelp"};
    const char *const titles[] = {"Musik", "Positionen", "Choreografie", "Einstellungen", "Hilfe"};
    for (int screen = screenCount - 1; screen >= 0; --screen) {
        key(Qt::Key_F1 + screen);
        QCOMPARE(window->currentScreen(), screen);
        QCOMPARE(find<QLabel>("labelScreen")->text(), QString::fromUtf8(titles[screen]));
        QCOMPARE(find<QPushButton>("buttonPositionsDisplay")->isVisible(),
                 screen == PositionsScreen);
        QCOMPARE(find<QLabel>("labelPositionsAdditionalInfoL")->isVisible(),
                 screen == PositionsScreen || screen == ChoreographyScreen);
        for (int i = 0; i < screenCount; ++i)
            QCOMPARE(find<QPushButton>(buttons[i])->isChecked(), i == screen);
        QVERIFY(window->centralWidget()->hasFocus());
    }
}

void TestMainWindow::settingsKeyAgainMovesToTheNextTab()
{
    useLibrary();
    start();
    auto *help = find<QTabWidget>("page5_Help");
    key(Qt::Key_F5);
    QCOMPARE(help->currentIndex(), 0);
    key(Qt::Key_F5);
    QCOMPARE(help->currentIndex(), 1);
    key(Qt::Key_F5);
    QCOMPARE(help->currentIndex(), 0);
}

void TestMainWindow::clockAndRunTimeFollowTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("clock");
    QTest::addColumn<bool>("runTime");
    QTest::newRow("alternating") << 0 << true << false;
    QTest::newRow("clock") << 1 << true << false;
    QTest::newRow("run time") << 2 << false << true;
    QTest::newRow("parallel") << 3 << true << true;
}

void TestMainWindow::clockAndRunTimeFollowTheMode()
{
    QFETCH(int, mode);
    useLibrary();
    Settings::setValue(Key::TimeDisplayMode, mode);
    start();
    QTEST(find<QPushButton>("buttonTime")->isVisible(), "clock");
    QTEST(find<QPushButton>("buttonRunTime")->isVisible(), "runTime");
    QVERIFY(find<QPushButton>("buttonTime")->text().contains(QLatin1Char(':')));
}

void TestMainWindow::rescanLetsGoOfTheSong()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    key(Qt::Key_F1);
    QVERIFY(QFile::remove(music->filePath(QStringLiteral("1.mp3"))));
    key(Qt::Key_R, Qt::ControlModifier);
    QTRY_COMPARE(tarvelo->getSongManager()->getSongs().size(), 2);
    QVERIFY(!window->getCurrentSong());
    QCOMPARE(tarvelo->getPlayer()->getPlaytimeTotal(), 0);
    QCOMPARE(window->windowTitle(), QStringLiteral("Tarvelo 8"));
}

void TestMainWindow::menusBelongToTheirScreens()
{
    useLibrary();
    start();
    const QStringList firstEntries{
        QStringLiteral("Dateien neu einlesen"), QStringLiteral("Spalte mit Parts anzeigen"),
        QStringLiteral("Beenden"), QStringLiteral("Werkseinstellung"), QStringLiteral("Beenden")};
    for (int screen = 0; screen < screenCount; ++screen) {
        window->showScreen(screen);
        const QList<QAction *> actions
            = find<QToolButton>("toolButtonRightMenu")->menu()->actions();
        QCOMPARE(actions.constFirst()->text(), firstEntries.at(screen));
        QCOMPARE(actions.constLast()->text(), QStringLiteral("Beenden"));
        QCOMPARE(actions.constLast()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_X));
    }
}

void TestMainWindow::columnsSwitchByShortcut()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    const auto *table = find<QTableWidget>("tableWidgetPositions");
    QVERIFY(!table->isColumnHidden(PartColumn));
    key(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(table->isColumnHidden(PartColumn));
    QVERIFY(table->isColumnHidden(TimeColumn));
    key(Qt::Key_T, Qt::ControlModifier);
    QVERIFY(!table->isColumnHidden(TimeColumn));
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::ShowPartColumn).toBool(), false);
    QCOMPARE(Settings::value(Key::ShowTimeColumn).toBool(), true);
}

void TestMainWindow::widthSwitchesByShortcut()
{
    useLibrary();
    start();
    key(Qt::Key_Home);
    key(Qt::Key_Return);
    const auto *button = find<QPushButton>("buttonPositionsDisplay");
    QVERIFY(!button->isChecked());
    for (const bool full : {true, false, true}) {
        key(Qt::Key_W);
        QTRY_COMPARE(button->isChecked(), full);
        QTRY_VERIFY(!button->isDown());
    }
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::LyricsFullPage).toBool(), true);
}

void TestMainWindow::keysWithoutASongDoNothing()
{
    useLibrary();
    start();
    for (const int code : {Qt::Key_P, Qt::Key_A, Qt::Key_A, Qt::Key_S, Qt::Key_1, Qt::Key_0,
                           Qt::Key_Left, Qt::Key_Right})
        key(code);
    key(Qt::Key_Return);
    QCOMPARE(window->currentScreen(), static_cast<int>(PositionsScreen));
    QVERIFY(!window->getCurrentSong());
    QVERIFY(!tarvelo->getPlayer()->isPlaying());
    QCOMPARE(find<QPushButton>("buttonTempoDisplay")->text(), QString());
    QVERIFY(boxes.isEmpty());
}

TARVELO_TEST_MAIN(TestMainWindow, QApplication)
#include "tst_MainWindow.moc"
