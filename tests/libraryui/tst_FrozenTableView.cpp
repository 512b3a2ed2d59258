#include "../playlists/TestLibrary.h"
#include "FilterTableView.h"
#include "FrozenTableView.h"
#include "FrozenTableViewStyle.h"
#include "SongDelegate.h"
#include "SongListFilter.h"
#include "TestMain.h"
#include "TestSongs.h"
#include "Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>

using namespace Qt::StringLiterals;

// The table with the frozen first row: what stays in view, what follows what, and what outlives the
// resets of its model.
class TestFrozenTableView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theRowLiesOverTheFirst();
    void withoutARowItIsGone();
    void aRowWithoutHeightHasTwentyPixels();
    void theRowFollowsItsHeight();
    void theRowStaysWhileSongsScroll();
    void theRowStaysWhileSongsAreSorted();
    void theRowFollowsSideways();
    void theRowFollowsTheWidth();
    void columnsAreFollowed();
    void aMovedColumnTakesItsWidgetAlong();
    void aRestoredHeaderIsFollowed();
    void filterTextsAreShown();
    void scrollingToTheFilterRow();
    void scrollingToASongUncoversIt_data();
    void scrollingToASongUncoversIt();
    void movingLeftStaysInSight();
    void widgetsOutliveResets();
    void resetsOfManyRowsAreQuick();
    void theDropIsMarkedByALine();
    void theStyleStandsAlone();
    void missingFilesAreRed_data();
    void missingFilesAreRed();
    void numbersHaveNoSeparators();

private:
    FilterTableView *frozen() const { return view->getFrozenView(); }
    void fill(int count);

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<SongListTableModel> model;
    std::unique_ptr<SongListFilter> filter;
    std::unique_ptr<FrozenTableView> view;
};

void TestFrozenTableView::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    songs = std::make_unique<TestSongs>();
    model = std::make_unique<SongListTableModel>(&songs->manager);
    model->setPlaylist(songs->manager.getMasterList());
    filter = std::make_unique<SongListFilter>(model.get(), true);
    view = std::make_unique<FrozenTableView>();
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setModel(filter.get());
    view->init();
    view->setSortingEnabled(true);
    view->resize(700, 400);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
}

void TestFrozenTableView::cleanup()
{
    view.reset();
    filter.reset();
    model.reset();
    songs.reset();
    qApp->setStyleSheet({});
}

void TestFrozenTableView::fill(int count)
{
    const PlaylistPtr list(new PlaylistFile(&songs->manager));
    for (int number = 0; number < count; ++number)
        list->add(u"/music/%1.mp3"_s.arg(number));
    model->setPlaylist(list);
    QCoreApplication::processEvents();
}

void TestFrozenTableView::theRowLiesOverTheFirst()
{
    fill(50);
    QVERIFY(frozen()->isVisible());
    QCOMPARE(frozen()->parentWidget(), view.get());
    QCOMPARE(frozen()->pos(), view->viewport()->pos());
    QCOMPARE(frozen()->y(), view->horizontalHeader()->height() + view->frameWidth());
    QCOMPARE(frozen()->width(), view->viewport()->width());
    QCOMPARE(frozen()->height(), view->rowHeight(0));
    QCOMPARE(frozen()->model()->rowCount(), 1);
    QVERIFY(view->children().indexOf(frozen()) > view->children().indexOf(view->viewport()));
    QVERIFY(!frozen()->horizontalHeader()->isVisible());
    QVERIFY(!frozen()->verticalHeader()->isVisible());
    QCOMPARE(frozen()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(frozen()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(frozen()->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(frozen()->focusPolicy(), Qt::NoFocus);
}

void TestFrozenTableView::withoutARowItIsGone()
{
    fill(3);
    model->setPlaylist({});
    QVERIFY(!frozen()->isVisible());
    fill(3);
    QVERIFY(frozen()->isVisible());
    QCOMPARE(frozen()->height(), view->rowHeight(0));
}

void TestFrozenTableView::aRowWithoutHeightHasTwentyPixels()
{
    fill(3);
    view->verticalHeader()->setMinimumSectionSize(0);
    view->setRowHeight(0, 0);
    QCOMPARE(frozen()->height(), 20);
    model->setPlaylist({});
    view->updateFrozenTableGeometry();
    QCOMPARE(frozen()->height(), 20);
}

void TestFrozenTableView::theRowFollowsItsHeight()
{
    fill(3);
    view->setRowHeight(0, 47);
    QCOMPARE(frozen()->rowHeight(0), 47);
    QCOMPARE(frozen()->height(), 47);
    view->setRowHeight(1, 60);
    QCOMPARE(frozen()->height(), 47);
    fill(5);
    QCOMPARE(view->rowHeight(0), 47);
    frozen()->setRowHeight(0, 33);
    view->refreshFrozenRow();
    QCOMPARE(view->rowHeight(0), 33);
    QCOMPARE(frozen()->height(), 33);
}

void TestFrozenTableView::theRowStaysWhileSongsScroll()
{
    fill(200);
    const QRect before = frozen()->geometry();
    view->verticalScrollBar()->setValue(100);
    QCOMPARE(frozen()->geometry(), before);
    QVERIFY(frozen()->visualRect(frozen()->model()->index(0, 0)).top() == 0);
}

void TestFrozenTableView::theRowStaysWhileSongsAreSorted()
{
    songs->library(u"cab"_s);
    const QRect before = frozen()->geometry();
    model->setFilterText(u"x"_s, 0);
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        view->sortByColumn(TitleColumn, order);
        QCOMPARE(frozen()->geometry(), before);
        QCOMPARE(frozen()->model()->index(0, 0).data().toString(), u"x"_s);
        QCOMPARE(filter->index(0, 0).data().toString(), u"x"_s);
    }
}

void TestFrozenTableView::theRowFollowsSideways()
{
    fill(3);
    QVERIFY(view->horizontalScrollBar()->maximum() > 300);
    for (const int value : {200, 317, 0, view->horizontalScrollBar()->maximum()}) {
        view->horizontalScrollBar()->setValue(value);
        QCOMPARE(frozen()->columnViewportPosition(5), view->columnViewportPosition(5));
    }
}

void TestFrozenTableView::theRowFollowsTheWidth()
{
    fill(3);
    view->resize(500, 300);
    QCOMPARE(frozen()->width(), view->viewport()->width());
    view->resize(900, 300);
    QCOMPARE(frozen()->width(), view->viewport()->width());
}

void TestFrozenTableView::columnsAreFollowed()
{
    fill(3);
    view->setColumnWidth(2, 222);
    QCOMPARE(frozen()->columnWidth(2), 222);
    view->setColumnHidden(2, true);
    QVERIFY(frozen()->isColumnHidden(2));
    QCOMPARE(frozen()->columnViewportPosition(3), view->columnViewportPosition(3));
    view->setColumnHidden(2, false);
    QVERIFY(!frozen()->isColumnHidden(2));
    QCOMPARE(frozen()->columnWidth(2), 222);
    view->horizontalHeader()->setStretchLastSection(true);
    view->resize(20000, 300);
    for (int column = 0; column < SongColumnCount; ++column)
        QCOMPARE(frozen()->columnWidth(column), view->columnWidth(column));
}

void TestFrozenTableView::aMovedColumnTakesItsWidgetAlong()
{
    fill(3);
    auto *edit = new QLineEdit;
    frozen()->setIndexWidget(frozen()->model()->index(0, 4), edit);
    view->horizontalHeader()->moveSection(4, 1);
    QCOMPARE(frozen()->horizontalHeader()->visualIndex(4), 1);
    QCoreApplication::processEvents();
    QCOMPARE(edit->x(), view->columnViewportPosition(4));
    view->horizontalHeader()->moveSection(0, 6);
    QCoreApplication::processEvents();
    for (int column = 0; column < SongColumnCount; ++column)
        QCOMPARE(frozen()->columnViewportPosition(column), view->columnViewportPosition(column));
    QCOMPARE(edit->x(), 0);
}

void TestFrozenTableView::aRestoredHeaderIsFollowed()
{
    fill(3);
    view->horizontalHeader()->moveSection(0, 7);
    view->setColumnWidth(3, 321);
    view->setColumnHidden(5, true);
    const QByteArray state = view->horizontalHeader()->saveState();
    FrozenTableView other;
    other.setModel(filter.get());
    other.init();
    QVERIFY(other.horizontalHeader()->restoreState(state));
    other.refreshFrozenColumns();
    const QHeaderView *header = other.getFrozenView()->horizontalHeader();
    QCOMPARE(header->visualIndex(0), 7);
    QCOMPARE(header->sectionSize(3), 321);
    QVERIFY(header->isSectionHidden(5));
    QVERIFY(header->isHidden());
    QCOMPARE(header->sectionResizeMode(3), QHeaderView::Fixed);
}

void TestFrozenTableView::filterTextsAreShown()
{
    fill(3);
    QSignalSpy changed(frozen()->model(), &QAbstractItemModel::dataChanged);
    model->setFilterText(u"easy"_s, LevelColumn);
    QVERIFY(!changed.isEmpty());
    QCOMPARE(frozen()->model()->index(0, LevelColumn).data().toString(), u"easy"_s);
}

void TestFrozenTableView::scrollingToTheFilterRow()
{
    fill(200);
    view->verticalScrollBar()->setValue(100);
    view->scrollTo(filter->index(0, 0));
    view->scrollTo(filter->index(0, 0), QAbstractItemView::PositionAtTop);
    QCOMPARE(view->verticalScrollBar()->value(), 100);
    view->selectRow(0);
    QCOMPARE(view->verticalScrollBar()->value(), 100);
}

void TestFrozenTableView::scrollingToASongUncoversIt_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QAbstractItemView::ScrollHint>("hint");
    for (const int row : {1, 2, 99, 100, 101, 103, 150, 200}) {
        for (const auto hint : {QAbstractItemView::EnsureVisible, QAbstractItemView::PositionAtTop})
            QTest::addRow("row %d, %s", row, hint ? "at the top" : "visible") << row << hint;
    }
}

void TestFrozenTableView::scrollingToASongUncoversIt()
{
    QFETCH(int, row);
    QFETCH(QAbstractItemView::ScrollHint, hint);
    fill(200);
    view->verticalScrollBar()->setValue(100);
    view->scrollTo(filter->index(row, 0), hint);
    const QRect place = view->visualRect(filter->index(row, 0));
    QVERIFY(place.top() >= frozen()->height());
    QVERIFY(place.bottom() <= view->viewport()->height());
    if (row == 103 && hint == QAbstractItemView::EnsureVisible)
        QCOMPARE(view->verticalScrollBar()->value(), 100);
}

void TestFrozenTableView::movingLeftStaysInSight()
{
    fill(3);
    for (int column = 0; column < SongColumnCount; ++column)
        view->setColumnWidth(column, 100);
    view->setCurrentIndex(filter->index(1, 8));
    view->horizontalScrollBar()->setValue(800);
    view->setFocus();
    QTest::keyClick(view.get(), Qt::Key_Left);
    QCOMPARE(view->currentIndex().column(), 7);
    QVERIFY(view->visualRect(view->currentIndex()).left() >= 100);
}

void TestFrozenTableView::widgetsOutliveResets()
{
    constexpr int resets = 2000;
    songs->library(u"ab"_s);
    QList<QPointer<QWidget>> widgets;
    for (int column = 0; column < SongColumnCount; ++column) {
        auto *edit = new QLineEdit(QString::number(column));
        frozen()->setIndexWidget(frozen()->model()->index(0, column), edit);
        widgets.append(edit);
    }
    QCoreApplication::processEvents();
    const auto objects = [this] { return view->findChildren<QObject *>().size(); };
    const auto before = objects();
    for (int count = 0; count < resets; ++count) {
        if (count % 4 == 0)
            model->setPlaylist(count % 8 == 0
                                   ? PlaylistPtr()
                                   : songs->manager.getMasterList().dynamicCast<Playlist>());
        else
            model->refresh();
        filter->invalidate();
        frozen()->reset();
        view->refreshFrozenRow();
        if (count % 50 == 0) {
            view->grab();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        }
    }
    model->setPlaylist(songs->manager.getMasterList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(objects(), before);
    for (int column = 0; column < SongColumnCount; ++column) {
        QVERIFY(widgets.at(column));
        const QModelIndex cell = frozen()->model()->index(0, column);
        QCOMPARE(frozen()->indexWidget(cell), widgets.at(column).data());
        QVERIFY(!widgets.at(column)->isHidden());
        QCOMPARE(widgets.at(column)->geometry().x(), view->columnViewportPosition(column));
        QCOMPARE(qobject_cast<QLineEdit *>(widgets.at(column))->text(), QString::number(column));
    }
}

void TestFrozenTableView::resetsOfManyRowsAreQuick()
{
    TestLibrary library;
    for (int number = 0; number < 10000; ++number)
        library.put(u"/music/%1.mp3"_s.arg(number));
    const PlaylistPtr list(new PlaylistMaster(&library));
    list->refresh();
    model->setPlaylist(list);
    QElapsedTimer timer;
    timer.start();
    for (int count = 0; count < 10; ++count) {
        model->refresh();
        QCoreApplication::processEvents();
    }
    // A tenth of it on a quiet machine.
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    qDebug() << timer.elapsed() / 10 << "ms a reset";
    model->setPlaylist({});
}

void TestFrozenTableView::theDropIsMarkedByALine()
{
    const FrozenTableViewStyle style(QApplication::style());
    QStyleOption option;
    option.palette.setColor(QPalette::Text, Qt::black);
    option.rect = QRect(200, 60, 90, 25);
    QImage picture(400, 100, QImage::Format_RGB32);
    const auto draw = [&](const QWidget *widget) {
        picture.fill(Qt::white);
        QPainter painter(&picture);
        style.drawPrimitive(QStyle::PE_IndicatorItemViewItemDrop, &option, &painter, widget);
        painter.end();
        QRect drawn;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != Qt::white)
                    drawn |= QRect(x, y, 1, 1);
            }
        }
        return drawn;
    };
    view->resize(350, 200);
    const QRect line = draw(view.get());
    QVERIFY2(
        line.left() <= 1 && line.right() >= 345 && line.height() <= 3,
        qPrintable(u"%1 to %2, %3 high"_s.arg(line.left()).arg(line.right()).arg(line.height())));
    QVERIFY(qAbs(line.center().y() - 60) <= 1);
    QVERIFY(draw(nullptr).right() < 300);
}

// The style that it is made like belongs to the program.
void TestFrozenTableView::theStyleStandsAlone()
{
    QStyle *program = QApplication::style();
    const QObject *owner = program->parent();
    {
        FrozenTableViewStyle style(program);
        view->setStyle(&style);
        view->grab();
        view->setStyle(nullptr);
    }
    QCOMPARE(QApplication::style(), program);
    QCOMPARE(program->parent(), owner);
    QCOMPARE(program->proxy(), program);
}

void TestFrozenTableView::missingFilesAreRed_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << u"Dark Night"_s;
    QTest::newRow("bright") << u"Bright Morning"_s;
}

void TestFrozenTableView::missingFilesAreRed()
{
    QFETCH(QString, theme);
    QApplication::setPalette(themeNamed(theme).palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(themeNamed(theme)), {}));
    const PlaylistPtr list(new PlaylistFile(&songs->manager));
    list->add(songs->song(u"here"_s)->getFilename());
    for (const QString &name : {u"/gone"_s, u"/away"_s})
        list->add(name);
    view->setAlternatingRowColors(true);
    view->setItemDelegate(new SongDelegate(view.get()));
    model->setPlaylist(list);
    QCoreApplication::processEvents();
    const QImage picture = view->viewport()->grab().toImage();
    for (int row = 1; row <= 3; ++row) {
        for (int column = 0; column < SongColumnCount; ++column) {
            const QRect cell = view->visualRect(filter->index(row, column));
            if (!view->viewport()->rect().contains(cell))
                continue;
            const QColor corner = picture.pixelColor(cell.topLeft() + QPoint(2, 2));
            QCOMPARE(corner == QColor(Qt::red), row > 1);
        }
    }
    QApplication::setPalette(QPalette());
}

void TestFrozenTableView::numbersHaveNoSeparators()
{
    const SongDelegate delegate;
    QCOMPARE(delegate.displayText(2016, QLocale(u"de_DE"_s)), u"2016"_s);
    QCOMPARE(delegate.displayText(u"text"_s, {}), u"text"_s);
    const QDateTime date(QDate(2016, 1, 31), QTime(16, 5));
    QCOMPARE(delegate.displayText(date, QLocale::c()),
             QLocale(u"de_DE"_s).toString(date, QLocale::ShortFormat));
}

TARVELO_TEST_MAIN(TestFrozenTableView, QApplication)
#include "tst_FrozenTableView.moc"
