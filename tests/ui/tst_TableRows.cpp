#include "TableRows.h"
#include "TestMain.h"

#include <QApplication>
#include <QTableWidget>

using namespace Qt::StringLiterals;

class TestTableRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoRowsAreExchanged_data();
    void twoRowsAreExchanged();
    void itemsStayTheSame();
};

namespace {

// Cell texts "row.column", with a hole at 1.1.
void fill(QTableWidget &table)
{
    table.setRowCount(4);
    table.setColumnCount(3);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row != 1 || column != 1)
                table.setItem(row, column, new QTableWidgetItem(u"%1.%2"_qs.arg(row).arg(column)));
        }
    }
}

QString firstColumn(const QTableWidget &table)
{
    QString rows;
    for (int row = 0; row < table.rowCount(); ++row)
        rows += table.item(row, 0)->text().left(1);
    return rows;
}

} // namespace

void TestTableRows::twoRowsAreExchanged_data()
{
    QTest::addColumn<int>("rowA");
    QTest::addColumn<int>("rowB");
    QTest::addColumn<QString>("rows");
    QTest::newRow("neighbours") << 0 << 1 << u"1023"_qs;
    QTest::newRow("backwards") << 1 << 0 << u"1023"_qs;
    QTest::newRow("first and last") << 0 << 3 << u"3120"_qs;
    QTest::newRow("one") << 2 << 2 << u"0123"_qs;
    QTest::newRow("above the table") << -1 << 2 << u"0123"_qs;
    QTest::newRow("below the table") << 0 << 4 << u"0123"_qs;
}

void TestTableRows::twoRowsAreExchanged()
{
    QFETCH(int, rowA);
    QFETCH(int, rowB);
    QTableWidget table;
    fill(table);
    swapTableRows(&table, rowA, rowB);
    QTEST(firstColumn(table), "rows");
    for (int row = 0; row < 4; ++row) {
        const QString number = table.item(row, 0)->text().left(1);
        QCOMPARE(table.item(row, 2)->text(), number + u".2"_qs);
        QCOMPARE(table.item(row, 1) == nullptr, number == u'1');
    }
}

void TestTableRows::itemsStayTheSame()
{
    QTableWidget table;
    fill(table);
    const QTableWidgetItem *first = table.item(0, 0);
    swapTableRows(&table, 0, 3);
    QCOMPARE(table.item(3, 0), first);
}

TARVELO_TEST_MAIN(TestTableRows, QApplication)
#include "tst_TableRows.moc"
