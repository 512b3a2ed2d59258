#include "TestMain.h"
#include "WavFile.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestWavFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsHeaderAndSamples();
    void sizesAreWrittenAtTheEnd();
    void goingClosesIt();
    void beginsAnew();
    void aPlaceThatCantBeWrittenHarmsNothing();

private:
    static QByteArray read(const QString &path);
    QString path() const { return directory.filePath(u"sound.wav"_s); }

    QTemporaryDir directory;
};

QByteArray TestWavFile::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestWavFile::holdsHeaderAndSamples()
{
    WavFile file(2, 44100);
    QVERIFY(file.open(path()));
    file.append({1, -2, 0x1234, -32768});
    file.close();
    const QByteArray expected = QByteArray::fromHex("52494646"         // RIFF
                                                    "2c000000"         // 36 + 8
                                                    "57415645666d7420" // WAVEfmt
                                                    "10000000"
                                                    "0100" // PCM
                                                    "0200"
                                                    "44ac0000" // 44100
                                                    "10b10200" // 176400
                                                    "0400"
                                                    "1000"
                                                    "64617461" // data
                                                    "08000000"
                                                    "0100feff34120080");
    QCOMPARE(read(path()), expected);
}

void TestWavFile::sizesAreWrittenAtTheEnd()
{
    WavFile file(1, 8000);
    QVERIFY(file.open(path()));
    file.append({1, 2, 3});
    QVERIFY(file.flush());
    QCOMPARE(read(path()).mid(40, 4), QByteArray(4, '\0'));
    file.close();
    QCOMPARE(read(path()).mid(40, 4), QByteArray("\6\0\0\0", 4));
    QCOMPARE(read(path()).size(), 50);
}

void TestWavFile::goingClosesIt()
{
    {
        WavFile file(1, 8000);
        QVERIFY(file.open(path()));
        file.append({1, 2, 3});
    }
    QCOMPARE(read(path()).mid(4, 4), QByteArray("\x2a\0\0\0", 4));
}

void TestWavFile::beginsAnew()
{
    WavFile file(1, 8000);
    QVERIFY(file.open(path()));
    file.append({1, 2, 3});
    file.close();
    QVERIFY(file.open(path()));
    file.close();
    QCOMPARE(read(path()).size(), 44);
    QCOMPARE(read(path()).mid(40, 4), QByteArray(4, '\0'));
}

void TestWavFile::aPlaceThatCantBeWrittenHarmsNothing()
{
    const QString nowhere = directory.filePath(u"none/sound.wav"_s);
    WavFile file(1, 8000);
    QVERIFY(!file.open(nowhere));
    file.append({1, 2, 3});
    file.close();
    QVERIFY(!QFile::exists(nowhere));
}

TARVELO_TEST_MAIN(TestWavFile, QCoreApplication)
#include "tst_WavFile.moc"
