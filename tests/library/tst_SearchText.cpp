#include "SearchText.h"

#include "TestMain.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

// How a search text is taken apart and compared.
class TestSearchText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tokens_data();
    void tokens();
    void tokensAsThePatternHasThem();
    void longTextsAreTakenApartAtOnce();
    void forms_data();
    void forms();
    void formsAsThePatternHasThem();
    void foldingIsThatOfIndexOf();
    void phrasesStayWithinOneText();
    void searches_data();
    void searches();
};

namespace {

// Whatever may be typed or stand in a tag.
QString anyText(QRandomGenerator &random, int most)
{
    static const QString letters
        = u"aAbBzZ09 \"\"  -',+&()[]/.:\t\näÄéßſKﬁ①ＡéΣσςЖжİıשא中文あが\u0001\u00a0\u2003★"_s;
    static const QStringList wide{u"😀"_s, u"𐐀"_s, u"𐐨"_s, u"𝔸"_s};
    QString text;
    for (int count = random.bounded(most + 1); count > 0; --count) {
        if (random.bounded(20) == 0)
            text += wide.at(random.bounded(static_cast<int>(wide.size())));
        else
            text += letters.at(random.bounded(static_cast<int>(letters.size())));
    }
    return text;
}

QString cut(const QString &text)
{
    static const QRegularExpression others(u"[^a-zA-Z0-9()\\[\\]/.:\\s]"_s);
    return text.normalized(QString::NormalizationForm_KD).remove(others).toLower();
}

SearchTexts textsOf(const QStringList &all)
{
    SearchTexts texts;
    for (const QString &text : all)
        texts.add(text);
    return texts;
}

} // namespace

void TestSearchText::tokens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("tokens");
    QTest::newRow("words") << u"rocky top"_s << QStringList{u"rocky"_s, u"top"_s};
    QTest::newRow("phrase") << u"\"Fancy Double\" top"_s
                            << QStringList{u"\"Fancy Double\""_s, u"top"_s};
    QTest::newRow("open phrase") << u"top \"Fancy Double"_s
                                 << QStringList{u"top"_s, u"\"Fancy Double\""_s};
    QTest::newRow("quote alone") << u"\""_s << QStringList{u"\"\""_s};
    QTest::newRow("quotes in the middle")
        << u"a\"b c\"d e"_s << QStringList{u"a\"b c\"d"_s, u"e"_s};
    QTest::newRow("blanks") << u" a  b "_s
                            << QStringList{QString(), u"a"_s, QString(), u"b"_s, QString()};
    QTest::newRow("other blanks") << u"a\tb"_s << QStringList{u"a\tb"_s};
}

void TestSearchText::tokens()
{
    QFETCH(QString, text);
    QFETCH(QStringList, tokens);
    QCOMPARE(searchTokens(text), tokens);
}

void TestSearchText::tokensAsThePatternHasThem()
{
    const QRegularExpression blank(u" (?=[^\"]*(\"[^\"]*\"[^\"]*)*$)"_s);
    QRandomGenerator random(1);
    for (int round = 0; round < 20000; ++round) {
        const QString text = anyText(random, 14);
        const QString closed = text.count(u'"') % 2 == 1 ? text + u'"' : text;
        QCOMPARE(searchTokens(text), closed.split(blank));
    }
}

void TestSearchText::longTextsAreTakenApartAtOnce()
{
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(searchTokens(u"a \" "_s.repeated(8000)).size(), 8001);
    QVERIFY(timer.elapsed() < 1000);
}

void TestSearchText::forms_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("form");
    QTest::newRow("accents") << u"Über Élan"_s << u"uber elan"_s;
    QTest::newRow("signs") << u"Ain't (No) [Way], 1+1 - a/b.c:d!"_s
                           << u"aint (no) [way] 11  a/b.c:d"_s;
    QTest::newRow("date") << u"2016-01-31T16:05:00.000"_s << u"20160131t16:05:00.000"_s;
    QTest::newRow("ligatures") << u"ﬁne ①"_s << u"fine 1"_s;
    QTest::newRow("sharp s") << u"Straße"_s << u"strae"_s;
    QTest::newRow("other scripts") << u"Жж 中文 שא"_s << u"  "_s;
    QTest::newRow("blanks") << u"a\tb\nc\u00a0d"_s << u"a\tb\nc d"_s;
}

void TestSearchText::forms()
{
    QFETCH(QString, text);
    QFETCH(QString, form);
    QCOMPARE(QString::fromStdString(searchForm(text)), form);
}

void TestSearchText::formsAsThePatternHasThem()
{
    QRandomGenerator random(2);
    for (int round = 0; round < 20000; ++round) {
        const QString text = anyText(random, 12);
        QCOMPARE(QString::fromStdString(searchForm(text)), cut(text));
    }
    for (char16_t letter = 1; letter < 0xd800; ++letter)
        QCOMPARE(QString::fromStdString(searchForm(QString(letter))), cut(QString(letter)));
}

void TestSearchText::foldingIsThatOfIndexOf()
{
    QRandomGenerator random(3);
    for (int round = 0; round < 50000; ++round) {
        const QString text = anyText(random, 12);
        const QString wanted = anyText(random, 2);
        const bool found = text.indexOf(wanted, 0, Qt::CaseInsensitive) >= 0;
        QCOMPARE(caseFolded(text).contains(caseFolded(wanted)), found);
        QCOMPARE(textsOf({text}).hasPhrase(caseFolded(wanted)), found);
    }
    QCOMPARE(caseFolded(u"Maß"_s), u"maß"_s);
}

void TestSearchText::phrasesStayWithinOneText()
{
    const SearchTexts texts = textsOf({u"Rocky"_s, QString(), u"Top"_s, u"y Top"_s});
    QVERIFY(texts.hasPhrase(u"rocky"_s));
    QVERIFY(texts.hasPhrase(u"y top"_s));
    QVERIFY(!texts.hasPhrase(u"ytop"_s));
    QVERIFY(!texts.hasPhrase(u"topy"_s));
    QVERIFY(texts.hasWord("top"));
    QVERIFY(!texts.hasWord("rockytop"));
    QCOMPARE(texts.folded(0), QStringView(u"rocky"));
    QVERIFY(texts.folded(1).isEmpty());
    QCOMPARE(texts.folded(3), QStringView(u"y top"));
}

void TestSearchText::searches_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("found");
    const auto row = [](const QString &search, bool found) {
        QTest::newRow(qPrintable(search)) << search << found;
    };
    row(u""_s, true);
    row(u"fluss"_s, true);
    row(u"FLUSS uber"_s, true);
    row(u"\u00fcber"_s, true);
    row(u"\"uber\""_s, false);
    row(u"\"\u00dcBER den\""_s, true);
    row(u"\"fancy double\" fluss"_s, true);
    row(u"\"double fancy\" fluss"_s, false);
    row(u"\"fancy"_s, true);
    row(u"\"fancy fluss"_s, false);
    row(u"\""_s, true);
    row(u"  "_s, true);
    row(u"-"_s, true);
    row(u"\u2605"_s, true);
    row(u"20160131T16:05"_s, true);
    row(u"201601"_s, true);
    row(u"2016-01-31"_s, true);
    row(u"20160201"_s, false);
    row(u"fluss zebra"_s, false);
    row(u"flussfancy"_s, false);
}

void TestSearchText::searches()
{
    QFETCH(QString, search);
    QFETCH(bool, found);
    const SearchTexts texts
        = textsOf({u"Über den Fluss"_s, u"Fancy Double, Basic"_s, u"2016-01-31T16:05:00.000"_s});
    QCOMPARE(SearchQuery(search).matches(texts), found);
    QCOMPARE(SearchQuery(search).isEmpty(), search.isEmpty());
    QVERIFY(SearchQuery().matches(texts));
}

TARVELO_TEST_MAIN(TestSearchText, QCoreApplication)
#include "tst_SearchText.moc"
