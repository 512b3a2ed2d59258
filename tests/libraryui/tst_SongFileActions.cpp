#include "SongFileActions.h"

#include "FileDialogs.h"
#include "FrozenTableView.h"
#include "LogCapture.h"
#include "MessageBoxes.h"
#include "ProgressDisplay.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongStore.h"
#include "SongStoreCache.h"
#include "TestMain.h"
#include "TestSongs.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Settings::Key;

// The operations on song files with all that the user is asked and told, over real files.
class TestSongFileActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { createSongStores(); }
    void cleanupTestCase() { destroySongStores(); }
    void init();
    void cleanup();

    void nothingIsSelected_data();
    void nothingIsSelected();
    void oneFile_data();
    void oneFile();
    void oneFileThatFails_data();
    void oneFileThatFails();
    void leavingTheDialogs_data();
    void leavingTheDialogs();
    void theLastDirectoryIsProposed_data();
    void theLastDirectoryIsProposed();
    void severalFiles_data();
    void severalFiles();
    void severalFilesThatStop_data();
    void severalFilesThatStop();
    void songsOfThePlaylist();
    void theWindowLivesWhileFilesGo();
    void deletingAsks_data();
    void deletingAsks();
    void deletingThatStops();
    void importing();
    void importingLeaves();
    void importingWithoutAMusicDirectory();
    void importingThatCanNotBegin();
    void importingThatFails_data();
    void importingThatFails();
    void droppingFiles();
    void theClipboard();
    void writeProtection();
    void protectedSongsLeaveTheirFilter();
    void theCache();

private:
    struct Asked
    {
        QString title;
        QString start;
        QString filter;
    };
    QString path(const QString &name) const { return songs->music.filePath(name); }
    SongPtr song(const QString &name) const { return songs->manager.getSong(path(name)); }
    void put(const QString &names) const;
    void select(SongListPanel &panel, const QString &letters) const;
    void run(bool copies);
    QStringList musicFiles() const { return filesIn(songs->music.path()); }
    static QStringList filesIn(const QString &directory);
    QString shown(int box) const { return boxes.value(box); }

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<QTemporaryDir> target;
    std::unique_ptr<QSplitter> window;
    SongListPanel *left = nullptr;
    SongListPanel *right = nullptr;
    std::unique_ptr<SongFileActions> actions;
    SongPtr current;
    QStringList boxes; // title and text
    QMessageBox::StandardButton answer = QMessageBox::Yes;
    QList<Asked> asked;
    QString choice;
    QStringList choices;
};

namespace {

const QString oneCopyFailed
    = u"Fehler ...|Das Kopieren der Datei <br>%1<br>nach<br>%2<br>hat nicht "
      u"funktioniert!<br><br>Mögliche Ursachen:<ul><li>Die Datei ist von einem anderen "
      u"Programm geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es "
      u"ist kein Speicher mehr frei</li><li>Es gibt keine Schreibberechtigung</li></ul>"_s;
const QString oneMoveFailed
    = u"Fehler ...|Das Verschieben der Datei <br>%1<br>nach<br>%2<br>hat nicht "
      u"funktioniert!<br><br>Mögliche Ursachen:<ul><li>Die Datei ist von einem anderen "
      u"Programm geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es "
      u"gibt keine Schreibberechtigung</li></ul>"_s;
const QString copiesFailed
    = u"Fehler ...|Das Kopieren der Datei<br>%1<br>nach<br>%2<br>hat nicht "
      u"funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert den "
      u"Kopiervorgang</li><li>Die Datei existiert bereits im Zielordner</li><li>Es ist "
      u"kein Speicher mehr frei</li><li>Es gibt keine "
      u"Schreibberechtigung</li><li>Mieses Karma</li></ul>"_s;
const QString movesFailed
    = u"Fehler ...|Das Verschieben der Datei<br>%1<br>nach<br>%2<br>hat nicht "
      u"funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert den "
      u"Kopiervorgang</li><li>Die Datei ist von einem anderen Programm "
      u"geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es gibt "
      u"keine Schreibberechtigung</li><li>Mieses Karma</li></ul>"_s;
const QString deleteFailed
    = u"Fehler ...|Die Datei<br><br>%1<br><br>konnte nicht gelöscht "
      u"werden!<br><br>Mögliche Ursachen:<br><ul><li>Der Virenscanner blockiert den "
      u"Kopiervorgang</li><li>Die Datei ist von einem anderen Programm "
      u"geöffnet</li><li>Die Datei wurde zwischenzeitlich entfernt</li></ul>"_s;
const QString importFailed
    = u"Frage ...|Das Kopieren von<br>%1<br> nach <br>%2<br>hat nicht "
      u"funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert den "
      u"Kopiervorgang</li><li>Die Datei existiert bereits im Zielordner</li><li>Kein "
      u"freier Speicher mehr</li></ul><br><br>Fortfahren?"_s;
const QString nothingSelected = u"Information ...|Keine Musikdatei ausgewählt."_s;
const QString nothingImported = u"Fehler ...|Es wurde keine Datei kopiert!"_s;

} // namespace

void TestSongFileActions::init()
{
    Settings::factoryReset();
    songs = std::make_unique<TestSongs>();
    target = std::make_unique<QTemporaryDir>();
    window = std::make_unique<QSplitter>();
    left = new SongListPanel(SongListPanel::Side::Left, &songs->manager, window.get());
    right = new SongListPanel(SongListPanel::Side::Right, &songs->manager, window.get());
    for (SongListPanel *panel : {left, right})
        new QAbstractItemModelTester(panel->model(), panel);
    window->resize(900, 500);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    actions = std::make_unique<SongFileActions>(&songs->manager, right, left, window.get());
    current.reset(new Song(u"current"_s, true));
    boxes.clear();
    asked.clear();
    choice.clear();
    choices.clear();
    answer = QMessageBox::Yes;
    setBoxRunner([this](QMessageBox &box) {
        // Places to break a line are no part of a name.
        boxes.append(box.windowTitle() + u'|' + box.text().remove(QChar(0x200b)));
        return answer;
    });
    const auto choose = [this](const QString &title, const QString &start, const QString &filter) {
        asked.append({title, start, filter});
        return choice;
    };
    setSaveFileChooser(choose);
    setDirectoryChooser(
        [choose](const QString &title, const QString &start) { return choose(title, start, {}); });
    setOpenFilesChooser(
        [this, choose](const QString &title, const QString &start, const QString &filter) {
            choose(title, start, filter);
            return choices;
        });
}

void TestSongFileActions::cleanup()
{
    setBoxRunner({});
    setSaveFileChooser({});
    setDirectoryChooser({});
    setOpenFilesChooser({});
    actions.reset();
    window.reset();
    songs.reset();
    Settings::factoryReset();
}

// One file a letter, which is its content.
void TestSongFileActions::put(const QString &names) const
{
    for (const QChar name : names) {
        QFile file(path(QString(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QString(name).toUtf8()) > 0);
    }
    songs->library(names);
}

void TestSongFileActions::select(SongListPanel &panel, const QString &letters) const
{
    panel.selection().clear();
    for (const QChar letter : letters)
        panel.table()->selectionModel()->select(
            panel.filter()->index(panel.filter()->rowOf(song(letter)), 0),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void TestSongFileActions::run(bool copies)
{
    if (copies)
        actions->copySongFile(*right, current);
    else
        actions->moveSongFile(*right, current);
}

QStringList TestSongFileActions::filesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

void TestSongFileActions::nothingIsSelected_data()
{
    QTest::addColumn<bool>("copies");
    QTest::newRow("copy") << true;
    QTest::newRow("move") << false;
}

void TestSongFileActions::nothingIsSelected()
{
    QFETCH(bool, copies);
    put(u"ab"_s);
    run(copies);
    QCOMPARE(boxes, QStringList(nothingSelected));
    // Without a current song a selection is none either.
    select(*right, u"a"_s);
    current.reset();
    run(copies);
    QCOMPARE(boxes, (QStringList{nothingSelected, nothingSelected}));
    QVERIFY(asked.isEmpty());
    QVERIFY(!Settings::contains(Key::MoveCopyDirDest));
}

void TestSongFileActions::oneFile_data()
{
    QTest::addColumn<bool>("copies");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("made");
    QTest::newRow("copy") << true << u"x.mp3"_s << u"x.mp3"_s;
    QTest::newRow("copy, no suffix") << true << u"x"_s << u"x.mp3"_s;
    QTest::newRow("copy, another suffix") << true << u"x.y"_s << u"x.y"_s;
    QTest::newRow("move") << false << u"x.mp3"_s << u"x.mp3"_s;
    QTest::newRow("move, no suffix") << false << u"x"_s << u"x.mp3"_s;
}

void TestSongFileActions::oneFile()
{
    QFETCH(bool, copies);
    QFETCH(QString, chosen);
    QFETCH(QString, made);
    put(u"abc"_s);
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"bab"_s);
    left->setList(list);
    select(*right, u"b"_s);
    choice = target->filePath(chosen);
    QSignalSpy changed(right->model(), &SongListTableModel::notifyModelChanged);
    QSignalSpy reset(right->model(), &QAbstractItemModel::modelReset);
    run(copies);
    QCOMPARE(boxes, QStringList());
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.at(0).title, copies ? u"Datei kopieren nach"_s : u"Datei verschieben nach"_s);
    QCOMPARE(asked.at(0).start, path(u"b"_s));
    QCOMPARE(asked.at(0).filter, u"Audio Datei (*.mp3)"_s);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(filesIn(target->path()), QStringList(made));
    QCOMPARE(musicFiles().contains(u"b"_s), copies);
    const SongPtr placed = songs->manager.getSong(target->filePath(made));
    QVERIFY(placed);
    QVERIFY(right->filter()->rowOf(placed) > 0);
    QCOMPARE(song(u"b"_s).isNull(), !copies);
    QCOMPARE(right->model()->rowCount(), copies ? 5 : 4);
    // The playlist goes with the file.
    const SongPtr entry = copies ? song(u"b"_s) : placed;
    QCOMPARE(list->songs(), (QList<SongPtr>{entry, song(u"a"_s), entry}));
    QCOMPARE(left->model()->song(1), entry);
    QVERIFY(!list->isModified());
    QCOMPARE(Settings::value(Key::MoveCopyDirDest).toString(), target->path());
}

void TestSongFileActions::oneFileThatFails_data()
{
    nothingIsSelected_data();
}

void TestSongFileActions::oneFileThatFails()
{
    QFETCH(bool, copies);
    const QString odd = u"a&<b>%1 %2.mp3"_s;
    QFile file(path(odd));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("a") == 1);
    file.close();
    songs->song(odd);
    right->selection().select(song(odd));
    choice = target->filePath(u"nowhere/x.mp3"_s);
    run(copies);
    QCOMPARE(boxes, QStringList(QString(copies ? oneCopyFailed : oneMoveFailed)
                                    .arg(path(odd).toHtmlEscaped(), choice)));
    QVERIFY(song(odd));
    QCOMPARE(musicFiles(), QStringList(odd));
    QCOMPARE(Settings::value(Key::MoveCopyDirDest).toString(), target->filePath(u"nowhere"_s));
}

void TestSongFileActions::leavingTheDialogs_data()
{
    nothingIsSelected_data();
}

void TestSongFileActions::leavingTheDialogs()
{
    QFETCH(bool, copies);
    put(u"abc"_s);
    for (const QString &selected : {u"a"_s, u"ab"_s}) {
        select(*right, selected);
        run(copies);
    }
    QCOMPARE(asked.size(), 2);
    QCOMPARE(boxes, QStringList());
    QCOMPARE(musicFiles().size(), 3);
    QCOMPARE(right->selection().songs().size(), 2);
    QVERIFY(!Settings::contains(Key::MoveCopyDirDest));
}

void TestSongFileActions::theLastDirectoryIsProposed_data()
{
    nothingIsSelected_data();
}

void TestSongFileActions::theLastDirectoryIsProposed()
{
    QFETCH(bool, copies);
    put(u"abc"_s);
    Settings::setValue(Key::MoveCopyDirDest, u"/last/place"_s);
    select(*right, u"a"_s);
    run(copies);
    QCOMPARE(asked.constLast().start, u"/last/place/a"_s);
    select(*right, u"abc"_s);
    run(copies);
    QCOMPARE(asked.constLast().title, u"Zielverzeichnis auswählen"_s);
    QCOMPARE(asked.constLast().start, u"/last/place"_s);
    Settings::remove(Key::MoveCopyDirDest);
    run(copies);
    QCOMPARE(asked.constLast().start, songs->music.path());
}

void TestSongFileActions::severalFiles_data()
{
    nothingIsSelected_data();
}

void TestSongFileActions::severalFiles()
{
    QFETCH(bool, copies);
    put(u"abcdef"_s);
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"fedcba"_s);
    left->setList(list);
    select(*right, u"bdf"_s);
    choice = target->path();
    QSignalSpy changed(right->model(), &SongListTableModel::notifyModelChanged);
    run(copies);
    QCOMPARE(boxes, QStringList(copies ? u"Information ...|3 Dateien erfolgreich kopiert."_s
                                       : u"Information ...|3 Dateien erfolgreich verschoben."_s));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(filesIn(target->path()), (QStringList{u"b"_s, u"d"_s, u"f"_s}));
    QCOMPARE(musicFiles().join(QString()), copies ? u"abcdef"_s : u"ace"_s);
    QCOMPARE(right->model()->rowCount(), copies ? 10 : 7);
    QCOMPARE(list->songs().size(), 6);
    QCOMPARE(TestSongs::letters(*list), u"fedcba"_s);
    for (const SongPtr &entry : list->songs())
        QVERIFY(!entry->isMissingFile() && QFile::exists(entry->getFilename()));
    QCOMPARE(Settings::value(Key::MoveCopyDirDest).toString(), target->path());
    QVERIFY(window->findChildren<ProgressDisplay *>().isEmpty());
}

void TestSongFileActions::severalFilesThatStop_data()
{
    QTest::addColumn<bool>("copies");
    QTest::addColumn<QString>("inTheWay");
    QTest::addColumn<QString>("done");
    for (const bool copies : {true, false}) {
        const char *work = copies ? "copy" : "move";
        QTest::addRow("%s, at the first", work) << copies << u"a"_s << QString();
        QTest::addRow("%s, at the third", work) << copies << u"c"_s << u"ab"_s;
        QTest::addRow("%s, at the last", work) << copies << u"e"_s << u"abcd"_s;
    }
}

void TestSongFileActions::severalFilesThatStop()
{
    QFETCH(bool, copies);
    QFETCH(QString, inTheWay);
    QFETCH(QString, done);
    put(u"abcde"_s);
    QFile file(target->filePath(inTheWay));
    QVERIFY(file.open(QIODevice::WriteOnly));
    select(*right, u"abcde"_s);
    choice = target->path();
    run(copies);
    QCOMPARE(boxes,
             QStringList(
                 QString(copies ? copiesFailed : movesFailed).arg(path(inTheWay), target->path())));
    QCOMPARE(filesIn(target->path()).join(QString()), done + inTheWay);
    QCOMPARE(file.size(), 0);
    QCOMPARE(musicFiles().size(), copies ? 5 : 5 - done.size());
    QCOMPARE(right->model()->rowCount(), 6 + (copies ? done.size() : 0));
    for (const QChar letter : done)
        QVERIFY(songs->manager.getSong(target->filePath(letter)));
    QCOMPARE(Settings::value(Key::MoveCopyDirDest).toString(), target->path());
}

void TestSongFileActions::songsOfThePlaylist()
{
    put(u"abc"_s);
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"cb"_s);
    left->setList(list);
    left->selection().select(song(u"c"_s));
    select(*right, u"a"_s);
    choice = target->filePath(u"x.mp3"_s);
    QSignalSpy changed(left->model(), &SongListTableModel::notifyModelChanged);
    actions->moveSongFile(*left, current);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(musicFiles().join(QString()), u"ab"_s);
    QCOMPARE(left->model()->song(1), songs->manager.getSong(choice));
    QCOMPARE(right->model()->rowCount(), 4);
}

// Timers and paint events come while the files are copied.
void TestSongFileActions::theWindowLivesWhileFilesGo()
{
    put(u"abcdefghijklmnop"_s);
    right->selection().selectAll();
    choice = target->path();
    QStringList texts;
    int largest = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        const auto *progress = window->findChild<ProgressDisplay *>();
        if (!progress || !progress->isVisible())
            return;
        QVERIFY(progress->isModal());
        const QString text = progress->findChild<QLabel *>(u"labelDisplayText"_s)->text();
        if (!texts.contains(text))
            texts.append(text);
        const auto *bar = progress->findChild<QProgressBar *>();
        QCOMPARE(bar->maximum(), 16);
        largest = std::max(largest, bar->value());
        right->table()->viewport()->repaint();
    });
    watch.start(0);
    actions->copySongFile(*right, current);
    QCOMPARE(texts, (QStringList{u"Kopiere Dateien ..."_s, u"Aufräumen ..."_s}));
    QCOMPARE(largest, 16);
    right->selection().selectAll();
    select(*right, u"abcdefghijklmnop"_s);
    QVERIFY(QDir(target->path()).mkdir(u"deep"_s));
    choice = target->filePath(u"deep"_s);
    texts.clear();
    actions->moveSongFile(*right, current);
    QCOMPARE(texts, (QStringList{u"Verschiebe Dateien ..."_s, u"Aufräumen ..."_s}));
}

void TestSongFileActions::deletingAsks_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QString>("kept");
    QTest::newRow("one, no") << u"b"_s << false << u"abcde"_s;
    QTest::newRow("one, yes") << u"b"_s << true << u"acde"_s;
    QTest::newRow("several, no") << u"bd"_s << false << u"abcde"_s;
    QTest::newRow("several, yes") << u"bd"_s << true << u"ace"_s;
    QTest::newRow("none") << QString() << true << u"abcde"_s;
}

void TestSongFileActions::deletingAsks()
{
    QFETCH(QString, selected);
    QFETCH(bool, yes);
    QFETCH(QString, kept);
    put(u"abcde"_s);
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"edcbae"_s);
    select(*right, selected);
    answer = yes ? QMessageBox::Yes : QMessageBox::No;
    actions->removeSongFiles(*right);
    if (selected.isEmpty())
        QCOMPARE(boxes, QStringList());
    else if (selected.size() == 1)
        QCOMPARE(boxes, QStringList(u"Frage ...|Willst Du die ausgewählte Datei<br>%1<br>wirklich "
                                    "löschen?"_s.arg(path(selected))));
    else
        QCOMPARE(boxes, QStringList(u"Frage ...|Willst Du die 2 ausgewählten Dateien wirklich "
                                    "löschen?"_s));
    QCOMPARE(musicFiles().join(QString()), kept);
    QCOMPARE(right->model()->rowCount(), kept.size() + 1);
    for (const SongPtr &entry : list->songs())
        QVERIFY(kept.contains(TestSongs::letter(entry)) && !entry->isMissingFile());
    QCOMPARE(list->count(), kept.size() + 1);
    QVERIFY(!list->isModified());
}

void TestSongFileActions::deletingThatStops()
{
    put(u"abcde"_s);
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"abcde"_s);
    select(*right, u"abcde"_s);
    QVERIFY(QFile::remove(path(u"c"_s)));
    QSignalSpy changed(right->model(), &SongListTableModel::notifyModelChanged);
    actions->removeSongFiles(*right);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(shown(1), QString(deleteFailed).arg(path(u"c"_s)));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(musicFiles().join(QString()), u"de"_s);
    QCOMPARE(right->model()->rowCount(), 4);
    QCOMPARE(TestSongs::letters(*list), u"cde"_s);
}

void TestSongFileActions::importing()
{
    put(u"a"_s);
    QDir(target->path()).mkdir(u"from"_s);
    for (const QString &name : {u"x.mp3"_s, u"y.mp3"_s, u"z.mp3"_s}) {
        QVERIFY(QFile::copy(path(u"a"_s), target->filePath(u"from/"_s + name)));
        choices.append(target->filePath(u"from/"_s + name));
    }
    Settings::setValue(Key::SongFileImportDir, u"/last/place"_s);
    QSignalSpy changed(right->model(), &SongListTableModel::notifyModelChanged);
    actions->importSongFiles();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.at(0).title, u"Songs importieren"_s);
    QCOMPARE(asked.at(0).start, u"/last/place"_s);
    QCOMPARE(asked.at(0).filter, u"*.mp3"_s);
    QCOMPARE(boxes, QStringList(u"Information ...|Es wurden 3 Dateien in das Unterverzeichnis "
                                "'%1/Import/' kopiert."_s.arg(songs->music.path())));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(right->model()->rowCount(), 5);
    QCOMPARE(filesIn(path(u"Import"_s)).size(), 3);
    QCOMPARE(Settings::value(Key::SongFileImportDir).toString(), target->filePath(u"from"_s));
    // One alone.
    QVERIFY(QFile::copy(path(u"a"_s), target->filePath(u"w.mp3"_s)));
    choices = QStringList(target->filePath(u"w.mp3"_s));
    actions->importSongFiles();
    QCOMPARE(shown(1), u"Information ...|Es wurde eine Datei in das Unterverzeichnis '%1/Import/' "
                       "kopiert."_s.arg(songs->music.path()));
    QVERIFY(window->findChildren<ProgressDisplay *>().isEmpty());
}

void TestSongFileActions::importingLeaves()
{
    put(u"a"_s);
    actions->importSongFiles();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(boxes, QStringList());
    QVERIFY(!Settings::contains(Key::SongFileImportDir));
    QVERIFY(!QDir(path(u"Import"_s)).exists());
}

void TestSongFileActions::importingWithoutAMusicDirectory()
{
    Settings::setValue(Key::MusicDir, QString());
    QSignalSpy wanted(actions.get(), &SongFileActions::musicDirWanted);
    actions->importSongFiles();
    QCOMPARE(boxes, QStringList(u"Information ...|Das Musikverzeichnis muss vorher festgelegt "
                                "werden."_s));
    QCOMPARE(wanted.size(), 1);
    QVERIFY(asked.isEmpty());
}

void TestSongFileActions::importingThatCanNotBegin()
{
    put(u"a"_s);
    QVERIFY(QFile::copy(path(u"a"_s), path(u"Import"_s)));
    choices = QStringList(path(u"a"_s));
    actions->importSongFiles();
    QCOMPARE(boxes, (QStringList{u"Fehler ...|Beim Anlegen des Verzeichnisses %1/Import/ ist ein "
                                 "Fehler aufgetreten. Die Operation wird "
                                 "abgebrochen."_s.arg(songs->music.path()),
                                 nothingImported}));
    QCOMPARE(right->model()->rowCount(), 2);
}

void TestSongFileActions::importingThatFails_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<QString>("there");
    QTest::addColumn<QString>("imported");
    QTest::newRow("going on") << true << u"y"_s << u"xz"_s;
    QTest::newRow("stopping") << false << u"y"_s << u"x"_s;
    QTest::newRow("stopping at the first") << false << u"x"_s << QString();
}

void TestSongFileActions::importingThatFails()
{
    QFETCH(bool, goesOn);
    QFETCH(QString, there);
    QFETCH(QString, imported);
    put(u"xyz"_s);
    QVERIFY(QDir(songs->music.path()).mkdir(u"Import"_s));
    const QString blocked = path(u"Import/"_s + there);
    QFile file(blocked);
    QVERIFY(file.open(QIODevice::WriteOnly));
    choices = QStringList{path(u"x"_s), path(u"y"_s), path(u"z"_s)};
    answer = goesOn ? QMessageBox::Yes : QMessageBox::No;
    actions->importSongFiles();
    QCOMPARE(shown(0), QString(importFailed).arg(path(there), blocked));
    const QString directory = songs->music.path() + u"/Import/"_s;
    const QString ends[]
        = {nothingImported,
           u"Information ...|Es wurde eine Datei in das Unterverzeichnis '%1' kopiert."_s.arg(
               directory),
           u"Information ...|Es wurden 2 Dateien in das Unterverzeichnis '%1' kopiert."_s.arg(
               directory)};
    QCOMPARE(boxes.mid(1), QStringList(ends[imported.size()]));
    QCOMPARE(file.size(), 0);
    for (const QChar letter : imported)
        QVERIFY(songs->manager.getSong(directory + letter));
    QCOMPARE(right->model()->rowCount(), 4 + imported.size());
    QCOMPARE(Settings::value(Key::SongFileImportDir).toString(), songs->music.path());
}

// From a file manager onto the library.
void TestSongFileActions::droppingFiles()
{
    put(u"ab"_s);
    QVERIFY(QFile::copy(path(u"a"_s), target->filePath(u"x.mp3"_s)));
    QMimeData files;
    files.setUrls(
        {QUrl::fromLocalFile(target->filePath(u"x.mp3"_s)), QUrl(u"http://example.org/y.mp3"_s)});
    QSignalSpy changed(right->model(), &SongListTableModel::notifyModelChanged);
    QVERIFY(right->model()->dropMimeData(&files, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(boxes, QStringList(u"Information ...|Es wurde eine Datei in das Unterverzeichnis "
                                "'%1/Import/' kopiert."_s.arg(songs->music.path())));
    QCOMPARE(changed.size(), 1);
    QVERIFY(songs->manager.getSong(path(u"Import/x.mp3"_s)));
    // Once more it is there already, and that is no success.
    answer = QMessageBox::No;
    QVERIFY(!right->model()->dropMimeData(&files, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(boxes.size(), 3);
    // What lies in the net, and the songs of a list, come by no import.
    files.setUrls({QUrl(u"http://example.org/y.mp3"_s)});
    QVERIFY(!right->model()->dropMimeData(&files, Qt::CopyAction, -1, -1, {}));
    const std::unique_ptr<QMimeData> own(right->model()->mimeData({right->model()->index(1, 0)}));
    QVERIFY(!right->model()->dropMimeData(own.get(), Qt::CopyAction, -1, -1, {}));
    // A playlist takes no files.
    files.setUrls({QUrl::fromLocalFile(path(u"a"_s))});
    QVERIFY(!left->model()->dropMimeData(&files, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(boxes.size(), 3);
}

void TestSongFileActions::theClipboard()
{
    actions->copyFileToBuffer({});
    QCOMPARE(boxes, QStringList(nothingSelected));
    const QString odd = u"a#b%20?ü.mp3"_s;
    actions->copyFileToBuffer(songs->song(odd));
    QCOMPARE(shown(1),
             u"Information ...|Die Datei ist in die Windows Zwischenablage kopiert worden und kann "
             "jetzt z.B. auf den Desktop oder in ein beliebiges Verzeichnis eingefügt werden."_s);
    const QList<QUrl> urls = QGuiApplication::clipboard()->mimeData()->urls();
    QCOMPARE(urls, QList<QUrl>{QUrl::fromLocalFile(path(odd))});
    QCOMPARE(urls.at(0).toLocalFile(), path(odd));
}

void TestSongFileActions::protectedSongsLeaveTheirFilter()
{
    if (::geteuid() == 0)
        QSKIP("Root may write everything.");
    put(u"abc"_s);
    right->setPlaylistWidgetsVisible(true);
    right->model()->setFilterText(u"✓"_s, WritableColumn);
    right->filter()->applyFilters();
    const auto *info = right->findChild<QLabel *>(u"labelPlaylistInfoR"_s);
    QTRY_VERIFY(info->text().startsWith(u"3 "_s));
    select(*right, u"b"_s);
    actions->setWriteProtection(*right);
    QCOMPARE(right->filter()->rowOf(song(u"b"_s)), -1);
    QTRY_VERIFY2(info->text().startsWith(u"2/3 "_s), qPrintable(info->text()));
    actions->removeWriteProtection(*right);
    QVERIFY(right->selection().songs().isEmpty());
}

void TestSongFileActions::writeProtection()
{
    if (::geteuid() == 0)
        QSKIP("Root may write everything.");
    put(u"abc"_s);
    left->setList(songs->playlist(u"evening.m3u8"_s, u"cb"_s));
    right->filter()->sort(WritableColumn, Qt::AscendingOrder);
    const auto mark = [this](const SongListPanel &panel, const QString &letter) {
        return panel.filter()
            ->index(panel.filter()->rowOf(song(letter)), WritableColumn)
            .data()
            .toString();
    };
    QCOMPARE(mark(*right, u"b"_s), u"✓"_s);
    select(*right, u"bc"_s);
    QSignalSpy told(right->model(), &QAbstractItemModel::dataChanged);
    actions->setWriteProtection(*right);
    QCOMPARE(told.size(), 1);
    QCOMPARE(mark(*right, u"a"_s), u"✓"_s);
    QCOMPARE(mark(*right, u"b"_s), u"-"_s);
    QCOMPARE(mark(*left, u"c"_s), u"-"_s);
    QVERIFY(!QFileInfo(path(u"b"_s)).isWritable());
    QVERIFY(QFileInfo(path(u"b"_s)).isReadable());
    // The list is sorted by it, and the songs stay selected.
    QCOMPARE(right->filter()->rowOf(song(u"a"_s)), 3);
    QCOMPARE(right->selection().songs().size(), 2);
    actions->removeWriteProtection(*right);
    QCOMPARE(mark(*right, u"b"_s), u"✓"_s);
    QVERIFY(QFileInfo(path(u"b"_s)).isWritable());
    // A file that is gone has no mark to change.
    QVERIFY(QFile::remove(path(u"b"_s)));
    actions->setWriteProtection(*right);
    QVERIFY(!song(u"b"_s)->isReadonly());
    QVERIFY(song(u"c"_s)->isReadonly());
    QCOMPARE(boxes, QStringList());
}

void TestSongFileActions::theCache()
{
    put(u"abc"_s);
    const QTemporaryDir cache;
    Settings::setValue(Key::CacheDir, cache.path());
    const auto cacheFile = [&](const QString &letter) {
        return cache.filePath(SongStoreCache::fileNameFor(path(letter)));
    };
    for (const QString &letter : {u"a"_s, u"c"_s})
        QVERIFY(QFile::copy(path(letter), cacheFile(letter)));
    select(*right, u"ab"_s);
    actions->removeFileCache(*right);
    QCOMPARE(boxes,
             QStringList(u"Fehler ...|Der Cache für die Datei<br>%1<br>konnte nicht "
                         "bereinigt werden oder wurde bereits gelöscht!"_s.arg(path(u"b"_s))));
    QVERIFY(!QFile::exists(cacheFile(u"a"_s)));
    QVERIFY(QFile::exists(cacheFile(u"c"_s)));
    // Each row has its message.
    select(*right, u"abc"_s);
    actions->removeFileCache(*right);
    QCOMPARE(boxes.size(), 3);
    QVERIFY(!QFile::exists(cacheFile(u"c"_s)));
}

TARVELO_TEST_MAIN(TestSongFileActions, QApplication)
#include "tst_SongFileActions.moc"
