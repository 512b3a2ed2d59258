#include "FileDialogs.h"
#include "LibraryPage.h"
#include "Player.h"
#include "PositionsPage.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace {

constexpr char notThereYet[] = "Diese Funktion steht leider noch nicht zur Verfügung.";

} // namespace

// What the keys and the buttons do to the window, without a sound.
class TestWindowKeys : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void screensInARound();
    void lockedScreenIsNotShown();
    void escapeLeavesTheFilterAndResets();
    void filterKeysStayInTheFilter();
    void maximisedAndBack();
    void allSongsAndNone();
    void functionsThatComeLater_data();
    void functionsThatComeLater();
    void keysBesideTheirScreenDoNothing();
    void actionsFollowTheSelection();
    void loadingASongEnablesItsActions();
    void choreographyScrollsByKeys();
    void helpScrollsByKeys();
    void menuOpensByKey();
    void partsThatFollowLeaveTheFocus();
    void seekedSongStillPlays();
    void exportThatCannotBeWrittenIsTold();
    void exportOfNothingLeavesAnOlderOne();
    void localeChangeBringsItsLanguage();
};

void TestWindowKeys::screensInARound()
{
    useLibrary();
    start();
    for (const int screen : {1, 2, 3, 4, 0}) {
        key(Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(window->currentScreen(), screen);
    }
    for (const int screen : {4, 3, 2, 1, 0}) {
        key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(window->currentScreen(), screen);
    }
    key(Qt::Key_Tab);
    QCOMPARE(window->currentScreen(), 0);
}

void TestWindowKeys::lockedScreenIsNotShown()
{
    useLibrary();
    start();
    find<QPushButton>("buttonSettings")->setEnabled(false);
    key(Qt::Key_F4);
    QCOMPARE(window->currentScreen(), 0);
    find<QPushButton>("buttonSettings")->setEnabled(true);
    key(Qt::Key_F4);
    QCOMPARE(window->currentScreen(), 3);
}

void TestWindowKeys::escapeLeavesTheFilterAndResets()
{
    useLibrary();
    start();
    auto *filter = find<QLineEdit>("lineEditFilter");
    key(Qt::Key_Home);
    key(Qt::Key_F);
    QVERIFY(filter->hasFocus());
    QTest::keyClicks(filter, u"apfel"_qs);
    key(Qt::Key_F1);
    filter->setFocus();
    QTest::keyClick(filter, Qt::Key_Escape);
    QVERIFY(window->centralWidget()->hasFocus());
    QCOMPARE(filter->text(), u"apfel"_qs);
    QVERIFY(find<LibraryPage>("page1_MusicList")->selectedSong());
    key(Qt::Key_F2);
    key(Qt::Key_Escape);
    QCOMPARE(filter->text(), u"apfel"_qs);
    key(Qt::Key_F1);
    key(Qt::Key_Escape);
    QCOMPARE(filter->text(), QString());
    QVERIFY(!find<LibraryPage>("page1_MusicList")->selectedSong());
}

void TestWindowKeys::filterKeysStayInTheFilter()
{
    useLibrary();
    start();
    auto *filter = find<QLineEdit>("lineEditFilter");
    key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(filter->hasFocus());
    QTest::keyClicks(filter, u"psa+1"_qs);
    QCOMPARE(filter->text(), u"psa+1"_qs);
    QCOMPARE(window->getTempo(), 0);
    key(Qt::Key_F2);
    QVERIFY(window->centralWidget()->hasFocus());
    key(Qt::Key_F);
    QVERIFY(window->centralWidget()->hasFocus());
}

void TestWindowKeys::maximisedAndBack()
{
    useLibrary();
    start();
    key(Qt::Key_M);
    QTRY_VERIFY(window->isMaximized());
    key(Qt::Key_M);
    QTRY_VERIFY(!window->isMaximized());
}

void TestWindowKeys::allSongsAndNone()
{
    useLibrary();
    start();
    const auto *library = find<LibraryPage>("page1_MusicList");
    const auto *stats = find<QLabel>("labelFilterStats");
    QTRY_COMPARE(stats->text(), u"Zeige 3/3\nAusgewählt: 0"_qs);
    key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(library->selectedSongs().size(), 3);
    QCOMPARE(stats->text(), u"Zeige 3/3\nAusgewählt: 3"_qs);
    key(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(library->selectedSongs().size(), 0);
    QCOMPARE(stats->text(), u"Zeige 3/3\nAusgewählt: 0"_qs);
    key(Qt::Key_A, Qt::ControlModifier);
    find<QPushButton>("buttonResetSelection")->click();
    QCOMPARE(library->selectedSongs().size(), 0);
}

void TestWindowKeys::functionsThatComeLater_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<int>("modifiers");

    const auto row
        = [](const char *name, Screen screen, int code, Qt::KeyboardModifiers modifiers) {
              QTest::newRow(name) << int(screen) << code << int(modifiers);
          };
    row("E, library", LibraryScreen, Qt::Key_E, {});
    row("E, positions", PositionsScreen, Qt::Key_E, {});
    row("R, positions", PositionsScreen, Qt::Key_R, {});
    row("T, positions", PositionsScreen, Qt::Key_T, {});
    row("F, positions", PositionsScreen, Qt::Key_F, {});
    row("Ctrl+S", ChoreographyScreen, Qt::Key_S, Qt::ControlModifier);
    row("Alt+C", PositionsScreen, Qt::Key_C, Qt::AltModifier);
    row("V", LibraryScreen, Qt::Key_V, {});
    row("Ctrl+I", PositionsScreen, Qt::Key_I, Qt::ControlModifier);
    row("Ctrl+Shift+I", ChoreographyScreen, Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
}

void TestWindowKeys::functionsThatComeLater()
{
    QFETCH(int, screen);
    QFETCH(int, keyCode);
    QFETCH(int, modifiers);
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    window->showScreen(screen);
    key(keyCode, Qt::KeyboardModifiers::fromInt(modifiers));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text, QString::fromUtf8(notThereYet));
    QCOMPARE(window->currentScreen(), screen);
}

void TestWindowKeys::keysBesideTheirScreenDoNothing()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const SongPtr song = window->getCurrentSong();
    key(Qt::Key_F4);
    for (const int code : {Qt::Key_E, Qt::Key_R, Qt::Key_T, Qt::Key_F, Qt::Key_Delete, Qt::Key_Up,
                           Qt::Key_Home, Qt::Key_L})
        key(code);
    key(Qt::Key_R, Qt::ControlModifier);
    key(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(boxes.isEmpty());
    QCOMPARE(window->getCurrentSong(), song);
    QCOMPARE(window->currentScreen(), 3);
    QVERIFY(action(u"Spalte mit Parts anzeigen"_qs)->isChecked());
}

void TestWindowKeys::actionsFollowTheSelection()
{
    useLibrary();
    start();
    const QAction *tags = action(u"Tag-Bearbeitung ..."_qs);
    QVERIFY(!tags->isEnabled());
    key(Qt::Key_Home);
    QVERIFY(tags->isEnabled());
    QVERIFY(action(u"Musikdatei kopieren ..."_qs)->isEnabled());
    key(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(!tags->isEnabled());
    QVERIFY(action(u"Musikdateien kopieren ..."_qs)->isEnabled());
    QVERIFY(action(u"Positionen exportieren ..."_qs)->isEnabled());
    key(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!action(u"Musikdatei kopieren ..."_qs)->isEnabled());
    QVERIFY(!action(u"Positionen exportieren ..."_qs)->isEnabled());
}

void TestWindowKeys::loadingASongEnablesItsActions()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    window->loadCurrentSong();
    QVERIFY(action(u"Position kopieren"_qs)->isEnabled());
    QVERIFY(!action(u"Choreografie entfernen ..."_qs)->isEnabled());
    select(u"Äpfel"_qs);
    window->loadCurrentSong();
    QVERIFY(!action(u"Position kopieren"_qs)->isEnabled());
    QVERIFY(action(u"Positionen importieren ..."_qs)->isEnabled());
}

void TestWindowKeys::choreographyScrollsByKeys()
{
    useLibrary();
    start();
    key(Qt::Key_F3);
    auto *area = find<QScrollArea>("scrollArea_PDF");
    area->widget()->setMinimumHeight(5000);
    QScrollBar *bar = area->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 2000);
    key(Qt::Key_Down);
    QCOMPARE(bar->value(), 10);
    key(Qt::Key_Up);
    QCOMPARE(bar->value(), 0);
    key(Qt::Key_PageDown);
    QCOMPARE(bar->value(), bar->pageStep());
    key(Qt::Key_PageUp);
    QCOMPARE(bar->value(), 0);
    key(Qt::Key_End);
    QCOMPARE(bar->value(), bar->maximum());
    key(Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    // Another song begins at its top.
    key(Qt::Key_End);
    select(u"Rocky Top"_qs);
    window->loadCurrentSong();
    QCOMPARE(bar->value(), 0);
}

void TestWindowKeys::helpScrollsByKeys()
{
    useLibrary();
    start();
    key(Qt::Key_F5);
    const QScrollBar *bar = find<QTextBrowser>("textBrowserIntro")->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 100);
    key(Qt::Key_Down);
    QVERIFY(bar->value() > 0);
    key(Qt::Key_End);
    QCOMPARE(bar->value(), bar->maximum());
    key(Qt::Key_PageUp);
    QVERIFY(bar->value() < bar->maximum());
    key(Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
}

void TestWindowKeys::menuOpensByKey()
{
    useLibrary();
    start();
    for (int screen = 0; screen < screenCount; ++screen) {
        window->showScreen(screen);
        QMenu *menu = find<QToolButton>("toolButtonRightMenu")->menu();
        key(Qt::Key_Menu);
        QTRY_VERIFY(menu->isVisible());
        QVERIFY(menu->activeAction() && menu->activeAction()->isEnabled());
        menu->hide();
    }
}

// While the music goes on, somebody may be typing.
void TestWindowKeys::partsThatFollowLeaveTheFocus()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    key(Qt::Key_F1);
    key(Qt::Key_F);
    QVERIFY(find<QLineEdit>("lineEditFilter")->hasFocus());
    Q_EMIT tarvelo->getPlayer()->notifyActivePartChanged(2);
    QCOMPARE(find<PositionsPage>("page2_Lyrics")->selectedPositionsRow(), 2);
    QVERIFY(find<QLineEdit>("lineEditFilter")->hasFocus());
}

void TestWindowKeys::seekedSongStillPlays()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const QAction *remove = action(u"Löschen ..."_qs);
    Q_EMIT tarvelo->getPlayer()->notifyIsPlayingChanged(false);
    QVERIFY(remove->isEnabled());
    Q_EMIT tarvelo->getPlayer()->notifyIsPlayingChanged(true);
    QVERIFY(!remove->isEnabled());
    Q_EMIT tarvelo->getPlayer()->notifyIsPlayingChanged(false);
}

void TestWindowKeys::exportThatCannotBeWrittenIsTold()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    setSaveFileChooser([](const QString &, const QString &, const QString &) {
        return u"/nowhere/at all/song.wav"_qs;
    });
    key(Qt::Key_E, Qt::AltModifier);
    setSaveFileChooser({});
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.constFirst().text.contains(u"kann nicht geschrieben werden"_qs));
}

void TestWindowKeys::exportOfNothingLeavesAnOlderOne()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    window->loadCurrentSong();
    window->getCurrentSong()->releaseAudio();
    const QString target = music->filePath(u"older.wav"_qs);
    QFile older(target);
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("older") == 5);
    older.close();
    setSaveFileChooser(
        [target](const QString &, const QString &, const QString &) { return target; });
    key(Qt::Key_E, Qt::AltModifier);
    setSaveFileChooser({});
    QVERIFY(boxes.isEmpty());
    QCOMPARE(QFileInfo(target).size(), 5);
}

// Of the system: what it isn't in German is English here.
void TestWindowKeys::localeChangeBringsItsLanguage()
{
    useLibrary();
    start();
    QCOMPARE(action(u"Beenden"_qs) != nullptr, true);
    QEvent change(QEvent::LocaleChange);
    QApplication::sendEvent(window.get(), &change);
    const bool german = QLocale::system().language() == QLocale::German;
    QTRY_VERIFY(action(german ? u"Beenden"_qs : u"Quit"_qs));
    window->setLanguage(u"de"_qs);
    QTRY_VERIFY(action(u"Beenden"_qs));
}

TARVELO_TEST_MAIN(TestWindowKeys, QApplication)
#include "tst_WindowKeys.moc"
