#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionsPage.h"
#include "SettingsPage.h"
#include "SongListPanel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>

#include <unistd.h>

using Settings::Key;

namespace {

// The windows of the program, as they are shown for the first time.
class ShowLog : public QObject
{
public:
    ShowLog() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *shown, QEvent *event) override
    {
        const QString name = QLatin1String(shown->metaObject()->className());
        const bool isWindow = shown->isWidgetType() && static_cast<QWidget *>(shown)->isWindow();
        if (event->type() == QEvent::Show && isWindow && !order.contains(name))
            order.append(name);
        return false;
    }
    QStringList order;
};

} // namespace

// The window coming up and going away, and what it keeps in the settings.
class TestStartAndEnd : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void firstRunAsksForTheMusic();
    void laterRunShowsTheLibrary();
    void unwritableMusicDirectoryIsTold();
    void missingMusicDirectoryIsTold();
    void quitDuringStartSkipsTheEventLoop();
    void closingSavesTheSettings();
    void nothingIsSavedBeforeTheEnd();
    void windowsComeInTheirOrder_data();
    void windowsComeInTheirOrder();
    void storesOfOlderVersions_data();
    void storesOfOlderVersions();
    void frameHeightFollowsTheStore_data();
    void frameHeightFollowsTheStore();
    void bothLanguages_data();
    void bothLanguages();
    void frenchSettingsBecomeEnglish();
    void factoryReset_data();
    void factoryReset();
    void windowPositionsAreForgotten();
    void firstRunLeavesTheMusicDirectoryAlone();
    void alignmentFollowsTheStore();
    void scanCannotBeEndedOrDoubled();
};

void TestStartAndEnd::firstRunAsksForTheMusic()
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

void TestStartAndEnd::laterRunShowsTheLibrary()
{
    useLibrary();
    start();
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
    QVERIFY(boxes.isEmpty());
    QCOMPARE(window->windowTitle(), QStringLiteral("Tarvelo 8"));
    QVERIFY(!window->isQuitRequested());
    QVERIFY(!window->getCurrentSong());
}

void TestStartAndEnd::unwritableMusicDirectoryIsTold()
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

void TestStartAndEnd::missingMusicDirectoryIsTold()
{
    useLibrary();
    Settings::setValue(Key::MusicDir, QStringLiteral("/nowhere"));
    start();
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.constFirst().text.contains(QStringLiteral("<code>/nowhere</code>")));
    QVERIFY(tarvelo->getSongManager()->getSongs().isEmpty());
}

void TestStartAndEnd::quitDuringStartSkipsTheEventLoop()
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

void TestStartAndEnd::closingSavesTheSettings()
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

void TestStartAndEnd::nothingIsSavedBeforeTheEnd()
{
    useLibrary();
    start();
    find<SettingsPage>("tabWidgetSettings")->setFontSize(18);
    QCOMPARE(Settings::value(Key::FontSize).toInt(), 15);
}

void TestStartAndEnd::windowsComeInTheirOrder_data()
{
    QTest::addColumn<bool>("stored");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QStringList>("order");
    const QString splash = QStringLiteral("TarveloSplashScreen");
    const QString main = QStringLiteral("MainWindow");
    const QString information = QStringLiteral("Information ...");
    QTest::newRow("first run") << false << "" << QStringList{splash, main, information};
    QTest::newRow("later run") << true << "" << QStringList{splash, main};
    QTest::newRow("directory is gone")
        << true << "/nowhere" << QStringList{QStringLiteral("Fehler ..."), splash, main};
}

void TestStartAndEnd::windowsComeInTheirOrder()
{
    QFETCH(bool, stored);
    QFETCH(QString, directory);
    if (stored)
        useLibrary();
    if (!directory.isEmpty())
        Settings::setValue(Key::MusicDir, directory);
    Settings::setValue(Key::Language, QStringLiteral("de_DE"));
    ShowLog shown;
    setBoxRunner([&shown](QMessageBox &box) {
        shown.order.append(box.windowTitle());
        return QMessageBox::Ok;
    });
    start();
    QTEST(shown.order, "order");
    QCOMPARE(window->currentScreen(), static_cast<int>(stored ? LibraryScreen : SettingsScreen));
}

void TestStartAndEnd::storesOfOlderVersions_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("showsParts");
    QTest::addColumn<int>("rounding");
    QTest::addColumn<bool>("keepsListColumns");
    QTest::newRow("1.5.3") << "1.5.3" << true << 3600 << false;
    QTest::newRow("1.5.4") << "1.5.4" << true << 3600 << false;
    QTest::newRow("1.5.5") << "1.5.5" << false << 3600 << false;
    QTest::newRow("5.0.0") << "5.0.0" << false << 86400 << false;
    QTest::newRow("6.0.0") << "6.0.0" << false << 86400 << false;
    QTest::newRow("6.0.1") << "6.0.1" << false << 86400 << true;
    QTest::newRow("this one") << "8.0.0" << false << 86400 << true;
}

// What is stored for the left list, and for the library, shows a column more than usual.
void TestStartAndEnd::storesOfOlderVersions()
{
    QFETCH(QString, version);
    useLibrary();
    start();
    key(Qt::Key_L); // columns that nobody has seen are not kept
    const auto leftTable = [this] { return find<SongListPanel>("framePlaylist")->table(); };
    int column = 0;
    while (!leftTable()->isColumnHidden(column))
        ++column;
    QVERIFY(column < leftTable()->horizontalHeader()->count());
    for (SongListPanel *panel : window->findChildren<SongListPanel *>())
        panel->table()->setColumnHidden(column, false);
    QVERIFY(window->byeBye());
    dropWindow();

    Settings::setValue(Key::Version, version);
    Settings::setValue(Key::ShowPartColumn, false);
    Settings::setValue(Key::EventRounding, 86400);
    start();
    const auto *positions = find<QTableWidget>("tableWidgetPositions");
    QTEST(!positions->isColumnHidden(PartColumn), "showsParts");
    QTEST(!leftTable()->isColumnHidden(column), "keepsListColumns");
    QVERIFY(!find<LibraryPage>("page1_MusicList")->songList()->table()->isColumnHidden(column));
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
    QVERIFY(boxes.isEmpty());
    QVERIFY(window->byeBye());
    QTEST(Settings::value(Key::EventRounding).toInt(), "rounding");
    QCOMPARE(Settings::value(Key::Version).toString(), QStringLiteral("8.0.0"));
}

void TestStartAndEnd::frameHeightFollowsTheStore_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("height");
    QTest::newRow("far too high") << 200 << 80;
    QTest::newRow("middle") << 45 << 45;
    QTest::newRow("far too low") << 1 << 20;
}

void TestStartAndEnd::frameHeightFollowsTheStore()
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

void TestStartAndEnd::bothLanguages_data()
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

void TestStartAndEnd::bothLanguages()
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

void TestStartAndEnd::frenchSettingsBecomeEnglish()
{
    useLibrary();
    Settings::setValue(Key::Language, QStringLiteral("fr_FR"));
    start();
    QCOMPARE(find<QLabel>("labelScreen")->text(), QStringLiteral("Music"));
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::Language).toString(), QStringLiteral("en_US"));
}

void TestStartAndEnd::factoryReset_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("reset");
    QTest::addColumn<bool>("restart");
    QTest::newRow("Abbruch") << static_cast<int>(QMessageBox::Cancel) << false << false;
    QTest::newRow("Nein") << static_cast<int>(QMessageBox::No) << true << false;
    QTest::newRow("Ja") << static_cast<int>(QMessageBox::Yes) << true << true;
}

void TestStartAndEnd::factoryReset()
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

void TestStartAndEnd::windowPositionsAreForgotten()
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

void TestStartAndEnd::firstRunLeavesTheMusicDirectoryAlone()
{
    Settings::setValue(Key::MusicDir, QStringLiteral("/nowhere"));
    start();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().title.left(11), QStringLiteral("Information"));
}

void TestStartAndEnd::alignmentFollowsTheStore()
{
    useLibrary();
    Settings::setValue(Key::PositionAlignment, static_cast<int>(Qt::AlignTop));
    start();
    select(QStringLiteral("Rocky Top"));
    key(Qt::Key_Return);
    const auto *cell = find<QTableWidget>("tableWidgetPositions")->item(0, StepsColumn);
    QVERIFY(cell->textAlignment() & Qt::AlignTop);
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::PositionAlignment).toInt(), static_cast<int>(Qt::AlignTop));
}

void TestStartAndEnd::scanCannotBeEndedOrDoubled()
{
    useLibrary();
    start();
    int scanned = 0;
    bool stayed = true;
    connect(tarvelo->getSongManager(), &SongManager::notifySongScanned, this, [&] {
        ++scanned;
        auto *splash = find<QDialog>("SplashScreen");
        QTest::keyClick(splash, Qt::Key_Escape);
        splash->close();
        stayed &= splash->isVisible();
        window->refreshAllLists();
    });
    window->refreshAllLists();
    QCOMPARE(scanned, 3);
    QVERIFY(stayed);
    QTRY_VERIFY(!find<QDialog>("SplashScreen"));
}

TARVELO_TEST_MAIN(TestStartAndEnd, QApplication)
#include "tst_StartAndEnd.moc"
