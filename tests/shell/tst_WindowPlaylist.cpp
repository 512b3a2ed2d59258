#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "Player.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QStackedWidget>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace {

constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;

} // namespace

// The left list beside the screens: shown, walked through by keys, played one after the other.
class TestWindowPlaylist : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void panelIsShownBesideTheFirstThreeScreens();
    void secondListIsShownAndHidden();
    void keysWalkThroughTheList_data();
    void keysWalkThroughTheList();
    void bothListsShowTheSong();
    void mediaKeysPlayTheNeighbours();
    void nonStopPlaysTheNextSong();
    void nonStopEndsWithTheList();
    void stopIsNoEnd();
    void rescanIsNoEnd();
    void sameEntryChangesNothing();
    void panelLeavesTheSelection();
    void doubleClickDividesTheRoom();
    void listBoxOpensByKey();

private:
    void startWithList();
    SongListPanel *left() const { return find<SongListPanel>("framePlaylist"); }
    SongListPanel *right() const { return find<LibraryPage>("page1_MusicList")->songList(); }
    QString leftTitle() const
    {
        const SongPtr song = left()->selection().song();
        return song ? song->getTitle() : QString();
    }
    QString currentTitle() const
    {
        return window->getCurrentSong() ? window->getCurrentSong()->getTitle() : QString();
    }
    void endSong();
};

// A list of the three songs, not in the order of their titles.
void TestWindowPlaylist::startWithList()
{
    useLibrary();
    start();
    const SongManager *songs = tarvelo->getSongManager();
    QList<SongPtr> wanted(3);
    for (const SongPtr &song : songs->getSongs())
        wanted[u"ÄRC"_qs.indexOf(song->getTitle().at(0))] = song;
    left()->model()->addSongs(wanted);
    QCOMPARE(left()->model()->rowCount(), 4);
    key(Qt::Key_L);
}

// As the player tells it.
void TestWindowPlaylist::endSong()
{
    Q_EMIT tarvelo->getPlayer()->notifyIsPlayingChanged(false);
}

void TestWindowPlaylist::panelIsShownBesideTheFirstThreeScreens()
{
    useLibrary();
    start();
    auto *button = find<QPushButton>("buttonPlaylistMode");
    QVERIFY(!left()->isVisible());
    for (int screen = 0; screen < screenCount; ++screen) {
        window->showScreen(screen);
        QCOMPARE(button->isVisible(), screen < 3);
        key(Qt::Key_L);
        QCOMPARE(left()->isVisible(), screen < 3);
        QCOMPARE(button->isChecked(), screen < 3);
        key(Qt::Key_L);
        QVERIFY(!left()->isVisible());
    }
    window->showScreen(0);
    button->click();
    QVERIFY(left()->isVisible() && button->isChecked());
    window->showScreen(3);
    QVERIFY(!left()->isVisible());
    window->showScreen(2);
    QVERIFY(left()->isVisible());
}

void TestWindowPlaylist::secondListIsShownAndHidden()
{
    useLibrary();
    start();
    QVERIFY(!right()->arePlaylistWidgetsVisible());
    find<QPushButton>("buttonPlaylistManager")->click();
    QVERIFY(right()->arePlaylistWidgetsVisible());
    find<QPushButton>("buttonPlaylistManager")->click();
    QVERIFY(!right()->arePlaylistWidgetsVisible());
    find<QPushButton>("buttonPlaylistManager")->click();
    key(Qt::Key_L);
    key(Qt::Key_L);
    QVERIFY(!right()->arePlaylistWidgetsVisible());
}

void TestWindowPlaylist::keysWalkThroughTheList_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Ctrl+Alt") << int(altGr);
    QTest::newRow("the AltGr key") << int(Qt::GroupSwitchModifier);
}

void TestWindowPlaylist::keysWalkThroughTheList()
{
    QFETCH(int, modifiers);
    startWithList();
    const auto press = [&](int code) { key(code, Qt::KeyboardModifiers::fromInt(modifiers)); };
    press(Qt::Key_Home);
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    press(Qt::Key_Down);
    QCOMPARE(currentTitle(), u"Rocky Top"_qs);
    press(Qt::Key_End);
    QCOMPARE(currentTitle(), u"Cotton Eyed Joe"_qs);
    press(Qt::Key_Down); // around
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    press(Qt::Key_Up);
    QCOMPARE(currentTitle(), u"Cotton Eyed Joe"_qs);
    press(Qt::Key_PageUp);
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    press(Qt::Key_PageDown);
    QCOMPARE(currentTitle(), u"Cotton Eyed Joe"_qs);
    QCOMPARE(leftTitle(), currentTitle());
    window->showScreen(3);
    press(Qt::Key_Home);
    QCOMPARE(currentTitle(), u"Cotton Eyed Joe"_qs);
}

void TestWindowPlaylist::bothListsShowTheSong()
{
    startWithList();
    key(Qt::Key_Home, altGr);
    QCOMPARE(right()->selection().song(), window->getCurrentSong());
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    QCOMPARE(leftTitle(), u"Rocky Top"_qs);
}

void TestWindowPlaylist::mediaKeysPlayTheNeighbours()
{
    startWithList();
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    key(Qt::Key_MediaNext);
    QCOMPARE(starts.size(), 0); // none is selected
    key(Qt::Key_Home, altGr);
    key(Qt::Key_MediaNext);
    QCOMPARE(currentTitle(), u"Rocky Top"_qs);
    QCOMPARE(starts.size(), 1);
    key(Qt::Key_MediaPrevious);
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    QCOMPARE(starts.size(), 2);
    key(Qt::Key_MediaPrevious); // there is none before it
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    QCOMPARE(leftTitle(), QString());
    QCOMPARE(starts.size(), 2);
    key(Qt::Key_S);
}

void TestWindowPlaylist::nonStopPlaysTheNextSong()
{
    startWithList();
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    key(Qt::Key_Home, altGr);
    endSong();
    QCOMPARE(starts.size(), 0); // not asked for
    find<QPushButton>("buttonPlaylistNonStop")->click();
    endSong();
    QCOMPARE(currentTitle(), u"Rocky Top"_qs);
    QCOMPARE(leftTitle(), u"Rocky Top"_qs);
    QCOMPARE(starts.size(), 1);
    key(Qt::Key_S);
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::PlaylistNonStop).toBool(), true);
}

void TestWindowPlaylist::nonStopEndsWithTheList()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_End, altGr);
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    endSong();
    QCOMPARE(starts.size(), 0);
    QCOMPARE(leftTitle(), QString());
    endSong();
    QCOMPARE(starts.size(), 0);
}

// A stop, a pause and a seek by the user let the next song wait.
void TestWindowPlaylist::stopIsNoEnd()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_Home, altGr);
    const SongPtr song = window->getCurrentSong();
    for (const int code : {Qt::Key_P, Qt::Key_A, Qt::Key_A, Qt::Key_1, Qt::Key_S}) {
        key(code);
        QCOMPARE(window->getCurrentSong(), song);
    }
}

void TestWindowPlaylist::rescanIsNoEnd()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_Home, altGr);
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    key(Qt::Key_P);
    QCOMPARE(starts.size(), 1);
    window->refreshAllLists();
    QCOMPARE(starts.size(), 1);
    QVERIFY(!window->getCurrentSong());
}

void TestWindowPlaylist::sameEntryChangesNothing()
{
    startWithList();
    key(Qt::Key_Home, altGr);
    window->setTempo(11);
    key(Qt::Key_Home, altGr);
    QCOMPARE(window->getTempo(), 11);
}

// The library was there before and stays.
void TestWindowPlaylist::panelLeavesTheSelection()
{
    startWithList();
    select(u"Rocky Top"_qs);
    for (int i = 0; i < 2; ++i) {
        key(Qt::Key_L);
        QCOMPARE(right()->selection().songs().size(), 1);
    }
    find<QPushButton>("buttonPlaylistManager")->click();
    key(Qt::Key_L);
    key(Qt::Key_L);
    QVERIFY(!find<QPushButton>("buttonPlaylistManager")->isChecked());
}

void TestWindowPlaylist::doubleClickDividesTheRoom()
{
    useLibrary();
    start();
    key(Qt::Key_L);
    auto *splitter = find<QSplitter>("splitterPlaylist");
    window->resize(2000, 900);
    splitter->setSizes({400, 1600});
    QTest::mouseDClick(splitter->handle(1), Qt::LeftButton);
    const QList<int> sizes = splitter->sizes();
    QVERIFY2(qAbs(sizes.at(0) - sizes.at(1)) <= 1,
             qPrintable(u"%1 %2"_qs.arg(sizes.at(0)).arg(sizes.at(1))));
}

void TestWindowPlaylist::listBoxOpensByKey()
{
    useLibrary();
    start();
    auto *box = find<QComboBox>("comboBoxPlaylistSelectionL");
    key(Qt::Key_O);
    QVERIFY(!box->view()->isVisible());
    key(Qt::Key_L);
    key(Qt::Key_O);
    QTRY_VERIFY(box->view()->isVisible());
    box->hidePopup();
}

TARVELO_TEST_MAIN(TestWindowPlaylist, QApplication)
#include "tst_WindowPlaylist.moc"
