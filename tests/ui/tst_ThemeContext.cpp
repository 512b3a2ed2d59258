#include "TestMain.h"
#include "ThemeContext.h"

#include <QApplication>

using namespace Qt::StringLiterals;

// The theme's pictures, found by their names.
class TestThemeContext : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theDarkThemeIsTheFirst();
    void picturesFollowTheTheme();
    void aDisabledControlHasItsOwnPicture();
    void aMissingPictureIsEmpty_data();
    void aMissingPictureIsEmpty();

private:
    void write(const QString &theme, const QString &name, const QColor &colour);
    static QColor colourOf(const QPixmap &picture);

    QTemporaryDir themes;
};

void TestThemeContext::write(const QString &theme, const QString &name, const QColor &colour)
{
    QPixmap picture(48, 48);
    picture.fill(colour);
    QVERIFY(picture.save(themes.filePath(theme + u'/' + name + u".png"_qs)));
}

QColor TestThemeContext::colourOf(const QPixmap &picture)
{
    return picture.toImage().pixelColor(picture.width() / 2, picture.height() / 2);
}

void TestThemeContext::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(u".*"_qs));
    QVERIFY(QDir(themes.path()).mkpath(u"one"_qs) && QDir(themes.path()).mkpath(u"two"_qs));
    write(u"one"_qs, u"Help"_qs, Qt::green);
    write(u"one"_qs, u"Search+Replace"_qs, Qt::red);
    write(u"one"_qs, u"Help_Disabled"_qs, Qt::darkGreen);
    write(u"two"_qs, u"Help"_qs, Qt::blue);
}

void TestThemeContext::theDarkThemeIsTheFirst()
{
    QCOMPARE(themePath(), u":/Dark_Night"_qs);
    QVERIFY(themeIconSize().isValid());
}

void TestThemeContext::picturesFollowTheTheme()
{
    setThemeContext({30, 30}, themes.filePath(u"one"_qs));
    QCOMPARE(themePath(), themes.filePath(u"one"_qs));
    QCOMPARE(themeIconSize(), QSize(30, 30));
    QCOMPARE(colourOf(themePicture(u"Help"_qs)), QColor(Qt::green));
    QCOMPARE(colourOf(themeIcon(u"Help"_qs).pixmap(20)), QColor(Qt::green));
    QCOMPARE(colourOf(themeIcon(u"Search+Replace"_qs).pixmap(20)), QColor(Qt::red));
    setThemeContext({60, 60}, themes.filePath(u"two"_qs));
    QCOMPARE(themeIconSize(), QSize(60, 60));
    QCOMPARE(colourOf(themePicture(u"Help"_qs)), QColor(Qt::blue));
    QCOMPARE(colourOf(themeIcon(u"Help"_qs).pixmap(20)), QColor(Qt::blue));
}

void TestThemeContext::aDisabledControlHasItsOwnPicture()
{
    setThemeContext({30, 30}, themes.filePath(u"one"_qs));
    const QIcon icon = themeIcon(u"Help"_qs);
    QCOMPARE(colourOf(icon.pixmap(20, QIcon::Disabled)), QColor(Qt::darkGreen));
    QCOMPARE(colourOf(icon.pixmap(20, QIcon::Normal)), QColor(Qt::green));
    QVERIFY(!themeIcon(u"Search+Replace"_qs).pixmap(20, QIcon::Disabled).isNull());
}

void TestThemeContext::aMissingPictureIsEmpty_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("name");
    QTest::newRow("no such picture") << themes.filePath(u"two"_qs) << u"Error"_qs;
    QTest::newRow("no such theme") << u":/Purple_Noon"_qs << u"Help"_qs;
    QTest::newRow("no theme") << QString() << u"Help"_qs;
}

void TestThemeContext::aMissingPictureIsEmpty()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    QTest::failOnWarning(QRegularExpression(u".*"_qs));
    setThemeContext({30, 30}, theme);
    QVERIFY(themePicture(name).isNull());
    QVERIFY(themeIcon(name).isNull());
}

TARVELO_TEST_MAIN(TestThemeContext, QApplication)
#include "tst_ThemeContext.moc"
