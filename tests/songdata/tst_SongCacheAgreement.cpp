// A song from its cache file shows what the song from its tag shows: for every song there is.

#include "PlatformFiles.h"
#include "Settings.h"
#include "Song.h"
#include "SongFiles.h"
#include "SongStore.h"
#include "TestMain.h"

#include <Library.h>

#include <QDirIterator>
#include <QGuiApplication>

class TestSongCacheAgreement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void inTheCorpus();
    void inTheDemoLibrary();

private:
    // The number of songs below the directory that were compared.
    static void setAnHourBack(const QString &library);
    static int compare(const QString &directory);

    QTemporaryDir cache;
};

void TestSongCacheAgreement::init()
{
    Settings::setValue(Settings::Key::CacheDir, cache.path());
    createSongStores();
}

void TestSongCacheAgreement::cleanup()
{
    destroySongStores();
    Settings::remove(Settings::Key::CacheDir);
}

// A cache file counts only where it is newer than the song, by the file system's coarse clock.
void TestSongCacheAgreement::setAnHourBack(const QString &library)
{
    QDirIterator songs(library, {u"*.mp3"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (songs.hasNext()) {
        QFile song(songs.next());
        QVERIFY(song.open(QIODevice::ReadWrite));
        QVERIFY(Platform::setFileTime(song, QDateTime::currentDateTime().addSecs(-3600)));
    }
}

int TestSongCacheAgreement::compare(const QString &directory)
{
    int compared = 0;
    QDirIterator entries(directory, {u"*.mp3"_qs, u"*.m4a"_qs, u"*.flac"_qs, u"*.ogg"_qs},
                         QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const Song fromTags(path, false);
        // Nothing delivered it.
        if (fromTags.getRating() < 0 && fromTags.getYear().isEmpty())
            continue;
        const Song fromCache(path, false);
        if (fromTags.isCached() || !fromCache.isCached()
            || SongFiles::fieldsOf(fromCache) != SongFiles::fieldsOf(fromTags)) {
            qWarning() << path << SongFiles::fieldsOf(fromCache) << SongFiles::fieldsOf(fromTags);
            return 0;
        }
        ++compared;
    }
    return compared;
}

void TestSongCacheAgreement::inTheCorpus()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
    const int compared = compare(corpusDirectory());
    QVERIFY(compared > 0);
    qInfo("%d files compared", compared);
}

void TestSongCacheAgreement::inTheDemoLibrary()
{
    QTemporaryDir library;
    QCOMPARE(Demo::writeLibrary(library.path(), Demo::songs()), QString());
    setAnHourBack(library.path());
    QCOMPARE(compare(library.path()), static_cast<int>(Demo::songs().size()));
}

TARVELO_TEST_MAIN(TestSongCacheAgreement, QGuiApplication)
#include "tst_SongCacheAgreement.moc"
