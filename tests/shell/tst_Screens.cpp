#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionsPage.h"
#include "SettingsPage.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
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

// The screens, and what the keys do without a sound.
class TestScreens : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

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
    void secondChoiceDuringDecodingWins();
    void rescanDuringDecodingWins();
    void beatsFollowTheirActionOnEverySong();
    void songTextsAreShownAsTheyAre();
    void severalSelectedSongsLoadNone();
    void settingANumberGivesTheKeysBack();
};

void TestScreens::songsAreListedByTitle()
{
    useLibrary();
    start();
    const QAbstractItemModel *model = find<QTableView>("tableViewMusicList")->model();
    QStringList titles;
    // Row 0 is the filter row.
    for (int row = 1; row < model->rowCount(); ++row)
        titles.append(model->index(row, 0).data().toString());
    QCOMPARE(titles.size(), 3);
    QVERIFY(titles.indexOf(QStringLiteral("Cotton Eyed Joe"))
            < titles.indexOf(QStringLiteral("Rocky Top")));
    const int row = static_cast<int>(titles.indexOf(QStringLiteral("Rocky Top"))) + 1;
    QCOMPARE(model->index(row, 15).data().toString(), QStringLiteral("-7,0"));
}

void TestScreens::keysChooseASong()
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

void TestScreens::returnLoadsTheSongAndComesBack()
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

void TestScreens::playLoadsTheSelectedSong()
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

void TestScreens::tempoStopsAtItsLimits()
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

void TestScreens::tempoIsTheSongsLast()
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

void TestScreens::screensFollowTheirKeys()
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
        const bool showsSong = screen == PositionsScreen || screen == ChoreographyScreen;
        QCOMPARE(find<QLabel>("labelPositionsHeader")->isVisible(), showsSong);
        QCOMPARE(find<QLabel>("labelPositionsAdditionalInfoL")->isVisible(), showsSong);
        for (int i = 0; i < screenCount; ++i)
            QCOMPARE(find<QPushButton>(buttons[i])->isChecked(), i == screen);
        QVERIFY(window->centralWidget()->hasFocus());
    }
}

void TestScreens::settingsKeyAgainMovesToTheNextTab()
{
    useLibrary();
    start();
    auto *settings = find<QTabWidget>("tabWidgetSettings");
    key(Qt::Key_F4);
    key(Qt::Key_F4);
    QCOMPARE(settings->currentIndex(), 1 % settings->count());
    auto *help = find<QTabWidget>("tabWidgetHelp");
    for (int tab = 0; tab < help->count(); ++tab) {
        key(Qt::Key_F5);
        QCOMPARE(help->currentIndex(), tab);
    }
    key(Qt::Key_F5);
    QCOMPARE(help->currentIndex(), 0);
}

void TestScreens::clockAndRunTimeFollowTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("clock");
    QTest::addColumn<bool>("runTime");
    QTest::newRow("alternating") << 0 << true << false;
    QTest::newRow("clock") << 1 << true << false;
    QTest::newRow("run time") << 2 << false << true;
    QTest::newRow("parallel") << 3 << true << true;
}

void TestScreens::clockAndRunTimeFollowTheMode()
{
    QFETCH(int, mode);
    useLibrary();
    Settings::setValue(Key::TimeDisplayMode, mode);
    start();
    QTEST(find<QPushButton>("buttonTime")->isVisible(), "clock");
    QTEST(find<QPushButton>("buttonRunTime")->isVisible(), "runTime");
    QVERIFY(find<QPushButton>("buttonTime")->text().contains(QLatin1Char(':')));
}

void TestScreens::rescanLetsGoOfTheSong()
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

void TestScreens::menusBelongToTheirScreens()
{
    useLibrary();
    start();
    const QStringList firstEntries{
        QStringLiteral("Tag-Bearbeitung ..."), QStringLiteral("Positionen bearbeiten ..."),
        QStringLiteral("Choreografie exportieren ..."),
        QStringLiteral("Portable USB-Stick Version erstellen ..."), QStringLiteral("Beenden")};
    for (int screen = 0; screen < screenCount; ++screen) {
        window->showScreen(screen);
        const QList<QAction *> actions
            = find<QToolButton>("toolButtonRightMenu")->menu()->actions();
        QCOMPARE(actions.constFirst()->text(), firstEntries.at(screen));
        QCOMPARE(actions.constLast()->text(), QStringLiteral("Beenden"));
        QCOMPARE(actions.constLast()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_X));
    }
}

void TestScreens::columnsSwitchByShortcut()
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

void TestScreens::widthSwitchesByShortcut()
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

void TestScreens::keysWithoutASongDoNothing()
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

void TestScreens::secondChoiceDuringDecodingWins()
{
    useLibrary();
    start();
    select(QStringLiteral("Cotton Eyed Joe"));
    QTimer::singleShot(0, window.get(), [this] {
        select(QStringLiteral("Rocky Top"));
        key(Qt::Key_Return);
    });
    key(Qt::Key_Return);
    const SongPtr song = window->getCurrentSong();
    QCOMPARE(song->getTitle(), QStringLiteral("Rocky Top"));
    QVERIFY(window->windowTitle().startsWith(QStringLiteral("Rocky Top")));
    QCOMPARE(window->getTempo(), -7);
    QCOMPARE(qRound(tarvelo->getPlayer()->getTempo()), -7);
    QCOMPARE(find<QPushButton>("buttonTempoDisplay")->text(), QStringLiteral(" -7%"));
    QCOMPARE(find<PositionsPage>("page2_Lyrics")->rowCount(), song->getPositions().count());
}

void TestScreens::rescanDuringDecodingWins()
{
    useLibrary();
    start();
    select(QStringLiteral("Rocky Top"));
    QTimer::singleShot(0, window.get(), [this] { window->refreshAllLists(); });
    key(Qt::Key_Return);
    QVERIFY(!window->getCurrentSong());
    QCOMPARE(find<PositionsPage>("page2_Lyrics")->rowCount(), 0);
    QCOMPARE(window->windowTitle(), QStringLiteral("Tarvelo 8"));
}

void TestScreens::beatsFollowTheirActionOnEverySong()
{
    useLibrary();
    start();
    select(QStringLiteral("Rocky Top"));
    key(Qt::Key_Return);
    window->getCurrentSong()->setBpm(QStringLiteral("0"));
    key(Qt::Key_B, Qt::ControlModifier);
    const auto *table = find<QTableWidget>("tableWidgetPositions");
    QVERIFY(table->isColumnHidden(BeatsColumn));
    select(QStringLiteral("Cotton Eyed Joe"));
    key(Qt::Key_Return);
    const QAction *beats = action(QStringLiteral("Spalte mit Beats anzeigen"));
    QVERIFY(!beats->isChecked());
    QVERIFY(table->isColumnHidden(BeatsColumn));
    key(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(beats->isChecked());
    QVERIFY(!table->isColumnHidden(BeatsColumn));
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::ShowBeatColumn).toBool(), true);
}

void TestScreens::songTextsAreShownAsTheyAre()
{
    useLibrary();
    start();
    QCOMPARE(find<QLabel>("labelPositionsHeader")->textFormat(), Qt::PlainText);
    QCOMPARE(find<QLabel>("labelPositionsAdditionalInfoL")->textFormat(), Qt::PlainText);
    // Its texts are escaped.
    QCOMPARE(find<QLabel>("labelPositionsAdditionalInfoR")->textFormat(), Qt::RichText);
}

void TestScreens::severalSelectedSongsLoadNone()
{
    useLibrary();
    start();
    find<QTableView>("tableViewMusicList")->selectAll();
    key(Qt::Key_Return);
    QVERIFY(!window->getCurrentSong());
    QVERIFY(!find<QTableView>("tableViewMusicList")->selectionModel()->hasSelection());
}

void TestScreens::settingANumberGivesTheKeysBack()
{
    useLibrary();
    start();
    key(Qt::Key_F4);
    for (const char *name :
         {"spinBoxFontSize", "spinBoxFrameSize", "spinBoxMaxFontSizePositions"}) {
        auto *box = find<QSpinBox>(name);
        box->setFocus();
        box->stepUp();
        QVERIFY2(window->centralWidget()->hasFocus(), name);
    }
    QCOMPARE(Settings::value(Key::FrameHeight).toInt(), find<QFrame>("frameTop")->height());
}

TARVELO_TEST_MAIN(TestScreens, QApplication)
#include "tst_Screens.moc"
