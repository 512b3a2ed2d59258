#include "LibraryPage.h"
#include "Settings.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTableView>

// The library's table: what it tells of a song, how it sorts, how it is moved through. Its songs
// are files that nobody could play; the record's fields are set by the test.
class TestLibraryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cells_data();
    void cells();
    void headings();
    void modelFollowsTheLibrary();
    void numbersSortAsNumbers_data();
    void numbersSortAsNumbers();
    void titlesSortWithoutCase();
    void oneSelectedSong();
    void doubleClickActivates();
    void pageStepFollowsTheHeight();
    void lettersFitTheirRows_data();
    void lettersFitTheirRows();
    void columnsComeBack();
    void foreignColumnsAreRefused();

private:
    SongPtr addSong(const QString &name);
    QTableView *table() const { return page->findChild<QTableView *>(); }
    QStringList column(int number) const;
    void sortBy(int number) const { table()->sortByColumn(number, Qt::AscendingOrder); }

    QTemporaryDir music;
    std::unique_ptr<SongManager> manager;
    std::unique_ptr<SongListTableModel> model;
    std::unique_ptr<LibraryPage> page;
};

void TestLibraryPage::init()
{
    manager = std::make_unique<SongManager>();
    model = std::make_unique<SongListTableModel>(manager.get());
    model->setHighIntermediateName(QStringLiteral("High Intermediate"));
    new QAbstractItemModelTester(
        model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, model.get());
    page = std::make_unique<LibraryPage>(model.get());
    page->resize(900, 500);
    QLocale::setDefault(QLocale(QStringLiteral("de")));
}

void TestLibraryPage::cleanup()
{
    page.reset();
    model.reset();
    manager.reset();
}

SongPtr TestLibraryPage::addSong(const QString &name)
{
    const QString path = music.filePath(name);
    manager->addSong(path);
    return manager->getSong(path);
}

QStringList TestLibraryPage::column(int number) const
{
    QStringList texts;
    for (int row = 0; row < table()->model()->rowCount(); ++row)
        texts.append(table()->model()->index(row, number).data().toString());
    return texts;
}

void TestLibraryPage::cells_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *property, const QVariant &value, int column,
                        const char *text) {
        QTest::newRow(name) << QByteArray(property) << value << column << QString::fromUtf8(text);
    };
    row("title", "title", QStringLiteral("Rocky Top"), SongListTableModel::TitleColumn,
        "Rocky Top");
    row("no title", "title", QString(), SongListTableModel::TitleColumn, "song.mp3");
    row("artist", "artist", QStringLiteral("Steppers"), SongListTableModel::ArtistColumn,
        "Steppers");
    row("level", "level", QStringLiteral("Easy"), SongListTableModel::LevelColumn, "Easy");
    row("high level", "level", QStringLiteral("Intermediate-Advanced"),
        SongListTableModel::LevelColumn, "High Intermediate");
    row("bpm", "bpm", QStringLiteral("120"), SongListTableModel::BpmColumn, "120");
    row("no bpm", "bpm", QStringLiteral("0"), SongListTableModel::BpmColumn, "");
    row("no length", "title", QString(), SongListTableModel::LengthColumn, "");
    row("choreographer", "choreographer", QStringLiteral("Ann"),
        SongListTableModel::ChoreographerColumn, "Ann");
    row("faster", "tempo", 5.5, SongListTableModel::TempoColumn, "+5,5");
    row("slower", "tempo", -7.0, SongListTableModel::TempoColumn, "-7,0");
    row("as recorded", "tempo", 0.0, SongListTableModel::TempoColumn, "0,0");
    row("missing file", "missingFileFlag", true, SongListTableModel::TempoColumn, "");
}

void TestLibraryPage::cells()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(int, column);
    const SongPtr song = addSong(QStringLiteral("song.mp3"));
    QVERIFY(song->setProperty(property.constData(), value));
    QTEST(model->index(0, column).data().toString(), "text");
}

void TestLibraryPage::headings()
{
    QStringList texts;
    for (int section = 0; section < model->columnCount(); ++section)
        texts.append(model->headerData(section, Qt::Horizontal).toString());
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("Titel|Künstler|Level|BPM|Länge|Choreograf|Letztes Tempo"));
}

void TestLibraryPage::modelFollowsTheLibrary()
{
    QCOMPARE(model->rowCount(), 0);
    const SongPtr song = addSong(QStringLiteral("a.mp3"));
    addSong(QStringLiteral("b.mp3"));
    QCOMPARE(model->rowCount(), 2);
    QVERIFY(model->song(0) == song || model->song(1) == song);
    QVERIFY(!model->song(2));
    QVERIFY(!model->song(-1));
}

void TestLibraryPage::numbersSortAsNumbers_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("bpm") << static_cast<int>(SongListTableModel::BpmColumn)
                         << QStringList{QStringLiteral("60"), QStringLiteral("99"),
                                        QStringLiteral("120")};
    QTest::newRow("tempo") << static_cast<int>(SongListTableModel::TempoColumn)
                           << QStringList{QStringLiteral("-10,0"), QStringLiteral("-9,0"),
                                          QStringLiteral("+5,0")};
}

void TestLibraryPage::numbersSortAsNumbers()
{
    QFETCH(int, column);
    const char *const bpms[] = {"120", "60", "99"};
    const double tempos[] = {5, -9, -10};
    for (int i = 0; i < 3; ++i) {
        const SongPtr song = addSong(QStringLiteral("%1.mp3").arg(i));
        song->setBpm(QLatin1String(bpms[i]));
        song->setTempo(tempos[i]);
    }
    model->refresh();
    sortBy(column);
    QTEST(this->column(column), "sorted");
}

void TestLibraryPage::titlesSortWithoutCase()
{
    for (const char *title : {"banjo", "Apple", "Cotton", "apple pie"})
        addSong(QLatin1String(title) + QStringLiteral(".mp3"))->setTitle(QLatin1String(title));
    model->refresh();
    sortBy(SongListTableModel::TitleColumn);
    QCOMPARE(column(SongListTableModel::TitleColumn),
             (QStringList{QStringLiteral("Apple"), QStringLiteral("apple pie"),
                          QStringLiteral("banjo"), QStringLiteral("Cotton")}));
}

void TestLibraryPage::oneSelectedSong()
{
    addSong(QStringLiteral("a.mp3"));
    addSong(QStringLiteral("b.mp3"));
    QVERIFY(!page->selectedSong());
    page->scrollUpMusicList(1);
    QVERIFY(page->selectedSong());
    table()->selectAll();
    QVERIFY(!page->selectedSong());
    page->clearSelection();
    QVERIFY(!page->selectedSong());
}

void TestLibraryPage::doubleClickActivates()
{
    addSong(QStringLiteral("a.mp3"));
    page->show();
    QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    QSignalSpy activated(page.get(), &LibraryPage::songActivated);
    const QPoint place = table()->visualRect(table()->model()->index(0, 0)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(activated.size(), 1);
    QVERIFY(page->selectedSong());
}

void TestLibraryPage::pageStepFollowsTheHeight()
{
    page->setFontSize(15);
    page->show();
    QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    const int rowHeight = table()->verticalHeader()->defaultSectionSize();
    QCOMPARE(page->pageStep(), table()->viewport()->height() / rowHeight - 1);
    page->resize(900, 60);
    QVERIFY(page->pageStep() >= 1);
}

void TestLibraryPage::lettersFitTheirRows_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {8, 14, 20, 50})
        QTest::newRow(qPrintable(QString::number(points))) << points;
}

void TestLibraryPage::lettersFitTheirRows()
{
    QFETCH(int, points);
    page->setFontSize(points);
    QFont font = table()->font();
    font.setPointSize(points);
    QVERIFY(table()->verticalHeader()->defaultSectionSize() >= QFontMetrics(font).height());
    QVERIFY(table()->verticalHeader()->defaultSectionSize() >= static_cast<int>(points * 1.7));
    QCOMPARE(table()->horizontalHeader()->height(),
             table()->verticalHeader()->defaultSectionSize());
}

void TestLibraryPage::columnsComeBack()
{
    table()->setColumnWidth(SongListTableModel::ArtistColumn, 321);
    const QByteArray config = page->columnConfig();
    LibraryPage other(model.get());
    QVERIFY(other.restoreColumnConfig(config));
    other.show();
    QCOMPARE(other.findChild<QTableView *>()->columnWidth(SongListTableModel::ArtistColumn), 321);
}

void TestLibraryPage::foreignColumnsAreRefused()
{
    QVERIFY(!page->restoreColumnConfig(QByteArray("no header state")));
    QVERIFY(!page->restoreColumnConfig({}));
    page->show();
    QVERIFY(table()->columnWidth(SongListTableModel::TitleColumn) > 50);
}

TARVELO_TEST_MAIN(TestLibraryPage, QApplication)
#include "tst_LibraryPage.moc"
