// How long the library's scan takes against TagLib alone on the same files.

#include "Bench.h"

#include <Library.h>
#include <Settings.h>
#include <Song.h>
#include <SongManager.h>
#include <SongStore.h>

#include <QDir>
#include <QGuiApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <fileref.h>
#include <id3v2tag.h>
#include <mpegfile.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int songsPerDirectory = 100;
constexpr int rounds = 3;

// Five seconds of music with the tag of a whole dance.
QString makeSong(const QString &directory)
{
    Demo::Score score = Demo::songs().constFirst();
    const QList<Demo::Part> parts = score.parts;
    score.path = u"song.mp3"_s;
    score.parts = parts.mid(0, 1);
    score.parts[0].chords = u"G"_s;
    if (const QString failure = Demo::writeLibrary(directory, {score}); !failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    Song song(QDir(directory).filePath(score.path), false);
    song.getPositions().clear();
    for (int i = 0; i < parts.size(); ++i)
        song.getPositions().insert(i, {i * 10000, parts.at(i).name, parts.at(i).steps});
    song.save();
    return song.getFilename();
}

QStringList copySong(const QString &song, const QDir &target, int count)
{
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString directory = u"Folder %1"_s.arg(i / songsPerDirectory);
        target.mkpath(directory);
        files.append(target.filePath(u"%1/Song %2.mp3"_s.arg(directory).arg(i)));
        QFile::copy(song, files.constLast());
    }
    return files;
}

// Every field and frame of every file, as text, and nothing kept.
qsizetype readBare(const QStringList &files)
{
    qsizetype size = 0;
    for (const QString &name : files) {
        TagLib::FileRef file(QFile::encodeName(name).constData(), true,
                             TagLib::AudioProperties::Average);
        if (file.isNull())
            continue;
        const TagLib::Tag *tag = file.tag();
        for (const TagLib::String &text :
             {tag->artist(), tag->album(), tag->comment(), tag->genre(), tag->title()})
            size += text.size();
        size += file.audioProperties()->lengthInSeconds();
        if (auto *mpeg = dynamic_cast<TagLib::MPEG::File *>(file.file()))
            for (const TagLib::ID3v2::Frame *frame : mpeg->ID3v2Tag()->frameList())
                size += frame->toString().size();
    }
    return size;
}

void scan(int expected)
{
    SongManager manager;
    manager.loadSongList();
    if (manager.getSongs().size() != expected)
        qFatal("The scan found %d songs.", int(manager.getSongs().size()));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const int count = Bench::count(1000);
    const QTemporaryDir home;
    // A store in the working directory: the user's own stays untouched.
    QDir::setCurrent(home.path());
    QFile(u"Tarvelo.ini"_s).open(QIODevice::WriteOnly);
    createSongStores();

    const QString song = makeSong(home.filePath(u"template"_s));
    const QStringList files = copySong(song, QDir(home.filePath(u"music"_s)), count);
    Settings::instance()->setValue(u"musicDir"_s, home.filePath(u"music"_s));
    Settings::instance()->setValue(u"cacheDir"_s, QString());

    readBare(files); // the page cache is warm for both
    const double bare = Bench::best(rounds, [&] { readBare(files); });
    const double tags = Bench::best(rounds, [&] { scan(count); });
    Bench::report("scan.songs", count);
    Bench::report("scan.bare_ms", bare);
    Bench::report("scan.tags_ms", tags);
    Bench::report("scan.ratio", tags / bare);
    destroySongStores();
}
