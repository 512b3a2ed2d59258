#include "FullDisk.h"
#include "SafeFile.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

class TestFullDisk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacing_data();
    void replacing();
};

void TestFullDisk::replacing_data()
{
    QTest::addColumn<SafeFile::Durability>("durability");
    QTest::addColumn<bool>("isThere");
    using enum SafeFile::Durability;
    QTest::newRow("a file, synced") << Synced << true;
    QTest::newRow("no file, synced") << Synced << false;
    QTest::newRow("a file") << Unsynced << true;
    QTest::newRow("no file") << Unsynced << false;
}

void TestFullDisk::replacing()
{
    QFETCH(SafeFile::Durability, durability);
    QFETCH(bool, isThere);
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"file"_s));
    if (isThere)
        QVERIFY(SafeFile::replace(file.fileName(), "old", durability));
    bool replaced = true;
    {
        const FullDisk disk(64);
        replaced = SafeFile::replace(file.fileName(), QByteArray(1000, 'x'), durability);
    }
    QVERIFY(!replaced);
    const QStringList left = isThere ? QStringList(u"file"_s) : QStringList();
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), left);
    QCOMPARE(file.open(QIODevice::ReadOnly), isThere);
    if (isThere)
        QCOMPARE(file.readAll(), "old"_ba);
}

TARVELO_TEST_MAIN(TestFullDisk, QCoreApplication)
#include "tst_FullDisk.moc"
