#include "FileEdit.h"
#include "FilePieces.h"
#include "FileReplacement.h"
#include "FileSystem.h"
#include "PlatformFiles.h"
#include "SafeFile.h"
#include "SaveJournal.h"
#include "Settings.h"
#include "TestMain.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestSafeFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void piecesAreWhatAnEditGives();
    void placesAreKept_data();
    void placesAreKept();
    void editIsReadBack();
    void nothingIsWrittenWithoutCommit();
    void committed_data();
    void committed();
    void unchangedFileGetsThePresentTime();
    void attributesStay();
    void linkStays();
    void hardLinksStayOne();
    void readOnlyDirectory_data();
    void readOnlyDirectory();
    void readOnlyFileIsRefused();
    void foreignChangeIsRefused_data();
    void foreignChangeIsRefused();
    void journalLiesWithTheMusic();
    void noPlaceForAJournal();
    void cutOffChangeIsFinished_data();
    void cutOffChangeIsFinished();
    void unfinishedJournalChangesNothing();
    void journalOfAChangedFileIsDropped();
    void journalOfAMissingFileStays();
    void journalFindsTheMovedFile();
    void leftOverGoes();
    void leftOverOfAReplacement_data();
    void leftOverOfAReplacement();
    void journalOfAFileThatIsGoneForGood();
    void namesThatAreNoText();
    void replaced_data();
    void replaced();
    void replacingMakesTheFile();
    void replacingAnImpossiblePlaceFails();

private:
    QString path(const QString &name) const { return home->filePath(name); }
    QString dataPlace() const { return path(u"data/Tarvelo Soft/Tarvelo/saves"_s); }
    QString makeFile(const QByteArray &content, const QString &name = u"music/song.mp3"_s) const;
    static QByteArray contentOf(const QString &file);
    // Everything but the files given here; hidden ones too.
    QStringList leftOvers(const QStringList &expected) const;
    // A journal as a killed process leaves it.
    QString leaveJournal(const QString &file, const SaveJournal::Range &range,
                         const QByteArray &after) const;

    std::unique_ptr<QTemporaryDir> home;
};

void TestSafeFile::initTestCase()
{
    if (geteuid() == 0)
        QSKIP("Permissions mean nothing to root.");
}

void TestSafeFile::init()
{
    home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(home->path()).mkpath(u"music"_s));
    QDir::setCurrent(home->path());
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"data"_s)));
    Settings::setValue(Settings::Key::MusicDir, QString());
}

void TestSafeFile::cleanup()
{
    QFile::setPermissions(path(u"music"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::setPermissions(path(u"data"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Settings::remove(Settings::Key::MusicDir);
}

QString TestSafeFile::makeFile(const QByteArray &content, const QString &name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("The sample can't be written.");
    return file.fileName();
}

QByteArray TestSafeFile::contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QStringList TestSafeFile::leftOvers(const QStringList &expected) const
{
    QStringList found;
    for (const QString &place : {path(u"music"_s), dataPlace()})
        for (const QString &name : QDir(place).entryList(QDir::Files | QDir::Hidden))
            // An open file that was removed, on some mounts.
            if (!name.startsWith(u".fuse_hidden"))
                found.append(name);
    for (const QString &name : expected)
        found.removeAll(name);
    return found;
}

QString TestSafeFile::leaveJournal(const QString &file, const SaveJournal::Range &range,
                                   const QByteArray &after) const
{
    const QByteArray before = contentOf(file);
    const auto newSize = before.size() - range.oldLength + range.newLength;
    const auto journal = SaveJournal::create(
        {file, before.size(), newSize, {range}},
        [&](qint64 offset, qint64 length) { return before.mid(offset, length); },
        [&](qint64 offset, qint64 length) { return after.mid(offset - range.offset, length); });
    const QStringList found = leftOvers({u"song.mp3"_s});
    if (!journal || found.size() != 1)
        qFatal("There is no journal.");
    return found.constFirst();
}

// The table of pieces against the same edits of the bytes themselves.
void TestSafeFile::piecesAreWhatAnEditGives()
{
    QRandomGenerator random(20261121);
    for (int round = 0; round < 200; ++round) {
        QByteArray expected(random.bounded(300), '\0');
        for (char &byte : expected)
            byte = char(random.bounded(256));
        const QString file = makeFile(expected);
        FileEdit edit(file, FileEdit::Access::Write);
        for (int change = 0; change < 20; ++change) {
            const int start = random.bounded(400);
            const int length = random.bounded(60);
            const QByteArray bytes(random.bounded(60), char(random.bounded(256)));
            edit.replace(start, length, bytes);
            if (start > expected.size())
                expected.append(start - expected.size(), '\0');
            expected.replace(start, length, bytes);
            QCOMPARE(edit.size(), expected.size());
            const int from = random.bounded(400);
            QCOMPARE(edit.read(from, 80), expected.mid(from, 80));
        }
        QVERIFY(edit.commit());
        QCOMPARE(contentOf(file), expected);
    }
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::placesAreKept_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("kept");
    QTest::newRow("as many") << 10 << 3 << QByteArray("abc") << true;
    QTest::newRow("the last") << 97 << 3 << QByteArray("abc") << true;
    QTest::newRow("more") << 10 << 2 << QByteArray("abc") << false;
    QTest::newRow("fewer") << 10 << 4 << QByteArray("abc") << false;
    QTest::newRow("longer at the end") << 98 << 3 << QByteArray("abc") << false;
    QTest::newRow("shorter at the end") << 90 << 10 << QByteArray("abc") << false;
    QTest::newRow("nothing") << 10 << 0 << QByteArray() << true;
}

void TestSafeFile::placesAreKept()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QByteArray, bytes);
    FilePieces pieces(100);
    pieces.replace(start, length, bytes);
    QTEST(pieces.keepPlaces(), "kept");
}

void TestSafeFile::editIsReadBack()
{
    FileEdit edit(makeFile("0123456789"), FileEdit::Access::Read);
    QVERIFY(edit.isOpen());
    QVERIFY(!edit.isWritable());
    edit.replace(3, 2, "abc");
    QCOMPARE(edit.read(0, 100), QByteArray("012abc56789"));
    QCOMPARE(edit.read(4, 3), QByteArray("bc5"));
    QCOMPARE(edit.read(11, 3), QByteArray());
    edit.resize(4);
    QCOMPARE(edit.read(0, 100), QByteArray("012a"));
    QVERIFY(!edit.commit());
    QVERIFY(!FileEdit(path(u"missing"_s), FileEdit::Access::Read).isOpen());
    QVERIFY(!FileEdit(path(u"missing"_s), FileEdit::Access::Write).isOpen());
    QVERIFY(!QFile::exists(path(u"missing"_s)));
}

void TestSafeFile::nothingIsWrittenWithoutCommit()
{
    const QString file = makeFile("old");
    {
        FileEdit edit(file, FileEdit::Access::Write);
        edit.replace(0, 3, "newer");
    }
    QCOMPARE(contentOf(file), QByteArray("old"));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::committed_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("in place") << 100 << 5 << QByteArray("abcde") << true;
    QTest::newRow("grows") << 100 << 5 << QByteArray(10000, 'x') << false;
    QTest::newRow("shrinks") << 100 << 50 << QByteArray("abcde") << false;
    QTest::newRow("grows at the end") << 3000000 << 0 << QByteArray("abcde") << false;
}

void TestSafeFile::committed()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, inPlace);
    // More than one block of a copy.
    QByteArray expected(3'000'000, 'm');
    const QString file = makeFile(expected);
    // A file system's clock stands still for some milliseconds.
    QFile made(file);
    QVERIFY(made.open(QIODevice::ReadWrite));
    QVERIFY(Platform::setFileTime(made, QDateTime::currentDateTime().addSecs(-3600)));
    made.close();
    const auto before = Platform::fileState(file);
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(start, length, bytes);
    QVERIFY(edit.commit());
    expected.replace(start, length, bytes);
    QVERIFY(contentOf(file) == expected);
    QCOMPARE(Platform::fileState(file)->isSameFile(*before), inPlace);
    // Some file systems count in seconds, or in twos of them.
    const bool isCoarse = before->modified % 1'000'000'000 == 0;
    QVERIFY(isCoarse || Platform::fileState(file)->modified > before->modified);
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::unchangedFileGetsThePresentTime()
{
    const QString file = makeFile("music");
    QFile old(file);
    QVERIFY(old.open(QIODevice::ReadWrite));
    const QDateTime longAgo = QDateTime::currentDateTime().addDays(-3);
    QVERIFY(Platform::setFileTime(old, longAgo));
    old.close();
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(0, 5, "music");
    QVERIFY(edit.commit());
    QVERIFY(QFileInfo(file).lastModified() > longAgo.addDays(2));
}

void TestSafeFile::attributesStay()
{
    const QString file = makeFile("music");
    const QByteArray name = QFile::encodeName(file);
    QCOMPARE(chmod(name.constData(), 0640), 0);
    if (setxattr(name.constData(), "user.tarvelo", "kept", 4, 0) != 0)
        QSKIP("This file system has no extended attributes.");
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(0, 0, "tag");
    QVERIFY(edit.commit());
    QCOMPARE(contentOf(file), QByteArray("tagmusic"));
    struct stat found
    { };
    QCOMPARE(stat(name.constData(), &found), 0);
    QCOMPARE(found.st_mode & 07777, mode_t(0640));
    char value[4] = {};
    QCOMPARE(getxattr(name.constData(), "user.tarvelo", value, 4), ssize_t(4));
    QCOMPARE(QByteArray(value, 4), QByteArray("kept"));
}

void TestSafeFile::linkStays()
{
    if (!FileSystem::hasLinks(QDir::tempPath()))
        QSKIP("This file system has no links.");
    const QString file = makeFile("music");
    QVERIFY(QFile::link(file, path(u"link.mp3"_s)));
    FileEdit edit(path(u"link.mp3"_s), FileEdit::Access::Write);
    edit.replace(0, 0, "tag");
    QVERIFY(edit.commit());
    QVERIFY(QFileInfo(path(u"link.mp3"_s)).isSymLink());
    QCOMPARE(contentOf(file), QByteArray("tagmusic"));
}

void TestSafeFile::hardLinksStayOne()
{
    const QString file = makeFile("music");
    const QString second = path(u"second.mp3"_s);
    if (::link(QFile::encodeName(file).constData(), QFile::encodeName(second).constData()) != 0)
        QSKIP("This file system has no hard links.");
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(0, 0, "tag");
    QVERIFY(edit.commit());
    QCOMPARE(contentOf(second), QByteArray("tagmusic"));
    QVERIFY(Platform::fileState(second)->isSameFile(*Platform::fileState(file)));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::readOnlyDirectory_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("in place") << QByteArray("TAG");
    QTest::newRow("grows") << QByteArray(5000, 'T');
    QTest::newRow("shrinks") << QByteArray();
}

void TestSafeFile::readOnlyDirectory()
{
    QFETCH(QByteArray, bytes);
    const QString file = makeFile("tagmusic");
    QVERIFY(QFile::setPermissions(path(u"music"_s), QFile::ReadOwner | QFile::ExeOwner));
    if (QFileInfo(path(u"music"_s)).isWritable())
        QSKIP("This file system has no read-only directories.");
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(0, 3, bytes);
    QVERIFY(edit.commit());
    QCOMPARE(contentOf(file), bytes + "music");
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::readOnlyFileIsRefused()
{
    if (!FileSystem::hasModes(QDir::tempPath()))
        QSKIP("This file system has no modes.");
    const QString file = makeFile("music");
    QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    FileEdit edit(file, FileEdit::Access::Write);
    QVERIFY(!edit.isWritable());
    edit.replace(0, 0, "tag");
    QVERIFY(!edit.commit());
    QVERIFY(!SafeFile::replace(file, "new", SafeFile::Durability::Synced));
    QCOMPARE(contentOf(file), QByteArray("music"));
}

void TestSafeFile::foreignChangeIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("in place") << QByteArray("TAG");
    QTest::newRow("grows") << QByteArray("longer");
}

void TestSafeFile::foreignChangeIsRefused()
{
    QFETCH(QByteArray, bytes);
    const QString file = makeFile("tagmusic");
    FileEdit replaced(file, FileEdit::Access::Write);
    replaced.replace(0, 3, bytes);
    QVERIFY(QFile::remove(file));
    QVERIFY(!replaced.commit());
    QVERIFY(!QFile::exists(file));

    makeFile("tagmusic");
    FileEdit removed(file, FileEdit::Access::Write);
    removed.replace(0, 3, bytes);
    makeFile("foreign", u"music/other"_s);
    QVERIFY(Platform::renameOver(path(u"music/other"_s), file));
    QVERIFY(!removed.commit());
    QCOMPARE(contentOf(file), QByteArray("foreign"));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::journalLiesWithTheMusic()
{
    const QString file = makeFile("tagmusic");
    leaveJournal(file, {0, 3, 3}, "TAG");
    QCOMPARE(QDir(dataPlace()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    SafeFile::recover();
    Settings::setValue(Settings::Key::MusicDir, path(u"music"_s));
    leaveJournal(file, {0, 3, 3}, "tag");
    QCOMPARE(QDir(dataPlace()).entryList(QDir::Files | QDir::Hidden).size(), 0);
    QCOMPARE(contentOf(file), QByteArray("TAGmusic"));
    SafeFile::recover();
    QCOMPARE(contentOf(file), QByteArray("tagmusic"));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

// A change in place that nobody could finish is none: the file is replaced then.
void TestSafeFile::noPlaceForAJournal()
{
    if (!FileSystem::hasModes(QDir::tempPath()))
        QSKIP("This file system has no modes.");
    const QString file = makeFile("tagmusic");
    QVERIFY(QDir().mkpath(path(u"data"_s)));
    QVERIFY(QFile::setPermissions(path(u"data"_s), QFile::ReadOwner | QFile::ExeOwner));
    const auto before = Platform::fileState(file);
    FileEdit edit(file, FileEdit::Access::Write);
    edit.replace(0, 3, "TAG");
    QVERIFY(edit.commit());
    QCOMPARE(contentOf(file), QByteArray("TAGmusic"));
    QVERIFY(!Platform::fileState(file)->isSameFile(*before));
}

void TestSafeFile::cutOffChangeIsFinished_data()
{
    QTest::addColumn<QByteArray>("found");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("nothing written") << QByteArray("tagmusic") << QByteArray("NEW");
    QTest::newRow("half written") << QByteArray("NEgmusic") << QByteArray("NEW");
    QTest::newRow("all written") << QByteArray("NEWmusic") << QByteArray("NEW");
    QTest::newRow("longer") << QByteArray("NEWTAGic\0", 9) << QByteArray("NEWTAGmusic");
    QTest::newRow("shorter") << QByteArray("musicsic") << QByteArray("music");
}

void TestSafeFile::cutOffChangeIsFinished()
{
    QFETCH(QByteArray, found);
    QFETCH(QByteArray, after);
    const QString file = makeFile("tagmusic");
    const bool inPlace = after.size() == 3;
    leaveJournal(file, {0, inPlace ? 3 : 8, after.size()}, after);
    makeFile(found);
    SafeFile::recover();
    QCOMPARE(contentOf(file), inPlace ? after + "music" : after);
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::unfinishedJournalChangesNothing()
{
    const QString file = makeFile("tagmusic");
    QFile journal(dataPlace() + u'/' + leaveJournal(file, {0, 3, 3}, "NEW"));
    QVERIFY(journal.open(QIODevice::ReadWrite));
    const QByteArray whole = journal.readAll();
    journal.close();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QVERIFY(journal.open(QIODevice::WriteOnly));
        journal.write(whole.first(length));
        journal.close();
        SafeFile::recover();
        QCOMPARE(contentOf(file), QByteArray("tagmusic"));
        QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
    }
}

void TestSafeFile::journalOfAChangedFileIsDropped()
{
    const QString file = makeFile("tagmusic");
    leaveJournal(file, {0, 3, 3}, "NEW");
    makeFile("XXXmusic");
    SafeFile::recover();
    QCOMPARE(contentOf(file), QByteArray("XXXmusic"));
    leaveJournal(file, {0, 3, 3}, "NEW");
    makeFile("XXXmusic and more");
    SafeFile::recover();
    QCOMPARE(contentOf(file), QByteArray("XXXmusic and more"));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

// The drive may be back tomorrow.
void TestSafeFile::journalOfAMissingFileStays()
{
    const QString file = makeFile("tagmusic");
    const QString journal = leaveJournal(file, {0, 3, 3}, "NEW");
    QVERIFY(QFile::rename(file, path(u"away"_s)));
    SafeFile::recover();
    QCOMPARE(leftOvers({}), QStringList(journal));
    QVERIFY(QFile::rename(path(u"away"_s), file));
    SafeFile::recover();
    QCOMPARE(contentOf(file), QByteArray("NEWmusic"));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
}

void TestSafeFile::journalFindsTheMovedFile()
{
    Settings::setValue(Settings::Key::MusicDir, path(u"music"_s));
    leaveJournal(makeFile("tagmusic"), {0, 3, 3}, "NEW");
    QVERIFY(QDir().rename(path(u"music"_s), path(u"moved"_s)));
    SafeFile::recoverIn(path(u"moved"_s));
    QCOMPARE(contentOf(path(u"moved/song.mp3"_s)), QByteArray("NEWmusic"));
    QCOMPARE(QDir(path(u"moved"_s)).entryList(QDir::Files | QDir::Hidden),
             QStringList(u"song.mp3"_s));
}

// A note that doesn't tell what it is about never costs a file.
void TestSafeFile::leftOverGoes()
{
    makeFile("tagmusic");
    makeFile("", u"music/.tarvelo-a.replacement"_s);
    makeFile("nonsense", u"music/.tarvelo-b.replacement"_s);
    makeFile("nonsense", u"music/.tarvelo-c.journal"_s);
    SafeFile::recoverIn(path(u"music"_s));
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
    QCOMPARE(contentOf(path(u"music/song.mp3"_s)), QByteArray("tagmusic"));
}

void TestSafeFile::leftOverOfAReplacement_data()
{
    QTest::addColumn<bool>("begun");
    QTest::addColumn<QByteArray>("song");
    QTest::addColumn<QByteArray>("leftOver");
    QTest::addColumn<bool>("stays");
    const QByteArray old = "tagmusic";
    QTest::newRow("half written") << false << old << QByteArray("tag") << false;
    QTest::newRow("not exchanged") << true << old << QByteArray("longer tag and music") << false;
    QTest::newRow("exchanged") << true << QByteArray("longer tag and music") << old << false;
    QTest::newRow("another program's")
        << true << QByteArray("longer tag and music") << QByteArray("theirs, not ours") << true;
}

// As on a disk that was mounted anew: every file has another number.
void TestSafeFile::leftOverOfAReplacement()
{
    QFETCH(bool, begun);
    QFETCH(QByteArray, leftOver);
    QFETCH(QByteArray, song);
    Settings::setValue(Settings::Key::MusicDir, path(u"music"_s));
    const QString file = makeFile("tagmusic");
    QString note;
    QByteArray told;
    QString newer;
    {
        const auto replacement = FileReplacement::create(file);
        QVERIFY(replacement);
        newer = replacement->file().fileName();
        note = leftOvers({u"song.mp3"_s, QFileInfo(newer).fileName()}).value(0);
        told = contentOf(path(u"music/"_s + note));
    }
    QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
    makeFile(told + (begun ? "!" : ""), u"music/"_s + note);
    makeFile(leftOver, u"music/"_s + QFileInfo(newer).fileName());
    makeFile(song);
    SafeFile::recover();
    QCOMPARE(contentOf(file), song);
    QFETCH(bool, stays);
    QCOMPARE(leftOvers({u"song.mp3"_s}),
             stays ? QStringList(QFileInfo(newer).fileName()) : QStringList());
}

void TestSafeFile::journalOfAFileThatIsGoneForGood()
{
    const QString file = makeFile("tagmusic");
    QFile journal(dataPlace() + u'/' + leaveJournal(file, {0, 3, 3}, "NEW"));
    QVERIFY(QFile::remove(file));
    QVERIFY(journal.open(QIODevice::ReadWrite));
    const QDateTime longAgo = QDateTime::currentDateTime().addDays(-40);
    QVERIFY(Platform::setFileTime(journal, longAgo));
    journal.close();
    SafeFile::recover();
    QCOMPARE(leftOvers({}), QStringList());
}

// Behind a link can lie a directory whose name was written by an older system.
void TestSafeFile::namesThatAreNoText()
{
    const QByteArray directory = QFile::encodeName(home->path()) + "/M\xfcsik";
    if (mkdir(directory.constData(), 0755) != 0)
        QSKIP("This file system takes no such names.");
    QCOMPARE(symlink(directory.constData(), QFile::encodeName(path(u"link"_s)).constData()), 0);
    const QString file = makeFile("tagmusic", u"link/song.mp3"_s);
    for (const QByteArray &bytes : {QByteArray("TAG"), QByteArray("longer"), QByteArray()}) {
        FileEdit edit(file, FileEdit::Access::Write);
        edit.replace(0, edit.size() - 5, bytes);
        QVERIFY(edit.commit());
        QCOMPARE(contentOf(file), bytes + "music");
    }
}

void TestSafeFile::replaced_data()
{
    QTest::addColumn<SafeFile::Durability>("durability");
    QTest::newRow("synced") << SafeFile::Durability::Synced;
    QTest::newRow("unsynced") << SafeFile::Durability::Unsynced;
}

void TestSafeFile::replaced()
{
    QFETCH(SafeFile::Durability, durability);
    for (const char *content : {"longer than before", "short", "", "again"}) {
        const QString file = makeFile("before");
        QVERIFY(SafeFile::replace(file, content, durability));
        QCOMPARE(contentOf(file), QByteArray(content));
        QCOMPARE(leftOvers({u"song.mp3"_s}), QStringList());
    }
}

void TestSafeFile::replacingMakesTheFile()
{
    const QString file = path(u"music/new"_s);
    QVERIFY(SafeFile::replace(file, "one", SafeFile::Durability::Unsynced));
    QCOMPARE(contentOf(file), QByteArray("one"));
    QVERIFY(QFile::remove(file));
    QVERIFY(SafeFile::replace(file, "two", SafeFile::Durability::Synced));
    QCOMPARE(contentOf(file), QByteArray("two"));
    QCOMPARE(leftOvers({u"new"_s}), QStringList());
}

void TestSafeFile::replacingAnImpossiblePlaceFails()
{
    using enum SafeFile::Durability;
    QVERIFY(!SafeFile::replace(path(u"no such place/file"_s), "one", Synced));
    QVERIFY(!SafeFile::replace(path(u"no such place/file"_s), "one", Unsynced));
    QVERIFY(!SafeFile::replace(path(u"music"_s), "one", Synced));
    QVERIFY(!SafeFile::replace(path(u"music"_s), "one", Unsynced));
    QCOMPARE(leftOvers({}), QStringList());
}

TARVELO_TEST_MAIN(TestSafeFile, QCoreApplication)
#include "tst_SafeFile.moc"
