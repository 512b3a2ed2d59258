#pragma once

#include <QtTest>

// Names of music files that a file system takes and that programs stumble over, as rows of a test
// with the column "name".
inline void addOddFileNames()
{
    using namespace Qt::StringLiterals;
    QTest::addColumn<QString>("name");
    QTest::newRow("hash") << u"a#b#.mp3"_qs;
    QTest::newRow("percent") << u"100%20%.mp3"_qs;
    QTest::newRow("question mark") << u"what?.mp3"_qs;
    QTest::newRow("blanks") << u"  a  b .mp3"_qs;
    QTest::newRow("quotes") << u"\"a'b`\\.mp3"_qs;
    QTest::newRow("line break") << u"a\nb\t.mp3"_qs;
    QTest::newRow("umlaut") << u"Grüße.mp3"_qs;
    QTest::newRow("combining") << u"Gru\u0308ße.mp3"_qs;
    QTest::newRow("emoji") << u"💃🏽🕺.mp3"_qs;
    QTest::newRow("right to left") << u"שלום.mp3"_qs;
    QTest::newRow("colon") << u"file:x.mp3"_qs;
    QTest::newRow("colon first") << u":x.mp3"_qs;
    QTest::newRow("capital suffix") << u"LOUD.MP3"_qs;
    QTest::newRow("longest") << QString(251, u'x') + u".mp3"_qs;
    QTest::newRow("longest in bytes") << QString(62, u'\u4e00') + QString(65, u'x') + u".mp3"_qs;
}
