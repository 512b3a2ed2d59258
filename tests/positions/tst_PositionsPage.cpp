#include "PositionsFixture.h"

#include <QScrollBar>
#include <QSignalSpy>

class TestPositionsPage : public PositionsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTheme(QStringLiteral("Dark Night")); }
    void init() { showPage(); }
    void cleanup() { dropPage(); }

    void cellsHoldTheirTexts();
    void rowNumberLooksLikeAHeader();
    void songWithoutPositions();
    void noSongEmptiesThePage();
    void beatsColumnFollowsTheBpm();
    void columnsCanBeHidden_data();
    void columnsCanBeHidden();
    void longTextsGetASmallerFont();
    void wholeTextShowsEveryRow();
    void fullWidthScrolls();
    void fontNeverGrowsAboveItsMaximum();
    void alignmentFollowsTheSetting();

    void markingLeavesTheNumberOut();
    void activePartIsMarkedAndCentred();
    void noPartIsNotMarked();
    void movingTheMark_data();
    void movingTheMark();
    void markSurvivesARebuild();
    void pressingACellMarksIt();
    void pressingTheNumberStartsThePart();
    void doubleClickStartsThePart();
    void resizingChoosesTheFontAnew();
    void resizingRebuildsThePageOnce_data();
    void resizingRebuildsThePageOnce();
    void resizingAColumnRebuildsThePage();
    void aRebuildStartsNoOther();
    void togglingAColumn_data();
    void togglingAColumn();
    void beatsOfASongWithoutBpmStayAway();
    void startingUpEmptiesThePage();
    void newSongsRowsAreThereAtOnce();
    void actionsHearOfTheMark();
    void rebuildTellsTheEditorFirst();
    void playingPartIsMarkedByARebuild();
    void markIsInViewAfterARebuild();
    void enteringShowsTheMarkedRow();
    void oneMarkedCellIsScrolledTo();
    void nothingMarkedScrollsToTheTop();

private:
    QList<int> markedColumns(int row) const;
};

QList<int> TestPositionsPage::markedColumns(int row) const
{
    QList<int> columns;
    for (const QTableWidgetItem *item : table()->selectedItems()) {
        if (item->row() == row)
            columns.append(item->column());
    }
    std::sort(columns.begin(), columns.end());
    return columns;
}

void TestPositionsPage::cellsHoldTheirTexts()
{
    page->setColumnShown(TimeColumn, true);
    show(songWith(3, QStringLiteral("Triple\nBasic")));
    QCOMPARE(table()->rowCount(), 3);
    QCOMPARE(text(1, NumberColumn), QStringLiteral("2 "));
    QCOMPARE(text(1, PartColumn), QStringLiteral("Part 1"));
    QCOMPARE(text(1, TimeColumn), QStringLiteral("00:04:000 "));
    QCOMPARE(text(1, BeatsColumn), QStringLiteral("8 "));
    QCOMPARE(text(2, BeatsColumn), QStringLiteral("344 "));
    QCOMPARE(text(1, StepsColumn), QStringLiteral("Triple\nBasic"));
    QCOMPARE(table()->horizontalHeaderItem(StepsColumn)->text(), QStringLiteral("Positionen"));
}

void TestPositionsPage::rowNumberLooksLikeAHeader()
{
    show(songWith(1, QStringLiteral("x")));
    const QTableWidgetItem *number = table()->item(0, NumberColumn);
    QCOMPARE(number->background().color(), QColor(0x35, 0x35, 0x35));
    QCOMPARE(number->foreground().color(), QColor(Qt::white));
    QVERIFY(number->textAlignment() & Qt::AlignRight);
    QVERIFY(table()->item(0, StepsColumn)->textAlignment() & Qt::AlignLeft);
    QVERIFY(table()->item(0, BeatsColumn)->textAlignment() & Qt::AlignRight);
}

void TestPositionsPage::songWithoutPositions()
{
    show(songWith(0, {}));
    QCOMPARE(table()->rowCount(), 0);
    QVERIFY(table()->horizontalHeader()->isVisible());
    QCOMPARE(page->selectedPositionsRow(), -1);
    page->scrollDownPositions(1);
    page->scrollUpPositions(1);
    QCOMPARE(page->selectedPositionsRow(), -1);
}

void TestPositionsPage::noSongEmptiesThePage()
{
    show(songWith(3, QStringLiteral("x")));
    show({});
    QCOMPARE(table()->rowCount(), 0);
}

void TestPositionsPage::beatsColumnFollowsTheBpm()
{
    const SongPtr song = songWith(2, QStringLiteral("x"), 0);
    show(song);
    QVERIFY(table()->isColumnHidden(BeatsColumn));
    song->setBpm(QStringLiteral("100"));
    page->refreshPositionsWindow();
    QVERIFY(!table()->isColumnHidden(BeatsColumn));
    page->setColumnShown(BeatsColumn, false);
    page->refreshPositionsWindow();
    QVERIFY(table()->isColumnHidden(BeatsColumn));
    // Wanting them doesn't show them while there are none.
    song->setBpm(QStringLiteral("0"));
    page->setColumnShown(BeatsColumn, true);
    QVERIFY(table()->isColumnHidden(BeatsColumn));
}

void TestPositionsPage::columnsCanBeHidden_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("parts") << static_cast<int>(PartColumn);
    QTest::newRow("beats") << static_cast<int>(BeatsColumn);
    QTest::newRow("time") << static_cast<int>(TimeColumn);
}

void TestPositionsPage::columnsCanBeHidden()
{
    QFETCH(int, column);
    show(songWith(2, QStringLiteral("x")));
    for (const bool shown : {false, true, false}) {
        page->setColumnShown(static_cast<PositionsColumn>(column), shown);
        QCOMPARE(table()->isColumnHidden(column), !shown);
        page->refreshPositionsWindow();
        QCOMPARE(table()->isColumnHidden(column), !shown);
        QCOMPARE(table()->item(0, column) != nullptr, shown);
    }
}

void TestPositionsPage::longTextsGetASmallerFont()
{
    page->setFullWidth(true);
    show(songWith(2, QStringLiteral("Triple")));
    const int large = stepsFont().pointSize();
    show(songWith(2, QStringLiteral("Triple, Basic, Rocking Chair, Turkey, Cowboy, Fontana")));
    const int small = stepsFont().pointSize();
    QVERIFY2(small < large, qPrintable(QStringLiteral("%1 %2").arg(small).arg(large)));
    QVERIFY(small >= 8);
    int width = 0;
    for (int column = 0; column < PositionsColumnCount; ++column)
        width += table()->columnWidth(column);
    QVERIFY(width <= table()->horizontalHeader()->width() + 10);
}

void TestPositionsPage::wholeTextShowsEveryRow()
{
    page->setFullWidth(false);
    show(songWith(15, QStringLiteral("x")));
    int height = 0;
    for (int row = 0; row < 15; ++row)
        height += table()->rowHeight(row);
    QVERIFY2(height <= table()->viewport()->height() + 15, qPrintable(QString::number(height)));
}

void TestPositionsPage::fullWidthScrolls()
{
    page->setFullWidth(true);
    show(songWith(15, QStringLiteral("x")));
    QVERIFY(table()->verticalScrollBar()->maximum() > 0);
}

void TestPositionsPage::fontNeverGrowsAboveItsMaximum()
{
    page->setFullWidth(true);
    page->setMaxFontSize(20);
    show(songWith(1, QStringLiteral("x")));
    QCOMPARE(stepsFont().pointSize(), 19);
    page->setMaxFontSize(5);
    page->refreshPositionsWindow();
    QVERIFY(stepsFont().pointSize() > 0);
}

void TestPositionsPage::alignmentFollowsTheSetting()
{
    page->setVerticalAlignment(Qt::AlignTop);
    show(songWith(1, QStringLiteral("x")));
    QVERIFY(table()->item(0, StepsColumn)->textAlignment() & Qt::AlignTop);
}

void TestPositionsPage::markingLeavesTheNumberOut()
{
    show(songWith(3, QStringLiteral("x")));
    page->selectPositionsRow(1, false);
    QCOMPARE(page->selectedPositionsRow(), 1);
    QCOMPARE(markedColumns(1), (QList<int>{PartColumn, BeatsColumn, StepsColumn}));
    page->selectPositionsRow(2, false);
    QVERIFY(markedColumns(1).isEmpty());
}

void TestPositionsPage::activePartIsMarkedAndCentred()
{
    page->setFullWidth(true);
    show(songWith(40, QStringLiteral("x")));
    page->on_partChanged(20);
    QCOMPARE(page->selectedPositionsRow(), 20);
    const QRect row = table()->visualItemRect(table()->item(20, StepsColumn));
    const int middle = table()->viewport()->rect().center().y();
    QVERIFY(std::abs(row.center().y() - middle) <= row.height());
}

void TestPositionsPage::noPartIsNotMarked()
{
    show(songWith(3, QStringLiteral("x")));
    page->on_partChanged(1);
    page->on_partChanged(-1);
    QCOMPARE(page->selectedPositionsRow(), -1);
}

void TestPositionsPage::movingTheMark_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("step"); // down is positive
    QTest::addColumn<int>("to");
    QTest::newRow("down from nowhere") << -1 << 1 << 0;
    QTest::newRow("up from nowhere") << -1 << -1 << 29;
    QTest::newRow("page down from nowhere") << -1 << 5 << 0;
    QTest::newRow("page up from nowhere") << -1 << -5 << 29;
    QTest::newRow("end from nowhere") << -1 << 999999 << 29;
    QTest::newRow("home from nowhere") << -1 << -999999 << 0;
    QTest::newRow("down") << 3 << 1 << 4;
    QTest::newRow("up") << 3 << -1 << 2;
    QTest::newRow("page down") << 3 << 5 << 8;
    QTest::newRow("page up stops") << 3 << -5 << 0;
    QTest::newRow("page down stops") << 27 << 5 << 29;
    QTest::newRow("down at the end") << 29 << 1 << 29;
    QTest::newRow("up at the start") << 0 << -1 << 0;
}

void TestPositionsPage::movingTheMark()
{
    QFETCH(int, from);
    QFETCH(int, step);
    show(songWith(30, QStringLiteral("x")));
    page->on_partChanged(from);
    if (step > 0)
        page->scrollDownPositions(step);
    else
        page->scrollUpPositions(-step);
    QTEST(page->selectedPositionsRow(), "to");
}

void TestPositionsPage::markSurvivesARebuild()
{
    show(songWith(3, QStringLiteral("x")));
    page->on_partChanged(1);
    page->refreshPositionsWindow();
    QCOMPARE(page->selectedPositionsRow(), 1);
}

void TestPositionsPage::pressingACellMarksIt()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy start(page.get(), &PositionsPage::startRequested);
    QSignalSpy pressed(page.get(), &PositionsPage::pressed);
    QTest::mousePress(table()->viewport(), Qt::LeftButton, {}, cell(1, StepsColumn));
    QCOMPARE(page->selectedPositionsRow(), 1);
    QCOMPARE(start.size(), 0);
    QCOMPARE(pressed.size(), 1);
}

void TestPositionsPage::pressingTheNumberStartsThePart()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy start(page.get(), &PositionsPage::startRequested);
    QTest::mousePress(table()->viewport(), Qt::LeftButton, {}, cell(2, NumberColumn));
    QCOMPARE(start.size(), 1);
    QCOMPARE(start.constFirst().constFirst().toInt(), 2);
    QCOMPARE(page->selectedPositionsRow(), 2);
}

void TestPositionsPage::doubleClickStartsThePart()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy start(page.get(), &PositionsPage::startRequested);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(1, StepsColumn));
    QCOMPARE(start.size(), 0);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(1, StepsColumn));
    QCOMPARE(start.size(), 1);
    QCOMPARE(start.constFirst().constFirst().toInt(), 1);
}

void TestPositionsPage::resizingChoosesTheFontAnew()
{
    page->setFullWidth(true);
    show(songWith(3, QStringLiteral("Triple, Basic, Rocking Chair, Turkey")));
    const int wide = stepsFont().pointSize();
    page->resize(500, 600);
    QTRY_VERIFY(stepsFont().pointSize() < wide);
}

void TestPositionsPage::resizingAColumnRebuildsThePage()
{
    show(songWith(3, QStringLiteral("x")));
    table()->item(0, StepsColumn)->setText(QStringLiteral("to be replaced"));
    table()->horizontalHeader()->resizeSection(PartColumn, 300);
    // The rebuild puts the width back to what the text needs.
    QVERIFY(table()->columnWidth(PartColumn) != 300);
    QCOMPARE(text(0, StepsColumn), QStringLiteral("x"));
}

void TestPositionsPage::resizingRebuildsThePageOnce_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wider") << QSize(1200, 600);
    QTest::newRow("higher") << QSize(1000, 700);
    QTest::newRow("both") << QSize(900, 500);
}

void TestPositionsPage::resizingRebuildsThePageOnce()
{
    QFETCH(QSize, size);
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy rebuilt(page.get(), &PositionsPage::rebuilt);
    page->resize(size);
    QTRY_COMPARE(table()->size(), size);
    QCoreApplication::processEvents();
    QCOMPARE(rebuilt.size(), 1);
    const QFont chosen = stepsFont();
    page->refreshPositionsWindow();
    QCOMPARE(stepsFont(), chosen);
}

void TestPositionsPage::aRebuildStartsNoOther()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy rebuilt(page.get(), &PositionsPage::rebuilt);
    show(songWith(30, QStringLiteral("Triple\nBasic")));
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(rebuilt.size(), 1);
}

void TestPositionsPage::togglingAColumn_data()
{
    using Toggle = void (PositionsPage::*)();
    QTest::addColumn<int>("column");
    QTest::addColumn<Toggle>("toggle");
    QTest::newRow("parts") << int(PartColumn) << &PositionsPage::togglePartCol;
    QTest::newRow("beats") << int(BeatsColumn) << &PositionsPage::toggleBeatCol;
    QTest::newRow("time") << int(TimeColumn) << &PositionsPage::toggleTimeCol;
}

void TestPositionsPage::togglingAColumn()
{
    using Toggle = void (PositionsPage::*)();
    QFETCH(int, column);
    QFETCH(Toggle, toggle);
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy rebuilt(page.get(), &PositionsPage::rebuilt);
    const bool hidden = table()->isColumnHidden(column);
    for (const bool now : {!hidden, hidden, !hidden}) {
        (page.get()->*toggle)();
        QCOMPARE(table()->isColumnHidden(column), now);
        QCOMPARE(rebuilt.size(), 0);
    }
    // The other columns make room, and with their widths changes the page.
    QTRY_VERIFY(rebuilt.size() > 0);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    QVERIFY(rebuilt.size() <= 2);
    QCOMPARE(table()->isColumnHidden(column), !hidden);
    QCOMPARE(table()->item(1, column) != nullptr, hidden);
}

void TestPositionsPage::beatsOfASongWithoutBpmStayAway()
{
    page->setColumnShown(BeatsColumn, false);
    show(songWith(2, QStringLiteral("x"), 0));
    page->toggleBeatCol();
    QVERIFY(table()->isColumnHidden(BeatsColumn));
    show(songWith(2, QStringLiteral("x"), 120));
    QVERIFY(!table()->isColumnHidden(BeatsColumn));
}

void TestPositionsPage::startingUpEmptiesThePage()
{
    QSignalSpy emptied(page.get(), &PositionsPage::emptied);
    page->setSong(songWith(3, QStringLiteral("x")));
    page->setStartingUp(true);
    page->refreshPositionsWindow();
    QCOMPARE(table()->rowCount(), 0);
    QCOMPARE(emptied.size(), 1);
    page->setStartingUp(false);
    page->refreshPositionsWindow();
    QCOMPARE(table()->rowCount(), 3);
    QCOMPARE(emptied.size(), 1);
}

void TestPositionsPage::newSongsRowsAreThereAtOnce()
{
    show(songWith(3, QStringLiteral("x")));
    page->selectPositionsRow(1, false);
    QSignalSpy rebuilt(page.get(), &PositionsPage::rebuilt);
    page->setSong(songWith(5, QStringLiteral("y")));
    QCOMPARE(page->rowCount(), 5);
    QVERIFY(!page->hasMarkedRow());
    QCOMPARE(rebuilt.size(), 0);
}

void TestPositionsPage::actionsHearOfTheMark()
{
    show(songWith(3, QStringLiteral("x")));
    QVERIFY(!page->hasMarkedRow());
    QList<bool> heard;
    connect(page.get(), &PositionsPage::markedRowChanged, this,
            [&] { heard.append(page->hasMarkedRow()); });
    page->on_partChanged(1);
    page->on_partChanged(-1);
    page->scrollDownPositions(1);
    page->setSong({});
    QCOMPARE(heard, (QList<bool>{true, false, true, false}));
}

void TestPositionsPage::rebuildTellsTheEditorFirst()
{
    show(songWith(3, QStringLiteral("x")));
    QStringList heard;
    connect(page.get(), &PositionsPage::rebuilt, this,
            [&heard] { heard.append(QStringLiteral("editor")); });
    connect(page.get(), &PositionsPage::markedRowChanged, this,
            [&heard] { heard.append(QStringLiteral("actions")); });
    page->refreshPositionsWindow();
    QCOMPARE(heard, (QStringList{QStringLiteral("editor"), QStringLiteral("actions")}));
}

// A lead-in of minutes plays without an output, in a part that begins before it.
void TestPositionsPage::playingPartIsMarkedByARebuild()
{
    const SongPtr song = songWith(3, QStringLiteral("x"));
    song->getPositions().at(0).setTime(-600000);
    CountDownItem *item = song->getCountDowns().addNew();
    item->setIgnition(100);
    item->setCountStart(600);
    item->setEnabled(true);
    connect(player.get(), &Player::notifyActivePartChanged, page.get(),
            &PositionsPage::on_partChanged);
    player->setSong(song);
    show(song);
    QCOMPARE(page->selectedPositionsRow(), -1);
    player->start();
    QVERIFY(player->isPlaying());
    page->refreshPositionsWindow();
    QTRY_COMPARE(page->selectedPositionsRow(), 0);
    page->selectPositionsRow(2, false);
    page->refreshPositionsWindow();
    QCOMPARE(page->selectedPositionsRow(), 0);
    player->stop();
    page->selectPositionsRow(2, false);
    page->refreshPositionsWindow();
    QCOMPARE(page->selectedPositionsRow(), 2);
}

void TestPositionsPage::markIsInViewAfterARebuild()
{
    show(songWith(30, QStringLiteral("x")));
    page->on_partChanged(20);
    page->setFullWidth(true);
    page->refreshPositionsWindow();
    QCOMPARE(page->selectedPositionsRow(), 20);
    const QRect row = table()->visualItemRect(table()->item(20, StepsColumn));
    QVERIFY(table()->viewport()->rect().contains(row));
}

void TestPositionsPage::enteringShowsTheMarkedRow()
{
    page->setFullWidth(true);
    page->setSong(songWith(40, QStringLiteral("x")));
    page->selectPositionsRow(30, false);
    QSignalSpy pressed(page.get(), &PositionsPage::pressed);
    page->enter();
    QCOMPARE(page->selectedPositionsRow(), -1); // there were no cells to mark yet
    page->selectPositionsRow(30, false);
    table()->scrollToTop();
    page->enter();
    const QRect row = table()->visualItemRect(table()->item(30, StepsColumn));
    QVERIFY(table()->viewport()->rect().intersects(row));
    QCOMPARE(pressed.size(), 2);
}

void TestPositionsPage::oneMarkedCellIsScrolledTo()
{
    page->setFullWidth(true);
    show(songWith(40, QStringLiteral("x")));
    table()->item(35, PartColumn)->setSelected(true);
    page->scrollToCurrentPosition();
    const QRect marked = table()->visualItemRect(table()->item(35, PartColumn));
    QVERIFY(table()->viewport()->rect().contains(marked));
    // Seen, not in the middle.
    QVERIFY(marked.center().y() > table()->viewport()->height() * 2 / 3);
}

void TestPositionsPage::nothingMarkedScrollsToTheTop()
{
    page->setFullWidth(true);
    show(songWith(40, QStringLiteral("x")));
    table()->scrollToBottom();
    page->scrollToCurrentPosition();
    QCOMPARE(table()->verticalScrollBar()->value(), 0);
}

TARVELO_TEST_MAIN(TestPositionsPage, QApplication)
#include "tst_PositionsPage.moc"
