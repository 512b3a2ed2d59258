#include "SaveLab.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Saves on a disk with no room or little: it stays as it was, or becomes what was saved.
class TestSongFullDisk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aSaveIsWholeOrNotAtAll_data();
    void aSaveIsWholeOrNotAtAll();
    void aReadOnlyDiskIsNotHarmed_data();
    void aReadOnlyDiskIsNotHarmed();

private:
    QString home;
    QString disk;
};

namespace {

constexpr int page = 4096;

bool writeText(const char *path, const QByteArray &text)
{
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool done = file >= 0 && ::write(file, text.constData(), size_t(text.size())) >= 0;
    ::close(file);
    return done;
}

// Mounts of this process alone, as an ordinary user may have them; before there are threads.
bool takeOwnMounts()
{
    const QByteArray user = QByteArray::number(getuid());
    const QByteArray group = QByteArray::number(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    writeText("/proc/self/setgroups", "deny");
    return writeText("/proc/self/uid_map", user + ' ' + user + " 1")
           && writeText("/proc/self/gid_map", group + ' ' + group + " 1")
           && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool hasOwnMounts = false;

// Takes all room of the disk but for this many pages.
class Ballast
{
public:
    Ballast(const QString &path, int pagesLeft)
        : file(path)
    {
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return;
        const QByteArray block(page, 'x');
        while (file.write(block) == page) { }
        file.resize(qMax(qint64(0), file.size() / page - pagesLeft) * page);
    }
    ~Ballast() { file.remove(); }

private:
    QFile file;
};

} // namespace

void TestSongFullDisk::initTestCase()
{
    if (!hasOwnMounts)
        QSKIP("This user can't mount anything, not even for himself.");
    home = QDir::currentPath();
    disk = home + u"/disk"_s;
    QDir().mkpath(disk);
    // What the encoder makes for all rounds is no matter of the disk.
    SongFiles::tone(QDir(home));
}

// Three megabytes, and the program's own data there as well or on another disk.
void TestSongFullDisk::init()
{
    QVERIFY(mount("none", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=3m") == 0);
    QDir::setCurrent(disk);
}

void TestSongFullDisk::cleanup()
{
    QDir::setCurrent(home);
    QVERIFY(umount(QFile::encodeName(disk).constData()) == 0);
}

void TestSongFullDisk::aSaveIsWholeOrNotAtAll_data()
{
    using Change = SaveStates::Change;
    using Place = SaveLab::Place;
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("start");
    QTest::addColumn<bool>("dataThere");
    const auto row
        = [](const char *name, Place place, Change change, SaveLab::Start start, bool dataThere) {
              QTest::newRow(name) << int(place) << int(change) << int(start) << dataThere;
          };
    row("fits", Place::Library, Change::Fits, SaveLab::Start::AllTags, true);
    row("grows", Place::Library, Change::Grows, SaveLab::Start::AllTags, true);
    row("shrinks", Place::Library, Change::Shrinks, SaveLab::Start::AllTags, true);
    row("no tag before", Place::Library, Change::Fits, SaveLab::Start::Bare, true);
    row("fits, elsewhere", Place::Elsewhere, Change::Fits, SaveLab::Start::AllTags, true);
    row("grows, elsewhere", Place::Elsewhere, Change::Grows, SaveLab::Start::AllTags, true);
    row("fits, data elsewhere", Place::Elsewhere, Change::Fits, SaveLab::Start::AllTags, false);
    row("grows, data elsewhere", Place::Elsewhere, Change::Grows, SaveLab::Start::AllTags, false);
    row("grows, hard link", Place::HardLink, Change::Grows, SaveLab::Start::AllTags, true);
}

void TestSongFullDisk::aSaveIsWholeOrNotAtAll()
{
    QFETCH(bool, dataThere);
    const QString data = (dataThere ? disk : home) + u"/data"_s;
    qputenv("XDG_DATA_HOME", QFile::encodeName(data));
    LAB_OF_ROW(lab);
    int saved = 0;
    int failed = 0;
    for (int pages = 0; pages < 180; pages += 1 + pages / 4) {
        lab->reset();
        auto ballast = std::make_unique<Ballast>(disk + u"/ballast"_s, pages);
        const auto end = runInChild([&] { return lab->saving()()(); });
        QVERIFY(end != TracedChild::End::Crashed);
        const bool isNew = SaveLab::read(lab->song()) == lab->newBytes();
        const QString atOnce = lab->complaintAboutBytes();
        QVERIFY2(atOnce.isEmpty(), qPrintable(u"%1 pages left: "_s.arg(pages) + atOnce));
        QCOMPARE(end == TracedChild::End::True, isNew);
        QVERIFY(SaveLab::recover());
        ballast.reset();
        QVERIFY(SaveLab::recover());
        const QString complaint = isNew ? lab->complaintUnlessNew() : lab->complaint();
        QVERIFY2(complaint.isEmpty(), qPrintable(u"%1 pages left: "_s.arg(pages) + complaint));
        isNew ? ++saved : ++failed;
    }
    QVERIFY(saved > 0);
    qInfo("%d saved, %d had no room", saved, failed);
}

void TestSongFullDisk::aReadOnlyDiskIsNotHarmed_data()
{
    QTest::addColumn<bool>("wasLoadedBefore");
    QTest::newRow("all the time") << false;
    QTest::newRow("since it was loaded") << true;
}

void TestSongFullDisk::aReadOnlyDiskIsNotHarmed()
{
    QFETCH(bool, wasLoadedBefore);
    SaveLab lab(SaveLab::Place::Library, SaveStates::Change::Grows, SaveLab::Start::AllTags);
    const QByteArray point = QFile::encodeName(disk);
    const auto protect = [&] {
        return mount("none", point.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    };
    const auto work = [&] {
        if (wasLoadedBefore) {
            const auto save = lab.saving()();
            return protect() && !save();
        }
        return protect() && !lab.saving()()();
    };
    QCOMPARE(runInChild(work), TracedChild::End::True);
    QVERIFY(SaveLab::read(lab.song()) == lab.oldBytes());
    QVERIFY(mount("none", point.constData(), "tmpfs", MS_REMOUNT, nullptr) == 0);
    QVERIFY(SaveLab::recover());
    QCOMPARE(lab.complaint(), QString());
    QVERIFY(SaveLab::read(lab.song()) == lab.oldBytes());
}

int main(int argc, char *argv[])
{
    hasOwnMounts = takeOwnMounts();
    TestHome home;
    QCoreApplication application(argc, argv);
    TestSongFullDisk test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SongFullDisk.moc"
