#include "FileDialogs.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "Samples.h"
#include "SongAudioData.h"
#include "SongFileExport.h"
#include "TestMain.h"

#include <QApplication>
#include <QtEndian>

using namespace Qt::StringLiterals;

// From the question for a file name to the WAV file.
class TestSongFileExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theNameIsProposed_data();
    void theNameIsProposed();
    void withoutASongTheUserIsTold();
    void theUserIsAsked();
    void whoLeavesGetsNothing();
    void musicIsNeverWrittenOver_data();
    void musicIsNeverWrittenOver();
    void theChosenFileIsWritten_data();
    void theChosenFileIsWritten();

private:
    QStringList asked;
    QString choice;
    QStringList boxes;
    QTemporaryDir directory;
};

void TestSongFileExport::init()
{
    asked.clear();
    boxes.clear();
    setBoxRunner([this](QMessageBox &box) {
        boxes += {box.windowTitle(), box.text()};
        return QMessageBox::Ok;
    });
    setSaveFileChooser([this](const QString &title, const QString &start, const QString &filter) {
        asked += {title, start, filter};
        return choice;
    });
}

void TestSongFileExport::cleanup()
{
    setBoxRunner({});
    setSaveFileChooser({});
}

void TestSongFileExport::theNameIsProposed_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("tempo");
    QTest::addColumn<QString>("proposal");
    QTest::newRow("slower") << u"/music/Rocky Top.mp3"_qs << u"-22%"_qs
                            << u"/music/Rocky Top (-22%).wav"_qs;
    QTest::newRow("as the display shows it")
        << u"/music/Rocky Top.mp3"_qs << u" 0%"_qs << u"/music/Rocky Top ( 0%).wav"_qs;
    QTest::newRow("dots in the name") << u"/my.music/Mr. Bojangles.MP3"_qs << u"+50%"_qs
                                      << u"/my.music/Mr. Bojangles (+50%).wav"_qs;
    QTest::newRow("no suffix") << u"/music/song"_qs << u"+5%"_qs << u"/music/song (+5%).wav"_qs;
    QTest::newRow("percent and hash")
        << u"/100%1/#2%2.mp3"_qs << u"+5%"_qs << u"/100%1/#2%2 (+5%).wav"_qs;
}

void TestSongFileExport::theNameIsProposed()
{
    QFETCH(QString, song);
    QFETCH(QString, tempo);
    QTEST(SongFileExport::proposal(song, tempo), "proposal");
}

void TestSongFileExport::withoutASongTheUserIsTold()
{
    choice = u"/somewhere.wav"_qs;
    QCOMPARE(SongFileExport::chooseTarget(nullptr, {}, u" 0%"_qs), QString());
    QCOMPARE(boxes, QStringList({u"Information ..."_qs, u"Keine Musikdatei ausgewählt."_qs}));
    QVERIFY(asked.isEmpty());
}

void TestSongFileExport::theUserIsAsked()
{
    choice = u"/elsewhere/x.wav"_qs;
    QCOMPARE(SongFileExport::chooseTarget(nullptr, u"/m/song.mp3"_qs, u"+5%"_qs), choice);
    QCOMPARE(asked, QStringList({u"Datei exportieren nach"_qs, u"/m/song (+5%).wav"_qs,
                                 u"Audio Datei (*.wav *.mp3)"_qs}));
    QVERIFY(boxes.isEmpty());
}

void TestSongFileExport::whoLeavesGetsNothing()
{
    choice.clear();
    QCOMPARE(SongFileExport::chooseTarget(nullptr, u"/m/song.mp3"_qs, u"+5%"_qs), QString());
    QCOMPARE(asked.size(), 3);
    QVERIFY(boxes.isEmpty());
}

void TestSongFileExport::musicIsNeverWrittenOver_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("there");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("the song itself") << u"own.mp3"_qs << true << false;
    QTest::newRow("in capitals") << u"own.MP3"_qs << true << false;
    QTest::newRow("another format") << u"other.flac"_qs << true << false;
    QTest::newRow("a new file") << u"new.mp3"_qs << false << true;
    QTest::newRow("an older export") << u"old.wav"_qs << true << true;
}

void TestSongFileExport::musicIsNeverWrittenOver()
{
    QFETCH(QString, name);
    QFETCH(bool, there);
    QFETCH(bool, allowed);
    choice = directory.filePath(name);
    if (there) {
        QFile file(choice);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const QString answer
        = SongFileExport::chooseTarget(nullptr, directory.filePath(u"own.mp3"_qs), u" 0%"_qs);
    QCOMPARE(answer, allowed ? choice : QString());
    QCOMPARE(boxes.size(), allowed ? 0 : 2);
    if (!allowed)
        QVERIFY(boxes.at(1).contains(u"wird nicht überschrieben"_qs));
}

void TestSongFileExport::theChosenFileIsWritten_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("percent");
    QTest::newRow("as it is") << u"wav"_qs << 0;
    QTest::newRow("slower") << u"wav"_qs << -20;
    QTest::newRow("under another suffix") << u"mp3"_qs << 25;
}

void TestSongFileExport::theChosenFileIsWritten()
{
    QFETCH(QString, suffix);
    QFETCH(int, percent);
    constexpr double seconds = 4.0;
    const QString file = directory.filePath(u"tone.mp3"_qs);
    QVERIFY(Samples::writeTone(file, {.seconds = seconds}));
    const SongPtr song(new Song(file, false));
    song->setFrequency(44100);
    song->setChannels(2);
    Player player;
    player.setSong(song);
    QVERIFY(QTest::qWaitFor([&] { return !song->getAudioData()->isGrowing(); }, 20000));
    choice = directory.filePath(u"out."_qs + suffix);
    QFile::remove(choice);
    const QString target
        = SongFileExport::chooseTarget(nullptr, song->getFilename(), u"%1%"_qs.arg(percent));
    player.convert(target, percent);

    QFile wav(choice);
    QVERIFY(wav.open(QIODevice::ReadOnly));
    const QByteArray content = wav.readAll();
    QCOMPARE(content.left(4), QByteArray("RIFF"));
    QCOMPARE(qFromLittleEndian<quint32>(content.constData() + 4), quint32(content.size() - 8));
    QCOMPARE(qFromLittleEndian<quint32>(content.constData() + 40), quint32(content.size() - 44));
    const double length = double(content.size() - 44) / 4 / 44100;
    const double wanted = seconds / (1.0 + percent / 100.0);
    QVERIFY2(length < wanted + 0.1 && length > wanted - 0.5, qPrintable(QString::number(length)));
}

TARVELO_TEST_MAIN(TestSongFileExport, QApplication)
#include "tst_SongFileExport.moc"
