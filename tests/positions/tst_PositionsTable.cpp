#include "PositionsFixture.h"

#include <QFontMetrics>
#include <QImage>
#include <QRandomGenerator>

namespace {

// What a table shows: a text a cell, an empty one for no cell, with its font and place.
QStringList shown(const QTableWidget *table)
{
    QStringList lines;
    for (int row = 0; row < table->rowCount(); ++row) {
        lines.append(QStringLiteral("row %1: %2").arg(row).arg(table->rowHeight(row)));
        for (int column = 0; column < table->columnCount(); ++column) {
            const QTableWidgetItem *item = table->item(row, column);
            lines.append(item ? QStringLiteral("%1 | %2 | %3 | %4 | %5")
                                    .arg(item->text(), item->font().toString())
                                    .arg(int(item->textAlignment()))
                                    .arg(item->background().color().name(),
                                         item->foreground().color().name())
                              : QStringLiteral("none"));
        }
    }
    for (int column = 0; column < table->columnCount(); ++column)
        lines.append(
            QStringLiteral("column %1: %2%3")
                .arg(column)
                .arg(table->columnWidth(column))
                .arg(table->isColumnHidden(column) ? QStringLiteral(" hidden") : QString()));
    return lines;
}

int widthOf(const QFont &font, const QString &text)
{
    return QFontMetrics(font).size(Qt::TextSingleLine, text).width();
}

} // namespace

// What the table of the positions page looks like.
class TestPositionsTable : public PositionsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTheme(QStringLiteral("Dark Night")); }
    void init() { showPage(); }
    void cleanup() { dropPage(); }

    void columns_data();
    void columns();
    void userCanChangeNothing();
    void scrollsByPixel();
    void widthsAreThoseOfTheWidestTexts();
    void hiddenColumnsAreAsWideAsTheirPadding();
    void headingsStayReadable_data();
    void headingsStayReadable();
    void rowsAreAsHighAsTheirContents();
    void manyLinesKeepTheSmallestFont();
    void smallMaximumStillFillsTheTable();
    void aFilledTableIsNoOtherThanANewOne();
    void numberIsAButton_data();
    void numberIsAButton();
    void numberTellsItsKey_data();
    void numberTellsItsKey();
    void pressedNumberLooksPressed();
    void markReachesFromThePartToTheEdge();
    void noLinesBetweenRows();

private:
    QImage picture() const { return table()->viewport()->grab().toImage(); }
    void pressNumber(bool down);
};

void TestPositionsTable::columns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<int>("headingAlignment");
    QTest::addColumn<int>("cellAlignment");
    QTest::newRow("number") << int(NumberColumn) << "" << int(Qt::AlignHCenter)
                            << int(Qt::AlignRight);
    QTest::newRow("part") << int(PartColumn) << "Part" << int(Qt::AlignLeft) << int(Qt::AlignLeft);
    QTest::newRow("time") << int(TimeColumn) << "Zeitpunkt" << int(Qt::AlignHCenter)
                          << int(Qt::AlignRight);
    QTest::newRow("beats") << int(BeatsColumn) << "Beats" << int(Qt::AlignRight)
                           << int(Qt::AlignRight);
    QTest::newRow("steps") << int(StepsColumn) << "Positionen" << int(Qt::AlignLeft)
                           << int(Qt::AlignLeft);
}

void TestPositionsTable::columns()
{
    QFETCH(int, column);
    page->setColumnShown(TimeColumn, true);
    page->setVerticalAlignment(Qt::AlignBottom);
    show(songWith(1, QStringLiteral("x")));
    const QTableWidgetItem *heading = table()->horizontalHeaderItem(column);
    QTEST(heading->text(), "heading");
    QTEST(heading->textAlignment() & Qt::AlignHorizontal_Mask, "headingAlignment");
    const QTableWidgetItem *item = table()->item(0, column);
    QTEST(item->textAlignment() & Qt::AlignHorizontal_Mask, "cellAlignment");
    QCOMPARE(item->textAlignment() & Qt::AlignVertical_Mask, int(Qt::AlignBottom));
}

void TestPositionsTable::userCanChangeNothing()
{
    QCOMPARE(table()->objectName(), QStringLiteral("tableWidgetPositions"));
    QCOMPARE(table()->focusPolicy(), Qt::NoFocus);
    QCOMPARE(table()->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(table()->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(table()->selectionBehavior(), QAbstractItemView::SelectItems);
    QCOMPARE(table()->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(table()->alternatingRowColors());
    QVERIFY(table()->verticalHeader()->isHidden());
    QVERIFY(table()->horizontalHeader()->stretchLastSection());
}

void TestPositionsTable::scrollsByPixel()
{
    QCOMPARE(table()->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(table()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(table()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void TestPositionsTable::widthsAreThoseOfTheWidestTexts()
{
    page->setColumnShown(TimeColumn, true);
    page->setFullWidth(true);
    const SongPtr song = songWith(12, QStringLiteral("Triple, Basic\nTurkey, Rocking Chair"));
    song->getPositions().at(3).setPart(QStringLiteral("Chorus\nand the Bridge"));
    show(song);
    const QFont font = stepsFont();
    QCOMPARE(table()->columnWidth(NumberColumn), widthOf(font, QStringLiteral("10 ")) + 10);
    QCOMPARE(table()->columnWidth(PartColumn),
             widthOf(font, QStringLiteral("and the Bridge")) + 10);
    QCOMPARE(table()->columnWidth(BeatsColumn), widthOf(font, QStringLiteral("272 ")) + 10);
    QVERIFY(table()->columnWidth(StepsColumn)
            >= widthOf(font, QStringLiteral("Turkey, Rocking Chair")) + 10);
}

void TestPositionsTable::hiddenColumnsAreAsWideAsTheirPadding()
{
    page->setColumnShown(PartColumn, false);
    show(songWith(3, QStringLiteral("x")));
    QVERIFY(table()->isColumnHidden(TimeColumn));
    table()->setColumnHidden(PartColumn, false);
    QCOMPARE(table()->columnWidth(PartColumn), 10);
}

void TestPositionsTable::headingsStayReadable_data()
{
    QTest::addColumn<int>("rows");
    QTest::newRow("few rows") << 3;
    QTest::newRow("many rows") << 60;
}

void TestPositionsTable::headingsStayReadable()
{
    QFETCH(int, rows);
    page->setColumnShown(TimeColumn, true);
    const SongPtr song = songWith(rows, QStringLiteral("x"));
    for (int i = 0; i < rows; ++i)
        song->getPositions().at(i).setPart(QStringLiteral("A"));
    show(song);
    for (int column = PartColumn; column < PositionsColumnCount; ++column) {
        const QTableWidgetItem *heading = table()->horizontalHeaderItem(column);
        QVERIFY2(widthOf(heading->font(), heading->text()) + 12 <= table()->columnWidth(column),
                 qPrintable(heading->text()));
    }
}

void TestPositionsTable::rowsAreAsHighAsTheirContents()
{
    const SongPtr song = songWith(3, QStringLiteral("one"));
    song->getPositions().at(1).setSteps(QStringLiteral("one\ntwo\nthree"));
    song->getPositions().at(2).setPart(QStringLiteral("one\ntwo"));
    show(song);
    const int line = QFontMetrics(stepsFont()).height();
    QVERIFY(table()->rowHeight(0) >= line);
    QVERIFY(table()->rowHeight(0) < 2 * line);
    QVERIFY(table()->rowHeight(1) >= 3 * line);
    QVERIFY(table()->rowHeight(2) >= 2 * line);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(table()->rowHeight(row),
                 std::max(table()->verticalHeader()->sectionSizeHint(row),
                          table()
                              ->sizeHintForIndex(table()->model()->index(row, row == 2 ? 1 : 4))
                              .height()));
}

void TestPositionsTable::manyLinesKeepTheSmallestFont()
{
    page->setFullWidth(false);
    show(songWith(60, QStringLiteral("Triple\nBasic\nTurkey")));
    QCOMPARE(stepsFont().pointSize(), 8);
    QVERIFY(table()->verticalHeader()->length() > table()->viewport()->height());
}

void TestPositionsTable::smallMaximumStillFillsTheTable()
{
    page->setMaxFontSize(4);
    show(songWith(3, QStringLiteral("x")));
    QVERIFY(stepsFont().pointSize() >= 4);
    QVERIFY(stepsFont().pointSize() <= 8);
    QCOMPARE(text(2, StepsColumn), QStringLiteral("x"));
}

// A rebuild keeps the cells that it can use: whatever they held before must not be seen.
void TestPositionsTable::aFilledTableIsNoOtherThanANewOne()
{
    QRandomGenerator random(8);
    const auto chance = [&random] { return random.bounded(2) == 1; };
    for (int round = 0; round < 40; ++round) {
        const SongPtr song
            = songWith(random.bounded(30), QStringLiteral("Triple\n").repeated(random.bounded(4)),
                       chance() ? 120 : 0);
        const bool parts = chance();
        const bool time = chance();
        const bool full = chance();
        const auto alignment = chance() ? Qt::AlignTop : Qt::AlignVCenter;
        const auto look = [&](PositionsPage &shownPage) {
            shownPage.setColumnShown(PartColumn, parts);
            shownPage.setColumnShown(TimeColumn, time);
            shownPage.setFullWidth(full);
            shownPage.setVerticalAlignment(alignment);
            shownPage.setSong(song);
            shownPage.refreshPositionsWindow();
            QCoreApplication::processEvents();
        };
        PositionsPage fresh(player.get());
        fresh.resize(page->size());
        fresh.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fresh));
        look(fresh);
        look(*page);
        QCOMPARE(shown(table()), shown(fresh.findChild<QTableWidget *>()));
    }
}

void TestPositionsTable::numberIsAButton_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << "Dark Night";
    QTest::newRow("bright") << "Bright Morning";
}

void TestPositionsTable::numberIsAButton()
{
    QFETCH(QString, theme);
    useTheme(theme);
    show(songWith(3, QStringLiteral("x")));
    const QRect number = table()->visualItemRect(table()->item(1, NumberColumn));
    const QImage image = picture();
    // Its corners are round: the row's ground is seen there, and the button's own within.
    QCOMPARE(image.pixelColor(number.topLeft()), themeNamed(theme).palette.alternateBase().color());
    QCOMPARE(image.pixelColor(number.left() + 4, number.center().y()),
             table()->item(1, NumberColumn)->background().color());
    useTheme(QStringLiteral("Dark Night"));
}

void TestPositionsTable::numberTellsItsKey_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("tip");
    QTest::newRow("first") << 0 << "Ab hier abspielen      1";
    QTest::newRow("tenth") << 9 << "Ab hier abspielen      0";
    QTest::newRow("eleventh") << 10 << "Ab hier abspielen      Ctrl+1";
    QTest::newRow("twentieth") << 19 << "Ab hier abspielen      Ctrl+0";
    QTest::newRow("without a key") << 20 << "Ab hier abspielen";
}

void TestPositionsTable::numberTellsItsKey()
{
    QFETCH(int, row);
    show(songWith(21, QStringLiteral("x")));
    QTEST(table()->item(row, NumberColumn)->toolTip(), "tip");
    QVERIFY(table()->item(row, StepsColumn)->toolTip().isEmpty());
    QCOMPARE(table()->accessibleName(), QStringLiteral("Positionen"));
}

void TestPositionsTable::pressNumber(bool down)
{
    const QPoint place = cell(1, NumberColumn);
    QTest::mouseMove(table()->viewport(), place);
    if (down)
        QTest::mousePress(table()->viewport(), Qt::LeftButton, {}, place);
    else
        QTest::mouseRelease(table()->viewport(), Qt::LeftButton, {}, place);
}

void TestPositionsTable::pressedNumberLooksPressed()
{
    show(songWith(3, QStringLiteral("x")));
    const QRect number = table()->visualItemRect(table()->item(1, NumberColumn));
    const QPoint ground(number.left() + 4, number.center().y());
    const QColor resting = table()->item(1, NumberColumn)->background().color();
    pressNumber(true);
    QTRY_COMPARE(picture().pixelColor(ground), QColor(Qt::white));
    pressNumber(false);
    QTRY_COMPARE(picture().pixelColor(ground), resting);
}

void TestPositionsTable::markReachesFromThePartToTheEdge()
{
    show(songWith(3, QStringLiteral("x")));
    page->selectPositionsRow(1, false);
    const QImage image = picture();
    const QColor highlight = qApp->palette().highlight().color();
    const QRect row = table()->visualItemRect(table()->item(1, PartColumn));
    int marked = 0;
    for (int x = row.left(); x < table()->viewport()->width(); ++x)
        marked += image.pixelColor(x, row.top() + 1) == highlight ? 1 : 0;
    QCOMPARE(marked, table()->viewport()->width() - row.left());
    QVERIFY(image.pixelColor(row.left() - 4, row.center().y()) != highlight);
}

void TestPositionsTable::noLinesBetweenRows()
{
    show(songWith(4, QStringLiteral("x")));
    const QImage image = picture();
    const int x = image.width() - 3;
    QList<QColor> grounds;
    for (int y = 0; y < table()->verticalHeader()->length(); ++y) {
        const QColor ground = image.pixelColor(x, y);
        if (grounds.isEmpty() || grounds.constLast() != ground)
            grounds.append(ground);
    }
    const QPalette palette = qApp->palette();
    const QColor base = palette.base().color();
    const QColor alternate = palette.alternateBase().color();
    QCOMPARE(grounds, (QList<QColor>{base, alternate, base, alternate}));
}

TARVELO_TEST_MAIN(TestPositionsTable, QApplication)
#include "tst_PositionsTable.moc"
