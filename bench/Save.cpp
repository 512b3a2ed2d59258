// How long a save takes against bare writes of the same bytes that wait for the disk as well.

#include "Bench.h"

#include <Library.h>
#include <Song.h>
#include <SongStore.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <id3v2tag.h>
#include <mpegfile.h>
#include <textidentificationframe.h>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Bench::check;

namespace {

constexpr qsizetype documentSize = 200 * 1024;
// More than any room that a tag of this size keeps, and less than what is taken back from it.
constexpr int growth = 200 * 1024;
constexpr qint64 songSize = 10 * 1024 * 1024;

// No two stretches of it are alike, as in a document that is packed already.
QByteArray makeDocument()
{
    QByteArray document = "%PDF-1.4\n";
    quint32 number = 1;
    while (document.size() < documentSize) {
        number = number * 1664525 + 1013904223;
        document.append(static_cast<char>(number >> 24));
    }
    return document;
}

void writeTag(const QString &path)
{
    TagLib::MPEG::File file(QFile::encodeName(path).constData());
    const QByteArray text = makeDocument().toBase64();
    auto *frame = new TagLib::ID3v2::UserTextIdentificationFrame(TagLib::String::Latin1);
    frame->setDescription("Cuesheet");
    frame->setText(TagLib::String(text.constData()));
    file.ID3v2Tag(true)->addFrame(frame);
    check(file.save(), "No tag with a choreography.");
}

// Music of ten megabytes: a demo song's frames again and again.
QString makeSong(const QString &directory)
{
    Demo::Score score = Demo::songs().constFirst();
    score.path = u"song.mp3"_s;
    if (const QString failure = Demo::writeLibrary(directory, {score}); !failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    QFile file(QDir(directory).filePath(score.path));
    if (!file.open(QIODevice::ReadWrite))
        qFatal("No demo song.");
    const QByteArray frames = file.readAll().right(100 * 1024);
    while (file.size() < songSize)
        file.write(frames);
    file.close();
    writeTag(file.fileName());
    return file.fileName();
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The first and one past the last byte that differ; of files of one length.
std::pair<qsizetype, qsizetype> changedPart(const QByteArray &before, const QByteArray &after)
{
    qsizetype first = 0;
    qsizetype last = after.size();
    while (first < last && before[first] == after[first])
        ++first;
    while (last > first && before[last - 1] == after[last - 1])
        --last;
    return {first, last};
}

void writeBare(const QString &path, int flags, const char *bytes, qsizetype size, qsizetype offset)
{
    const int file = open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0644);
    check(pwrite(file, bytes, size_t(size), offset) == size, "A bare write failed.");
    check(fsync(file) == 0, "A bare sync failed.");
    close(file);
}

// What has changed in the file is written over it, and nothing else.
void writeBareInPlace(const QString &path, const QByteArray &before, const QByteArray &after)
{
    const auto [first, last] = changedPart(before, after);
    writeBare(path, O_WRONLY, after.constData() + first, last - first, first);
}

// All of the file is written to a new one.
void writeBareWhole(const QString &path, const QByteArray &bytes)
{
    QFile::remove(path);
    writeBare(path, O_WRONLY | O_CREAT, bytes.constData(), bytes.size(), 0);
}

struct Times
{
    QList<double> saved;
    QList<double> bare;
    void report(const QByteArray &name) const
    {
        Bench::report((name + "_ms").constData(), Bench::median(saved));
        Bench::report((name + "_bare_ms").constData(), Bench::median(bare));
        Bench::report((name + ".ratio").constData(), Bench::median(saved) / Bench::median(bare));
    }
};

// A play is registered, as at each dance.
void measureInPlace(Song &song, const QString &twin, int rounds)
{
    Times times;
    writeBareWhole(twin, read(song.getFilename()));
    for (int round = 0; round < rounds; ++round) {
        const QByteArray before = read(song.getFilename());
        song.setTempo(round % 9 + 1);
        song.getDanceEvents().addPlay(song.getTempo());
        times.saved.append(Bench::once([&] { check(song.save(), "A save failed."); }));
        const QByteArray after = read(song.getFilename());
        check(after.size() == before.size(), "The save was not in place.");
        times.bare.append(Bench::once([&] { writeBareInPlace(twin, before, after); }));
    }
    times.report("save.inplace");
}

// Each round begins with the song as it was.
void measureGrowing(Song &song, const QString &twin, int rounds)
{
    Times times;
    for (int round = 0; round < rounds; ++round) {
        song.setComment(QString());
        check(song.save(), "A save failed.");
        const qint64 sizeBefore = QFileInfo(song.getFilename()).size();
        song.setComment(QString(growth, u'x'));
        times.saved.append(Bench::once([&] { check(song.save(), "A save failed."); }));
        const QByteArray after = read(song.getFilename());
        check(after.size() > sizeBefore, "The save did not grow.");
        QFile::remove(twin);
        times.bare.append(Bench::once([&] { writeBareWhole(twin, after); }));
    }
    times.report("save.grow");
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const int rounds = Bench::count(15);
    const QTemporaryDir home;
    // A store in the working directory, with the cache off: the user's own stays untouched.
    QDir::setCurrent(home.path());
    QFile preferences(u"Tarvelo.ini"_s);
    check(preferences.open(QIODevice::WriteOnly), "No preferences.");
    preferences.write("[General]\ncacheDir=\nmusicDir=" + QFile::encodeName(home.path()) + "\n");
    preferences.close();
    createSongStores();

    Song song(makeSong(home.path()), false);
    song.getDanceEvents().addPlay(0);
    check(song.save(), "The first save failed.");
    const QString twin = home.filePath(u"twin"_s);
    measureInPlace(song, twin, rounds);
    measureGrowing(song, twin, rounds);
    destroySongStores();
}
