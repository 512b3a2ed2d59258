#include "ElidingComboBox.h"
#include "FileDialogs.h"
#include "FileSystem.h"
#include "FrozenTableView.h"
#include "FullDisk.h"
#include "MessageBoxes.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "TestMain.h"
#include "TestSongs.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDirIterator>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>

#include <unistd.h>

using namespace Qt::StringLiterals;
using Side = SongListPanel::Side;

// What a user does with the lists of both sides: with their buttons, boxes and dialogs.
class TestPlaylistPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unchangedListsAreLeftUnasked();
    void theQuestionNamesTheList();
    void cancelStays();
    void noDropsTheChanges();
    void noEmptiesTheWorkingList();
    void yesSaves();
    void yesSavesTheWorkingListUnderAName();
    void aCancelledSaveDialogStays();
    void aSaveThatFailsStays();
    void savingOverTheWantedListStays();
    void savingOpensTheRightList();

    void opening();
    void openingNothing();
    void openingAsksForChanges_data();
    void openingAsksForChanges();
    void openingTheSameFileAsks();

    void saving();
    void savingANewList();
    void savingUnderAnotherName();
    void namesWithoutASuffix_data();
    void namesWithoutASuffix();
    void overwritingByASuffixAsks();
    void aFullDiskLeavesTheOldFile();
    void aReadOnlyDirectoryLeavesTheOldFile();

    void removing_data();
    void removing();
    void removingFails();
    void removingIsDeclined();

    void adding();
    void addingKeepsTheSelection();
    void nothingIsAddedToTheLibrary();
    void removingAnEntry_data();
    void removingAnEntry();
    void theLibraryLosesNothing();
    void movingEntries();
    void movingInAFilteredList();
    void bothSidesShowOneList();
    void revertingReachesTheOtherSide();
    void aDropKeepsTheSelection();

    void buttonsFollow();
    void buttonsFollowTheFilter();
    void aDisabledPanelDoesNothing();
    void theStatisticsFollowTheFilter();
    void theListAsText();
    void selectedSongsAsText();
    void filesOfTheList();
    void listsOfOthers();

private:
    void click(SongListPanel &panel, const QString &name) const;
    bool isEnabled(SongListPanel &panel, const QString &name) const;
    void choose(SongListPanel &panel, int index) const;
    void select(SongListPanel &panel, int row) const;
    // The songs with this title, as the filter row would.
    static void showOnly(SongListPanel &panel, const QString &title);
    QString shown(const SongListPanel &panel) const;
    QString path(const QString &name) const { return songs->lists.filePath(name); }
    QByteArray content(const QString &name) const;
    static QComboBox *box(const SongListPanel &panel)
    {
        return panel.findChild<ElidingComboBox *>();
    }

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<SongListPanel> right;
    std::unique_ptr<SongListPanel> left;
    PlaylistPtr evening; // of the songs b and a
    PlaylistPtr party;   // of the song c
    QStringList boxes;
    QList<QMessageBox::StandardButton> answers; // the last one goes on
    QStringList dialogs;                        // title, proposal, filter
    QString chosen;
};

void TestPlaylistPanels::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    songs = std::make_unique<TestSongs>();
    songs->library(u"cab"_s);
    evening = songs->playlist(u"evening.m3u8"_s, u"ba"_s);
    party = songs->playlist(u"party.m3u8"_s, u"c"_s);
    right = std::make_unique<SongListPanel>(Side::Right, &songs->manager);
    left = std::make_unique<SongListPanel>(Side::Left, &songs->manager);
    left->setOther(right.get());
    right->setOther(left.get());
    right->setPlaylistWidgetsVisible(true);
    boxes.clear();
    dialogs.clear();
    chosen.clear();
    answers = {QMessageBox::Cancel};
    setBoxRunner([this](QMessageBox &asked) {
        boxes.append(asked.text());
        const auto answer = answers.constFirst();
        if (answers.size() > 1)
            answers.removeFirst();
        return answer;
    });
    const auto file = [this](const QString &title, const QString &start, const QString &filter) {
        dialogs = {title, start, filter};
        return chosen;
    };
    setOpenFileChooser(file);
    setSaveFileChooser(file);
    setDirectoryChooser([this](const QString &, const QString &) { return chosen; });
}

void TestPlaylistPanels::cleanup()
{
    setBoxRunner({});
    setOpenFileChooser({});
    setSaveFileChooser({});
    setDirectoryChooser({});
    evening.reset();
    party.reset();
    right.reset();
    left.reset();
    songs.reset();
}

void TestPlaylistPanels::click(SongListPanel &panel, const QString &name) const
{
    auto *button = panel.findChild<QPushButton *>(u"buttonPlaylist"_s + name
                                                  + (&panel == left.get() ? u'L' : u'R'));
    QVERIFY(button);
    QVERIFY(button->isEnabled());
    button->click();
}

bool TestPlaylistPanels::isEnabled(SongListPanel &panel, const QString &name) const
{
    return panel
        .findChild<QPushButton *>(u"buttonPlaylist"_s + name + (&panel == left.get() ? u'L' : u'R'))
        ->isEnabled();
}

void TestPlaylistPanels::choose(SongListPanel &panel, int index) const
{
    box(panel)->setCurrentIndex(index);
}

void TestPlaylistPanels::select(SongListPanel &panel, int row) const
{
    panel.table()->selectRow(row);
}

void TestPlaylistPanels::showOnly(SongListPanel &panel, const QString &title)
{
    panel.model()->setFilterText(title, TitleColumn);
    panel.filter()->applyFilters();
}

QString TestPlaylistPanels::shown(const SongListPanel &panel) const
{
    QString all;
    for (int row = 1; row < panel.filter()->rowCount(); ++row)
        all.append(TestSongs::letter(panel.filter()->song(row)));
    return all;
}

QByteArray TestPlaylistPanels::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestPlaylistPanels::unchangedListsAreLeftUnasked()
{
    for (const int index : {2, 3, 0, 1}) {
        choose(*left, index);
        QCOMPARE(left->list(), songs->manager.getPlaylist(index));
    }
    QVERIFY(boxes.isEmpty());
}

void TestPlaylistPanels::theQuestionNamesTheList()
{
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    QVERIFY(!left->promptSave());
    QCOMPARE(boxes, {u"Die Playlist<br>'evening.m3u8'<br>wurde geändert.<br>Speichern?"_s});
    left->setList(songs->manager.getTempList());
    left->list()->add(u"/x"_s);
    QVERIFY(!left->promptSave());
    QVERIFY(boxes.constLast().contains(u"'&lt;Neue Playlist&gt;'"_s));
}

void TestPlaylistPanels::cancelStays()
{
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    choose(*left, 3);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(left->list(), evening);
    QCOMPARE(box(*left)->currentText(), u"evening.m3u8"_s);
    QCOMPARE(TestSongs::letters(*evening), u"bac"_s);
    QVERIFY(evening->isModified());
    choose(*left, 0);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(box(*left)->currentIndex(), 2);
}

void TestPlaylistPanels::noDropsTheChanges()
{
    left->setList(evening);
    const QByteArray before = content(u"evening.m3u8"_s);
    evening->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::No};
    choose(*left, 3);
    QCOMPARE(left->list(), party);
    QCOMPARE(box(*left)->currentText(), u"party.m3u8"_s);
    QVERIFY(!evening->isModified());
    QCOMPARE(TestSongs::letters(*evening), u"ba"_s);
    QCOMPARE(content(u"evening.m3u8"_s), before);
    choose(*left, 2);
    QCOMPARE(shown(*left), u"ba"_s);
    QCOMPARE(boxes.size(), 1);
}

void TestPlaylistPanels::noEmptiesTheWorkingList()
{
    left->list()->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::No};
    choose(*left, 2);
    choose(*left, 1);
    QCOMPARE(shown(*left), QString());
    QCOMPARE(boxes.size(), 1);
}

void TestPlaylistPanels::yesSaves()
{
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::Yes};
    choose(*left, 3);
    QCOMPARE(left->list(), party);
    QVERIFY(!evening->isModified());
    QVERIFY(content(u"evening.m3u8"_s).endsWith("/c\n"));
    QVERIFY(dialogs.isEmpty());
}

void TestPlaylistPanels::yesSavesTheWorkingListUnderAName()
{
    left->list()->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::Yes};
    chosen = path(u"a first one.m3u8"_s);
    // The new name comes before the wanted one.
    choose(*left, 3);
    QCOMPARE(dialogs, QStringList({u"Playlist speichern"_s, path(u"<Neue Playlist>"_s),
                                   u"Playlists (*.m3u8 *.m3u *.pls)"_s}));
    QVERIFY(QFile::exists(chosen));
    QCOMPARE(left->list(), party);
    QCOMPARE(box(*left)->currentText(), u"party.m3u8"_s);
    QCOMPARE(box(*left)->itemText(2), u"a first one.m3u8"_s);
    QCOMPARE(songs->manager.getTempList()->count(), 0);
}

void TestPlaylistPanels::aCancelledSaveDialogStays()
{
    const PlaylistPtr working = left->list();
    working->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::Yes};
    choose(*left, 2);
    QCOMPARE(left->list(), working);
    QCOMPARE(box(*left)->currentIndex(), 1);
    QVERIFY(working->isModified());
    QCOMPARE(working->count(), 1);
}

void TestPlaylistPanels::aSaveThatFailsStays()
{
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::Yes};
    {
        const FullDisk disk(8);
        choose(*left, 3);
    }
    QCOMPARE(left->list(), evening);
    QVERIFY(evening->isModified());
    QCOMPARE(TestSongs::letters(*evening), u"bac"_s);
}

void TestPlaylistPanels::savingOverTheWantedListStays()
{
    const PlaylistPtr working = left->list();
    working->add(songs->song(u"c"_s)->getFilename());
    answers = {QMessageBox::Yes};
    chosen = path(u"evening.m3u8"_s);
    choose(*left, 2);
    QCOMPARE(left->list(), working);
    QCOMPARE(box(*left)->currentText(), u"evening.m3u8"_s);
    QCOMPARE(shown(*left), u"c"_s);
}

// The first file that is saved comes under another number than before.
void TestPlaylistPanels::savingOpensTheRightList()
{
    right->setList(evening);
    left->list()->add(songs->song(u"c"_s)->getFilename());
    chosen = path(u"a first one.m3u8"_s);
    click(*left, u"SaveAs"_s);
    QCOMPARE(right->list(), evening);
    QCOMPARE(box(*right)->currentText(), u"evening.m3u8"_s);
    QCOMPARE(box(*left)->currentText(), u"a first one.m3u8"_s);
}

void TestPlaylistPanels::opening()
{
    QFile file(songs->music.filePath(u"from elsewhere.m3u"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("a\nc\nnowhere.mp3\n") > 0);
    file.close();
    chosen = file.fileName();
    for (SongListPanel *panel : {left.get(), right.get()}) {
        click(*panel, u"Open"_s);
        QCOMPARE(dialogs, QStringList({u"Playlist öffnen"_s, songs->lists.path(),
                                       u"Playlist (*.m3u8 *.m3u *.pls)"_s}));
        QCOMPARE(panel->list()->fullPath(), chosen);
        QCOMPARE(box(*panel)->currentText(), u"from elsewhere.m3u"_s);
        QCOMPARE(shown(*panel), u"acnowhere.mp3"_s);
        QVERIFY(panel->model()->song(3)->isMissingFile());
    }
    QVERIFY(boxes.isEmpty());
    QCOMPARE(songs->manager.getPlaylistNames().size(), 5);
    QCOMPARE(left->list(), right->list());
}

void TestPlaylistPanels::openingNothing()
{
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    click(*left, u"Open"_s);
    QCOMPARE(left->list(), evening);
    QVERIFY(boxes.isEmpty());
    QVERIFY(evening->isModified());
}

void TestPlaylistPanels::openingAsksForChanges_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("file");
    QTest::newRow("cancel") << QMessageBox::Cancel << u"evening.m3u8"_s << u"ba"_s;
    QTest::newRow("no") << QMessageBox::No << u"party.m3u8"_s << u"ba"_s;
    QTest::newRow("yes") << QMessageBox::Yes << u"party.m3u8"_s << u"bac"_s;
}

void TestPlaylistPanels::openingAsksForChanges()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(QString, file);
    left->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    answers = {answer};
    chosen = path(u"party.m3u8"_s);
    click(*left, u"Open"_s);
    QTEST(left->list()->name(), "shown");
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(evening->isModified(), answer == QMessageBox::Cancel);
    PlaylistFile again(&songs->manager);
    again.load(path(u"evening.m3u8"_s));
    again.refresh();
    QCOMPARE(TestSongs::letters(again), file);
}

// The list of this file that is there goes: it must not take changes with it.
void TestPlaylistPanels::openingTheSameFileAsks()
{
    right->setList(evening);
    evening->add(songs->song(u"c"_s)->getFilename());
    chosen = path(u"evening.m3u8"_s);
    click(*left, u"Open"_s);
    QCOMPARE(boxes.size(), 1);
    QVERIFY(left->list()->isNew());
    QCOMPARE(right->list(), evening);
    answers = {QMessageBox::No};
    click(*left, u"Open"_s);
    QCOMPARE(shown(*left), u"ba"_s);
    QCOMPARE(shown(*right), u"ba"_s);
    QCOMPARE(right->list(), left->list());
}

void TestPlaylistPanels::saving()
{
    left->setList(evening);
    QVERIFY(!isEnabled(*left, u"Save"_s));
    select(*right, 3);
    click(*left, u"AddEntry"_s);
    QVERIFY(evening->isModified());
    click(*left, u"Save"_s);
    QVERIFY(!evening->isModified());
    QVERIFY(!isEnabled(*left, u"Save"_s));
    QVERIFY(content(u"evening.m3u8"_s).endsWith("/c\n"));
    QVERIFY(dialogs.isEmpty() && boxes.isEmpty());
}

void TestPlaylistPanels::savingANewList()
{
    select(*right, 3);
    click(*left, u"AddEntry"_s);
    click(*left, u"Save"_s);
    QVERIFY(left->list()->isNew()); // no name was given
    chosen = path(u"mine.m3u8"_s);
    click(*left, u"Save"_s);
    QCOMPARE(box(*left)->currentText(), u"mine.m3u8"_s);
    QCOMPARE(shown(*left), u"c"_s);
    QVERIFY(!left->list()->isNew());
    QCOMPARE(box(*left)->itemText(1), u"<Neue Playlist>"_s);
    QCOMPARE(box(*right)->count(), 5);
}

void TestPlaylistPanels::savingUnderAnotherName()
{
    right->setList(evening);
    chosen = path(u"another.m3u8"_s);
    click(*right, u"SaveAs"_s);
    QCOMPARE(dialogs.at(1), path(u"evening.m3u8"_s));
    QCOMPARE(box(*right)->currentText(), u"another.m3u8"_s);
    QCOMPARE(box(*right)->count(), 5);
    QCOMPARE(shown(*right), u"ba"_s);
    choose(*right, box(*right)->findText(u"evening.m3u8"_s));
    QCOMPARE(shown(*right), u"ba"_s);
}

void TestPlaylistPanels::namesWithoutASuffix_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << u"dance"_s << u"dance.m3u8"_s;
    QTest::newRow("a date") << u"dance 21.11"_s << u"dance 21.11.m3u8"_s;
    QTest::newRow("m3u8") << u"dance.m3u8"_s << u"dance.m3u8"_s;
    QTest::newRow("m3u") << u"dance.M3U"_s << u"dance.M3U"_s;
    QTest::newRow("pls") << u"dance.pls"_s << u"dance.pls"_s;
}

// Otherwise the next start would not find the list.
void TestPlaylistPanels::namesWithoutASuffix()
{
    QFETCH(QString, given);
    left->list()->add(songs->song(u"c"_s)->getFilename());
    chosen = path(given);
    left->carryOut(PlaylistTask::SaveAs);
    QTEST(left->list()->name(), "name");
    QVERIFY(QFile::exists(left->list()->fullPath()));
}

void TestPlaylistPanels::overwritingByASuffixAsks()
{
    left->list()->add(songs->song(u"c"_s)->getFilename());
    chosen = path(u"evening"_s);
    answers = {QMessageBox::No};
    left->carryOut(PlaylistTask::Save);
    QCOMPARE(boxes, {u"Die Playlist<br>'evening.m3u8'<br>gibt es schon. Willst Du sie "
                     "überschreiben?"_s});
    QVERIFY(left->list()->isNew());
    answers = {QMessageBox::Yes};
    left->carryOut(PlaylistTask::Save);
    QCOMPARE(left->list()->name(), u"evening.m3u8"_s);
    QVERIFY(content(u"evening.m3u8"_s).endsWith("/c\n"));
}

void TestPlaylistPanels::aFullDiskLeavesTheOldFile()
{
    left->setList(evening);
    const QByteArray before = content(u"evening.m3u8"_s);
    select(*right, 3);
    click(*left, u"AddEntry"_s);
    {
        const FullDisk disk(8);
        click(*left, u"Save"_s);
    }
    QCOMPARE(content(u"evening.m3u8"_s), before);
    QVERIFY(evening->isModified());
    QVERIFY(isEnabled(*left, u"Save"_s));
    QCOMPARE(shown(*left), u"bac"_s);
    QVERIFY(boxes.isEmpty());
    chosen = path(u"new.m3u8"_s);
    {
        const FullDisk disk(8);
        click(*left, u"SaveAs"_s);
    }
    QVERIFY(!QFile::exists(chosen));
    QCOMPARE(left->list()->name(), u"evening.m3u8"_s);
    click(*left, u"Save"_s);
    QVERIFY(!evening->isModified());
}

void TestPlaylistPanels::aReadOnlyDirectoryLeavesTheOldFile()
{
    if (::geteuid() == 0 || !FileSystem::hasModes(songs->lists.path()))
        QSKIP("nothing is protected here");
    left->setList(evening);
    const QByteArray before = content(u"evening.m3u8"_s);
    select(*right, 3);
    click(*left, u"AddEntry"_s);
    QFile::setPermissions(path(u"evening.m3u8"_s), QFile::ReadOwner);
    QFile::setPermissions(songs->lists.path(), QFile::ReadOwner | QFile::ExeOwner);
    click(*left, u"Save"_s);
    QCOMPARE(content(u"evening.m3u8"_s), before);
    QVERIFY(evening->isModified());
    answers = {QMessageBox::Yes};
    click(*left, u"Remove"_s);
    QFile::setPermissions(songs->lists.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes.at(1),
             u"Fehler: Die Playlist<br>'evening.m3u8'<br>konnte nicht gelöscht werden!"_s);
    QCOMPARE(left->list(), evening);
    QCOMPARE(shown(*left), u"bac"_s);
}

void TestPlaylistPanels::removing_data()
{
    QTest::addColumn<bool>("onTheLeft");
    QTest::newRow("left") << true;
    QTest::newRow("right") << false;
}

void TestPlaylistPanels::removing()
{
    QFETCH(bool, onTheLeft);
    SongListPanel &panel = onTheLeft ? *left : *right;
    panel.setList(evening);
    answers = {QMessageBox::Yes};
    click(panel, u"Remove"_s);
    QCOMPARE(boxes, {u"Willst Du die Playlist<br>'evening.m3u8'<br>wirklich löschen?"_s});
    QVERIFY(!QFile::exists(path(u"evening.m3u8"_s)));
    QCOMPARE(panel.list(), songs->manager.getPlaylist(1));
    QCOMPARE(box(panel)->currentIndex(), 1);
    QCOMPARE(box(*left)->count(), 3);
    QCOMPARE(box(*right)->count(), 3);
    QVERIFY(!isEnabled(panel, u"Remove"_s));
}

void TestPlaylistPanels::removingFails()
{
    left->setList(evening);
    QVERIFY(QFile::remove(path(u"evening.m3u8"_s)));
    answers = {QMessageBox::Yes};
    click(*left, u"Remove"_s);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes.at(1),
             u"Fehler: Die Playlist<br>'evening.m3u8'<br>konnte nicht gelöscht werden!"_s);
    QCOMPARE(left->list(), evening);
}

void TestPlaylistPanels::removingIsDeclined()
{
    left->setList(evening);
    answers = {QMessageBox::No};
    click(*left, u"Remove"_s);
    QVERIFY(QFile::exists(path(u"evening.m3u8"_s)));
    QCOMPARE(left->list(), evening);
    left->setList(songs->manager.getMasterList());
    left->carryOut(PlaylistTask::Remove);
    QCOMPARE(boxes.size(), 1);
}

void TestPlaylistPanels::adding()
{
    left->setList(evening);
    QVERIFY(!isEnabled(*left, u"AddEntry"_s));
    left->carryOut(PlaylistTask::AddSongs);
    QCOMPARE(shown(*left), u"ba"_s);
    right->selection().selectAll();
    click(*left, u"AddEntry"_s);
    QCOMPARE(shown(*left), u"baabc"_s);
    QVERIFY(evening->isModified());
    QCOMPARE(right->selection().songs().size(), 3);
    // From a playlist into another one.
    right->setList(party);
    select(*left, 1);
    click(*right, u"AddEntry"_s);
    QCOMPARE(shown(*right), u"cb"_s);
}

// What goes on with the next song goes by it.
void TestPlaylistPanels::addingKeepsTheSelection()
{
    left->setList(songs->playlist(u"twice.m3u8"_s, u"aba"_s));
    select(*left, 3);
    select(*right, 3);
    QSignalSpy changed(left.get(), &SongListPanel::selectionChanged);
    click(*left, u"AddEntry"_s);
    QCOMPARE(shown(*left), u"abac"_s);
    QCOMPARE(left->selection().row(), 3);
    QVERIFY(!changed.isEmpty());
}

void TestPlaylistPanels::nothingIsAddedToTheLibrary()
{
    left->setList(songs->manager.getMasterList());
    right->setList(evening);
    select(*right, 1);
    QVERIFY(!isEnabled(*left, u"AddEntry"_s));
    left->carryOut(PlaylistTask::AddSongs);
    QCOMPARE(songs->manager.getSongs().size(), 3);
}

void TestPlaylistPanels::removingAnEntry_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("selected");
    QTest::newRow("first") << u"abc"_s << 1 << u"bc"_s << u"b"_s;
    QTest::newRow("middle") << u"abc"_s << 2 << u"ac"_s << u"c"_s;
    QTest::newRow("last") << u"abc"_s << 3 << u"ab"_s << u"b"_s;
    QTest::newRow("one of two equal ones") << u"aba"_s << 3 << u"ab"_s << u"b"_s;
    QTest::newRow("only one") << u"a"_s << 1 << QString() << QString();
}

void TestPlaylistPanels::removingAnEntry()
{
    QFETCH(QString, entries);
    QFETCH(int, row);
    left->show();
    left->setList(songs->playlist(u"list.m3u8"_s, entries));
    left->carryOut(PlaylistTask::RemoveEntry);
    QCOMPARE(shown(*left), entries); // nothing is selected
    select(*left, row);
    QSignalSpy removed(left.get(), &SongListPanel::entryRemoved);
    click(*left, u"EntryRemove"_s);
    QTEST(shown(*left), "after");
    QTEST(TestSongs::letter(left->selection().song()), "selected");
    QCOMPARE(removed.size(), 1);
    QVERIFY(left->list()->isModified());
}

void TestPlaylistPanels::theLibraryLosesNothing()
{
    QFile file(songs->music.filePath(u"a"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    select(*right, 1);
    QVERIFY(!isEnabled(*right, u"EntryRemove"_s));
    right->carryOut(PlaylistTask::RemoveEntry);
    right->carryOut(PlaylistTask::MoveDown);
    QCOMPARE(shown(*right), u"abc"_s);
    QVERIFY(file.exists());
}

void TestPlaylistPanels::movingEntries()
{
    left->setList(songs->playlist(u"list.m3u8"_s, u"abc"_s));
    left->carryOut(PlaylistTask::MoveDown);
    QCOMPARE(shown(*left), u"abc"_s);
    select(*left, 1);
    QVERIFY(!isEnabled(*left, u"EntryMoveUp"_s));
    left->carryOut(PlaylistTask::MoveUp);
    QCOMPARE(shown(*left), u"abc"_s);
    click(*left, u"EntryMoveDown"_s);
    QCOMPARE(shown(*left), u"bac"_s);
    QCOMPARE(left->selection().row(), 2);
    click(*left, u"EntryMoveDown"_s);
    QCOMPARE(shown(*left), u"bca"_s);
    QVERIFY(!isEnabled(*left, u"EntryMoveDown"_s));
    left->carryOut(PlaylistTask::MoveDown);
    QCOMPARE(shown(*left), u"bca"_s);
    click(*left, u"EntryMoveUp"_s);
    QCOMPARE(shown(*left), u"bac"_s);
    QCOMPARE(TestSongs::letter(left->selection().song()), u"a"_s);
    QVERIFY(left->list()->isModified());
}

// The list's own order counts, not that of what is to be seen.
void TestPlaylistPanels::movingInAFilteredList()
{
    left->setList(songs->playlist(u"list.m3u8"_s, u"abc"_s));
    showOnly(*left, u"c"_s);
    QCOMPARE(shown(*left), u"c"_s);
    select(*left, 1);
    click(*left, u"EntryMoveUp"_s);
    QCOMPARE(TestSongs::letters(*left->list()), u"acb"_s);
}

void TestPlaylistPanels::bothSidesShowOneList()
{
    left->setList(evening);
    right->setList(evening);
    select(*left, 1);
    click(*left, u"EntryMoveDown"_s);
    QCOMPARE(shown(*right), u"ab"_s);
    select(*right, 1);
    click(*right, u"EntryRemove"_s);
    QCOMPARE(shown(*left), u"b"_s);
    select(*right, 1);
    click(*left, u"AddEntry"_s);
    QCOMPARE(shown(*right), u"bb"_s);
    QVERIFY(isEnabled(*right, u"Save"_s));
    click(*left, u"Save"_s);
    QVERIFY(!isEnabled(*right, u"Save"_s));
}

void TestPlaylistPanels::revertingReachesTheOtherSide()
{
    left->setList(evening);
    right->setList(evening);
    select(*left, 1);
    click(*left, u"EntryRemove"_s);
    answers = {QMessageBox::No};
    choose(*left, 3);
    QCOMPARE(shown(*right), u"ba"_s);
    QVERIFY(!isEnabled(*right, u"Save"_s));
}

void TestPlaylistPanels::aDropKeepsTheSelection()
{
    left->setList(songs->playlist(u"list.m3u8"_s, u"abc"_s));
    select(*left, 2);
    select(*right, 3);
    const std::unique_ptr<QMimeData> data(
        right->filter()->mimeData(right->table()->selectionModel()->selectedIndexes()));
    QVERIFY(left->filter()->dropMimeData(data.get(), Qt::CopyAction, -1, -1,
                                         left->filter()->index(1, 0)));
    QCOMPARE(shown(*left), u"cabc"_s);
    QCOMPARE(left->selection().row(), 3);
    QCOMPARE(TestSongs::letter(left->selection().song()), u"b"_s);
}

void TestPlaylistPanels::buttonsFollow()
{
    QVERIFY(isEnabled(*left, u"Open"_s));
    QVERIFY(!isEnabled(*left, u"CopyBuffer"_s));
    QVERIFY(!isEnabled(*left, u"ExportAllFiles"_s));
    QVERIFY(!isEnabled(*left, u"AddEntry"_s));
    QVERIFY(isEnabled(*right, u"CopyBuffer"_s));
    QVERIFY(!isEnabled(*right, u"SaveAs"_s));
    select(*right, 1);
    QVERIFY(isEnabled(*left, u"AddEntry"_s));
    right->selection().clear();
    QVERIFY(!isEnabled(*left, u"AddEntry"_s));
    choose(*left, 2);
    QVERIFY(isEnabled(*left, u"CopyBuffer"_s));
    QVERIFY(!isEnabled(*left, u"EntryRemove"_s));
    select(*left, 1);
    QVERIFY(isEnabled(*left, u"EntryRemove"_s));
    left->selection().clear();
    QVERIFY(!isEnabled(*left, u"EntryRemove"_s));
}

// A song that is out of sight is not selected.
void TestPlaylistPanels::buttonsFollowTheFilter()
{
    select(*right, 1);
    QVERIFY(isEnabled(*left, u"AddEntry"_s));
    showOnly(*right, u"no such song"_s);
    QVERIFY(!isEnabled(*left, u"AddEntry"_s));
    choose(*left, 2);
    select(*left, 1);
    QVERIFY(isEnabled(*left, u"EntryRemove"_s));
    showOnly(*left, u"no such song"_s);
    QVERIFY(!isEnabled(*left, u"EntryRemove"_s));
}

void TestPlaylistPanels::aDisabledPanelDoesNothing()
{
    left->setList(evening);
    select(*left, 1);
    select(*right, 1);
    left->setDisabled(true);
    for (const PlaylistTask task :
         {PlaylistTask::Open, PlaylistTask::AddSongs, PlaylistTask::RemoveEntry})
        left->carryOut(task);
    QCOMPARE(shown(*left), u"ba"_s);
    QVERIFY(dialogs.isEmpty());
}

void TestPlaylistPanels::theStatisticsFollowTheFilter()
{
    songs->song(u"a"_s)->setPlayLength(61);
    songs->song(u"b"_s)->setPlayLength(120);
    left->setList(evening);
    const auto *label = left->findChild<QLabel *>(u"labelPlaylistInfoL"_s);
    QCOMPARE(label->text(), u"2 Songs  3:01 Spielzeit"_s);
    showOnly(*left, u"b"_s);
    QCOMPARE(shown(*left), u"b"_s);
    QTRY_COMPARE(label->text(), u"1/2 Songs  2:00 Spielzeit"_s);
}

void TestPlaylistPanels::theListAsText()
{
    songs->song(u"b"_s)->setTitle(u"The \"B\""_s);
    left->setList(evening);
    select(*left, 2); // makes no difference
    for (const SongColumnRow &column : songColumns())
        left->table()->setColumnHidden(column.column,
                                       column.column != TitleColumn && column.column != PathColumn);
    QHeaderView *header = left->table()->horizontalHeader();
    header->moveSection(header->visualIndex(PathColumn), 0);
    click(*left, u"CopyBuffer"_s);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             u"\"Pfad\"\t\"Titel\"\n\"%1/b\"\t\"The \"\"B\"\"\"\n\"%1/a\"\t\"a\"\n"_s.arg(
                 songs->music.path()));
}

void TestPlaylistPanels::selectedSongsAsText()
{
    const auto text = [this] {
        right->exportColumns({TitleColumn, ArtistColumn, AlbumColumn, IswcColumn});
        return QGuiApplication::clipboard()->text();
    };
    const QString heading = u"\"Titel\"\t\"Künstler\"\t\"Album\"\t\"ISWC Nummer\"\n"_s;
    const auto line
        = [](const QString &title) { return u"\"%1\"\t\"\"\t\"\"\t\"\"\n"_s.arg(title); };
    QCOMPARE(text(), heading + line(u"a"_s) + line(u"b"_s) + line(u"c"_s));
    select(*right, 2);
    QCOMPARE(text(), heading + line(u"b"_s));
    right->exportShownColumns();
    const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).count(u'\t') + 1, 19);
    QVERIFY(lines.at(1).startsWith(u"\"b\"\t"_s));
    QCOMPARE(boxes.size(), 3);
}

void TestPlaylistPanels::filesOfTheList()
{
    for (const QString &name : {u"a"_s, u"b"_s}) {
        QFile file(songs->music.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(name.toUtf8()) == 1);
    }
    const QTemporaryDir target;
    chosen = target.path();
    left->setList(evening);
    click(*left, u"ExportAllFiles"_s);
    QCOMPARE(QDir(target.path()).entryList(QDir::Files), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(boxes, {u"2 Dateien erfolgreich kopiert."_s});
}

// Opened and saved, they hold what was read.
void TestPlaylistPanels::listsOfOthers()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
    QDirIterator files(corpusDirectory() + u"/playlists"_s, {u"*.m3u"_s, u"*.m3u8"_s, u"*.pls"_s},
                       QDir::Files, QDirIterator::Subdirectories);
    int number = 0;
    while (files.hasNext()) {
        const QString file
            = songs->lists.filePath(u"%1.%2"_s.arg(++number).arg(QFileInfo(files.next()).suffix()));
        QVERIFY(QFile::copy(files.filePath(), file));
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        chosen = file;
        click(*left, u"Open"_s);
        QCOMPARE(left->list()->fullPath(), file);
        QStringList before;
        for (const SongPtr &song : left->list()->songs())
            before.append(song->getFilename());
        left->carryOut(PlaylistTask::Save);
        click(*left, u"Open"_s);
        QStringList after;
        for (const SongPtr &song : left->list()->songs())
            after.append(song->getFilename());
        QCOMPARE(after, before);
    }
    QVERIFY(number >= 15);
    QVERIFY(boxes.isEmpty());
}

TARVELO_TEST_MAIN(TestPlaylistPanels, QApplication)
#include "tst_PlaylistPanels.moc"
