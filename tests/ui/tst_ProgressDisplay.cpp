#include "ProgressDisplay.h"
#include "TestMain.h"

#include <QAccessible>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

// The dialog that stands before the window during a long work.
class TestProgressDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isASmallModalWindow();
    void framesAreShown_data();
    void framesAreShown();
    void sizeFollowsTheText_data();
    void sizeFollowsTheText();
    void theBarGoesStepByStep();
    void withoutStepsTheBarOnlyMoves();
    void theWindowStaysAlive();
    void theWindowBehindIsLocked();
    void withoutAButtonItStays_data();
    void withoutAButtonItStays();
    void theUserCancels_data();
    void theUserCancels();
    void returnDoesNotCancel();
    void aScreenReaderHearsTheWork();

private:
    static QFrame *frame(const ProgressDisplay &display, const char *name);
    static void send(ProgressDisplay &display, const QString &way);
};

namespace {

QProgressBar *barOf(const ProgressDisplay &display)
{
    return display.findChild<QProgressBar *>(u"progressBar"_qs);
}

void addWays()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("Escape") << u"Escape"_qs;
    QTest::newRow("closed by the desktop") << u"close"_qs;
}

} // namespace

QFrame *TestProgressDisplay::frame(const ProgressDisplay &display, const char *name)
{
    return display.findChild<QFrame *>(QLatin1String(name));
}

void TestProgressDisplay::send(ProgressDisplay &display, const QString &way)
{
    if (way == u"Escape")
        QTest::keyClick(&display, Qt::Key_Escape);
    else if (way == u"close")
        display.close();
    else
        QTest::mouseClick(display.findChild<QPushButton *>(u"buttonCancel"_qs), Qt::LeftButton);
}

void TestProgressDisplay::isASmallModalWindow()
{
    const ProgressDisplay display(nullptr, 10, false, false);
    QVERIFY(display.isModal());
    QCOMPARE(display.windowTitle(), u" "_qs);
    const Qt::WindowFlags flags = display.windowFlags();
    QCOMPARE(flags & Qt::WindowType_Mask, Qt::Window);
    QVERIFY(flags & Qt::WindowTitleHint);
    QVERIFY(flags & Qt::CustomizeWindowHint);
    QVERIFY(!(flags & (Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint)));
    QCOMPARE(display.minimumWidth(), 320);
    QCOMPARE(display.maximumWidth(), 330);
}

void TestProgressDisplay::framesAreShown_data()
{
    QTest::addColumn<bool>("header");
    QTest::addColumn<bool>("cancel");
    QTest::newRow("progress alone") << false << false;
    QTest::newRow("header") << true << false;
    QTest::newRow("cancel") << false << true;
    QTest::newRow("both") << true << true;
}

void TestProgressDisplay::framesAreShown()
{
    QFETCH(bool, header);
    QFETCH(bool, cancel);
    ProgressDisplay display(nullptr, 10, header, cancel);
    display.show();
    QVERIFY(QTest::qWaitForWindowExposed(&display));
    QCOMPARE(frame(display, "frameHeader")->isVisible(), header);
    QCOMPARE(frame(display, "frameCancel")->isVisible(), cancel);
    QVERIFY(frame(display, "frameProgress")->isVisible());
    if (header)
        QVERIFY(!display.findChild<QLabel *>(u"labelLogo"_qs)->pixmap().isNull());
    int sum = 0;
    for (const char *name : {"frameHeader", "frameProgress", "frameCancel"}) {
        if (frame(display, name)->isVisible())
            sum += frame(display, name)->height();
    }
    QCOMPARE(display.maximumHeight(), sum);
    QCOMPARE(display.height(), sum);
}

void TestProgressDisplay::sizeFollowsTheText_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {8, 14, 21, 32, 50})
        QTest::addRow("%d pt", points) << points;
}

// A text too long for the width takes more lines, and none is cut.
void TestProgressDisplay::sizeFollowsTheText()
{
    QFETCH(int, points);
    qApp->setStyleSheet(u"QWidget { font-size: %1pt; }"_qs.arg(points));
    ProgressDisplay display(nullptr, 10, false, false);
    display.show();
    QVERIFY(QTest::qWaitForWindowExposed(&display));
    const auto *label = display.findChild<QLabel *>(u"labelDisplayText"_qs);
    for (const QString &text : {u"Kopiere Dateien ..."_qs, u"Erzeuge Verzeichnisstruktur ..."_qs,
                                u"Viele Worte "_qs.repeated(20), u"Aufräumen ..."_qs}) {
        display.setText(text);
        QCOMPARE(label->text(), text);
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
        QVERIFY(label->width() >= label->minimumSizeHint().width());
        QCOMPARE(display.height(), display.maximumHeight());
        // Wider only where a word needs it.
        if (points <= 21)
            QVERIFY(display.width() <= 330);
        QCOMPARE(display.height(), frame(display, "frameProgress")->height());
    }
    qApp->setStyleSheet({});
}

void TestProgressDisplay::theBarGoesStepByStep()
{
    ProgressDisplay display(nullptr, 3, false, false);
    const QProgressBar *bar = barOf(display);
    QCOMPARE(bar->minimum(), 0);
    QCOMPARE(bar->maximum(), 3);
    QCOMPARE(bar->value(), 0);
    display.show();
    for (const int value : {1, 2, 3, 3}) {
        display.updateProgress();
        QCOMPARE(bar->value(), value);
    }
}

void TestProgressDisplay::withoutStepsTheBarOnlyMoves()
{
    ProgressDisplay display(nullptr, 0, false, false);
    display.show();
    display.updateProgress();
    QCOMPARE(barOf(display)->minimum(), barOf(display)->maximum());
}

void TestProgressDisplay::theWindowStaysAlive()
{
    ProgressDisplay display(nullptr, 10, false, false);
    display.show();
    QWidget behind;
    int events = 0;
    QTimer::singleShot(0, &behind, [&events] { ++events; });
    display.updateProgress();
    QCOMPARE(events, 1);
    QTimer::singleShot(0, &behind, [&events] { ++events; });
    display.setText(u"x"_qs);
    QCOMPARE(events, 2);
}

void TestProgressDisplay::theWindowBehindIsLocked()
{
    QPushButton behind(u"x"_qs);
    behind.show();
    QVERIFY(QTest::qWaitForWindowExposed(&behind));
    int clicks = 0;
    connect(&behind, &QPushButton::clicked, this, [&clicks] { ++clicks; });
    const QPoint middle = behind.rect().center();
    {
        ProgressDisplay display(&behind, 10, false, false);
        display.show();
        QVERIFY(QTest::qWaitForWindowExposed(&display));
        QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, middle);
        display.updateProgress();
        QCOMPARE(clicks, 0);
    }
    QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, middle);
    QTRY_COMPARE(clicks, 1);
}

void TestProgressDisplay::withoutAButtonItStays_data()
{
    addWays();
}

void TestProgressDisplay::withoutAButtonItStays()
{
    QFETCH(QString, way);
    ProgressDisplay display(nullptr, 10, true, false);
    display.show();
    QVERIFY(QTest::qWaitForWindowExposed(&display));
    send(display, way);
    display.updateProgress();
    QVERIFY(display.isVisible());
    QVERIFY(!display.isCanceled());
    display.hide();
    QVERIFY(!display.isVisible());
}

void TestProgressDisplay::theUserCancels_data()
{
    addWays();
    QTest::newRow("button") << u"button"_qs;
}

void TestProgressDisplay::theUserCancels()
{
    QFETCH(QString, way);
    ProgressDisplay display(nullptr, 10, false, true);
    display.show();
    QVERIFY(QTest::qWaitForWindowExposed(&display));
    QVERIFY(!display.isCanceled());
    send(display, way);
    QVERIFY(display.isCanceled());
    QVERIFY(display.isVisible());
    QVERIFY(!display.findChild<QPushButton *>(u"buttonCancel"_qs)->isEnabled());
}

void TestProgressDisplay::returnDoesNotCancel()
{
    ProgressDisplay display(nullptr, 10, false, true);
    display.show();
    QVERIFY(QTest::qWaitForWindowActive(&display));
    QTest::keyClick(&display, Qt::Key_Return);
    QVERIFY(!display.isCanceled());
    auto *button = display.findChild<QPushButton *>(u"buttonCancel"_qs);
    QCOMPARE(button->text(), u"Abbruch"_qs);
    QVERIFY(button->hasFocus());
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(display.isCanceled());
}

void TestProgressDisplay::aScreenReaderHearsTheWork()
{
    ProgressDisplay display(nullptr, 10, true, true);
    const auto nameOf = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QCOMPARE(nameOf(&display), u"Fortschritt"_qs);
    QCOMPARE(nameOf(barOf(display)), u"Fortschritt"_qs);
    display.setText(u"Kopiere Dateien ..."_qs);
    QCOMPARE(nameOf(barOf(display)), u"Kopiere Dateien ..."_qs);
    QCOMPARE(nameOf(display.findChild<QLabel *>(u"labelLogo"_qs)), u"Tarvelo"_qs);
}

TARVELO_TEST_MAIN(TestProgressDisplay, QApplication)
#include "tst_ProgressDisplay.moc"
