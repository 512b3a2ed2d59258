#include "PositionsFont.h"
#include "PositionsHeader.h"
#include "PositionsTexts.h"
#include "Song.h"
#include "TestMain.h"

#include <QCoreApplication>

namespace {

// A font whose text is so many pixels wide a point, and 1.5 pixels a point high.
FontMeasures linearFont(int widthPerPoint)
{
    return {[=](int pointSize) { return pointSize * widthPerPoint; },
            [](int pointSize) { return pointSize * 3 / 2; }};
}

int characters(const QString &text)
{
    return static_cast<int>(text.size());
}

SongPositions positionsOf(const QList<Position> &list)
{
    SongPositions positions;
    for (const Position &position : list)
        positions.insert(positions.count(), position);
    return positions;
}

// Their rows, in a song of 500 seconds with 120 beats a minute.
QList<PositionsRow> rowsOf(const SongPositions &positions)
{
    QList<PositionsRow> rows;
    for (int row = 0; row < positions.count(); ++row)
        rows.append(positionsRow(positions, row, 120, 500000));
    return rows;
}

const ShownColumns allShown{true, true, true, true, true};

QString unchanged(const QString &text)
{
    return text;
}

} // namespace

class TestPositionsRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void widthSearch_data();
    void widthSearch();
    void widthSearchMayEndTooLarge();
    void heightSearch_data();
    void heightSearch();
    void fullWidthNeverShrinksToTheHeight();
    void wholeTextShrinksToTheHeight();
    void wholeTextKeepsAFontThatFits();
    void noPositionsSearchTheWidthAlone();

    void rowTexts();
    void lastRowCountsToTheEndOfTheSong();
    void noBpmNoBeats();
    void widestLine_data();
    void widestLine();
    void extentTakesTheWidestTextOfEachColumn();
    void extentLeavesHiddenColumnsOut();
    void linesCountStepsAlone();

    void headerTexts();
    void headerOfHighIntermediate_data();
    void headerOfHighIntermediate();
    void headerInfo_data();
    void headerInfo();
    void headerWithoutInfo();
    void headerEscapesMarkup();
    void elidedChoreographerLosesItsMarkup();
};

void TestPositionsRules::widthSearch_data()
{
    QTest::addColumn<int>("available");
    QTest::addColumn<int>("padding");
    QTest::addColumn<int>("maxFont");
    QTest::addColumn<int>("size");
    QTest::newRow("exact") << 390 << 0 << 70 << 39;
    QTest::newRow("between two sizes") << 305 << 0 << 70 << 30;
    QTest::newRow("padding counts") << 305 << 30 << 70 << 27;
    QTest::newRow("more room than the largest font fills") << 9999 << 0 << 70 << 69;
    QTest::newRow("less room than the smallest font needs") << 10 << 0 << 70 << 8;
    QTest::newRow("small maximum") << 9999 << 0 << 10 << 9;
}

void TestPositionsRules::widthSearch()
{
    QFETCH(int, available);
    QFETCH(int, padding);
    QFETCH(int, maxFont);
    const FittedFont font = fontForWidth(available, padding, maxFont, linearFont(10));
    QTEST(font.pointSize, "size");
    QCOMPARE(font.rowHeight, font.pointSize * 3 / 2);
}

// Below 8 points there is nothing to search for: the size between the two bounds is used.
void TestPositionsRules::widthSearchMayEndTooLarge()
{
    const FittedFont font = fontForWidth(10, 0, 4, linearFont(10));
    QVERIFY(font.pointSize >= 4);
    QVERIFY(font.pointSize <= 8);
}

void TestPositionsRules::heightSearch_data()
{
    QTest::addColumn<int>("available");
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("rowHeight");
    QTest::addColumn<int>("largest");
    QTest::newRow("ten lines") << 410 << 10 << 40 << 27;
    QTest::newRow("a fraction is cut") << 419 << 10 << 40 << 27;
    QTest::newRow("no room") << 100 << 50 << 1 << 8;
}

void TestPositionsRules::heightSearch()
{
    QFETCH(int, available);
    QFETCH(int, lines);
    QFETCH(int, largest);
    const FittedFont font = fontForHeight(available, lines, 70, linearFont(10));
    QTEST(font.rowHeight, "rowHeight");
    QVERIFY(font.pointSize >= 8);
    QVERIFY2(font.pointSize <= largest, qPrintable(QString::number(font.pointSize)));
}

void TestPositionsRules::fullWidthNeverShrinksToTheHeight()
{
    const FontRoom room{.width = 300, .height = 100, .padding = 0, .lines = 20};
    QCOMPARE(fittedFont(room, linearFont(10)).pointSize, 30);
}

void TestPositionsRules::wholeTextShrinksToTheHeight()
{
    const FontRoom room{.width = 300, .height = 400, .padding = 0, .lines = 20, .wholeText = true};
    const FittedFont font = fittedFont(room, linearFont(10));
    QCOMPARE(font.rowHeight, 19);
    QVERIFY(font.pointSize < 30);
}

void TestPositionsRules::wholeTextKeepsAFontThatFits()
{
    const FontRoom room{
        .width = 300, .height = 46 * 5, .padding = 0, .lines = 5, .wholeText = true};
    QCOMPARE(fittedFont(room, linearFont(10)).pointSize, 30);
    // One pixel less, and the last row would be cut.
    FontRoom lower = room;
    lower.height -= 1;
    QVERIFY(fittedFont(lower, linearFont(10)).pointSize < 30);
}

void TestPositionsRules::noPositionsSearchTheWidthAlone()
{
    const FontRoom room{.width = 300, .height = 0, .padding = 50, .lines = 0, .wholeText = true};
    QCOMPARE(fittedFont(room, linearFont(0)).pointSize, 69);
}

void TestPositionsRules::rowTexts()
{
    const SongPositions positions
        = positionsOf({{-300, QStringLiteral("Intro"), QStringLiteral("wait 8")},
                       {62345, QStringLiteral("A"), QStringLiteral("Triple\nBasic")},
                       {64345, {}, {}}});
    const PositionsRow row = positionsRow(positions, 1, 120, 180000);
    QCOMPARE(row[NumberColumn], QStringLiteral("2 "));
    QCOMPARE(row[PartColumn], QStringLiteral("A"));
    QCOMPARE(row[TimeColumn], QStringLiteral("01:02:345 "));
    QCOMPARE(row[BeatsColumn], QStringLiteral("4 "));
    QCOMPARE(row[StepsColumn], QStringLiteral("Triple\nBasic"));
    QCOMPARE(positionsRow(positions, 0, 120, 180000)[TimeColumn], QStringLiteral("-00:00:300 "));
}

void TestPositionsRules::lastRowCountsToTheEndOfTheSong()
{
    const SongPositions positions = positionsOf({{0, {}, {}}, {10000, {}, {}}});
    QCOMPARE(positionsRow(positions, 1, 60, 70000)[BeatsColumn], QStringLiteral("60 "));
    QCOMPARE(positionsRow(positions, 1, 60, 9000)[BeatsColumn], QStringLiteral("-1 "));
}

void TestPositionsRules::noBpmNoBeats()
{
    QVERIFY(positionsRow(positionsOf({{0, {}, {}}}), 0, 0, 1000)[BeatsColumn].isEmpty());
}

void TestPositionsRules::widestLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("one") << "abc"
                         << "abc";
    QTest::newRow("the wider") << "ab\nabc\na"
                               << "abc";
    QTest::newRow("the first of two") << "abc\nxyz"
                                      << "abc";
    QTest::newRow("empty lines") << "\n\nab\n"
                                 << "ab";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestPositionsRules::widestLine()
{
    QFETCH(QString, text);
    const WidestLine widest = ::widestLine(text, characters);
    QTEST(widest.line, "line");
    QCOMPARE(widest.width, characters(widest.line));
}

void TestPositionsRules::extentTakesTheWidestTextOfEachColumn()
{
    const SongPositions positions
        = positionsOf({{0, QStringLiteral("Intro"), QStringLiteral("a")},
                       {1000, QStringLiteral("B"), QStringLiteral("Rocking Chair")},
                       {2000, QStringLiteral("Outro"), QStringLiteral("Cowboy, Turkey")}});
    const PositionsExtent extent = positionsExtent(rowsOf(positions), allShown, characters);
    QCOMPARE(extent.widest[NumberColumn], QStringLiteral("1 "));
    QCOMPARE(extent.widest[PartColumn], QStringLiteral("Intro"));
    QCOMPARE(extent.widest[BeatsColumn], QStringLiteral("996 "));
    QCOMPARE(extent.widest[StepsColumn], QStringLiteral("Cowboy, Turkey"));
}

void TestPositionsRules::extentLeavesHiddenColumnsOut()
{
    const SongPositions positions = positionsOf({{0, QStringLiteral("Intro"), {}}});
    const ShownColumns shown{true, false, false, true, true};
    const PositionsExtent extent = positionsExtent(rowsOf(positions), shown, characters);
    QVERIFY(extent.widest[PartColumn].isEmpty());
    QVERIFY(extent.widest[TimeColumn].isEmpty());
    QVERIFY(!extent.widest[BeatsColumn].isEmpty());
}

void TestPositionsRules::linesCountStepsAlone()
{
    const SongPositions positions
        = positionsOf({{0, QStringLiteral("A\nB"), QStringLiteral("1\n2\n3")}, {1, {}, {}}});
    QCOMPARE(positionsExtent(rowsOf(positions), allShown, characters).lines, 4);
}

void TestPositionsRules::headerTexts()
{
    Song song(QStringLiteral("/none.mp3"), true);
    song.setTitle(QStringLiteral("Rocky Top"));
    song.setArtist(QStringLiteral("The Steppers"));
    song.setLevel(QStringLiteral("Easy"));
    song.setPlayLength(125);
    const PositionsHeader header = positionsHeader(song, {}, true, unchanged);
    QCOMPARE(header.title, QStringLiteral("Rocky Top - The Steppers (2:05)"));
    QCOMPARE(header.windowTitle, QStringLiteral("Rocky Top - The Steppers - Easy - Tarvelo"));
}

void TestPositionsRules::headerOfHighIntermediate_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stored form") << "Intermediate-Advanced"
                                 << "Intermediate+";
    QTest::newRow("other case") << "intermediate-ADVANCED"
                                << "Intermediate+";
    QTest::newRow("other level") << "Intermediate"
                                 << "Intermediate";
}

void TestPositionsRules::headerOfHighIntermediate()
{
    QFETCH(QString, level);
    Song song(QStringLiteral("/none.mp3"), true);
    song.setLevel(level);
    const PositionsHeader header
        = positionsHeader(song, QStringLiteral("Intermediate+"), true, unchanged);
    QTEST(header.infoValues, "shown");
}

void TestPositionsRules::headerInfo_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("choreographer");
    QTest::addColumn<QString>("adaptedBy");
    QTest::addColumn<QString>("labels");
    QTest::addColumn<QString>("values");
    QTest::newRow("all") << "Easy"
                         << "Ann"
                         << "Bob"
                         << "Level:\nChoreograf:"
                         << "Easy<br>Ann, <small>ang. von</small> Bob";
    QTest::newRow("level alone") << "Easy"
                                 << ""
                                 << ""
                                 << "Level:"
                                 << "Easy";
    QTest::newRow("choreographer alone") << ""
                                         << "Ann"
                                         << ""
                                         << "Choreograf:"
                                         << "Ann";
    QTest::newRow("nothing") << ""
                             << ""
                             << ""
                             << ""
                             << "";
}

void TestPositionsRules::headerInfo()
{
    QFETCH(QString, level);
    QFETCH(QString, choreographer);
    QFETCH(QString, adaptedBy);
    Song song(QStringLiteral("/none.mp3"), true);
    song.setLevel(level);
    song.setChoreographer(choreographer);
    song.setAdaptedBy(adaptedBy);
    const PositionsHeader header = positionsHeader(song, {}, true, unchanged);
    QTEST(header.infoLabels, "labels");
    QTEST(header.infoValues, "values");
}

void TestPositionsRules::headerWithoutInfo()
{
    Song song(QStringLiteral("/none.mp3"), true);
    song.setLevel(QStringLiteral("Easy"));
    const PositionsHeader header = positionsHeader(song, {}, false, unchanged);
    QVERIFY(header.infoLabels.isEmpty());
    QVERIFY(header.infoValues.isEmpty());
    QVERIFY(header.windowTitle.contains(QStringLiteral("Easy")));
}

void TestPositionsRules::headerEscapesMarkup()
{
    Song song(QStringLiteral("/none.mp3"), true);
    song.setChoreographer(QStringLiteral("A & <b>"));
    QCOMPARE(positionsHeader(song, {}, true, unchanged).infoValues,
             QStringLiteral("A &amp; &lt;b&gt;"));
}

void TestPositionsRules::elidedChoreographerLosesItsMarkup()
{
    Song song(QStringLiteral("/none.mp3"), true);
    song.setChoreographer(QStringLiteral("Ann"));
    song.setAdaptedBy(QStringLiteral("Bob"));
    const auto elide = [](const QString &text) { return text.left(8) + QChar(0x2026); };
    QCOMPARE(positionsHeader(song, {}, true, elide).infoValues, QStringLiteral("Ann, ang…"));
}

TARVELO_TEST_MAIN(TestPositionsRules, QCoreApplication)
#include "tst_PositionsRules.moc"
