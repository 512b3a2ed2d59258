#include "FileDialogs.h"
#include "LibraryPage.h"
#include "LogCapture.h"
#include "PlayRegistration.h"
#include "Player.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>

#include <unistd.h>

using namespace Qt::StringLiterals;
using Settings::Key;

// Copying, moving, deleting and importing songs by keys and menus, and what becomes of the song
// that is the current one.
class TestWindowSongFiles : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init();
    void cleanup();

    void withoutACurrentSong_data();
    void withoutACurrentSong();
    void theCopyIsInTheLibrary();
    void severalSongsByKeys();
    void theMovedSongIsTheCurrentOne();
    void theSongOfThePlaylist();
    void aPlayOfAMovedSongIsKept();
    void aPlayOfADeletedSongWritesNothing();
    void deletingByKey_data();
    void deletingByKey();
    void importing();
    void importingWithoutAMusicDirectory();
    void theFileGoesToTheClipboard();
    void protectionByTheMenu();
    void theCacheByTheMenu();

private:
    SongManager *songs() const { return tarvelo->getSongManager(); }
    SongListPanel *right() const { return find<LibraryPage>("page1_MusicList")->songList(); }
    QString path(const QString &name) const { return music->filePath(name); }
    void makeCurrent(const QString &title);
    void registerPlay(const SongPtr &song);

    QStringList asked;
    QString choice;
};

namespace {

constexpr char nothingSelected[] = "Keine Musikdatei ausgewählt.";

} // namespace

void TestWindowSongFiles::init()
{
    prepareWindow();
    asked.clear();
    choice.clear();
    setSaveFileChooser([this](const QString &title, const QString &, const QString &) {
        asked.append(title);
        return choice;
    });
    setDirectoryChooser([this](const QString &title, const QString &) {
        asked.append(title);
        return choice;
    });
    setOpenFilesChooser([this](const QString &title, const QString &, const QString &) {
        asked.append(title);
        return QStringList(choice);
    });
    useLibrary();
}

void TestWindowSongFiles::cleanup()
{
    setSaveFileChooser({});
    setDirectoryChooser({});
    setOpenFilesChooser({});
    dropWindow();
}

void TestWindowSongFiles::makeCurrent(const QString &title)
{
    select(title);
    key(Qt::Key_Return);
    QCOMPARE(window->getCurrentSong()->getTitle(), title);
    window->showScreen(LibraryScreen);
}

// As the player does it when it was heard for long enough.
void TestWindowSongFiles::registerPlay(const SongPtr &song)
{
    PlayRegistration registration;
    registration.reset(song);
    registration.addPlayed(100'000'000);
    registration.registerWhenDue(song, 1.05);
}

void TestWindowSongFiles::withoutACurrentSong_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("copy") << int(Qt::Key_D);
    QTest::newRow("move") << int(Qt::Key_M);
}

void TestWindowSongFiles::withoutACurrentSong()
{
    QFETCH(int, code);
    start();
    select(u"Rocky Top"_s);
    key(code, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.at(0).text, QString::fromUtf8(nothingSelected));
    QVERIFY(asked.isEmpty());
}

void TestWindowSongFiles::theCopyIsInTheLibrary()
{
    start();
    makeCurrent(u"Rocky Top"_s);
    const SongPtr before = window->getCurrentSong();
    choice = path(u"copy"_s);
    key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(asked, QStringList(u"Datei kopieren nach"_s));
    QVERIFY(boxes.isEmpty());
    QCOMPARE(songs()->getSong(path(u"copy.mp3"_s))->getTitle(), u"Rocky Top"_s);
    QCOMPARE(window->getCurrentSong(), before);
    QCOMPARE(right()->model()->rowCount(), 5);
}

void TestWindowSongFiles::severalSongsByKeys()
{
    start();
    makeCurrent(u"Rocky Top"_s);
    const QTemporaryDir target;
    choice = target.path();
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.at(0).text, u"3 Dateien erfolgreich kopiert."_s);
    key(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(QDir(target.path()).mkdir(u"further"_s));
    choice = target.filePath(u"further"_s);
    // One copy and its song have the same name: the second of them stops it.
    key(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 2);
    QVERIFY(boxes.at(1).text.startsWith(u"Das Verschieben der Datei<br>"_s));
    int files = 0;
    for (const SongPtr &song : songs()->getSongs())
        files += QFile::exists(song->getFilename()) ? 1 : 0;
    QCOMPARE(files, 6);
}

// Whatever is done with it next reaches its file.
void TestWindowSongFiles::theMovedSongIsTheCurrentOne()
{
    start();
    makeCurrent(u"Rocky Top"_s);
    const SongPtr before = window->getCurrentSong();
    choice = path(u"moved.mp3"_s);
    window->showScreen(HelpScreen);
    key(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(window->currentScreen(), int(HelpScreen));
    QCOMPARE(asked, QStringList(u"Datei verschieben nach"_s));
    QVERIFY(boxes.isEmpty());
    const SongPtr moved = window->getCurrentSong();
    QVERIFY(moved != before);
    QCOMPARE(moved, songs()->getSong(choice));
    QCOMPARE(moved->getTitle(), u"Rocky Top"_s);
    QCOMPARE(right()->selection().song(), moved);
    QCOMPARE(window->getTempo(), -7);
    QVERIFY(!QFile::exists(before->getFilename()));
    QCOMPARE(right()->model()->rowCount(), 4);
    // A failure leaves it as it is.
    choice = path(u"1.mp3"_s);
    key(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(window->getCurrentSong(), moved);
}

void TestWindowSongFiles::theSongOfThePlaylist()
{
    start();
    const SongPtr wanted = songs()->getSong(path(u"3.mp3"_s));
    songs()->getTempList()->add(wanted->getFilename());
    songs()->updateAllLists();
    makeCurrent(u"Rocky Top"_s);
    key(Qt::Key_L);
    // The library is not on the right any more: the left list counts.
    right()->setList(songs()->getTempList());
    auto *left = find<SongListPanel>("framePlaylist");
    left->selection().select(wanted);
    choice = path(u"moved.mp3"_s);
    key(Qt::Key_M, Qt::ControlModifier);
    QVERIFY(boxes.isEmpty());
    QVERIFY(!songs()->getSong(wanted->getFilename()));
    QCOMPARE(songs()->getTempList()->songs().at(0)->getFilename(), choice);
    QCOMPARE(window->getCurrentSong()->getTitle(), u"Rocky Top"_s);
}

void TestWindowSongFiles::aPlayOfAMovedSongIsKept()
{
    start();
    makeCurrent(u"Rocky Top"_s);
    const SongPtr playing = window->getCurrentSong();
    const QString before = playing->getFilename();
    choice = path(u"moved.mp3"_s);
    key(Qt::Key_M, Qt::ControlModifier);
    registerPlay(playing);
    QVERIFY(!QFile::exists(before));
    const Song written(choice, false);
    QCOMPARE(written.getDanceEvents().count(), 1);
    QCOMPARE(written.getTempo(), 5.0);
    QCOMPARE(songs()->getSong(choice)->getDanceEvents().count(), 1);
}

void TestWindowSongFiles::aPlayOfADeletedSongWritesNothing()
{
    start();
    makeCurrent(u"Rocky Top"_s);
    const SongPtr playing = window->getCurrentSong();
    answer = QMessageBox::Yes;
    key(Qt::Key_Delete);
    QVERIFY(!QFile::exists(playing->getFilename()));
    // It goes on from what was decoded.
    QCOMPARE(window->getCurrentSong(), playing);
    QVERIFY(playing->getAudioData());
    {
        const LogCapture log;
        registerPlay(playing);
    }
    QVERIFY(!QFile::exists(playing->getFilename()));
    // Another file of this name is not written either.
    QVERIFY(QFile::copy(path(u"1.mp3"_s), playing->getFilename()));
    {
        const LogCapture log;
        registerPlay(playing);
    }
    QCOMPARE(Song(playing->getFilename(), false).getDanceEvents().count(), 0);
    key(Qt::Key_P);
    key(Qt::Key_S);
    window->showScreen(PositionsScreen);
}

void TestWindowSongFiles::deletingByKey_data()
{
    QTest::addColumn<bool>("yes");
    QTest::addColumn<bool>("all");
    QTest::newRow("one, no") << false << false;
    QTest::newRow("one, yes") << true << false;
    QTest::newRow("all, no") << false << true;
    QTest::newRow("all, yes") << true << true;
}

void TestWindowSongFiles::deletingByKey()
{
    QFETCH(bool, yes);
    QFETCH(bool, all);
    start();
    answer = yes ? QMessageBox::Yes : QMessageBox::No;
    select(u"Rocky Top"_s);
    if (all)
        key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.at(0).title, u"Frage ..."_s);
    const int left = !yes ? 3 : all ? 0 : 2;
    QCOMPARE(QDir(music->path()).entryList({u"*.mp3"_s}).size(), left);
    QCOMPARE(right()->model()->rowCount(), left + 1);
    QCOMPARE(QApplication::focusWidget(), window->centralWidget());
}

void TestWindowSongFiles::importing()
{
    start();
    choice = samples.filePath(u"a.mp3"_s);
    key(Qt::Key_I, Qt::AltModifier);
    QCOMPARE(asked, QStringList(u"Songs importieren"_s));
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.at(0).text.startsWith(u"Es wurde eine Datei in das Unterverzeichnis"_s));
    QVERIFY(songs()->getSong(path(u"Import/a.mp3"_s)));
    QCOMPARE(right()->model()->rowCount(), 5);
}

void TestWindowSongFiles::importingWithoutAMusicDirectory()
{
    start();
    Settings::setValue(Key::MusicDir, QString());
    key(Qt::Key_I, Qt::AltModifier);
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.at(0).text, u"Das Musikverzeichnis muss vorher festgelegt werden."_s);
    QCOMPARE(window->currentScreen(), int(SettingsScreen));
}

void TestWindowSongFiles::theFileGoesToTheClipboard()
{
    start();
    select(u"Rocky Top"_s);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.at(0).text.startsWith(u"Die Datei ist in die Windows Zwischenablage"_s));
    QCOMPARE(window->getCurrentSong()->getTitle(), u"Rocky Top"_s);
    QCOMPARE(QGuiApplication::clipboard()->mimeData()->urls(),
             QList<QUrl>{QUrl::fromLocalFile(path(u"2.mp3"_s))});
}

void TestWindowSongFiles::protectionByTheMenu()
{
    if (::geteuid() == 0)
        QSKIP("Root may write everything.");
    start();
    key(Qt::Key_A, Qt::ControlModifier);
    action(u"Schreibschutz aktivieren"_s)->trigger();
    for (const SongPtr &song : songs()->getSongs())
        QVERIFY(song->isReadonly() && !QFileInfo(song->getFilename()).isWritable());
    QCOMPARE(right()->selection().songs().size(), 3);
    action(u"Schreibschutz entfernen"_s)->trigger();
    for (const SongPtr &song : songs()->getSongs())
        QVERIFY(!song->isReadonly() && QFileInfo(song->getFilename()).isWritable());
    QVERIFY(boxes.isEmpty());
}

void TestWindowSongFiles::theCacheByTheMenu()
{
    start();
    select(u"Rocky Top"_s);
    action(u"Dateicache bereinigen"_s)->trigger();
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.at(0).text.startsWith(u"Der Cache für die Datei<br>"_s));
}

TARVELO_TEST_MAIN(TestWindowSongFiles, QApplication)
#include "tst_WindowSongFiles.moc"
