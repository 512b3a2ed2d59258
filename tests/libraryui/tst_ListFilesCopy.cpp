#include "FileDialogs.h"
#include "FileSystem.h"
#include "FullDisk.h"
#include "ListFilesCopy.h"
#include "MessageBoxes.h"
#include "ProgressDisplay.h"
#include "TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

using namespace Qt::StringLiterals;

// All files of a list, copied into a directory.
class TestListFilesCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void filesAreCopied();
    void olderFilesAreReplaced();
    void missingFilesAreLeftOut();
    void intoTheirOwnDirectory();
    void noFilesNoQuestion();
    void noDirectoryNoCopy();
    void aFailedCopyAsks_data();
    void aFailedCopyAsks();
    void aFullDiskLeavesTheOlderFile();
    void aReadOnlyDirectory();
    void theUserEndsIt();
    void largeFilesLetTheWindowLive();

private:
    QString put(const QString &name, const QByteArray &content);
    QByteArray copy(const QString &name) const;

    std::unique_ptr<QTemporaryDir> from;
    std::unique_ptr<QTemporaryDir> to;
    std::unique_ptr<QWidget> window;
    QStringList titles; // of the directory dialogs
    QStringList boxes;
    QMessageBox::StandardButton answer = QMessageBox::No;
    QString chosen;
};

void TestListFilesCopy::init()
{
    from = std::make_unique<QTemporaryDir>();
    to = std::make_unique<QTemporaryDir>();
    window = std::make_unique<QWidget>();
    window->show();
    titles.clear();
    boxes.clear();
    chosen = to->path();
    setDirectoryChooser([this](const QString &title, const QString &) {
        titles.append(title);
        return chosen;
    });
    setBoxRunner([this](QMessageBox &box) {
        boxes.append(box.text());
        return box.standardButtons() == QMessageBox::Ok ? QMessageBox::Ok : answer;
    });
}

void TestListFilesCopy::cleanup()
{
    setDirectoryChooser({});
    setBoxRunner({});
    window.reset();
}

QString TestListFilesCopy::put(const QString &name, const QByteArray &content)
{
    QFile file(from->filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
               ? file.fileName()
               : QString();
}

QByteArray TestListFilesCopy::copy(const QString &name) const
{
    QFile file(to->filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
}

void TestListFilesCopy::filesAreCopied()
{
    const QStringList files{put(u"a.mp3"_s, "first"), put(u"Ä #%?.mp3"_s, "second"),
                            put(u"empty.mp3"_s, {})};
    copyListFiles(window.get(), files);
    QCOMPARE(titles, {u"Zielverzeichnis auswählen"_s});
    QCOMPARE(copy(u"a.mp3"_s), QByteArray("first"));
    QCOMPARE(copy(u"Ä #%?.mp3"_s), QByteArray("second"));
    QCOMPARE(copy(u"empty.mp3"_s), QByteArray());
    QCOMPARE(boxes, {u"3 Dateien erfolgreich kopiert."_s});
    QCOMPARE(QDir(to->path()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    QCOMPARE(QFile::permissions(to->filePath(u"a.mp3"_s)), QFile::permissions(files.at(0)));
}

void TestListFilesCopy::olderFilesAreReplaced()
{
    QFile older(to->filePath(u"a.mp3"_s));
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("something older") > 0);
    older.close();
    older.setPermissions(QFile::ReadOwner);
    copyListFiles(window.get(), {put(u"a.mp3"_s, "new")});
    QCOMPARE(copy(u"a.mp3"_s), QByteArray("new"));
    QCOMPARE(boxes, {u"1 Dateien erfolgreich kopiert."_s});
}

void TestListFilesCopy::missingFilesAreLeftOut()
{
    QFile older(to->filePath(u"gone.mp3"_s));
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("the last one") > 0);
    older.close();
    copyListFiles(window.get(), {from->filePath(u"gone.mp3"_s)});
    QVERIFY(boxes.isEmpty());
    QCOMPARE(copy(u"gone.mp3"_s), QByteArray("the last one"));
}

// To remove the target first would be the end of the song.
void TestListFilesCopy::intoTheirOwnDirectory()
{
    const QString file = put(u"a.mp3"_s, "song");
    chosen = from->path();
    copyListFiles(window.get(), {file});
    QFile song(file);
    QVERIFY(song.open(QIODevice::ReadOnly));
    QCOMPARE(song.readAll(), QByteArray("song"));
    QVERIFY(boxes.isEmpty());
}

void TestListFilesCopy::noFilesNoQuestion()
{
    copyListFiles(window.get(), {});
    QVERIFY(titles.isEmpty() && boxes.isEmpty());
}

void TestListFilesCopy::noDirectoryNoCopy()
{
    chosen.clear();
    copyListFiles(window.get(), {put(u"a.mp3"_s, "song")});
    QCOMPARE(titles.size(), 1);
    QVERIFY(boxes.isEmpty());
}

void TestListFilesCopy::aFailedCopyAsks_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<int>("copied");
    QTest::newRow("yes") << QMessageBox::Yes << 2;
    QTest::newRow("no") << QMessageBox::No << 1;
}

// A directory is in the way.
void TestListFilesCopy::aFailedCopyAsks()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(int, copied);
    answer = button;
    QVERIFY(QDir(to->path()).mkdir(u"b.mp3"_s));
    copyListFiles(window.get(), {put(u"a.mp3"_s, "1"), put(u"b.mp3"_s, "2"), put(u"c.mp3"_s, "3")});
    QCOMPARE(boxes.size(), 2);
    QVERIFY(boxes.at(0).startsWith(u"<p>Das Kopieren der Datei <br>"_s));
    QVERIFY(boxes.at(0).contains(u"hat nicht funktioniert!"_s));
    QVERIFY(boxes.at(0).contains(u"b.mp3"_s));
    QCOMPARE(boxes.at(1), u"%1 Dateien erfolgreich kopiert."_s.arg(copied));
    QVERIFY(QFileInfo(to->filePath(u"b.mp3"_s)).isDir());
    QCOMPARE(QDir(to->path()).entryList(QDir::Files | QDir::Hidden).size(), copied);
}

void TestListFilesCopy::aFullDiskLeavesTheOlderFile()
{
    const QString file = put(u"a.mp3"_s, QByteArray(100'000, 'x'));
    QFile older(to->filePath(u"a.mp3"_s));
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write("older") > 0);
    older.close();
    {
        const FullDisk disk(1000);
        copyListFiles(window.get(), {file});
    }
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(copy(u"a.mp3"_s), QByteArray("older"));
    QCOMPARE(QDir(to->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void TestListFilesCopy::aReadOnlyDirectory()
{
    if (::geteuid() == 0 || !FileSystem::hasModes(to->path()))
        QSKIP("nothing is protected here");
    const QString file = put(u"a.mp3"_s, "song");
    QVERIFY(QFile::setPermissions(to->path(), QFile::ReadOwner | QFile::ExeOwner));
    copyListFiles(window.get(), {file});
    QFile::setPermissions(to->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(boxes.size(), 1);
    QVERIFY(QDir(to->path()).isEmpty());
}

void TestListFilesCopy::theUserEndsIt()
{
    QStringList files;
    for (int number = 0; number < 50; ++number)
        files.append(put(u"%1.mp3"_s.arg(number), "song"));
    QString text;
    QTimer::singleShot(0, this, [&] {
        auto *progress = window->findChild<ProgressDisplay *>();
        QVERIFY(progress);
        text = progress->findChild<QLabel *>(u"labelDisplayText"_s)->text();
        progress->reject();
    });
    copyListFiles(window.get(), files);
    QCOMPARE(text, u"Kopiere Dateien ..."_s);
    QVERIFY(QDir(to->path()).entryList(QDir::Files).size() < 50);
    QVERIFY(!window->findChild<ProgressDisplay *>());
}

void TestListFilesCopy::largeFilesLetTheWindowLive()
{
    const QString file = put(u"a.mp3"_s, QByteArray(8'000'000, 'x'));
    int turns = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { ++turns; });
    timer.start(0);
    copyListFiles(window.get(), {file});
    QVERIFY2(turns >= 20, qPrintable(QString::number(turns)));
    QCOMPARE(copy(u"a.mp3"_s).size(), 8'000'000);
}

TARVELO_TEST_MAIN(TestListFilesCopy, QApplication)
#include "tst_ListFilesCopy.moc"
