#include "SaveLab.h"

#include "Samples.h"
#include "Song.h"
#include "SongFiles.h"
#include "SongStore.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSettings>
#include <QtTest>

#include <filesystem>

#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr char attributeName[] = "user.tarvelo.test";

void silence()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

QByteArray attributeOf(const QString &path)
{
    char value[64] = {};
    const auto size
        = getxattr(QFile::encodeName(path).constData(), attributeName, value, sizeof value);
    return size < 0 ? QByteArray() : QByteArray(value, static_cast<int>(size));
}

struct stat infoOf(const QString &path)
{
    struct stat info = {};
    stat(QFile::encodeName(path).constData(), &info);
    return info;
}

QByteArray apeTag()
{
    const QByteArray item = QByteArray("\x05\0\0\0\0\0\0\0Title\0first", 19);
    const auto block = [&](char kind) {
        return QByteArray("APETAGEX\xd0\x07\0\0", 12) + char(item.size() + 32)
               + QByteArray("\0\0\0\1\0\0\0\0\0\0", 10) + kind + QByteArray(8, 0);
    };
    return block('\xa0') + item + block('\x80');
}

QByteArray id3v1Tag()
{
    return QByteArray("TAGfirst").leftJustified(127, '\0') + '\x11';
}

void makePreferences(const QString &library)
{
    QSettings store(u"Tarvelo.ini"_s, QSettings::IniFormat);
    store.setValue(u"musicDir"_s, library);
    store.setValue(u"cacheDir"_s, QString());
}

} // namespace

SaveLab::SaveLab(Place place, SaveStates::Change change, Start start, const QString &suffix)
    : root(QDir::currentPath() + u"/lab"_s)
    , kind(change)
{
    qputenv("TMPDIR", QFile::encodeName(QDir::currentPath()) + "/tmp");
    QDir().mkpath(u"tmp"_s);
    build(place, start, suffix);
    if (!reason.isEmpty())
        return;
    makeOld(start);
    setxattr(QFile::encodeName(path).constData(), attributeName, "kept", 4, 0);
    if (!locked.isEmpty())
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner);
    keepWhatIsThere();
    makeNew();
    reset();
}

SaveLab::~SaveLab()
{
    if (!locked.isEmpty())
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir(root).removeRecursively();
}

void SaveLab::build(Place place, Start start, const QString &suffix)
{
    const bool isElsewhere = place == Place::Elsewhere || place == Place::SymbolicLink;
    const QDir home(root + (isElsewhere ? u"/other"_s : u"/music/band"_s));
    home.mkpath(u"."_s);
    library().mkpath(u"."_s);
    path = home.filePath(u"song."_s + suffix);
    makePreferences(library().path());
    if (suffix == u"mp3")
        SongFiles::tone(home);
    else if (!Samples::writeTone(path))
        reason = u"no encoder for "_s + suffix;
    if (start == Start::AllTags)
        write(path, read(path) + apeTag() + id3v1Tag());
    chmod(QFile::encodeName(path).constData(), 0640);
    if (place == Place::LockedDirectory || place == Place::LockedLibrary)
        locked = home.path();
    if (place == Place::LockedLibrary)
        makePreferences(home.path());
    if (!locked.isEmpty() && geteuid() == 0)
        reason = u"no directory is closed to root"_s;
    std::error_code error;
    const fs::path name = library().filePath(u"second.mp3"_s).toStdString();
    if (place == Place::HardLink)
        fs::create_hard_link(path.toStdString(), name, error);
    if (place == Place::SymbolicLink) {
        fs::create_symlink("../other/song.mp3", name, error);
        path = QString::fromStdString(name.string());
    }
    if (error)
        reason = u"no links on this file system"_s;
}

void SaveLab::makeOld(Start start)
{
    if (start != Start::Bare && !saveAs(1))
        reason = u"the first save failed"_s;
    before = read(path);
}

// The save is the same every time, so an undisturbed one shows what each has to bring.
void SaveLab::makeNew()
{
    TracedChild child(saving());
    while (child.step())
        ++stopCount;
    if (child.end() != TracedChild::End::True)
        reason = u"the undisturbed save failed"_s;
    after = read(path);
}

void SaveLab::keepWhatIsThere()
{
    infoBefore = infoOf(path);
    attribute = attributeOf(path);
    filesBefore = allFiles();
}

void SaveLab::reset()
{
    write(path, before);
}

std::shared_ptr<Song> SaveLab::changedSong() const
{
    silence();
    createSongStores();
    auto record = std::make_shared<Song>(path, false);
    SaveStates::put(*record, kind, 2);
    return record;
}

std::function<std::function<bool()>()> SaveLab::saving() const
{
    return [this] { return [record = changedSong()] { return record->save(); }; };
}

std::function<std::function<bool()>()> SaveLab::savingTwice() const
{
    return [this] {
        return [record = changedSong()] {
            record->save();
            getppid();
            return record->save();
        };
    };
}

bool SaveLab::saveAs(int number) const
{
    const auto work = [&] {
        silence();
        createSongStores();
        Song record(path, false);
        SaveStates::put(record, kind, number);
        return record.save();
    };
    return runInChild(work) == TracedChild::End::True;
}

std::function<std::function<bool()>()> SaveLab::recovering()
{
    return [] {
        silence();
        return [] {
            createSongStores();
            return true;
        };
    };
}

bool SaveLab::recover()
{
    return runInChild([] { return recovering()()(); }) == TracedChild::End::True;
}

QString SaveLab::complaint() const
{
    const QString ofBytes = complaintAboutBytes();
    return ofBytes.isEmpty() ? complaintAboutFile() : ofBytes;
}

QString SaveLab::complaintAboutBytes() const
{
    const QByteArray now = read(path);
    if (now == before || now == after)
        return {};
    const auto other = std::mismatch(now.begin(), now.end(), after.begin(), after.end()).first;
    return u"neither old nor new, %1 bytes (old %2, new %3), first byte not new %4"_s
        .arg(now.size())
        .arg(before.size())
        .arg(after.size())
        .arg(other - now.begin());
}

QString SaveLab::complaintUnlessNew() const
{
    return read(path) == after ? complaintAboutFile() : u"not the new state"_s;
}

QString SaveLab::complaintAboutFile() const
{
    const struct stat info = infoOf(path);
    if (info.st_mode != infoBefore.st_mode)
        return u"mode %1 in place of %2"_s.arg(info.st_mode, 0, 8).arg(infoBefore.st_mode, 0, 8);
    if (info.st_uid != infoBefore.st_uid || info.st_gid != infoBefore.st_gid)
        return u"another owner"_s;
    if (info.st_nlink != infoBefore.st_nlink)
        return u"%1 names in place of %2"_s.arg(info.st_nlink).arg(infoBefore.st_nlink);
    if (attributeOf(path) != attribute)
        return u"the extended attribute is lost"_s;
    const QStringList others = leftOvers();
    return others.isEmpty() ? QString() : u"other files than before: "_s + others.join(u", "_s);
}

QStringList SaveLab::leftOvers() const
{
    QStringList found;
    const QStringList now = allFiles();
    for (const QString &file : now)
        if (!filesBefore.contains(file))
            found.append(u"new "_s + file);
    for (const QString &file : filesBefore)
        if (!now.contains(file))
            found.append(u"gone "_s + file);
    return found;
}

// Directories don't count.
QStringList SaveLab::allFiles() const
{
    QStringList files;
    std::error_code error;
    for (const auto &entry :
         fs::recursive_directory_iterator(QDir::currentPath().toStdString(), error))
        if (!entry.is_directory())
            files.append(QString::fromStdString(entry.path().string()
                                                + (entry.is_symlink() ? " (link)" : "")));
    files.sort();
    return files;
}

QByteArray SaveLab::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SaveLab::write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return;
    file.write(bytes);
    file.resize(bytes.size());
}

void addSaveCases()
{
    using Change = SaveStates::Change;
    using Place = SaveLab::Place;
    using Start = SaveLab::Start;
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("start");
    const auto row = [](const char *name, Place place, Change change, Start start) {
        QTest::newRow(name) << int(place) << int(change) << int(start);
    };
    row("fits", Place::Library, Change::Fits, Start::Tagged);
    row("grows", Place::Library, Change::Grows, Start::Tagged);
    row("shrinks", Place::Library, Change::Shrinks, Start::Tagged);
    row("no tag before", Place::Library, Change::Fits, Start::Bare);
    row("fits, tags at the end", Place::Library, Change::Fits, Start::AllTags);
    row("grows, tags at the end", Place::Library, Change::Grows, Start::AllTags);
    row("fits, elsewhere", Place::Elsewhere, Change::Fits, Start::AllTags);
    row("grows, elsewhere", Place::Elsewhere, Change::Grows, Start::AllTags);
    row("fits, locked directory", Place::LockedDirectory, Change::Fits, Start::AllTags);
    row("grows, locked directory", Place::LockedDirectory, Change::Grows, Start::AllTags);
    row("shrinks, locked directory", Place::LockedDirectory, Change::Shrinks, Start::AllTags);
    row("fits, locked library", Place::LockedLibrary, Change::Fits, Start::Tagged);
    row("grows, locked library", Place::LockedLibrary, Change::Grows, Start::Tagged);
    row("fits, hard link", Place::HardLink, Change::Fits, Start::Tagged);
    row("grows, hard link", Place::HardLink, Change::Grows, Start::AllTags);
    row("fits, symbolic link", Place::SymbolicLink, Change::Fits, Start::Tagged);
    row("grows, symbolic link", Place::SymbolicLink, Change::Grows, Start::Tagged);
}

std::unique_ptr<SaveLab> labOfRow()
{
    QFETCH(int, place);
    QFETCH(int, change);
    QFETCH(int, start);
    return std::make_unique<SaveLab>(SaveLab::Place(place), SaveStates::Change(change),
                                     SaveLab::Start(start));
}

int strideOfStops(const SaveLab &lab, int few)
{
    return isShort() ? qMax(1, lab.stops() / few) : 1;
}

int firstStop(const SaveLab &lab, int few)
{
    return 1 + QRandomGenerator::global()->bounded(strideOfStops(lab, few));
}

int roundsToTry(int few)
{
    const int wanted = qEnvironmentVariableIntValue("TARVELO_KILLS");
    return wanted > 0 ? wanted : few;
}

bool isShort()
{
    return !qEnvironmentVariableIsSet("TARVELO_KILLS");
}
