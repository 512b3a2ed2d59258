#include "Compositing.h"
#include "CountDownDisplays.h"
#include "Keyboard.h"
#include "Settings.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QProcess>
#include <QScreen>

#include <xcb/xcb.h>

namespace {

constexpr int window = 2;
constexpr int cool = 3;
const QColor ground(0x20, 0x40, 0x80);

// Stands for the main window, and tells what reaches it.
class Stage : public QWidget
{
public:
    QString keys;
    int clicks = 0;

protected:
    void keyPressEvent(QKeyEvent *event) override { keys += event->text(); }
    void mousePressEvent(QMouseEvent *) override { ++clicks; }
};

// Owns the name by which a desktop tells that it composites, while it lives.
class CompositorsName
{
public:
    CompositorsName()
        : connection(xcb_connect(nullptr, nullptr))
        , owner(xcb_generate_id(connection))
    {
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        xcb_create_window(connection, 0, owner, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        const QByteArray name = "_NET_WM_CM_S0";
        xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.constData()), nullptr);
        xcb_set_selection_owner(connection, owner, reply->atom, XCB_CURRENT_TIME);
        free(reply);
        // The answer proves that all of it was carried out.
        free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    }
    ~CompositorsName() { xcb_disconnect(connection); }

private:
    xcb_connection_t *connection;
    xcb_window_t owner;
};

} // namespace

// The displays of the countdown on a desktop with a window manager, and without compositing.
class TestCountDownSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void keysReachTheMainWindow_data();
    void keysReachTheMainWindow();
    void clickedWindowLeavesTheKeys();
    void clicksGoThroughTheOverlay();
    void stepsAreSeenUnderTheOverlay();
    void nothingIsSeenOfAFadedNumber();
    void overlayStaysAboveTheMainWindow();
    void windowOpensAboveTheMainWindow();
    void windowKeepsItsPlaceOnTheScreen();
    void compositingIsHeardOf();

private:
    static CountDownDisplayDialog *display();
    void count(int number, int type);
    void end();
    void click(const QPoint &place);
    double shareOfTheStage() const;

    std::unique_ptr<Stage> stage;
    std::unique_ptr<CountDownDisplays> owner;
};

void TestCountDownSession::initTestCase()
{
    const Theme &theme = themeNamed(QStringLiteral("Dark Night"));
    qApp->setPalette(theme.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {}));
}

void TestCountDownSession::init()
{
    Settings::factoryReset();
    stage = std::make_unique<Stage>();
    QPalette colours = stage->palette();
    colours.setColor(QPalette::Window, ground);
    stage->setPalette(colours);
    stage->setGeometry(200, 100, 900, 600);
    stage->show();
    QVERIFY(QTest::qWaitForWindowActive(stage.get()));
    owner = std::make_unique<CountDownDisplays>(stage.get());
}

void TestCountDownSession::cleanup()
{
    owner.reset();
    stage.reset();
}

CountDownDisplayDialog *TestCountDownSession::display()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<CountDownDisplayDialog *>(widget))
            return dialog;
    }
    return nullptr;
}

void TestCountDownSession::count(int number, int type)
{
    owner->showCountDown({number, {}, type});
    QVERIFY(QTest::qWaitForWindowExposed(display()));
}

void TestCountDownSession::end()
{
    owner->showCountDown({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!display());
}

void TestCountDownSession::click(const QPoint &place)
{
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"),
                  {QStringLiteral("mousemove"), QString::number(place.x()),
                   QString::number(place.y()), QStringLiteral("click"), QStringLiteral("1")});
    QVERIFY(QTest::qWaitFor([&xdotool] { return xdotool.state() == QProcess::NotRunning; }, 10000));
}

// How much of the place of the overlay shows what lies under it.
double TestCountDownSession::shareOfTheStage() const
{
    const QRect place = QRect(display()->geometry()) & stage->geometry();
    const QImage seen = stage->screen()
                            ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
                            .toImage();
    int pixels = 0;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x)
            pixels += seen.pixelColor(x, y) == ground ? 1 : 0;
    }
    return double(pixels) / (double(seen.width()) * double(seen.height()));
}

void TestCountDownSession::keysReachTheMainWindow_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("window") << window;
    QTest::newRow("cool") << cool;
}

void TestCountDownSession::keysReachTheMainWindow()
{
    QFETCH(int, type);
    QVERIFY(Keyboard::press({QStringLiteral("a")}));
    QTRY_COMPARE(stage->keys, QStringLiteral("a"));
    for (int number = 3; number > 0; --number) {
        count(number, type);
        QVERIFY(Keyboard::press({QStringLiteral("b")}));
        QTRY_VERIFY(stage->keys.endsWith(QLatin1Char('b')));
        stage->keys.clear();
    }
    end();
    QVERIFY(Keyboard::press({QStringLiteral("c")}));
    QTRY_COMPARE(stage->keys, QStringLiteral("c"));
}

void TestCountDownSession::clickedWindowLeavesTheKeys()
{
    count(9, window);
    click(display()->geometry().center());
    QVERIFY(Keyboard::press({QStringLiteral("a")}));
    QTRY_COMPARE(stage->keys, QStringLiteral("a"));
    QCOMPARE(stage->clicks, 0);
}

void TestCountDownSession::clicksGoThroughTheOverlay()
{
    count(1, cool);
    display()->findChild<QTimer *>()->stop();
    click(display()->geometry().center());
    QTRY_COMPARE(stage->clicks, 1);
}

void TestCountDownSession::stepsAreSeenUnderTheOverlay()
{
    QVERIFY(!Compositing::isOn());
    count(8, cool);
    display()->findChild<QTimer *>()->stop();
    QTRY_VERIFY(shareOfTheStage() < 0.98);
    QVERIFY2(shareOfTheStage() > 0.85, qPrintable(QString::number(shareOfTheStage())));
}

void TestCountDownSession::nothingIsSeenOfAFadedNumber()
{
    count(8, cool);
    QTRY_COMPARE(display()->windowOpacity(), 0.0);
    QTRY_COMPARE(shareOfTheStage(), 1.0);
    count(7, cool);
    display()->findChild<QTimer *>()->stop();
    QTRY_VERIFY(shareOfTheStage() < 0.98);
}

void TestCountDownSession::overlayStaysAboveTheMainWindow()
{
    count(8, cool);
    display()->findChild<QTimer *>()->stop();
    QTRY_VERIFY(shareOfTheStage() < 0.98);
    click(stage->geometry().topLeft() + QPoint(20, 20));
    QTRY_COMPARE(stage->clicks, 1);
    stage->raise();
    // By the time that a key has come through, the window manager has done all that was asked.
    QVERIFY(Keyboard::press({QStringLiteral("a")}));
    QTRY_COMPARE(stage->keys, QStringLiteral("a"));
    QVERIFY(shareOfTheStage() < 0.98);
}

void TestCountDownSession::windowOpensAboveTheMainWindow()
{
    count(8, window);
    display()->setGeometry(300, 200, 300, 200);
    end();
    stage->raise();
    count(8, window);
    QTRY_COMPARE(shareOfTheStage(), 0.0);
}

void TestCountDownSession::windowKeepsItsPlaceOnTheScreen()
{
    count(8, window);
    display()->move(333, 222);
    display()->resize(310, 210);
    QTRY_COMPARE(display()->pos(), QPoint(333, 222));
    const QRect place = display()->frameGeometry();
    for (int song = 0; song < 3; ++song) {
        end();
        count(8, window);
        QTRY_COMPARE(display()->frameGeometry(), place);
    }
}

void TestCountDownSession::compositingIsHeardOf()
{
    QVERIFY(!Compositing::isOn());
    {
        const CompositorsName name;
        QVERIFY(Compositing::isOn());
        count(8, cool);
        QVERIFY(display()->mask().isEmpty());
        end();
    }
    QTRY_VERIFY(!Compositing::isOn());
    count(8, cool);
    QVERIFY(!display()->mask().isEmpty());
}

TARVELO_TEST_MAIN(TestCountDownSession, QApplication)
#include "tst_CountDownSession.moc"
