#include "ElidingComboBox.h"
#include "FilterTableView.h"
#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "SongListFilter.h"
#include "SongListFilterHandler.h"
#include "SongListPanel.h"
#include "TestMain.h"
#include "TestSongs.h"
#include "ThemeContext.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTranslator>

using namespace Qt::StringLiterals;
using Side = SongListPanel::Side;

// One song list with its frame, on either side of the window.
class TestSongListPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void names_data();
    void names();
    void theTableIsSetUp_data();
    void theTableIsSetUp();
    void columnsAreHiddenAtFirst_data();
    void columnsAreHiddenAtFirst();
    void onlyTypingTakesTheFocus();
    void everythingIsNamed();
    void whatIsShownAtFirst();
    void listsAreChosen();
    void aPlaylistOnTheRight();
    void theOrderOfAPlaylist();
    void headingsOfAPlaylistSortNothing();
    void whetherItSortsIsNotRestored();
    void listsThatComeAndGo();
    void aRescanKeepsTheList();
    void theLengthIsTold();
    void rightWidgetsAreHidden();
    void nonStop();
    void columnsComeBack();
    void foreignColumnsAreRefused();
    void lettersFitTheirRows_data();
    void lettersFitTheirRows();
    void buttonsFollowTheFrame();
    void aNarrowFrameWrapsItsButtons();
    void aDoubleClickActivates();
    void theContextMenuIsAsked();
    void thePageIsTheRightList();
    void anotherLanguage();

private:
    SongListPanel *panel(Side side) const { return side == Side::Left ? left.get() : right.get(); }
    QString shown(const SongListPanel &panel) const;
    // Those of the frame: the filter row has others.
    static QComboBox *box(const SongListPanel &panel)
    {
        return panel.findChild<ElidingComboBox *>();
    }
    static QList<QPushButton *> buttons(const SongListPanel &panel)
    {
        return panel.findChildren<QPushButton *>(QRegularExpression(u"^buttonPlaylist"_s));
    }
    template <typename Widget> static Widget *find(const SongListPanel &panel, const QString &name)
    {
        return panel.findChild<Widget *>(name);
    }

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<SongListPanel> right;
    std::unique_ptr<SongListPanel> left;
};

Q_DECLARE_METATYPE(SongListPanel::Side)

static void sides()
{
    QTest::addColumn<SongListPanel::Side>("side");
    QTest::newRow("left") << Side::Left;
    QTest::newRow("right") << Side::Right;
}

void TestSongListPanel::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    songs = std::make_unique<TestSongs>();
    songs->library(u"cab"_s);
    right = std::make_unique<SongListPanel>(Side::Right, &songs->manager);
    left = std::make_unique<SongListPanel>(Side::Left, &songs->manager);
    right->resize(800, 500);
    left->resize(800, 500);
}

void TestSongListPanel::cleanup()
{
    right.reset();
    left.reset();
    songs.reset();
}

QString TestSongListPanel::shown(const SongListPanel &panel) const
{
    QString all;
    for (int row = 1; row < panel.filter()->rowCount(); ++row)
        all.append(TestSongs::letter(panel.filter()->song(row)));
    return all;
}

void TestSongListPanel::names_data()
{
    sides();
}

void TestSongListPanel::names()
{
    QFETCH(SongListPanel::Side, side);
    const bool isLeft = side == Side::Left;
    for (const char *name :
         {"buttonPlaylistOpen", "buttonPlaylistSave", "buttonPlaylistSaveAs",
          "buttonPlaylistRemove", "buttonPlaylistCopyBuffer", "buttonPlaylistExportAllFiles",
          "buttonPlaylistAddEntry", "buttonPlaylistEntryRemove", "buttonPlaylistEntryMoveUp",
          "buttonPlaylistEntryMoveDown"})
        QVERIFY(find<QPushButton>(*panel(side), QLatin1String(name) + (isLeft ? u'L' : u'R')));
    const auto *lists = find<QComboBox>(*panel(side), isLeft ? u"comboBoxPlaylistSelectionL"_s
                                                             : u"comboBoxPlaylistSelectionR"_s);
    QVERIFY(lists);
    QCOMPARE(lists->maxVisibleItems(), 20);
    QVERIFY(find<QLabel>(*panel(side), isLeft ? u"labelPlaylistInfoL"_s : u"labelPlaylistInfoR"_s));
    QCOMPARE(find<QPushButton>(*panel(side), u"buttonPlaylistNonStop"_s) != nullptr, isLeft);
    QCOMPARE(panel(side)->table()->objectName(),
             isLeft ? u"tableWidgetMlPlaylist"_s : u"tableViewMusicList"_s);
    QCOMPARE(left->objectName(), u"framePlaylist"_s);
}

void TestSongListPanel::theTableIsSetUp_data()
{
    sides();
}

void TestSongListPanel::theTableIsSetUp()
{
    QFETCH(SongListPanel::Side, side);
    const FrozenTableView *table = panel(side)->table();
    QCOMPARE(table->focusPolicy(), Qt::NoFocus);
    QCOMPARE(table->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(table->acceptDrops());
    QVERIFY(table->viewport()->acceptDrops());
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table->dragEnabled());
    QCOMPARE(table->dragDropMode(), QAbstractItemView::DragDrop);
    QCOMPARE(table->defaultDropAction(), Qt::CopyAction);
    QVERIFY(table->showDropIndicator());
    QVERIFY(table->alternatingRowColors());
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QVERIFY(!table->wordWrap());
    QCOMPARE(table->horizontalHeader()->minimumSectionSize(), 10);
    QVERIFY(table->horizontalHeader()->stretchLastSection());
    QVERIFY(table->horizontalHeader()->sectionsMovable());
    QCOMPARE(table->isSortingEnabled(), side == Side::Right);
    QCOMPARE(table->selectionMode(), side == Side::Right ? QAbstractItemView::ExtendedSelection
                                                         : QAbstractItemView::SingleSelection);
}

void TestSongListPanel::columnsAreHiddenAtFirst_data()
{
    QTest::addColumn<SongListPanel::Side>("side");
    QTest::addColumn<QList<int>>("hidden");
    QTest::newRow("library") << Side::Right
                             << QList<int>{1, 5, 17, 18, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
    QTest::newRow("playlist") << Side::Left
                              << QList<int>{1,  5,  6,  7,  8,  9,  10, 11, 13, 14, 16, 17, 18,
                                            19, 20, 21, 22, 23, 24, 25, 27, 28, 29, 30, 31, 32};
}

void TestSongListPanel::columnsAreHiddenAtFirst()
{
    QFETCH(SongListPanel::Side, side);
    QFETCH(QList<int>, hidden);
    panel(side)->show();
    for (int column = 0; column < SongColumnCount; ++column) {
        QCOMPARE(panel(side)->table()->isColumnHidden(column), hidden.contains(column));
        QCOMPARE(panel(side)->table()->getFrozenView()->isColumnHidden(column),
                 hidden.contains(column));
    }
}

void TestSongListPanel::onlyTypingTakesTheFocus()
{
    for (const SongListPanel *list : {left.get(), right.get()}) {
        const QList<QLineEdit *> typedInto = list->filterRow()->lineEdits();
        for (QWidget *widget : list->findChildren<QWidget *>())
            QVERIFY2(!(widget->focusPolicy() & Qt::TabFocus)
                         || typedInto.contains(qobject_cast<QLineEdit *>(widget))
                         || widget->metaObject()->className() == QByteArray("QComboBoxListView"),
                     widget->metaObject()->className());
    }
}

void TestSongListPanel::everythingIsNamed()
{
    for (const SongListPanel *list : {left.get(), right.get()}) {
        QVERIFY(!list->table()->accessibleName().isEmpty());
        QVERIFY(!box(*list)->accessibleName().isEmpty());
        for (const QPushButton *button : buttons(*list)) {
            QVERIFY(!button->accessibleName().isEmpty());
            QVERIFY(button->toolTip().startsWith(button->accessibleName()));
        }
    }
    QCOMPARE(box(*left)->toolTip(), u"Schnellzugriff auf die letzten 20 Listen       O"_s);
    QCOMPARE(box(*right)->toolTip(), u"Schnellzugriff auf die letzten 20 Listen"_s);
    const auto tip = [](const SongListPanel &list, const QString &name) {
        return find<QPushButton>(list, name)->toolTip();
    };
    QVERIFY(tip(*left, u"buttonPlaylistSaveL"_s).endsWith(u"       AltGr+S"_s));
    QVERIFY(tip(*left, u"buttonPlaylistAddEntryL"_s).endsWith(u"       AltGr+Einfg"_s));
    QVERIFY(tip(*left, u"buttonPlaylistEntryRemoveL"_s).endsWith(u"       AltGr+Entf"_s));
    QVERIFY(!tip(*right, u"buttonPlaylistSaveR"_s).contains(u"AltGr"_s));
}

void TestSongListPanel::whatIsShownAtFirst()
{
    QCOMPARE(right->list(), songs->manager.getPlaylist(0));
    QCOMPARE(left->list(), songs->manager.getPlaylist(1));
    QCOMPARE(shown(*right), u"abc"_s);
    QCOMPARE(shown(*left), QString());
    QCOMPARE(left->model()->rowCount(), 1);
    QVERIFY(right->filter()->isGlobalSearchEnabled());
    QVERIFY(!left->filter()->isGlobalSearchEnabled());
}

void TestSongListPanel::listsAreChosen()
{
    const PlaylistPtr evening = songs->playlist(u"evening.m3u8"_s, u"ba"_s);
    for (const SongListPanel *list : {left.get(), right.get()}) {
        QStringList entries;
        for (int index = 0; index < box(*list)->count(); ++index)
            entries.append(box(*list)->itemText(index));
        QCOMPARE(entries, songs->manager.getPlaylistNames());
        QSignalSpy changed(list, &SongListPanel::listChanged);
        box(*list)->setCurrentIndex(2);
        QCOMPARE(list->list(), evening);
        QCOMPARE(shown(*list), u"ba"_s);
        QVERIFY(!changed.isEmpty());
    }
    right->model()->setFilterText(u"x"_s, 0);
    box(*right)->setCurrentIndex(0);
    QCOMPARE(shown(*right), u"abc"_s);
    QCOMPARE(right->model()->filterText(0), QString());
}

void TestSongListPanel::aPlaylistOnTheRight()
{
    songs->playlist(u"evening.m3u8"_s, u"ba"_s);
    box(*right)->setCurrentIndex(2);
    QVERIFY(!right->filter()->isGlobalSearchEnabled());
    QVERIFY(!right->table()->isSortingEnabled());
    QCOMPARE(right->table()->selectionMode(), QAbstractItemView::SingleSelection);
    box(*right)->setCurrentIndex(0);
    QVERIFY(right->filter()->isGlobalSearchEnabled());
    QVERIFY(right->table()->isSortingEnabled());
    QCOMPARE(right->table()->selectionMode(), QAbstractItemView::ExtendedSelection);
    box(*left)->setCurrentIndex(0);
    QVERIFY(left->filter()->isGlobalSearchEnabled());
    QCOMPARE(left->table()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(shown(*left), u"abc"_s);
}

void TestSongListPanel::theOrderOfAPlaylist()
{
    songs->playlist(u"evening.m3u8"_s, u"bca"_s);
    right->table()->sortByColumn(TitleColumn, Qt::DescendingOrder);
    QCOMPARE(shown(*right), u"cba"_s);
    box(*right)->setCurrentIndex(2);
    QCOMPARE(shown(*right), u"bca"_s);
    right->table()->sortByColumn(TitleColumn, Qt::AscendingOrder);
    QCOMPARE(shown(*right), u"bca"_s);
    box(*right)->setCurrentIndex(0);
    QCOMPARE(shown(*right), u"abc"_s);
}

void TestSongListPanel::headingsOfAPlaylistSortNothing()
{
    songs->playlist(u"evening.m3u8"_s, u"bca"_s);
    right->show();
    const QHeaderView *header = right->table()->horizontalHeader();
    const auto clickHeading = [header](int column) {
        const QPoint place(header->sectionViewportPosition(column) + 20, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    };
    right->table()->sortByColumn(TitleColumn, Qt::DescendingOrder);
    box(*right)->setCurrentIndex(2);
    clickHeading(ArtistColumn);
    QCOMPARE(shown(*right), u"bca"_s);
    box(*right)->setCurrentIndex(0);
    QCOMPARE(shown(*right), u"cba"_s);
    QCOMPARE(header->sortIndicatorSection(), int(TitleColumn));
    clickHeading(TitleColumn);
    QCOMPARE(shown(*right), u"abc"_s);
}

// That is a matter of the list on show.
void TestSongListPanel::whetherItSortsIsNotRestored()
{
    songs->playlist(u"evening.m3u8"_s, u"bca"_s);
    right->show();
    left->show();
    const QByteArray ofTheLibrary = right->columnConfig();
    box(*right)->setCurrentIndex(2);
    const QByteArray ofAPlaylist = right->columnConfig();
    box(*right)->setCurrentIndex(0);
    const auto canSort = [](const SongListPanel &panel) {
        const QHeaderView *header = panel.table()->horizontalHeader();
        return header->isSortIndicatorShown() && header->sectionsClickable();
    };
    QVERIFY(right->restoreColumnConfig(ofAPlaylist));
    QVERIFY(canSort(*right));
    QVERIFY(left->restoreColumnConfig(ofTheLibrary));
    QVERIFY(!canSort(*left));
}

void TestSongListPanel::listsThatComeAndGo()
{
    const PlaylistPtr evening = songs->playlist(u"evening.m3u8"_s, u"ba"_s);
    left->setList(evening);
    QCOMPARE(box(*left)->currentText(), u"evening.m3u8"_s);
    songs->playlist(u"a new one.m3u8"_s, u"c"_s);
    QCOMPARE(left->list(), evening);
    QCOMPARE(box(*left)->currentIndex(), 3);
    right->setList(evening);
    QVERIFY(songs->manager.removePlaylist(evening));
    QCOMPARE(left->list(), songs->manager.getPlaylist(1));
    QCOMPARE(right->list(), songs->manager.getPlaylist(0));
    QCOMPARE(box(*left)->currentIndex(), 1);
    QCOMPARE(box(*right)->currentIndex(), 0);
    left->setList({});
    QCOMPARE(left->list(), songs->manager.getPlaylist(1));
}

void TestSongListPanel::aRescanKeepsTheList()
{
    const PlaylistPtr evening = songs->playlist(u"evening.m3u8"_s, u"ba"_s);
    left->setList(evening);
    songs->manager.loadAllLists();
    QVERIFY(left->list() != evening);
    QCOMPARE(left->list(), songs->manager.getPlaylist(2));
    QCOMPARE(box(*left)->currentText(), u"evening.m3u8"_s);
    QCOMPARE(shown(*left), u"ba"_s);
    // Their files were never there.
    QCOMPARE(shown(*right), QString());
    QVERIFY(left->model()->song(1)->isMissingFile());
}

void TestSongListPanel::theLengthIsTold()
{
    songs->song(u"a"_s)->setPlayLength(200);
    songs->song(u"b"_s)->setPlayLength(3600);
    songs->manager.updateAllLists();
    QCOMPARE(find<QLabel>(*right, u"labelPlaylistInfoR"_s)->text(),
             u"3 Songs  1:03:20 Spielzeit"_s);
    left->setList(songs->playlist(u"evening.m3u8"_s, u"aa"_s));
    QCOMPARE(find<QLabel>(*left, u"labelPlaylistInfoL"_s)->text(), u"2 Songs  6:40 Spielzeit"_s);
}

void TestSongListPanel::rightWidgetsAreHidden()
{
    QVERIFY(!right->arePlaylistWidgetsVisible());
    QVERIFY(left->arePlaylistWidgetsVisible());
    right->show();
    QVERIFY(!box(*right)->isVisible());
    right->setPlaylistWidgetsVisible(true);
    QVERIFY(box(*right)->isVisible());
    QVERIFY(right->table()->isVisible());
    right->openListBox();
    QVERIFY(box(*right)->view()->isVisible());
    box(*right)->hidePopup();
    right->setPlaylistWidgetsVisible(false);
    right->openListBox();
    QVERIFY(!box(*right)->view()->isVisible());
}

void TestSongListPanel::nonStop()
{
    QVERIFY(!left->isNonStop());
    left->setNonStop(true);
    QVERIFY(left->isNonStop());
    find<QPushButton>(*left, u"buttonPlaylistNonStop"_s)->click();
    QVERIFY(!left->isNonStop());
    right->setNonStop(true);
    QVERIFY(!right->isNonStop());
}

void TestSongListPanel::columnsComeBack()
{
    right->show();
    right->table()->setColumnWidth(ArtistColumn, 321);
    right->table()->setColumnHidden(AlbumColumn, false);
    right->table()->horizontalHeader()->moveSection(0, 3);
    right->table()->sortByColumn(ArtistColumn, Qt::DescendingOrder);
    const QByteArray config = right->columnConfig();
    SongListPanel other(Side::Right, &songs->manager);
    QVERIFY(other.restoreColumnConfig(config));
    other.show();
    const QTableView *views[] = {other.table(), other.table()->getFrozenView()};
    for (const QTableView *table : views) {
        QCOMPARE(table->columnWidth(ArtistColumn), 321);
        QVERIFY(!table->isColumnHidden(AlbumColumn));
        QCOMPARE(table->horizontalHeader()->visualIndex(0), 3);
    }
    QCOMPARE(other.table()->horizontalHeader()->sortIndicatorSection(), int(ArtistColumn));
    QCOMPARE(other.filter()->sortColumn(), int(ArtistColumn));
    QCOMPARE(other.filter()->sortOrder(), Qt::DescendingOrder);
    QVERIFY(other.restoreColumnConfig(config));
}

void TestSongListPanel::foreignColumnsAreRefused()
{
    right->show();
    const QByteArray before = right->columnConfig();
    QVERIFY(!right->restoreColumnConfig(QByteArray("no header state")));
    QVERIFY(!right->restoreColumnConfig({}));
    for (qsizetype length = 0; length < before.size(); length += 7) {
        right->restoreColumnConfig(before.first(length));
        QCOMPARE(right->table()->horizontalHeader()->count(), int(SongColumnCount));
    }
    QVERIFY(right->restoreColumnConfig(before));
    QVERIFY(right->table()->columnWidth(TitleColumn) > 50);
    QCOMPARE(shown(*right), u"abc"_s);
}

void TestSongListPanel::lettersFitTheirRows_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {8, 14, 20, 50})
        QTest::newRow(qPrintable(QString::number(points))) << points;
}

void TestSongListPanel::lettersFitTheirRows()
{
    QFETCH(int, points);
    right->setFontSize(points);
    const FrozenTableView *table = right->table();
    QFont font = table->font();
    font.setPointSize(points);
    for (const int row : {0, 1}) {
        QVERIFY(table->rowHeight(row) >= QFontMetrics(font).height());
        QVERIFY(table->rowHeight(row) >= static_cast<int>(points * 1.7));
        QVERIFY(table->rowHeight(row)
                <= std::max(static_cast<int>(points * 1.7), QFontMetrics(font).height() + 2));
    }
    QCOMPARE(table->horizontalHeader()->height(), table->rowHeight(1));
    QCOMPARE(table->getFrozenView()->rowHeight(0), table->rowHeight(0));
    songs->song(u"z"_s);
    QCOMPARE(table->rowHeight(0), table->rowHeight(1));
}

void TestSongListPanel::buttonsFollowTheFrame()
{
    left->setButtonSize(QSize(40, 40));
    for (const QPushButton *button : buttons(*left))
        QCOMPARE(button->size(), QSize(40, 40));
    setThemeContext(QSize(40, 40), u":/nowhere"_s);
    left->refreshPictures();
    QVERIFY(find<QPushButton>(*left, u"buttonPlaylistOpenL"_s)->icon().isNull());
}

void TestSongListPanel::aNarrowFrameWrapsItsButtons()
{
    left->setButtonSize(QSize(40, 40));
    left->setButtonSpacing(12);
    left->show();
    for (const int width : {700, 230, 130}) {
        left->resize(width, 900);
        QCoreApplication::processEvents();
        QList<QRect> places;
        for (const QPushButton *button : buttons(*left)) {
            const QRect place(button->mapTo(left.get(), QPoint()), button->size());
            QVERIFY(left->rect().contains(place));
            QVERIFY(!place.intersects(left->table()->geometry()));
            for (const QRect &other : std::as_const(places))
                QVERIFY(!place.marginsAdded({12, 0, 0, 12}).intersects(other)
                        || place.y() == other.y());
            places.append(place);
        }
        QCOMPARE(places.size(), 11);
    }
    QVERIFY(left->minimumSizeHint().width() <= 130);
}

void TestSongListPanel::aDoubleClickActivates()
{
    right->show();
    QVERIFY(QTest::qWaitForWindowExposed(right.get()));
    QSignalSpy activated(right.get(), &SongListPanel::songActivated);
    const QPoint place = right->table()->visualRect(right->filter()->index(2, 0)).center();
    QTest::mouseClick(right->table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(right->table()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(TestSongs::letter(right->selection().song()), u"b"_s);
}

void TestSongListPanel::theContextMenuIsAsked()
{
    right->show();
    QSignalSpy asked(right.get(), &SongListPanel::contextMenuRequested);
    QWidget *viewport = right->table()->viewport();
    QContextMenuEvent overSong(QContextMenuEvent::Mouse, QPoint(30, 70),
                               viewport->mapToGlobal(QPoint(30, 70)));
    QApplication::sendEvent(viewport, &overSong);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.at(0).at(0).toPoint(), viewport->mapToGlobal(QPoint(30, 70)));
}

void TestSongListPanel::thePageIsTheRightList()
{
    LibraryPage page(&songs->manager);
    QCOMPARE(page.objectName(), u"page1_MusicList"_s);
    QSignalSpy changed(page.songList(), &SongListPanel::selectionChanged);
    page.scrollUpMusicList(1);
    QCOMPARE(TestSongs::letter(page.selectedSong()), u"c"_s);
    QVERIFY(!changed.isEmpty());
    page.scrollUpMusicList(2);
    page.scrollDownMusicList(1);
    QCOMPARE(TestSongs::letter(page.selectedSong()), u"b"_s);
    page.songList()->selection().selectAll();
    QCOMPARE(page.selectedSongs().size(), 3);
    page.clearSelection();
    QVERIFY(page.selectedSongs().isEmpty());
    QVERIFY(page.pageStep() >= 1);
    page.songList()->setFontSize(20);
    // Nobody has seen its columns yet.
    QVERIFY(page.columnConfig().isEmpty());
    QVERIFY(!page.restoreColumnConfig({}));
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QVERIFY(page.restoreColumnConfig(page.columnConfig()));
}

// A catalogue that puts a mark before each text.
class MarkingTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return u'*' + QString::fromUtf8(text);
    }
};

void TestSongListPanel::anotherLanguage()
{
    left->show();
    MarkingTranslator translator;
    QSignalSpy told(left->model(), &QAbstractItemModel::headerDataChanged);
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCoreApplication::processEvents();
    QCOMPARE(told.size(), 1);
    QCOMPARE(left->model()->headerData(0, Qt::Horizontal).toString(), u"*Titel"_s);
    QVERIFY(box(*left)->toolTip().startsWith(u'*'));
    QCOMPARE(box(*left)->itemText(0), u"*<Musikbibliothek>"_s);
    QCOMPARE(box(*left)->currentIndex(), 1);
    QVERIFY(find<QLabel>(*left, u"labelPlaylistInfoL"_s)->text().startsWith(u'*'));
    for (const QPushButton *button : buttons(*left)) {
        QVERIFY(button->accessibleName().startsWith(u'*'));
        QVERIFY(button->toolTip().startsWith(u'*'));
    }
    QVERIFY(left->table()->accessibleName().startsWith(u'*'));
    QCoreApplication::removeTranslator(&translator);
}

TARVELO_TEST_MAIN(TestSongListPanel, QApplication)
#include "tst_SongListPanel.moc"
