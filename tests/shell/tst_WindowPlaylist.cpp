#include "FileDialogs.h"
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
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
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
    void songsAreAddedByKey_data();
    void songsAreAddedByKey();
    void entriesAreRemovedByKey_data();
    void entriesAreRemovedByKey();
    void theLastEntryLeavesNoSong();
    void entriesAreRemovedWhileTheBoxIsSeen();
    void theListIsSavedByKey_data();
    void theListIsSavedByKey();
    void quittingAsks_data();
    void quittingAsks();
    void bothListsAreAskedFor();
    void oneListIsAskedForOnce();
    void rescanAsks_data();
    void rescanAsks();
    void thePanelsButtonAsks();
    void nonStopGoesByTheRow();
    void nonStopSurvivesChanges();
    void nonStopNeedsOneRow();
    void pauseAndSliderAreNoEnd();
    void columnsAreFittedByKey();
    void listsAreExportedByKey_data();
    void listsAreExportedByKey();
    void theSongMenuOfTheLeftList();

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

static void altGrForms()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Ctrl+Alt") << int(altGr);
    QTest::newRow("the AltGr key") << int(Qt::GroupSwitchModifier);
}

void TestWindowPlaylist::songsAreAddedByKey_data()
{
    altGrForms();
}

void TestWindowPlaylist::songsAreAddedByKey()
{
    QFETCH(int, modifiers);
    useLibrary();
    start();
    const auto add = [&] { key(Qt::Key_Insert, Qt::KeyboardModifiers::fromInt(modifiers)); };
    add();
    QCOMPARE(left()->list()->count(), 0);
    select(u"Rocky Top"_qs);
    add();
    QCOMPARE(left()->list()->count(), 1);
    key(Qt::Key_A, Qt::ControlModifier);
    for (int screen = 0; screen < screenCount; ++screen) {
        window->showScreen(screen);
        add();
        QCOMPARE(left()->list()->count(), 4 + 3 * screen);
    }
    QCOMPARE(left()->list()->songs().constFirst()->getTitle(), u"Rocky Top"_qs);
    QVERIFY(boxes.isEmpty());
}

void TestWindowPlaylist::entriesAreRemovedByKey_data()
{
    altGrForms();
}

void TestWindowPlaylist::entriesAreRemovedByKey()
{
    QFETCH(int, modifiers);
    startWithList();
    const auto remove = [&] { key(Qt::Key_Delete, Qt::KeyboardModifiers::fromInt(modifiers)); };
    remove();
    QCOMPARE(left()->list()->count(), 3);
    key(Qt::Key_Home, altGr);
    remove();
    QCOMPARE(left()->list()->count(), 2);
    QCOMPARE(currentTitle(), u"Rocky Top"_qs);
    QCOMPARE(leftTitle(), u"Rocky Top"_qs);
    key(Qt::Key_End, altGr);
    remove();
    QCOMPARE(currentTitle(), u"Rocky Top"_qs);
    QVERIFY(boxes.isEmpty());
}

void TestWindowPlaylist::theLastEntryLeavesNoSong()
{
    startWithList();
    key(Qt::Key_Home, altGr);
    for (int i = 0; i < 3; ++i)
        find<QPushButton>("buttonPlaylistEntryRemoveL")->click();
    QCOMPARE(left()->list()->count(), 0);
    QVERIFY(!window->getCurrentSong());
    QVERIFY(right()->selection().rows().isEmpty());
}

void TestWindowPlaylist::entriesAreRemovedWhileTheBoxIsSeen()
{
    startWithList();
    key(Qt::Key_Home, altGr);
    key(Qt::Key_L);
    key(Qt::Key_Delete, altGr);
    QCOMPARE(left()->list()->count(), 3);
    key(Qt::Key_L);
    window->showScreen(SettingsScreen);
    key(Qt::Key_Delete, altGr);
    QCOMPARE(left()->list()->count(), 3);
    window->showScreen(ChoreographyScreen);
    key(Qt::Key_Delete, altGr);
    QCOMPARE(left()->list()->count(), 2);
}

void TestWindowPlaylist::theListIsSavedByKey_data()
{
    altGrForms();
}

void TestWindowPlaylist::theListIsSavedByKey()
{
    QFETCH(int, modifiers);
    startWithList();
    const auto save = [&] { key(Qt::Key_S, Qt::KeyboardModifiers::fromInt(modifiers)); };
    const QString file = music->filePath(u"evening.m3u8"_qs);
    int asked = 0;
    setSaveFileChooser([&](const QString &, const QString &, const QString &) {
        ++asked;
        return file;
    });
    window->showScreen(HelpScreen);
    save();
    QVERIFY(QFile::exists(file));
    QVERIFY(!left()->list()->isModified());
    QCOMPARE(find<QComboBox>("comboBoxPlaylistSelectionL")->currentText(), u"evening.m3u8"_qs);
    left()->list()->moveTo(0, 1);
    save();
    setSaveFileChooser({});
    QCOMPARE(asked, 1);
    QVERIFY(!left()->list()->isModified());
    QCOMPARE(left()->list()->count(), 3);
}

void TestWindowPlaylist::quittingAsks_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("quits");
    QTest::newRow("yes, without a name") << QMessageBox::Yes << false;
    QTest::newRow("no") << QMessageBox::No << true;
    QTest::newRow("cancel") << QMessageBox::Cancel << false;
}

void TestWindowPlaylist::quittingAsks()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, quits);
    startWithList();
    answer = button;
    setSaveFileChooser([](const QString &, const QString &, const QString &) { return QString(); });
    QCOMPARE(window->byeBye(), quits);
    if (!quits)
        QVERIFY(!window->close());
    setSaveFileChooser({});
    QCOMPARE(boxes.size(), quits ? 1 : 2);
    QCOMPARE(boxes.constFirst().text,
             u"Die Playlist<br>'&lt;Neue Playlist&gt;'<br>wurde geändert.<br>Speichern?"_qs);
    QCOMPARE(left()->list()->count(), 3);
    answer = QMessageBox::No;
}

void TestWindowPlaylist::bothListsAreAskedFor()
{
    startWithList();
    right()->setList(tarvelo->getSongManager()->newPlaylist(music->filePath(u"r.m3u8"_qs)));
    right()->list()->add(music->filePath(u"1.mp3"_qs));
    answer = QMessageBox::No;
    QVERIFY(window->byeBye());
    QCOMPARE(boxes.size(), 2);
    QVERIFY(boxes.at(0).text.contains(u"Neue Playlist"_qs));
    QVERIFY(boxes.at(1).text.contains(u"'r.m3u8'"_qs));
}

void TestWindowPlaylist::oneListIsAskedForOnce()
{
    startWithList();
    right()->setList(left()->list());
    answer = QMessageBox::No;
    QVERIFY(window->byeBye());
    QCOMPARE(boxes.size(), 1);
}

void TestWindowPlaylist::rescanAsks_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("scans");
    QTest::newRow("no") << QMessageBox::No << true;
    QTest::newRow("cancel") << QMessageBox::Cancel << false;
}

void TestWindowPlaylist::rescanAsks()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, scans);
    startWithList();
    key(Qt::Key_Home, altGr);
    answer = button;
    key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(left()->isVisible(), !scans);
    QCOMPARE(window->getCurrentSong().isNull(), scans);
    QCOMPARE(left()->list(), tarvelo->getSongManager()->getPlaylist(1));
}

// It brings the library back on the right, and with it would go what was changed there.
void TestWindowPlaylist::thePanelsButtonAsks()
{
    startWithList();
    const PlaylistPtr list = tarvelo->getSongManager()->newPlaylist(music->filePath(u"r.m3u8"_qs));
    right()->setList(list);
    list->add(music->filePath(u"1.mp3"_qs));
    answer = QMessageBox::Cancel;
    key(Qt::Key_L);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(right()->list(), list);
    answer = QMessageBox::No;
    key(Qt::Key_L);
    QCOMPARE(right()->list(), tarvelo->getSongManager()->getPlaylist(0));
    QVERIFY(!list->isModified());
}

// A song that stands in the list twice is played twice.
void TestWindowPlaylist::nonStopGoesByTheRow()
{
    startWithList();
    left()->model()->addSongs({left()->model()->song(1), left()->model()->song(1)});
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_End, altGr);
    key(Qt::Key_Up, altGr);
    QCOMPARE(left()->selection().row(), 4);
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    endSong();
    QCOMPARE(left()->selection().row(), 5);
    QCOMPARE(currentTitle(), u"Äpfel"_qs);
    QCOMPARE(starts.size(), 1);
    key(Qt::Key_S);
}

void TestWindowPlaylist::nonStopSurvivesChanges()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_Home, altGr);
    find<QPushButton>("buttonPlaylistEntryMoveDownL")->click();
    QCOMPARE(left()->selection().row(), 2);
    right()->selection().selectAll();
    key(Qt::Key_Insert, altGr);
    QCOMPARE(left()->list()->count(), 6);
    endSong();
    QCOMPARE(left()->selection().row(), 3);
    QCOMPARE(currentTitle(), u"Cotton Eyed Joe"_qs);
    key(Qt::Key_S);
}

void TestWindowPlaylist::nonStopNeedsOneRow()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_Home, altGr);
    const SongPtr song = window->getCurrentSong();
    QSignalSpy starts(tarvelo->getPlayer(), &Player::requestStart);
    left()->selection().clear();
    endSong();
    left()->setList(tarvelo->getSongManager()->getPlaylist(0));
    left()->selection().selectAll();
    endSong();
    QCOMPARE(left()->selection().rows().size(), 3);
    QCOMPARE(window->getCurrentSong(), song);
    QCOMPARE(starts.size(), 0);
}

void TestWindowPlaylist::pauseAndSliderAreNoEnd()
{
    startWithList();
    find<QPushButton>("buttonPlaylistNonStop")->click();
    key(Qt::Key_Home, altGr);
    const SongPtr song = window->getCurrentSong();
    auto *slider = find<QSlider>("horizontalSliderPosition");
    QVERIFY(slider);
    slider->setSliderDown(true);
    endSong();
    QCOMPARE(window->getCurrentSong(), song);
    slider->setSliderDown(false);
    key(Qt::Key_S);
    endSong();
    QVERIFY(window->getCurrentSong() != song);
    key(Qt::Key_S);
}

void TestWindowPlaylist::columnsAreFittedByKey()
{
    useLibrary();
    start();
    right()->table()->setColumnWidth(YearColumn, 300);
    key(Qt::Key_W, Qt::AltModifier);
    QCOMPARE(right()->table()->columnWidth(YearColumn),
             QFontMetrics(right()->table()->font()).horizontalAdvance(u"8888"_qs) + 10);
}

void TestWindowPlaylist::listsAreExportedByKey_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("columns");
    QTest::newRow("short") << 0 << 4;
    QTest::newRow("long") << int(Qt::ShiftModifier) << 19;
}

void TestWindowPlaylist::listsAreExportedByKey()
{
    QFETCH(int, modifiers);
    QFETCH(int, columns);
    useLibrary();
    start();
    const auto text = [&] {
        key(Qt::Key_X, Qt::KeyboardModifiers::fromInt(modifiers));
        return QGuiApplication::clipboard()->text().split(u'\n');
    };
    QCOMPARE(text().size(), 5);
    select(u"Rocky Top"_qs);
    const QStringList lines = text();
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(1).startsWith(u"\"Rocky Top\"\t"_qs));
    QCOMPARE(lines.at(1).count(u'\t'), columns - 1);
    QCOMPARE(boxes.size(), 2);
    QVERIFY(boxes.constFirst().text.startsWith(u"Die Liste wurde in die Windows"_qs));
}

// The actions go by the library's selection: it is that of the left list then.
void TestWindowPlaylist::theSongMenuOfTheLeftList()
{
    startWithList();
    select(u"Cotton Eyed Joe"_qs);
    FrozenTableView *table = left()->table();
    const QPoint place = table->visualRect(left()->filter()->index(2, 0)).center();
    QTest::mouseClick(table->viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, table->viewport()->mapToGlobal(place));
    QApplication::sendEvent(table->viewport(), &event);
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QCOMPARE(leftTitle(), u"Rocky Top"_qs);
    QCOMPARE(right()->selection().song(), left()->selection().song());
    menu->close();
}

TARVELO_TEST_MAIN(TestWindowPlaylist, QApplication)
#include "tst_WindowPlaylist.moc"
