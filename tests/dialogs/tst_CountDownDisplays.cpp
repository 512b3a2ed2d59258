#include "CountDownDisplays.h"
#include "Settings.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>

using Settings::Key;

namespace {

constexpr Key geometryKey = Key::CountDownDisplayWindowGeometry;
constexpr int button = 1;
constexpr int window = 2;
constexpr int cool = 3;

} // namespace

// What is shown of a countdown, in each of the three ways.
class TestCountDownDisplays : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void numbersGoToTheButton();
    void endIsToldToTheButton_data();
    void endIsToldToTheButton();
    void numbersShowADisplay_data();
    void numbersShowADisplay();
    void unknownTypesShowNothing();
    void endClosesAllDisplays();
    void nextCountMakesANewDisplay_data();
    void nextCountMakesANewDisplay();

    void overlayCoversTheMiddleOfTheWindow_data();
    void overlayCoversTheMiddleOfTheWindow();
    void overlayIsNoWindowOfItsOwn();
    void displaysHaveNoParent_data();
    void displaysHaveNoParent();
    void longNumbersAreNotCut_data();
    void longNumbersAreNotCut();
    void windowsDigitsAreHalfItsHeight();
    void windowKeepsItsSizeAndPlace();
    void firstWindowHasAPlaceOfItsOwn();
    void overlaySavesNoGeometry();
    void closedByItsUserStaysClosed();
    void closedWindowSavesNothingMore();

    void numberFades();
    void numberIsWholeAtOnce();
    void windowDoesNotFade();
    void fastBeatsGoOnDimmer();
    void nextCountdownIsNotDimmed();
    void fadedOverlayIsOutOfSight();

    void displaysOutliveTheMainWindow_data();
    void displaysOutliveTheMainWindow();
    void ownerGoesInTheMiddleOfACount_data();
    void ownerGoesInTheMiddleOfACount();
    void programGoesOnWithoutTheDisplay();

private:
    static QList<CountDownDisplayDialog *> displays();
    static CountDownDisplayDialog *display() { return displays().value(0); }
    static QString shownNumber() { return display()->findChild<QLabel *>()->text(); }
    static int digitHeight() { return display()->findChild<QLabel *>()->font().pixelSize(); }
    void count(int number, int type) { owner->showCountDown({number, QStringLiteral("c"), type}); }
    static void rowsOfBothDisplays();

    std::unique_ptr<QWidget> mainWindow;
    std::unique_ptr<CountDownDisplays> owner;
};

void TestCountDownDisplays::initTestCase()
{
    const Theme &theme = themeNamed(QStringLiteral("Dark Night"));
    qApp->setPalette(theme.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {}));
}

void TestCountDownDisplays::init()
{
    Settings::factoryReset();
    mainWindow = std::make_unique<QWidget>();
    mainWindow->setGeometry(50, 40, 700, 500);
    mainWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mainWindow.get()));
    owner = std::make_unique<CountDownDisplays>(mainWindow.get());
}

void TestCountDownDisplays::cleanup()
{
    owner.reset();
    mainWindow.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(displays().isEmpty());
}

QList<CountDownDisplayDialog *> TestCountDownDisplays::displays()
{
    QList<CountDownDisplayDialog *> found;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<CountDownDisplayDialog *>(widget))
            found.append(dialog);
    }
    return found;
}

void TestCountDownDisplays::rowsOfBothDisplays()
{
    QTest::addColumn<int>("type");
    QTest::newRow("window") << window;
    QTest::newRow("cool") << cool;
}

void TestCountDownDisplays::numbersGoToTheButton()
{
    QSignalSpy shown(owner.get(), &CountDownDisplays::buttonCountShown);
    QSignalSpy ended(owner.get(), &CountDownDisplays::buttonCountEnded);
    for (int number = 9; number >= 7; --number)
        count(number, button);
    QCOMPARE(shown.size(), 3);
    QCOMPARE(shown.at(0).at(0).toString(), QStringLiteral("9"));
    QCOMPARE(shown.at(2).at(0).toString(), QStringLiteral("7"));
    QCOMPARE(ended.size(), 0);
    QVERIFY(displays().isEmpty());
}

void TestCountDownDisplays::endIsToldToTheButton_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("nothing before it") << 0;
    QTest::newRow("button") << button;
    QTest::newRow("window") << window;
    QTest::newRow("cool") << cool;
}

void TestCountDownDisplays::endIsToldToTheButton()
{
    QFETCH(int, type);
    if (type != 0)
        count(3, type);
    QSignalSpy ended(owner.get(), &CountDownDisplays::buttonCountEnded);
    owner->showCountDown({});
    QCOMPARE(ended.size(), 1);
}

void TestCountDownDisplays::numbersShowADisplay_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::numbersShowADisplay()
{
    QFETCH(int, type);
    QSignalSpy shown(owner.get(), &CountDownDisplays::buttonCountShown);
    count(9, type);
    QCOMPARE(displays().size(), 1);
    const QPointer<CountDownDisplayDialog> first = display();
    QVERIFY(first->isVisible());
    QCOMPARE(shownNumber(), QStringLiteral("9"));
    count(8, type);
    QCOMPARE(displays().size(), 1);
    QCOMPARE(display(), first.data());
    QCOMPARE(shownNumber(), QStringLiteral("8"));
    QCOMPARE(shown.size(), 0);
}

void TestCountDownDisplays::unknownTypesShowNothing()
{
    for (const int type : {-1, 4})
        count(1, type);
    QVERIFY(displays().isEmpty());
}

void TestCountDownDisplays::endClosesAllDisplays()
{
    count(2, window);
    count(1, cool);
    QCOMPARE(displays().size(), 2);
    owner->showCountDown({});
    for (const CountDownDisplayDialog *closed : displays())
        QVERIFY(!closed->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(displays().isEmpty());
}

void TestCountDownDisplays::nextCountMakesANewDisplay_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::nextCountMakesANewDisplay()
{
    QFETCH(int, type);
    for (int song = 0; song < 3; ++song) {
        count(2, type);
        QVERIFY(display() && display()->isVisible());
        QCOMPARE(shownNumber(), QStringLiteral("2"));
        owner->showCountDown({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(displays().isEmpty());
    }
}

void TestCountDownDisplays::overlayCoversTheMiddleOfTheWindow_data()
{
    QTest::addColumn<QRect>("main");
    QTest::addColumn<QRect>("over");
    QTest::addColumn<int>("digits");
    QTest::newRow("even") << QRect(50, 40, 700, 500) << QRect(225, 40, 350, 500) << 333;
    // Each share is cut by itself.
    QTest::newRow("odd") << QRect(11, 7, 703, 401) << QRect(11 + 351 - 175, 7, 351, 401) << 267;
}

void TestCountDownDisplays::overlayCoversTheMiddleOfTheWindow()
{
    QFETCH(QRect, main);
    mainWindow->setGeometry(main);
    const QPoint frame = mainWindow->pos() - main.topLeft();
    count(9, cool);
    QFETCH(QRect, over);
    QCOMPARE(display()->geometry(), over.translated(frame));
    QTEST(digitHeight(), "digits");
}

void TestCountDownDisplays::overlayIsNoWindowOfItsOwn()
{
    count(9, cool);
    QVERIFY(display()->windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(display()->windowType(), Qt::SplashScreen);
    QVERIFY(display()->testAttribute(Qt::WA_TranslucentBackground));
    count(9, window);
    for (const CountDownDisplayDialog *shown : displays()) {
        if (shown->windowType() == Qt::SplashScreen)
            continue;
        QVERIFY(!shown->windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(!shown->testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(shown->windowTitle(), QStringLiteral("Countdown"));
    }
}

void TestCountDownDisplays::displaysHaveNoParent_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::displaysHaveNoParent()
{
    QFETCH(int, type);
    count(9, type);
    QVERIFY(!display()->parentWidget());
    QVERIFY(display()->testAttribute(Qt::WA_ShowWithoutActivating));
}

void TestCountDownDisplays::longNumbersAreNotCut_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::longNumbersAreNotCut()
{
    QFETCH(int, type);
    count(9, type);
    display()->resize(250, 400);
    const QSize size = display()->size();
    count(128, type);
    QCOMPARE(display()->size(), size);
    const QLabel *label = display()->findChild<QLabel *>();
    QVERIFY(QFontMetrics(label->font()).horizontalAdvance(label->text()) <= label->width());
    const int small = digitHeight();
    count(9, type);
    QVERIFY(digitHeight() > small);
}

void TestCountDownDisplays::windowsDigitsAreHalfItsHeight()
{
    count(9, window);
    for (const int height : {200, 301}) {
        display()->resize(500, height);
        QTRY_COMPARE(digitHeight(), height / 2);
    }
}

void TestCountDownDisplays::windowKeepsItsSizeAndPlace()
{
    count(9, window);
    display()->setGeometry(120, 90, 333, 222);
    owner->showCountDown({});
    QVERIFY(Settings::contains(geometryKey));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    count(9, window);
    QCOMPARE(display()->geometry(), QRect(120, 90, 333, 222));
}

void TestCountDownDisplays::firstWindowHasAPlaceOfItsOwn()
{
    QVERIFY(!Settings::contains(geometryKey));
    count(9, window);
    QVERIFY(display()->height() >= 100);
    QVERIFY(display()->geometry() != mainWindow->geometry());
    QVERIFY(!Settings::contains(geometryKey));
}

void TestCountDownDisplays::overlaySavesNoGeometry()
{
    count(9, cool);
    owner->showCountDown({});
    QVERIFY(!Settings::contains(geometryKey));
}

// Until the countdown has ended; the end then changes nothing of what was saved.
void TestCountDownDisplays::closedByItsUserStaysClosed()
{
    count(9, window);
    display()->setGeometry(120, 90, 333, 222);
    display()->close();
    const QByteArray saved = Settings::value(geometryKey).toByteArray();
    QVERIFY(!saved.isEmpty());
    count(8, window);
    QVERIFY(!display()->isVisible());
    owner->showCountDown({});
    QCOMPARE(Settings::value(geometryKey).toByteArray(), saved);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    count(9, window);
    QVERIFY(display()->isVisible());
    QCOMPARE(display()->geometry(), QRect(120, 90, 333, 222));
}

// A place that was reset meanwhile stays reset.
void TestCountDownDisplays::closedWindowSavesNothingMore()
{
    count(9, window);
    display()->close();
    QVERIFY(Settings::contains(geometryKey));
    Settings::remove(geometryKey);
    owner->showCountDown({});
    QVERIFY(!Settings::contains(geometryKey));
}

void TestCountDownDisplays::numberFades()
{
    count(9, cool);
    auto *timer = display()->findChild<QTimer *>();
    QVERIFY(timer && timer->isActive());
    QCOMPARE(timer->interval(), 30);
    timer->stop(); // the test is the clock
    for (const double opacity : {1.0, 1.0, 0.8, 0.6, 0.4, 0.2, 0.0}) {
        display()->counterFadeOut();
        QCOMPARE(display()->windowOpacity(), opacity);
    }
    timer->start();
    for (int i = 0; i < 6; ++i)
        display()->counterFadeOut();
    QVERIFY(timer->isActive());
    display()->counterFadeOut();
    QVERIFY(!timer->isActive());
}

void TestCountDownDisplays::numberIsWholeAtOnce()
{
    count(9, cool);
    QTRY_COMPARE(display()->windowOpacity(), 0.0);
    count(8, cool);
    QCOMPARE(display()->windowOpacity(), 1.0);
}

void TestCountDownDisplays::windowDoesNotFade()
{
    count(9, window);
    QVERIFY(!display()->findChild<QTimer *>());
    QCOMPARE(display()->windowOpacity(), 1.0);
}

// A beat that comes before the last number has faded finds the fading where it was.
void TestCountDownDisplays::fastBeatsGoOnDimmer()
{
    count(9, cool);
    const QPointer<QTimer> first = display()->findChild<QTimer *>();
    first->stop();
    for (int i = 0; i < 4; ++i)
        display()->counterFadeOut();
    QCOMPARE(display()->windowOpacity(), 0.6);
    count(8, cool);
    QVERIFY(!first);
    const QList<QTimer *> timers = display()->findChildren<QTimer *>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.constFirst()->isActive());
    timers.constFirst()->stop();
    QCOMPARE(display()->windowOpacity(), 0.6);
    display()->counterFadeOut();
    QCOMPARE(display()->windowOpacity(), 0.4);
    for (int i = 0; i < 2; ++i)
        display()->counterFadeOut();
    QCOMPARE(display()->windowOpacity(), 0.0);
    count(7, cool);
    QCOMPARE(display()->windowOpacity(), 1.0);
}

void TestCountDownDisplays::nextCountdownIsNotDimmed()
{
    count(9, cool);
    display()->findChild<QTimer *>()->stop();
    for (int i = 0; i < 4; ++i)
        display()->counterFadeOut();
    owner->showCountDown({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    count(9, cool);
    display()->findChild<QTimer *>()->stop();
    QCOMPARE(display()->windowOpacity(), 1.0);
    display()->counterFadeOut();
    QCOMPARE(display()->windowOpacity(), 1.0);
}

// Here nothing is seen through: the overlay is the outline of its digits, which gets thinner.
void TestCountDownDisplays::fadedOverlayIsOutOfSight()
{
    const auto seen = [] {
        int pixels = 0;
        for (const QRect &rect : display()->mask())
            pixels += (rect & display()->rect()).width() * (rect & display()->rect()).height();
        return pixels;
    };
    count(8, cool);
    display()->findChild<QTimer *>()->stop();
    const int whole = seen();
    QVERIFY(whole > 0);
    // Most of the text under it can be read.
    QVERIFY(whole < display()->width() * display()->height() / 8);
    // The hollows of the 8 are hollow.
    QVERIFY(!display()->mask().contains(display()->rect().center() + QPoint(0, digitHeight() / 6)));
    int before = whole;
    for (const double opacity : CountDownDisplayDialog::fadeOpacity) {
        display()->counterFadeOut();
        QVERIFY(!display()->mask().isEmpty());
        QVERIFY(opacity == 1.0 ? seen() == before : seen() < before);
        before = seen();
    }
    QCOMPARE(before, 0);
}

void TestCountDownDisplays::displaysOutliveTheMainWindow_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::displaysOutliveTheMainWindow()
{
    QFETCH(int, type);
    count(9, type);
    mainWindow.reset();
    display()->updateGeometryAndFont();
    count(8, type);
    display()->close();
    owner->showCountDown({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    count(9, type);
    QCOMPARE(shownNumber(), QStringLiteral("9"));
}

void TestCountDownDisplays::ownerGoesInTheMiddleOfACount_data()
{
    rowsOfBothDisplays();
}

void TestCountDownDisplays::ownerGoesInTheMiddleOfACount()
{
    QFETCH(int, type);
    count(9, type);
    owner.reset();
    QVERIFY(displays().isEmpty());
    QCOMPARE(Settings::contains(geometryKey), type == window);
}

void TestCountDownDisplays::programGoesOnWithoutTheDisplay()
{
    constexpr int wentOn = 7;
    count(9, window);
    mainWindow->hide();
    QTimer::singleShot(0, owner.get(), [this] { owner->showCountDown({}); });
    QTimer::singleShot(50, qApp, [] { QCoreApplication::exit(wentOn); });
    QCOMPARE(QApplication::exec(), wentOn);
}

TARVELO_TEST_MAIN(TestCountDownDisplays, QApplication)
#include "tst_CountDownDisplays.moc"
