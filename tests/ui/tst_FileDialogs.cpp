#include "FileDialogs.h"
#include "TestMain.h"

#include <QApplication>
#include <QFileDialog>

using namespace Qt::StringLiterals;

// The real dialogs, and the choice of a test instead of them.
class TestFileDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aTestChooses();
    void theUserChooses_data();
    void theUserChooses();

private:
    QString choose(int kind, const QString &start);

    QTemporaryDir directory;
};

namespace {

enum Kind { Directory, Save, Open, OpenSeveral };

} // namespace

void TestFileDialogs::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QFile file(directory.filePath(u"there.wav"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

QString TestFileDialogs::choose(int kind, const QString &start)
{
    const QString filter = u"Audio (*.wav *.mp3)"_qs;
    if (kind == Save)
        return chooseSaveFile(nullptr, u"Title"_qs, start, filter);
    if (kind == Open)
        return chooseOpenFile(nullptr, u"Title"_qs, start, filter);
    if (kind == OpenSeveral)
        return chooseOpenFiles(nullptr, u"Title"_qs, start, filter).join(u'|');
    return chooseDirectory(nullptr, u"Title"_qs, start);
}

void TestFileDialogs::aTestChooses()
{
    QStringList asked;
    const auto answer = [&asked](const QString &result) {
        return [&asked, result](const QString &title, const QString &start, const QString &filter) {
            asked = {title, start, filter};
            return result;
        };
    };
    setSaveFileChooser(answer(u"saved"_qs));
    setOpenFileChooser(answer(u"opened"_qs));
    setDirectoryChooser([&asked](const QString &title, const QString &start) {
        asked = {title, start};
        return u"entered"_qs;
    });
    setOpenFilesChooser(
        [&asked](const QString &title, const QString &start, const QString &filter) {
            asked = {title, start, filter};
            return QStringList{u"one"_qs, u"other"_qs};
        });
    const QString filter = u"Audio (*.wav *.mp3)"_qs;
    QCOMPARE(choose(OpenSeveral, u"/m"_qs), u"one|other"_qs);
    QCOMPARE(asked, QStringList({u"Title"_qs, u"/m"_qs, filter}));
    QCOMPARE(choose(Save, u"/s"_qs), u"saved"_qs);
    QCOMPARE(asked, QStringList({u"Title"_qs, u"/s"_qs, filter}));
    QCOMPARE(choose(Open, u"/o"_qs), u"opened"_qs);
    QCOMPARE(asked, QStringList({u"Title"_qs, u"/o"_qs, filter}));
    QCOMPARE(choose(Directory, u"/d"_qs), u"entered"_qs);
    QCOMPARE(asked, QStringList({u"Title"_qs, u"/d"_qs}));
    setSaveFileChooser({});
    setOpenFileChooser({});
    setDirectoryChooser({});
    setOpenFilesChooser({});
}

void TestFileDialogs::theUserChooses_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("chosen");
    const QString path = directory.path();
    const QString filter = u"Audio (*.wav *.mp3)"_qs;
    QTest::newRow("save") << int{Save} << path + u"/new (+5%).wav"_qs << filter << true
                          << path + u"/new (+5%).wav"_qs;
    QTest::newRow("save, left") << int{Save} << path + u"/new.wav"_qs << filter << false
                                << QString();
    QTest::newRow("open") << int{Open} << path + u"/there.wav"_qs << filter << true
                          << path + u"/there.wav"_qs;
    QTest::newRow("open, left") << int{Open} << path << filter << false << QString();
    QTest::newRow("open several") << int{OpenSeveral} << path + u"/there.wav"_qs << filter << true
                                  << path + u"/there.wav"_qs;
    QTest::newRow("open several, left") << int{OpenSeveral} << path << filter << false << QString();
    QTest::newRow("directory") << int{Directory} << path << QString() << true << path;
    QTest::newRow("directory, left") << int{Directory} << path << QString() << false << QString();
}

void TestFileDialogs::theUserChooses()
{
    QFETCH(int, kind);
    QFETCH(QString, start);
    QFETCH(bool, accepted);
    QString title;
    QStringList filters;
    QTimer::singleShot(0, this, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        title = dialog->windowTitle();
        filters = dialog->nameFilters();
        QTest::keyClick(dialog, accepted ? Qt::Key_Return : Qt::Key_Escape);
        if (dialog->isVisible())
            QVERIFY(QMetaObject::invokeMethod(dialog, accepted ? "accept" : "reject"));
    });
    QTEST(choose(kind, start), "chosen");
    QCOMPARE(title, u"Title"_qs);
    QFETCH(QString, filter);
    if (!filter.isEmpty())
        QCOMPARE(filters, QStringList(filter));
}

TARVELO_TEST_MAIN(TestFileDialogs, QApplication)
#include "tst_FileDialogs.moc"
