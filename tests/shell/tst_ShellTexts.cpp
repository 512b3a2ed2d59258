#include "Screens.h"
#include "Settings.h"
#include "Tarvelo.h"
#include "TarveloSplashScreen.h"
#include "TempoTexts.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>

namespace {

// What a label and a bar held whenever they were painted.
class PaintLog : public QObject
{
public:
    bool eventFilter(QObject *painted, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        if (const auto *label = qobject_cast<QLabel *>(painted))
            texts.append(label->text());
        if (const auto *bar = qobject_cast<QProgressBar *>(painted))
            values.append(bar->value());
        return false;
    }
    QStringList texts;
    QList<int> values;
};

} // namespace

class TestShellTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_data();
    void tempo();
    void tempoBpm_data();
    void tempoBpm();

    void applicationObject();

    void splashLooks();
    void splashWord_data();
    void splashWord();
    void splashProgress();
    void splashFitsAtAnyFontSize_data();
    void splashFitsAtAnyFontSize();
    void splashPaintsNoMoreThanAScreen();

    void palettes_data();
    void palettes();
    void unknownThemeIsDark();
    void styleSheetIsFilled_data();
    void styleSheetIsFilled();
    void styleSheetColour();
};

void TestShellTexts::tempo_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << " 0%";
    QTest::newRow("one digit faster") << 9 << " +9%";
    QTest::newRow("one digit slower") << -9 << " -9%";
    QTest::newRow("two digits faster") << 10 << "+10%";
    QTest::newRow("two digits slower") << -22 << "-22%";
}

void TestShellTexts::tempo()
{
    QFETCH(int, percent);
    QTEST(tempoText(percent), "text");
}

void TestShellTexts::tempoBpm_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("bpm");
    QTest::addColumn<QString>("text");
    QTest::newRow("as recorded") << 0 << 120 << "120b";
    QTest::newRow("a fraction is cut") << 1 << 120 << "121b";
    QTest::newRow("slower") << -22 << 120 << "93b";
    QTest::newRow("unknown") << 5 << 0 << "";
}

void TestShellTexts::tempoBpm()
{
    QFETCH(int, percent);
    QFETCH(int, bpm);
    QTEST(tempoBpmText(percent, bpm), "text");
}

void TestShellTexts::applicationObject()
{
    const Tarvelo tarvelo;
    QCOMPARE(tarvelo.property("about").toString(), QStringLiteral("Tarvelo V2.02 22.11.2015"));
    QCOMPARE(QCoreApplication::organizationName(), QStringLiteral("Tarvelo Soft"));
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Tarvelo"));
    QVERIFY(!QCoreApplication::organizationDomain().isEmpty());
    QVERIFY(Tarvelo::symbolFontFamilies().contains(QStringLiteral("Noto Sans Symbols2")));
}

void TestShellTexts::splashLooks()
{
    TarveloSplashScreen splash;
    QCOMPARE(splash.objectName(), QStringLiteral("SplashScreen"));
    QVERIFY(splash.isModal());
    QVERIFY(splash.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(splash.windowFlags().testFlags(Qt::SplashScreen | Qt::FramelessWindowHint));
    const auto *logo = splash.findChild<QFrame *>(QStringLiteral("frameSplashLogo"));
    QCOMPARE(logo->styleSheet(), QStringLiteral("background-image: url(:/Splash.png);"));
    QCOMPARE(logo->minimumSize(), QSize(300, 300));
    QCOMPARE(QImage(QStringLiteral(":/Splash.png")).size(), QSize(300, 300));
    const int lineHeight = QFontMetrics(QApplication::font()).height();
    const auto *label = splash.findChild<QLabel *>(QStringLiteral("labelSplashProgress"));
    QCOMPARE(label->width(), 282);
    QCOMPARE(label->height(), 3 * lineHeight);
    const auto *bar = splash.findChild<QProgressBar *>(QStringLiteral("progressBar"));
    QCOMPARE(bar->minimumHeight(), 3 * lineHeight / 2);
    splash.show();
    splash.resize(400, 500);
    const QPoint screen = QGuiApplication::primaryScreen()->geometry().center();
    QVERIFY((splash.geometry().center() - screen).manhattanLength() <= 2);
}

void TestShellTexts::splashWord_data()
{
    QTest::addColumn<QVariant>("language");
    QTest::addColumn<QString>("word");
    const QString german = QStringLiteral("Lese Datei");
    const QString english = QStringLiteral("Reading file");
    QTest::newRow("no key") << QVariant() << german;
    QTest::newRow("German") << QVariant(QStringLiteral("de_DE")) << german;
    QTest::newRow("German in capitals") << QVariant(QStringLiteral("DE_de")) << german;
    QTest::newRow("without a country") << QVariant(QStringLiteral("de")) << german;
    QTest::newRow("English") << QVariant(QStringLiteral("en_US")) << english;
    QTest::newRow("cut at the last underscore")
        << QVariant(QStringLiteral("de_Latn_DE")) << english;
}

void TestShellTexts::splashWord()
{
    QFETCH(QVariant, language);
    QFETCH(QString, word);
    Settings::remove(Settings::Key::Language);
    if (language.isValid())
        Settings::setValue(Settings::Key::Language, language);
    TarveloSplashScreen splash;
    splash.setSplashProgress(1, QStringLiteral("a.mp3"), false);
    QCOMPARE(splash.findChild<QLabel *>()->text(), word + QStringLiteral(" 1\na.mp3"));
    Settings::remove(Settings::Key::Language);
}

void TestShellTexts::splashProgress()
{
    TarveloSplashScreen splash;
    splash.setRange(12);
    splash.setSplashProgress(7, QStringLiteral("50%1 <b>#.mp3"), true);
    const auto *bar = splash.findChild<QProgressBar *>();
    QCOMPARE(bar->minimum(), 0);
    QCOMPARE(bar->maximum(), 12);
    QCOMPARE(bar->value(), 7);
    const auto *label = splash.findChild<QLabel *>();
    QCOMPARE(label->text(), QStringLiteral("Lese Datei 7 ▶▶\n50%1 <b>#.mp3"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

void TestShellTexts::splashFitsAtAnyFontSize_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {8, 20, 70})
        QTest::addRow("%d", points) << points;
}

void TestShellTexts::splashFitsAtAnyFontSize()
{
    QFETCH(int, points);
    qApp->setStyleSheet(QStringLiteral("QWidget { font-size: %1pt; }").arg(points));
    TarveloSplashScreen splash;
    splash.setSplashProgress(9999, QStringLiteral("song.mp3"), true);
    splash.show();
    const auto *label = splash.findChild<QLabel *>(QStringLiteral("labelSplashProgress"));
    const QSize needed = label->fontMetrics().size(0, label->text());
    QVERIFY(needed.width() <= label->width() && needed.height() <= label->height());
    const auto *bar = splash.findChild<QProgressBar *>();
    QVERIFY(bar->fontMetrics().height() <= bar->height());
    // Its picture is there once.
    QCOMPARE(splash.findChild<QFrame *>(QStringLiteral("frameSplashLogo"))->size(),
             QSize(300, 300));
    qApp->setStyleSheet({});
}

void TestShellTexts::splashPaintsNoMoreThanAScreen()
{
    constexpr int files = 5000;
    TarveloSplashScreen splash;
    splash.show();
    QVERIFY(QTest::qWaitForWindowExposed(&splash));
    PaintLog paints;
    for (QWidget *painted : {splash.findChild<QWidget *>(QStringLiteral("labelSplashProgress")),
                             splash.findChild<QWidget *>(QStringLiteral("progressBar"))})
        painted->installEventFilter(&paints);
    QElapsedTimer timer;
    timer.start();
    splash.setRange(files);
    for (int file = 1; file <= files; ++file)
        splash.setSplashProgress(file, QStringLiteral("%1.mp3").arg(file), true);
    const int most = static_cast<int>(timer.elapsed() / 16) + 3;
    QVERIFY2(paints.texts.size() <= most, qPrintable(QString::number(paints.texts.size())));
    QCOMPARE(paints.texts.constFirst(), QStringLiteral("Lese Datei 1 ▶▶\n1.mp3"));
    QCOMPARE(paints.texts.constLast(), QStringLiteral("Lese Datei 5000 ▶▶\n5000.mp3"));
    QVERIFY(paints.values.size() <= most);
    QCOMPARE(paints.values.constLast(), files);
}

void TestShellTexts::palettes_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QColor>("dark");
    QTest::addColumn<QColor>("bright");
    const auto row
        = [](const char *name, QPalette::ColorRole role, const QColor &dark, const QColor &bright) {
              QTest::newRow(name) << static_cast<int>(role) << dark << bright;
          };
    row("AlternateBase", QPalette::AlternateBase, {40, 40, 40}, {220, 220, 220});
    row("Base", QPalette::Base, {25, 25, 25}, Qt::white);
    row("BrightText", QPalette::BrightText, Qt::red, Qt::red);
    row("Button", QPalette::Button, {53, 53, 53}, Qt::gray);
    row("ButtonText", QPalette::ButtonText, Qt::white, Qt::black);
    row("Highlight", QPalette::Highlight, {127, 255, 127}, {0, 0, 255});
    row("HighlightedText", QPalette::HighlightedText, Qt::black, Qt::white);
    row("Link", QPalette::Link, {42, 130, 218}, {42, 130, 218});
    row("PlaceholderText", QPalette::PlaceholderText, {63, 127, 63}, {127, 127, 127});
    row("Text", QPalette::Text, {127, 255, 127}, Qt::black);
    row("Window", QPalette::Window, Qt::black, Qt::white);
    row("WindowText", QPalette::WindowText, {127, 255, 127}, Qt::black);
}

void TestShellTexts::palettes()
{
    QFETCH(int, role);
    QFETCH(QColor, dark);
    QFETCH(QColor, bright);
    const auto colour = static_cast<QPalette::ColorRole>(role);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(themeNamed(QStringLiteral("Dark Night")).palette.color(group, colour), dark);
        QCOMPARE(themeNamed(QStringLiteral("bright morning")).palette.color(group, colour), bright);
    }
}

void TestShellTexts::unknownThemeIsDark()
{
    QCOMPARE(themeNamed(QStringLiteral("Purple Rain")).directory, QStringLiteral("Dark_Night"));
    QCOMPARE(themeNamed({}).directory, QStringLiteral("Dark_Night"));
}

void TestShellTexts::styleSheetIsFilled_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << "Dark Night";
    QTest::newRow("bright") << "Bright Morning";
}

void TestShellTexts::styleSheetIsFilled()
{
    QFETCH(QString, theme);
    const QString sheet = styleSheetText(themeNamed(theme));
    for (int i = 1; i <= 9; ++i)
        QVERIFY2(sheet.contains(QLatin1Char('%') + QString::number(i)), qPrintable(sheet));
    const QString filled = filledStyleSheet(sheet, {.screenDpi = 96.0,
                                                    .scrollBarWidth = 20,
                                                    .fontSize = 15,
                                                    .screenButtonHeight = 40,
                                                    .topFrameHeight = 50});
    QVERIFY(!filled.contains(QLatin1Char('%')));
    QVERIFY(!filled.contains(QLatin1Char('@')));
    QCOMPARE(filledStyleSheet(QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9"),
                              {.screenDpi = 98.0, .fontSize = 15}),
             QStringLiteral("24.5 9.8 49 20 15 32 20 7 25"));
}

void TestShellTexts::styleSheetColour()
{
    qApp->setStyleSheet(styleSheetText(themeNamed({})));
    QVERIFY(QColor::isValidColor(styleSheetColor(QStringLiteral("QHeaderView::section"))));
    qApp->setStyleSheet({});
}

TARVELO_TEST_MAIN(TestShellTexts, QApplication)
#include "tst_ShellTexts.moc"
