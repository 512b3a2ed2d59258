#include "PositionsFixture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>

// The menu of the positions page, and what it and the keys ask for.
class TestPositionsMenu : public PositionsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTheme(QStringLiteral("Dark Night")); }
    void init();
    void cleanup();

    void offersItsActionsInTheirOrder();
    void offersNoPlayWithoutPositions();
    void opensWhereTheOriginLies();
    void opensOverTheTableWithoutAnOrigin();
    void goesAwayForGood();
    void staysAwayWithoutASong();
    void secondRightClickOpensNoOther();
    void stateEnds_data();
    void stateEnds();
    void rightClickOnACellOpensItEachTime();
    void rowIsThatUnderThePointer();
    void noRowAtFirst();
    void playsItsRow();
    void loopsItsRow();
    void keyLoopsTheMarkedRow();

private:
    QPoint belowTheRows() const { return {20, table()->viewport()->height() - 5}; }
    void rightClick(const QPoint &pos);
    void askForMenu(const QPoint &pos);
    static QMenu *openMenu();
    static void closeMenu();

    std::unique_ptr<QAction> play;
    std::unique_ptr<QAction> edit;
    std::unique_ptr<QAction> shift;
};

void TestPositionsMenu::init()
{
    showPage();
    play = std::make_unique<QAction>(QStringLiteral("play"));
    edit = std::make_unique<QAction>(QStringLiteral("edit"));
    shift = std::make_unique<QAction>(QStringLiteral("shift"));
    page->setContextMenuActions({play.get()}, {edit.get(), nullptr, shift.get()});
}

void TestPositionsMenu::cleanup()
{
    closeMenu();
    dropPage();
}

// As a mouse does it: the press comes first.
void TestPositionsMenu::rightClick(const QPoint &pos)
{
    QTest::mousePress(table()->viewport(), Qt::RightButton, {}, pos);
    askForMenu(pos);
    QTest::mouseRelease(table()->viewport(), Qt::RightButton, {}, pos);
}

void TestPositionsMenu::askForMenu(const QPoint &pos)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, table()->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(table()->viewport(), &event);
}

QMenu *TestPositionsMenu::openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

void TestPositionsMenu::closeMenu()
{
    if (QMenu *menu = openMenu())
        menu->close();
}

void TestPositionsMenu::offersItsActionsInTheirOrder()
{
    show(songWith(3, QStringLiteral("x")));
    rightClick(cell(1, StepsColumn));
    QVERIFY(openMenu());
    QStringList texts;
    for (const QAction *action : openMenu()->actions())
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("play - edit - shift"));
}

void TestPositionsMenu::offersNoPlayWithoutPositions()
{
    show(songWith(0, {}));
    rightClick(belowTheRows());
    QVERIFY(openMenu());
    QCOMPARE(openMenu()->actions(),
             (QList<QAction *>{edit.get(), openMenu()->actions().at(1), shift.get()}));
    QVERIFY(openMenu()->actions().at(1)->isSeparator());
}

void TestPositionsMenu::opensWhereTheOriginLies()
{
    QWidget other;
    other.setGeometry(page->x() + 30, page->y() + 40, 300, 300);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    page->setContextMenuOrigin(&other);
    show(songWith(0, {}));
    rightClick({50, 60});
    QVERIFY(openMenu());
    QCOMPARE(openMenu()->pos(), other.mapToGlobal(QPoint(50, 60)));
    QCOMPARE(openMenu()->parentWidget(), &other);
}

void TestPositionsMenu::opensOverTheTableWithoutAnOrigin()
{
    show(songWith(0, {}));
    rightClick({50, 60});
    QCOMPARE(openMenu()->pos(), table()->viewport()->mapToGlobal(QPoint(50, 60)));
}

void TestPositionsMenu::goesAwayForGood()
{
    show(songWith(3, QStringLiteral("x")));
    for (int i = 0; i < 3; ++i) {
        rightClick(cell(1, StepsColumn));
        QTest::keyClick(openMenu(), Qt::Key_Escape);
        QTRY_VERIFY(!openMenu());
        QTRY_VERIFY(page->findChildren<QMenu *>().isEmpty());
    }
    QSignalSpy triggered(edit.get(), &QAction::triggered);
    rightClick(cell(1, StepsColumn));
    QMenu *menu = openMenu();
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(edit.get()).center());
    QCOMPARE(triggered.size(), 1);
    QTRY_VERIFY(page->findChildren<QMenu *>().isEmpty());
}

void TestPositionsMenu::staysAwayWithoutASong()
{
    show({});
    QSignalSpy pressed(page.get(), &PositionsPage::pressed);
    rightClick(belowTheRows());
    QVERIFY(!openMenu());
    QVERIFY(!page->isContextMenuOpen());
    QCOMPARE(pressed.size(), 1);
}

// Below the rows, where a press marks nothing: the menu has gone, its state has not.
void TestPositionsMenu::secondRightClickOpensNoOther()
{
    show(songWith(1, QStringLiteral("x")));
    rightClick(belowTheRows());
    QVERIFY(page->isContextMenuOpen());
    closeMenu();
    QVERIFY(page->isContextMenuOpen());
    QSignalSpy pressed(page.get(), &PositionsPage::pressed);
    rightClick(belowTheRows());
    QVERIFY(!openMenu());
    QVERIFY(!page->isContextMenuOpen());
    QCOMPARE(pressed.size(), 1);
    rightClick(belowTheRows());
    QVERIFY(openMenu());
}

void TestPositionsMenu::stateEnds_data()
{
    using Change = void (*)(PositionsPage &);
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
    row("a row is marked", [](PositionsPage &it) { it.selectPositionsRow(1, false); });
    row("a part plays", [](PositionsPage &it) { it.on_partChanged(1); });
    row("the mark moves", [](PositionsPage &it) { it.scrollDownPositions(1); });
    row("its row is played", [](PositionsPage &it) { it.popupMenuPlay(); });
    row("its row is looped", [](PositionsPage &it) { it.popupMenuPlayLoop(); });
    row("the page comes into view", [](PositionsPage &it) { it.enter(); });
}

void TestPositionsMenu::stateEnds()
{
    using Change = void (*)(PositionsPage &);
    QFETCH(Change, change);
    show(songWith(3, QStringLiteral("x")));
    rightClick(cell(1, StepsColumn));
    QVERIFY(page->isContextMenuOpen());
    closeMenu();
    change(*page);
    QVERIFY(!page->isContextMenuOpen());
}

void TestPositionsMenu::rightClickOnACellOpensItEachTime()
{
    show(songWith(3, QStringLiteral("x")));
    for (int row = 0; row < 3; ++row) {
        rightClick(cell(row, StepsColumn));
        QVERIFY(openMenu());
        QCOMPARE(page->selectedPositionsRow(), row);
        QCOMPARE(page->contextMenuRow(), row);
        closeMenu();
    }
}

void TestPositionsMenu::rowIsThatUnderThePointer()
{
    show(songWith(3, QStringLiteral("x")));
    askForMenu(cell(2, PartColumn));
    QCOMPARE(page->contextMenuRow(), 2);
    page->selectPositionsRow(0, false);
    QCOMPARE(page->contextMenuRow(), 2);
    closeMenu();
    askForMenu(belowTheRows());
    QCOMPARE(page->contextMenuRow(), -1);
}

void TestPositionsMenu::noRowAtFirst()
{
    QCOMPARE(page->contextMenuRow(), -1);
    QVERIFY(!page->isContextMenuOpen());
    QSignalSpy start(page.get(), &PositionsPage::startRequested);
    QSignalSpy loop(page.get(), &PositionsPage::loopRequested);
    page->popupMenuPlay();
    QCOMPARE(start.size(), 0); // there is no song
    show(songWith(3, QStringLiteral("x")));
    page->popupMenuPlay();
    page->popupMenuPlayLoop();
    QCOMPARE(start.value(0).value(0).toInt(), -1);
    QCOMPARE(loop.value(0).value(0).toInt(), -1);
}

void TestPositionsMenu::playsItsRow()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy start(page.get(), &PositionsPage::startRequested);
    rightClick(cell(2, StepsColumn));
    page->popupMenuPlay();
    QCOMPARE(start.size(), 1);
    QCOMPARE(start.constFirst().constFirst().toInt(), 2);
}

void TestPositionsMenu::loopsItsRow()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy loop(page.get(), &PositionsPage::loopRequested);
    rightClick(cell(2, StepsColumn));
    page->popupMenuPlayLoop();
    QCOMPARE(loop.size(), 1);
    QCOMPARE(loop.constFirst().constFirst().toInt(), 2);
}

void TestPositionsMenu::keyLoopsTheMarkedRow()
{
    show(songWith(3, QStringLiteral("x")));
    QSignalSpy loop(page.get(), &PositionsPage::loopRequested);
    page->playLoop();
    QCOMPARE(loop.size(), 0);
    page->selectPositionsRow(1, false);
    page->playLoop();
    QCOMPARE(loop.size(), 1);
    QCOMPARE(loop.constFirst().constFirst().toInt(), 1);
}

TARVELO_TEST_MAIN(TestPositionsMenu, QApplication)
#include "tst_PositionsMenu.moc"
