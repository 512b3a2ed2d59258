#include "Samples.h"
#include "SaveLab.h"
#include "SongAudioDataQt.h"
#include "TestMain.h"

#include <QAudioFormat>
#include <QCoreApplication>
#include <QProcess>
#include <QSettings>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// Somebody reads the song while it is saved again and again: the music is always whole.
class TestSongSaveReaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyReaderFindsTheMusic_data() { addChanges(); }
    void everyReaderFindsTheMusic();
    void theDecoderHearsNothingOfIt_data() { addChanges(); }
    void theDecoderHearsNothingOfIt();

private:
    static void addChanges();
    void startSaving();
    int countSaves();

    std::unique_ptr<QTemporaryDir> directory;
    QString path;
    QProcess saver;
    int saves = 0;
};

namespace {

// Slowly, in many pieces, as a player does.
QByteArray readInPieces(const QString &path)
{
    QFile file(path);
    QByteArray all;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return all;
    for (;;) {
        const QByteArray piece = file.read(8192);
        if (piece.isEmpty())
            return all;
        all.append(piece);
    }
}

// What lies between the place that the tag's header names and the ID3v1 tag.
QByteArray musicIn(const QByteArray &file)
{
    if (!file.startsWith("ID3"))
        return file;
    qsizetype size = 0;
    for (int i = 6; i < 10; ++i)
        size = size << 7 | (file.at(i) & 0x7f);
    const QByteArray rest = file.mid(10 + size);
    return rest.right(128).startsWith("TAG") ? rest.chopped(128) : rest;
}

QByteArray decoded(const QString &path)
{
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(44100);
    format.setChannelCount(2);
    SongAudioDataQt audio;
    audio.decode(path, format);
    QSignalSpy ended(&audio, &SongAudioData::decodingEnded);
    if (audio.isGrowing() && !ended.wait(20000))
        return {};
    QByteArray samples;
    for (int i = 0; i < audio.count(); ++i)
        samples.append(audio.at(i)->constData<char>(), audio.at(i)->byteCount());
    return samples;
}

} // namespace

void TestSongSaveReaders::addChanges()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"fits", "grows", "shrinks"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void TestSongSaveReaders::init()
{
    directory = std::make_unique<QTemporaryDir>();
    path = directory->filePath(u"song.mp3"_s);
    QVERIFY(Samples::writeTone(path, {.seconds = 60}));
    QSettings(u"Tarvelo.ini"_s, QSettings::IniFormat).setValue(u"musicDir"_s, directory->path());
    saves = 0;
}

void TestSongSaveReaders::cleanup()
{
    saver.kill();
    saver.waitForFinished();
}

void TestSongSaveReaders::startSaving()
{
    QFETCH(QString, change);
    saver.start(QStringLiteral(TARVELO_SONG_SAVER), {path, change, u"1"_s});
    QVERIFY(saver.waitForReadyRead());
    QVERIFY(countSaves() > 0);
}

int TestSongSaveReaders::countSaves()
{
    saver.waitForReadyRead(0);
    const QByteArray reports = saver.readAllStandardOutput();
    saves += static_cast<int>(reports.count("saved"));
    return reports.contains("failed") ? -1 : saves;
}

void TestSongSaveReaders::everyReaderFindsTheMusic()
{
    const QByteArray music = musicIn(SaveLab::read(path));
    startSaving();
    const int atLeast = roundsToTry(60);
    int reads = 0;
    while (reads < 2 * atLeast || saves < atLeast) {
        const QByteArray heard = musicIn(readInPieces(path));
        QVERIFY2(heard == music, qPrintable(u"read %1 after %2 saves"_s.arg(reads).arg(saves)));
        ++reads;
        QVERIFY(countSaves() >= 0);
    }
    qInfo("%d reads during %d saves", reads, saves);
}

void TestSongSaveReaders::theDecoderHearsNothingOfIt()
{
    const QByteArray before = decoded(path);
    QVERIFY(before.size() > 59 * 44100 * 4);
    startSaving();
    const int rounds = isShort() ? 3 : 30;
    for (int round = 0; round < rounds; ++round) {
        const int savesBefore = saves;
        const QByteArray now = decoded(path);
        QVERIFY2(now == before, qPrintable(u"round %1: %2 bytes in place of %3"_s.arg(round)
                                               .arg(now.size())
                                               .arg(before.size())));
        QTRY_VERIFY_WITH_TIMEOUT(countSaves() > savesBefore, 20000);
    }
    qInfo("decoded %d times during %d saves", rounds, saves);
}

TARVELO_TEST_MAIN(TestSongSaveReaders, QCoreApplication)
#include "tst_SongSaveReaders.moc"
