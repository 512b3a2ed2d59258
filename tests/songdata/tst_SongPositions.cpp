#include "SongPositions.h"

#include "TestMain.h"

#include <QJsonArray>
#include <QJsonObject>

#include <synchronizedlyricsframe.h>

using TagLib::ID3v2::SynchronizedLyricsFrame;
using Entry = SynchronizedLyricsFrame::SynchedText;

class TestSongPositions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesAreSplitAtTabs_data();
    void entriesAreSplitAtTabs();
    void readingKeepsTheFramesOrder();
    void readingReplacesWhatWasThere();
    void writingDescribesTheFrame();
    void writingReplacesTheFramesContent();
    void anEmptyPositionIsOneTab();
    void textsOfAnyLanguageSurviveTheFrame();
    void aFrameOfAnUnknownEncodingIsWrittenInAKnownOne();
    void negativeTimesKeepTheirBits();
    void sortingGoesByTimeThenPartThenSteps();
    void shiftingMayGoBelowZero();
    void shiftingStopsAtTheEndsOfTheRange();
    void copiesAreIndependent();
    void jsonHoldsEveryPosition();
    void jsonIsReadLeniently_data();
    void jsonIsReadLeniently();
    void beatsAreRounded_data();
    void beatsAreRounded();
    void stepTextsAreJoined();
};

namespace {

void fill(SynchronizedLyricsFrame &frame, std::initializer_list<Entry> entries)
{
    SynchronizedLyricsFrame::SynchedTextList list;
    for (const Entry &entry : entries)
        list.append(entry);
    frame.setSynchedText(list);
}

SongPositions listOf(std::initializer_list<Position> entries)
{
    SongPositions positions;
    for (const Position &entry : entries)
        positions.insert(positions.count(), entry);
    return positions;
}

// Through the bytes, as the file holds them.
SongPositions throughFrame(const SongPositions &positions)
{
    SynchronizedLyricsFrame written(TagLib::String::Latin1);
    positions.toFrame(&written);
    const SynchronizedLyricsFrame readFrame(written.render());
    SongPositions result;
    result.fromFrame(&readFrame);
    return result;
}

} // namespace

void TestSongPositions::entriesAreSplitAtTabs_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("steps");

    QTest::newRow("part and steps") << QByteArray("A\tB") << u"A"_qs << u"B"_qs;
    QTest::newRow("no tab") << QByteArray("steps only") << QString() << u"steps only"_qs;
    QTest::newRow("two tabs") << QByteArray("A\tB\tC") << u"A"_qs << u"B"_qs;
    QTest::newRow("one tab") << QByteArray("\t") << QString() << QString();
    QTest::newRow("nothing") << QByteArray() << QString() << QString();
    QTest::newRow("lines") << QByteArray("A\tone\ntwo") << u"A"_qs << u"one\ntwo"_qs;
    QTest::newRow("UTF-8") << QByteArray("Refrain \xc3\xbc\tSchritt") << u"Refrain ü"_qs
                           << u"Schritt"_qs;
}

void TestSongPositions::entriesAreSplitAtTabs()
{
    QFETCH(QByteArray, text);
    SynchronizedLyricsFrame frame;
    fill(frame, {Entry(1500, TagLib::String(text.constData(), TagLib::String::UTF8))});
    SongPositions positions;
    positions.fromFrame(&frame);
    QCOMPARE(positions.count(), 1);
    QCOMPARE(positions.at(0).getTime(), 1500);
    QTEST(positions.at(0).getPart(), "part");
    QTEST(positions.at(0).getSteps(), "steps");
}

void TestSongPositions::readingKeepsTheFramesOrder()
{
    SynchronizedLyricsFrame frame;
    fill(frame, {Entry(300, "c"), Entry(100, "a"), Entry(200, "b")});
    SongPositions positions;
    positions.fromFrame(&frame);
    QCOMPARE(positions.at(0).getTime(), 300);
    QCOMPARE(positions.at(1).getTime(), 100);
    QCOMPARE(positions.at(2).getTime(), 200);
}

void TestSongPositions::readingReplacesWhatWasThere()
{
    SongPositions positions = listOf({Position(1, u"old"_qs, QString())});
    SynchronizedLyricsFrame frame;
    fill(frame, {});
    positions.fromFrame(&frame);
    QCOMPARE(positions.count(), 0);
}

void TestSongPositions::writingDescribesTheFrame()
{
    SynchronizedLyricsFrame frame(TagLib::String::Latin1);
    frame.setDescription("somebody else's");
    frame.setLanguage("deu");
    frame.setType(SynchronizedLyricsFrame::Lyrics);
    frame.setTimestampFormat(SynchronizedLyricsFrame::AbsoluteMpegFrames);
    SongPositions().toFrame(&frame);
    QVERIFY(frame.description() == "TarveloChoreoParts");
    QVERIFY(frame.language() == "eng");
    QCOMPARE(int(frame.type()), 3);
    QCOMPARE(int(frame.timestampFormat()), 2);
}

void TestSongPositions::writingReplacesTheFramesContent()
{
    SynchronizedLyricsFrame frame;
    fill(frame, {Entry(1, "lyrics"), Entry(2, "more lyrics")});
    listOf({Position(500, u"A"_qs, u"B"_qs)}).toFrame(&frame);
    QCOMPARE(frame.synchedText().size(), 1U);
    QVERIFY(frame.synchedText().front().text == "A\tB");
    QCOMPARE(frame.synchedText().front().time, 500U);
}

void TestSongPositions::anEmptyPositionIsOneTab()
{
    SynchronizedLyricsFrame frame;
    listOf({Position(500, QString(), QString()), Position(600, QString(), u"x"_qs)})
        .toFrame(&frame);
    QVERIFY(frame.synchedText()[0].text == "\t");
    QVERIFY(frame.synchedText()[1].text == "\tx");
}

void TestSongPositions::textsOfAnyLanguageSurviveTheFrame()
{
    const SongPositions positions = listOf({Position(0, u"Strophe 1"_qs, u"2 Triples, 1 Chain"_qs),
                                            Position(1, u"größer"_qs, u"ß – „x“"_qs),
                                            Position(2, u"日本"_qs, u"💃🏽\n🕺"_qs)});
    QCOMPARE(throughFrame(positions), positions);
}

void TestSongPositions::aFrameOfAnUnknownEncodingIsWrittenInAKnownOne()
{
    SynchronizedLyricsFrame sound;
    fill(sound, {Entry(1, "foreign")});
    TagLib::ByteVector bytes = sound.render();
    bytes[10] = 9;
    SynchronizedLyricsFrame frame(bytes);
    listOf({Position(500, u"A"_qs, u"B"_qs)}).toFrame(&frame);
    SongPositions positions;
    const SynchronizedLyricsFrame readFrame(frame.render());
    positions.fromFrame(&readFrame);
    QCOMPARE(positions, listOf({Position(500, u"A"_qs, u"B"_qs)}));
}

void TestSongPositions::negativeTimesKeepTheirBits()
{
    SynchronizedLyricsFrame frame;
    const SongPositions positions = listOf({Position(-300, u"A"_qs, QString())});
    positions.toFrame(&frame);
    QCOMPARE(frame.synchedText().front().time, 4294966996U);
    QCOMPARE(throughFrame(positions), positions);
}

void TestSongPositions::sortingGoesByTimeThenPartThenSteps()
{
    SongPositions positions
        = listOf({Position(200, u"A"_qs, u"a"_qs), Position(100, u"b"_qs, u"a"_qs),
                  Position(100, u"B"_qs, u"z"_qs), Position(100, u"B"_qs, u"Z"_qs),
                  Position(-1, u"z"_qs, u"z"_qs), Position(100, u"A"_qs, u"z"_qs)});
    positions.sort();
    QCOMPARE(positions, listOf({Position(-1, u"z"_qs, u"z"_qs), Position(100, u"A"_qs, u"z"_qs),
                                Position(100, u"B"_qs, u"Z"_qs), Position(100, u"B"_qs, u"z"_qs),
                                Position(100, u"b"_qs, u"a"_qs), Position(200, u"A"_qs, u"a"_qs)}));
}

void TestSongPositions::shiftingMayGoBelowZero()
{
    SongPositions positions
        = listOf({Position(500, u"A"_qs, QString()), Position(2000, u"B"_qs, QString())});
    positions.shift(-1000);
    QCOMPARE(positions.at(0).getTime(), -500);
    QCOMPARE(positions.at(1).getTime(), 1000);
}

void TestSongPositions::shiftingStopsAtTheEndsOfTheRange()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    SongPositions positions = listOf({Position(lowest + 100, QString(), QString())});
    positions.shift(-800);
    QCOMPARE(positions.at(0).getTime(), lowest);
    positions.at(0).setTime(highest - 1);
    positions.shift(2);
    QCOMPARE(positions.at(0).getTime(), highest);
}

void TestSongPositions::copiesAreIndependent()
{
    SongPositions original = listOf({Position(1, u"A"_qs, u"a"_qs), Position(2, u"B"_qs, u"b"_qs)});
    const SongPositions snapshot = original;
    original.at(0).setPart(u"changed"_qs);
    original.at(0).setSteps(u"changed"_qs);
    original.at(0).setTime(7);
    original.removeAt(1);
    original.insert(0, Position(0, u"new"_qs, QString()));
    QCOMPARE(snapshot, listOf({Position(1, u"A"_qs, u"a"_qs), Position(2, u"B"_qs, u"b"_qs)}));
    QCOMPARE(original, listOf({Position(0, u"new"_qs, QString()),
                               Position(7, u"changed"_qs, u"changed"_qs)}));
    original.clear();
    QCOMPARE(original.count(), 0);
}

void TestSongPositions::jsonHoldsEveryPosition()
{
    const SongPositions positions
        = listOf({Position(-5, u"A"_qs, u"a\nb"_qs), Position(2, QString(), QString())});
    QJsonObject object{{u"title"_qs, u"kept"_qs}};
    positions.toJson(object);
    QCOMPARE(object.value(u"title").toString(), u"kept"_qs);
    const QJsonArray expected{
        QJsonObject{{u"timestamp"_qs, -5}, {u"part"_qs, u"A"_qs}, {u"text"_qs, u"a\nb"_qs}},
        QJsonObject{{u"timestamp"_qs, 2}, {u"part"_qs, QString()}, {u"text"_qs, QString()}}};
    QCOMPARE(object.value(u"positions").toArray(), expected);

    SongPositions readBack;
    readBack.fromJson(object);
    QCOMPARE(readBack, positions);
}

void TestSongPositions::jsonIsReadLeniently_data()
{
    QTest::addColumn<QJsonObject>("object");
    QTest::addColumn<bool>("present");
    QTest::addColumn<int>("count");

    QTest::newRow("no key") << QJsonObject() << false << 0;
    QTest::newRow("no array") << QJsonObject{{u"positions"_qs, 5}} << false << 0;
    QTest::newRow("empty") << QJsonObject{{u"positions"_qs, QJsonArray()}} << true << 0;
    QTest::newRow("strange entries")
        << QJsonObject{{u"positions"_qs,
                        QJsonArray{5, QJsonObject(),
                                   QJsonObject{{u"timestamp"_qs, u"x"_qs}, {u"part"_qs, 3}}}}}
        << true << 3;
}

void TestSongPositions::jsonIsReadLeniently()
{
    QFETCH(QJsonObject, object);
    QTEST(SongPositions::hasPositions(object), "present");
    SongPositions positions = listOf({Position(1, u"old"_qs, QString())});
    positions.fromJson(object);
    QTEST(positions.count(), "count");
    for (int index = 0; index < positions.count(); ++index)
        QCOMPARE(positions.at(index), Position());
}

void TestSongPositions::beatsAreRounded_data()
{
    QTest::addColumn<qint64>("span");
    QTest::addColumn<int>("bpm");
    QTest::addColumn<int>("beats");

    QTest::newRow("exact") << qint64{16000} << 120 << 32;
    QTest::newRow("half up") << qint64{250} << 120 << 1;
    QTest::newRow("below half") << qint64{249} << 120 << 0;
    QTest::newRow("half down") << qint64{-250} << 120 << -1;
    QTest::newRow("long") << qint64{3600000} << 200 << 12000;
    QTest::newRow("widest span") << qint64{4294967295} << 250 << 17895697;
}

void TestSongPositions::beatsAreRounded()
{
    QFETCH(qint64, span);
    QFETCH(int, bpm);
    QTEST(beatCount(span, bpm), "beats");
}

void TestSongPositions::stepTextsAreJoined()
{
    QCOMPARE(positionsAsText({}), QString());
    QCOMPARE(positionsAsText(listOf({{10, u"A"_qs, u"one"_qs}})), u"one"_qs);
    const SongPositions several = listOf(
        {{20, u"A"_qs, u"two\nlines"_qs}, {10, u"B"_qs, QString()}, {30, u"C"_qs, u"last"_qs}});
    QCOMPARE(positionsAsText(several), u"two\nlines\n\nlast"_qs);
}

TARVELO_TEST_MAIN(TestSongPositions, QCoreApplication)
#include "tst_SongPositions.moc"
