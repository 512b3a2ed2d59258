#include "PlaylistText.h"

#include "TestMain.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

class TestPlaylistText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void encodings_data();
    void encodings();
    void oldEncodings_data();
    void oldEncodings();
    void noTwoOldLettersAreOne();
    void written();
    void writtenForWindows();
    void writtenLines_data();
    void writtenLines();
    void entriesSurvive_data();
    void entriesSurvive();
    void pathsStayWhenTheFolderMoves();
    void whatNoLineCanHold_data();
    void whatNoLineCanHold();
    void longTexts_data();
    void longTexts();
};

namespace {

const QString directory = u"/music/lists/"_s;

QByteArray encoded(const QString &text, QStringConverter::Encoding encoding)
{
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder(text);
}

} // namespace

void TestPlaylistText::lines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const char *name, const QByteArray &content, const QStringList &entries) {
        QTest::newRow(name) << content << entries;
    };
    const QStringList ab{u"/music/lists/a.mp3"_s, u"/music/lists/b.mp3"_s};
    row("nothing", "", {});
    row("plain", "a.mp3\nb.mp3\n", ab);
    row("no end", "a.mp3\nb.mp3", ab);
    row("carriage returns and line feeds", "a.mp3\r\nb.mp3\r\n", ab);
    row("carriage returns alone", "#EXTM3U\ra.mp3\rb.mp3\r", ab);
    row("carriage returns alone, no end", "a.mp3\rb.mp3", ab);
    row("more carriage returns", "a.mp3\r\r\nb.mp3\r\r\n", ab);
    row("mixed", "a.mp3\rb.mp3\n", ab);
    row("head", "#EXTM3U\na.mp3\nb.mp3\n", ab);
    row("head in the middle", "a.mp3\n#EXTM3U8 x\nb.mp3\n", ab);
    row("titles", "#EXTINF:3,A\na.mp3\n#EXTINFO\nb.mp3\n#EXTINF", ab);
    row("small letters", "#extm3u\n#extinf",
        {u"/music/lists/#extm3u"_s, u"/music/lists/#extinf"_s});
    row("comment", "# a\n#EXTGRP:x\n#EXTM3",
        {u"/music/lists/# a"_s, u"/music/lists/#EXTGRP:x"_s, u"/music/lists/#EXTM3"_s});
    row("not at the start", " #EXTM3U\n", {u"/music/lists/ #EXTM3U"_s});
    row("backslashes", "..\\pop\\a.mp3\n.\\b.mp3",
        {u"/music/pop/a.mp3"_s, u"/music/lists/b.mp3"_s});
    row("drive", "C:\\Music\\a.mp3", {u"/music/lists/C:/Music/a.mp3"_s});
    row("absolute", "/other/a.mp3", {u"/music/lists/other/a.mp3"_s});
    row("address", "http://host/a.mp3", {u"/music/lists/http:/host/a.mp3"_s});
    row("empty lines", "\n\na.mp3\n\n",
        {u"/music/lists"_s, u"/music/lists"_s, ab.at(0), u"/music/lists"_s});
    row("empty line of carriage returns", "a.mp3\r\rb.mp3",
        {ab.at(0), u"/music/lists"_s, ab.at(1)});
    row("above", "../a.mp3\n../../a.mp3\n../../../a.mp3",
        {u"/music/a.mp3"_s, u"/a.mp3"_s, u"/../a.mp3"_s});
    row("dots", "x/.././a.mp3\nx//y/\n...",
        {ab.at(0), u"/music/lists/x/y"_s, u"/music/lists/..."_s});
    row("blanks", " a.mp3 \n\tb.mp3\t\n ",
        {u"/music/lists/ a.mp3 "_s, u"/music/lists/\tb.mp3\t"_s, u"/music/lists/ "_s});
    row("twice", "a.mp3\na.mp3\nA.mp3\n", {ab.at(0), ab.at(0), u"/music/lists/A.mp3"_s});
    row("zeros", QByteArray("a\0b\n\0", 5), {u"/music/lists/a\0b"_s, u"/music/lists/\0"_s});
    row("another list's text", "[playlist]\nFile1=a.mp3\n",
        {u"/music/lists/[playlist]"_s, u"/music/lists/File1=a.mp3"_s});
}

void TestPlaylistText::lines()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, entries);
    QCOMPARE(PlaylistText::read(content, directory), entries);
}

void TestPlaylistText::encodings_data()
{
    QTest::addColumn<QByteArray>("content");
    const QString text = u"#EXTM3U\r\nGrüße.mp3\n\u4e2d\U0001F57A\uFEFF.mp3\n"_s;
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with a mark") << encoded(text, QStringConverter::Utf8);
    QTest::newRow("UTF-16 LE") << encoded(text, QStringConverter::Utf16LE);
    QTest::newRow("UTF-16 BE") << encoded(text, QStringConverter::Utf16BE);
    QTest::newRow("UTF-32 LE") << encoded(text, QStringConverter::Utf32LE);
    QTest::newRow("UTF-32 BE") << encoded(text, QStringConverter::Utf32BE);
}

void TestPlaylistText::encodings()
{
    QFETCH(QByteArray, content);
    const QStringList entries{u"/music/lists/Grüße.mp3"_s,
                              u"/music/lists/\u4e2d\U0001F57A\uFEFF.mp3"_s};
    QCOMPARE(PlaylistText::read(content, directory), entries);
}

void TestPlaylistText::oldEncodings_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("Latin-1") << QByteArrayLiteral("\xe6\xf8\xe5.mp3") << u"æøå.mp3"_s;
    QTest::newRow("Windows") << QByteArrayLiteral("Kathy\x92s \x80\x9f.mp3") << u"Kathy’s €Ÿ.mp3"_s;
    QTest::newRow("no letter") << QByteArrayLiteral("\x81\x8d.mp3") << u"\u0081\u008d.mp3"_s;
    QTest::newRow("beside UTF-8") << QByteArrayLiteral("\xc3\xb6\xb6\xf0\x9f\x95\xba\xfc")
                                  << u"ö¶\U0001F57Aü"_s;
    QTest::newRow("cut sequences") << QByteArrayLiteral("\xe4\xb8z\xf0\x9f\x95") << u"ä¸zðŸ•"_s;
    QTest::newRow("too long a sequence") << QByteArrayLiteral("\xc0\xaf.mp3") << u"À¯.mp3"_s;
    QTest::newRow("half a pair") << QByteArrayLiteral("\xed\xa0\x80") << u"í\u00a0€"_s;
    QTest::newRow("mark inside") << QByteArrayLiteral("\xe4\xef\xbb\xbf.mp3") << u"ä\uFEFF.mp3"_s;
    QTest::newRow("the substitute itself") << QByteArrayLiteral("\xef\xbf\xbd") << u"\uFFFD"_s;
}

void TestPlaylistText::oldEncodings()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, name);
    for (const char *mark : {"", "\xef\xbb\xbf"}) {
        const QStringList entries = PlaylistText::read(mark + line + '\n', directory);
        QCOMPARE(entries, QStringList(directory + name));
        QCOMPARE(PlaylistText::read(PlaylistText::write(entries, directory), directory), entries);
    }
}

void TestPlaylistText::noTwoOldLettersAreOne()
{
    QStringList letters;
    for (int byte = 0x80; byte < 0x100; ++byte)
        letters += PlaylistText::read(QByteArray(1, static_cast<char>(byte)), directory);
    QCOMPARE(letters.size(), 128);
    QCOMPARE(letters.removeDuplicates(), 0);
}

void TestPlaylistText::written()
{
    const QStringList entries{u"/music/lists/a.mp3"_s, u"/music/Grüße.mp3"_s,
                              u"/music/lists/x/b.mp3"_s, u"/other/c.mp3"_s};
    QCOMPARE(PlaylistText::write(entries, directory, PlaylistText::LineEnd::Unix),
             "\xef\xbb\xbf#EXTM3U\na.mp3\n../Gr\xc3\xbc\xc3\x9f"
             "e.mp3\nx/b.mp3\n../../other/c.mp3\n"_ba);
    QCOMPARE(PlaylistText::write({}, directory, PlaylistText::LineEnd::Unix),
             "\xef\xbb\xbf#EXTM3U\n"_ba);
}

void TestPlaylistText::writtenForWindows()
{
    const QStringList entries{u"/music/lists/a.mp3"_s, u"/music/b.mp3"_s};
    const QByteArray content
        = PlaylistText::write(entries, directory, PlaylistText::LineEnd::Windows);
    QCOMPARE(content, "\xef\xbb\xbf#EXTM3U\r\na.mp3\r\n../b.mp3\r\n"_ba);
    QCOMPARE(PlaylistText::read(content, directory), entries);
}

void TestPlaylistText::writtenLines_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("the directory itself") << u"/music/lists"_s << "."_ba;
    QTest::newRow("called like a title") << u"/music/lists/#EXTINF a.mp3"_s << "./#EXTINF a.mp3"_ba;
    QTest::newRow("called like the head") << u"/music/lists/#EXTM3U/b"_s << "./#EXTM3U/b"_ba;
    QTest::newRow("comment") << u"/music/lists/# a"_s << "# a"_ba;
    QTest::newRow("colon") << u"/music/lists/:a.mp3"_s << ":a.mp3"_ba;
}

void TestPlaylistText::writtenLines()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, line);
    const QByteArray content = PlaylistText::write({entry}, directory, PlaylistText::LineEnd::Unix);
    QCOMPARE(content, "\xef\xbb\xbf#EXTM3U\n" + line + '\n');
    QCOMPARE(PlaylistText::read(content, directory), QStringList(entry));
}

void TestPlaylistText::entriesSurvive_data()
{
    lines_data();
    QTest::newRow("half a pair") << QByteArray(
        "\xff\xfe"
        "a\0\0\xd8"
        "b\0\n\0\0\xdc",
        12) << QStringList{u"/music/lists/a\uFFFDb"_s, u"/music/lists/\uFFFD"_s};
    QTest::newRow("half a letter") << QByteArray("\xff\xfe"
                                                 "a\0b",
                                                 5)
                                   << QStringList{u"/music/lists/a"_s};
}

void TestPlaylistText::entriesSurvive()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, entries);
    for (const QString &place : {directory, u"/"_s, u"/x/"_s}) {
        const QStringList first = PlaylistText::read(content, place);
        QCOMPARE(first.size(), entries.size());
        QCOMPARE(PlaylistText::read(PlaylistText::write(first, place), place), first);
    }
    const QStringList here = PlaylistText::read(content, directory);
    QCOMPARE(here, entries);
    // Also from another directory.
    const QString elsewhere = u"/else/where/it/is/"_s;
    QCOMPARE(PlaylistText::read(PlaylistText::write(here, elsewhere), elsewhere), here);
}

void TestPlaylistText::pathsStayWhenTheFolderMoves()
{
    const QStringList before{u"/home/a/music/x.mp3"_s, u"/home/a/music/lists/y.mp3"_s};
    const QStringList after{u"/media/stick/music/x.mp3"_s, u"/media/stick/music/lists/y.mp3"_s};
    const QByteArray content = PlaylistText::write(before, u"/home/a/music/lists/"_s);
    QCOMPARE(PlaylistText::read(content, u"/media/stick/music/lists/"_s), after);
}

void TestPlaylistText::whatNoLineCanHold_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("readAgain");
    QTest::newRow("line feed") << u"/music/lists/a\nb.mp3"_s << u"/music/lists/a b.mp3"_s;
    QTest::newRow("carriage return") << u"/music/lists/a\rb.mp3"_s << u"/music/lists/a b.mp3"_s;
    QTest::newRow("feigned title") << u"/music/lists/a\n#EXTINF"_s << u"/music/lists/a #EXTINF"_s;
    QTest::newRow("backslash") << u"/music/lists/a\\b.mp3"_s << u"/music/lists/a/b.mp3"_s;
}

// One entry stays one entry.
void TestPlaylistText::whatNoLineCanHold()
{
    QFETCH(QString, entry);
    QFETCH(QString, readAgain);
    const QByteArray content = PlaylistText::write({entry, u"/music/c.mp3"_s}, directory);
    const QStringList expected{readAgain, u"/music/c.mp3"_s};
    QCOMPARE(PlaylistText::read(content, directory), expected);
}

void TestPlaylistText::longTexts_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("entries");
    QTest::newRow("one line") << QByteArray(5'000'000, 'a') << 1;
    QTest::newRow("steps up") << QByteArray("../").repeated(1'000'000) << 1;
    QTest::newRow("carriage returns") << QByteArray(1'000'000, '\r') << 1'000'000;
    QTest::newRow("carriage returns, then a feed") << QByteArray(1'000'000, '\r') + '\n' << 1;
    QTest::newRow("empty lines") << QByteArray(1'000'000, '\n') << 1'000'000;
    QTest::newRow("no letters") << QByteArray(1'000'000, '\xf0') << 1;
}

void TestPlaylistText::longTexts()
{
    QFETCH(QByteArray, content);
    QFETCH(int, entries);
    QElapsedTimer timer;
    timer.start();
    const QStringList found = PlaylistText::read(content, directory);
    QCOMPARE(found.size(), entries);
    QCOMPARE(PlaylistText::read(PlaylistText::write(found, directory), directory), found);
    // Far below what a cost that grows with the square would be.
    QVERIFY(timer.elapsed() < 60'000);
}

TARVELO_TEST_MAIN(TestPlaylistText, QCoreApplication)
#include "tst_PlaylistText.moc"
