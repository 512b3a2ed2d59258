#include "PixelFont.h"
#include "TestMain.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

// Sizes in pixels under the application's style sheet, and figures that don't dance.
class TestPixelFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void digitsAreEquallyWide_data();
    void digitsAreEquallyWide();
    void aFontThatIsTabularStays();
    void anotherFontGivesWay();
    void aSizeInPixelsHolds();
    void figuresOfAWidgetAreEquallyWide_data();
    void figuresOfAWidgetAreEquallyWide();
    void textsOfOneLengthAreEquallyWide();

private:
    static QString danceFamily();
};

void TestPixelFont::init()
{
    qApp->setStyleSheet(u"QWidget { font-size: 15pt; }"_qs);
}

// A family of this machine with a narrow 1; empty when there is none.
QString TestPixelFont::danceFamily()
{
    for (const QString &family : QFontDatabase::families(QFontDatabase::Latin)) {
        if (QFontDatabase::isSmoothlyScalable(family) && !hasTabularFigures(QFont(family, 30)))
            return family;
    }
    return {};
}

void TestPixelFont::digitsAreEquallyWide_data()
{
    QTest::addColumn<int>("pixels");
    for (const int pixels : {8, 13, 20, 29, 50, 80, 200})
        QTest::addRow("%d px", pixels) << pixels;
}

void TestPixelFont::digitsAreEquallyWide()
{
    QFETCH(int, pixels);
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    const QFontMetricsF metrics(withTabularFigures(font));
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        QCOMPARE(metrics.horizontalAdvance(digit), metrics.horizontalAdvance(u'0'));
}

void TestPixelFont::aFontThatIsTabularStays()
{
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    QVERIFY(hasTabularFigures(fixed));
    QCOMPARE(withTabularFigures(fixed), fixed);
}

void TestPixelFont::anotherFontGivesWay()
{
    const QString family = danceFamily();
    if (family.isEmpty())
        QSKIP("All fonts of this machine have tabular figures.");
    QFont font(family);
    font.setPixelSize(31);
    font.setBold(true);
    const QFont tabular = withTabularFigures(font);
    QVERIFY(hasTabularFigures(tabular));
    QVERIFY(QFontInfo(tabular).family() != family);
    QCOMPARE(tabular.pixelSize(), 31);
    QVERIFY(tabular.bold());
}

void TestPixelFont::aSizeInPixelsHolds()
{
    QLabel label(u"12:34"_qs);
    setPixelSize(&label, 33);
    label.ensurePolished();
    QCOMPARE(label.font().pixelSize(), 33);
    QCOMPARE(widthAt(&label, 33, u"12:34"_qs),
             QFontMetrics(label.font()).horizontalAdvance(u"12:34"_qs));
}

void TestPixelFont::figuresOfAWidgetAreEquallyWide_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("the program's") << QApplication::font().family();
    QTest::newRow("figures of different widths") << danceFamily();
}

void TestPixelFont::figuresOfAWidgetAreEquallyWide()
{
    QFETCH(QString, family);
    if (family.isEmpty())
        QSKIP("All fonts of this machine have tabular figures.");
    QPushButton button;
    button.setFont(QFont(family));
    for (const int pixels : {20, 57, 80}) {
        setTabularPixelSize(&button, pixels);
        button.ensurePolished();
        QCOMPARE(button.font().pixelSize(), pixels);
        QVERIFY(hasTabularFigures(button.font()));
    }
}

void TestPixelFont::textsOfOneLengthAreEquallyWide()
{
    QPushButton button;
    setTabularPixelSize(&button, 50);
    const int width = widthAt(&button, 50, u"00:00"_qs);
    for (const QString &time : {u"11:11"_qs, u"23:59"_qs, u"47:07"_qs, u"88:88"_qs})
        QCOMPARE(widthAt(&button, 50, time), width);
}

TARVELO_TEST_MAIN(TestPixelFont, QApplication)
#include "tst_PixelFont.moc"
