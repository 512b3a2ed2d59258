#include "ColumnWidths.h"
#include "ListExport.h"
#include "MessageBoxes.h"
#include "PlaylistTasks.h"
#include "SongColumns.h"
#include "TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;
using Task = PlaylistTask;

// Rules of the song lists that need no window.
class TestListRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tasks_data();
    void tasks();

    void widths_data();
    void widths();
    void theWidestOfMany();
    void columnsWithoutARule_data();
    void columnsWithoutARule();
    void theOrderOfFitting();

    void exportedText();
    void quotesAndLineBreaks();
    void copyingTellsTheUser();
};

void TestListRules::tasks_data()
{
    QTest::addColumn<PlaylistState>("state");
    // In the order of the tasks: Open Save saveAs Remove, Text Files, Add, Entry removed, Up Down.
    QTest::addColumn<QString>("enabled");
    const auto row = [](const char *name, const PlaylistState &state, const QString &enabled) {
        QTest::newRow(name) << state << enabled;
    };
    PlaylistState working;
    working.isNew = true;
    row("empty working list", working, u"O-A-------"_s);
    working.isOtherSelected = true;
    row("something selected on the other side", working, u"O-A---+---"_s);
    working.isModified = true;
    working.entries = 3;
    row("filled working list", working, u"OSA-TF+---"_s);
    PlaylistState file;
    file.entries = 3;
    row("file", file, u"O-ARTF----"_s);
    file.isModified = true;
    row("changed file", file, u"OSARTF----"_s);
    file.selectedEntry = 1;
    row("first entry", file, u"OSARTF-E-D"_s);
    file.selectedEntry = 2;
    row("second entry", file, u"OSARTF-EUD"_s);
    file.selectedEntry = 3;
    row("last entry", file, u"OSARTF-EU-"_s);
    file.entries = 1;
    file.selectedEntry = 1;
    row("only entry", file, u"OSARTF-E--"_s);
    PlaylistState library;
    library.isLibrary = true;
    row("empty library", library, u"O---------"_s);
    library.entries = 3;
    library.selectedEntry = 2;
    library.isOtherSelected = true;
    row("library", library, u"O---TF----"_s);
}

void TestListRules::tasks()
{
    QFETCH(PlaylistState, state);
    QFETCH(QString, enabled);
    const QString marks = u"OSARTF+EUD"_s;
    QString found;
    for (int task = 0; task < marks.size(); ++task)
        found.append(isTaskEnabled(static_cast<Task>(task), state) ? marks.at(task) : u'-');
    QCOMPARE(found, enabled);
}

void TestListRules::widths_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("texts"); // of the songs
    QTest::addColumn<int>("width");         // with ten pixels a letter, in a view of 1000
    const auto row = [](const char *name, int column, const QStringList &texts, int width) {
        QTest::newRow(name) << column << texts << width;
    };
    const QString twenty(20, u'x');
    const QString forty(40, u'x');
    for (const int column : {0, 2}) {
        row(qPrintable(u"%1, none"_s.arg(column)), column, {}, 10);
        row(qPrintable(u"%1, widest"_s.arg(column)), column, {u"ab"_s, u"abcd"_s, u"a"_s}, 50);
        row(qPrintable(u"%1, at the limit"_s.arg(column)), column, {twenty}, 210);
        row(qPrintable(u"%1, damped"_s.arg(column)), column, {forty}, 260);
    }
    for (const int column : {1, 10, 11, 30, 31})
        row(qPrintable(u"%1, mark"_s.arg(column)), column, {u"-"_s}, 20);
    for (const int column : {3, 14, 26})
        row(qPrintable(u"%1, widest"_s.arg(column)), column, {forty, u"a"_s}, 410);
    row("4", 4, {u"1"_s}, 40);
    row("5", 5, QStringList(9, u"1"_s), 30);
    row("8", 8, {}, 50);
    row("9", 9, {u"1:02:03"_s}, 50);
    for (const int column : {12, 18, 21, 22})
        row(qPrintable(u"%1, parts"_s.arg(column)), column, {u"ab,abcde"_s, u"abcd"_s}, 60);
    for (const int column : {13, 20}) {
        row(qPrintable(u"%1, none"_s.arg(column)), column, {}, 20);
        row(qPrintable(u"%1, empty"_s.arg(column)), column, {QString()}, 20);
        row(qPrintable(u"%1, date"_s.arg(column)), column, {u"21.11.26"_s, QString()}, 90);
    }
    row("15", 15, {}, 60);
    row("16", 16, {}, 60);
    row("19", 19, {u"7"_s, u"112"_s, QString()}, 40);
    row("19, none", 19, {}, 20);
    row("24", 24, {u"1234"_s}, 30);
    row("25", 25, {forty}, 500);
}

void TestListRules::widths()
{
    QFETCH(int, column);
    QFETCH(QStringList, texts);
    QFETCH(int, width);
    ColumnWidths::Content content;
    content.rows = static_cast<int>(texts.size()) + 1;
    // What stands in the filter row doesn't count.
    content.text = [&](int row) { return row == 0 ? QString(99, u'x') : texts.at(row - 1); };
    content.length = [](const QString &text) { return static_cast<int>(text.size()) * 10; };
    content.roughLength = [](const QString &text) { return static_cast<double>(text.size()); };
    content.viewWidth = 1000;
    QCOMPARE(ColumnWidths::fitted(column, content), std::optional<int>(width));
}

// The widest is among the few that are measured.
void TestListRules::theWidestOfMany()
{
    int measured = 0;
    ColumnWidths::Content content;
    content.rows = 10'001;
    content.text = [](int row) { return QString(row * 7 % 50, row % 2 == 0 ? u'x' : u'i'); };
    content.length = [&](const QString &text) {
        ++measured;
        return static_cast<int>(text.size() + text.count(u'x'));
    };
    content.roughLength
        = [](const QString &text) { return 1.1 * double(text.size() + text.count(u'x')); };
    QCOMPARE(ColumnWidths::fitted(PathColumn, content), std::optional<int>(48 + 48 + 10));
    QVERIFY2(measured <= 200, qPrintable(QString::number(measured)));
}

void TestListRules::columnsWithoutARule_data()
{
    QTest::addColumn<int>("column");
    for (const int column : {-1, 6, 7, 17, 23, 27, 28, 29, 32, 33})
        QTest::addRow("%d", column) << column;
}

void TestListRules::columnsWithoutARule()
{
    QFETCH(int, column);
    QVERIFY(!ColumnWidths::fitted(column, {}));
}

void TestListRules::theOrderOfFitting()
{
    QCOMPARE(ColumnWidths::allInOrder(),
             QList<int>({2, 4, 12, 11, 31, 14, 19, 20, 7, 15, 9, 3, 13, 26, 10, 16, 1, 0, 30, 8}));
}

void TestListRules::exportedText()
{
    QStandardItemModel model(3, 3);
    model.setHorizontalHeaderLabels({u"A"_s, u"B"_s, u"C"_s});
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            model.setItem(row, column, new QStandardItem(u"%1%2"_s.arg(row).arg(column)));
    }
    QCOMPARE(ListExport::text(model, {2, 0}, {1, 2}),
             u"\"C\"\t\"A\"\n\"12\"\t\"10\"\n\"22\"\t\"20\"\n"_s);
    QCOMPARE(ListExport::text(model, {1}, {}), u"\"B\"\n"_s);
}

void TestListRules::quotesAndLineBreaks()
{
    QStandardItemModel model(1, 2);
    model.setHorizontalHeaderLabels({u"say \"A\""_s, u"B"_s});
    model.setItem(0, 0, new QStandardItem(u"Die \"Rocky\" Top"_s));
    model.setItem(0, 1, new QStandardItem(u"Intro\nPart A\r\nPart B"_s));
    QCOMPARE(ListExport::text(model, {0, 1}, {0}),
             u"\"say \"\"A\"\"\"\t\"B\"\n\"Die \"\"Rocky\"\" Top\"\t\"IntroPart APart B\"\n"_s);
}

void TestListRules::copyingTellsTheUser()
{
    QString told;
    setBoxRunner([&](QMessageBox &box) {
        told = box.windowTitle() + u'|' + box.text();
        return QMessageBox::Ok;
    });
    ListExport::copy(u"abc"_s);
    setBoxRunner({});
    QCOMPARE(QGuiApplication::clipboard()->text(), u"abc"_s);
    QCOMPARE(told, u"Information ...|Die Liste wurde in die Windows Zwischenablage kopiert.<br>Du "
                   "kannst sie in einem Programm Deiner Wahl einfügen, z.B. mit Strg-V oder über "
                   "die rechte Maustaste -> Einfügen."_s);
}

TARVELO_TEST_MAIN(TestListRules, QApplication)
#include "tst_ListRules.moc"
