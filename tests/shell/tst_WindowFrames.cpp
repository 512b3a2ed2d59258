#include "LibraryPage.h"
#include "Player.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QFrame>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>

#include <limits>

using namespace Qt::StringLiterals;
using Settings::Key;

// The top and the bottom frame, worked by keys: tempo, times, sizes, the slider, the countdown
// buttons.
class TestWindowFrames : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void presetsSetTheTempo_data();
    void presetsSetTheTempo();
    void presetsShowWhichIsOn();
    void presetsCanBeHidden();
    void tempoDisplaysStepAround();
    void timeDisplaysStepAround();
    void runTimeGoesWhereTheModeSays_data();
    void runTimeGoesWhereTheModeSays();
    void fontSizeByKeys();
    void frameHeightByKeys();
    void frameHeightStopsAtItsEnds();
    void sliderIsShownAndHidden();
    void sliderStepsAndSeeks();
    void countDownButtonsFollowTheSong();
    void countsShowOnThePositionsAlone();
    void countDownWithoutBpmIsTold();
    void everyButtonHasNameAndTip();
    void oddTemposOfFilesAreMended_data();
    void oddTemposOfFilesAreMended();
};

void TestWindowFrames::presetsSetTheTempo_data()
{
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("percent");
    QTest::addColumn<QString>("text");

    QTest::newRow("F8") << int(Qt::Key_F8) << u"buttonTempoPercent5"_qs << -30 << u"-30%"_qs;
    QTest::newRow("F9") << int(Qt::Key_F9) << u"buttonTempoPercent4"_qs << -22 << u"-22%"_qs;
    QTest::newRow("F10") << int(Qt::Key_F10) << u"buttonTempoPercent3"_qs << 12 << u"+12%"_qs;
    QTest::newRow("F11") << int(Qt::Key_F11) << u"buttonTempoPercent2"_qs << 1 << u"+1%"_qs;
    QTest::newRow("F12") << int(Qt::Key_F12) << u"buttonTempoPercent1"_qs << 0 << u"0%"_qs;
}

void TestWindowFrames::presetsSetTheTempo()
{
    QFETCH(int, keyCode);
    QFETCH(QString, button);
    QFETCH(int, percent);
    QFETCH(QString, text);
    useLibrary();
    Settings::setValue(Key::TempoDefault1, 0);
    Settings::setValue(Key::TempoDefault2, 1);
    Settings::setValue(Key::TempoDefault3, 12);
    Settings::setValue(Key::TempoDefault4, -22);
    Settings::setValue(Key::TempoDefault5, -30);
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    key(keyCode);
    QCOMPARE(window->getTempo(), percent);
    QCOMPARE(tarvelo->getPlayer()->getTempo(), double(percent));
    auto *preset = window->findChild<QPushButton *>(button);
    QCOMPARE(preset->text(), text);
    QVERIFY(preset->isChecked());
    window->setTempo(5);
    preset->click();
    QCOMPARE(window->getTempo(), percent);
    QVERIFY(preset->isChecked());
}

void TestWindowFrames::presetsShowWhichIsOn()
{
    useLibrary();
    Settings::setValue(Key::TempoDefault1, -7);
    Settings::setValue(Key::TempoDefault2, 3);
    Settings::setValue(Key::TempoDefault3, 3);
    start();
    const auto *first = find<QPushButton>("buttonTempoPercent1");
    QVERIFY(!first->isChecked());
    select(u"Rocky Top"_qs); // whose last tempo was -7
    key(Qt::Key_Return);
    QVERIFY(first->isChecked());
    window->setTempo(3);
    QVERIFY(!first->isChecked());
    QVERIFY(find<QPushButton>("buttonTempoPercent2")->isChecked());
    QVERIFY(find<QPushButton>("buttonTempoPercent3")->isChecked());
    window->selectNoneInLibrary();
    window->setTempo(-7);
    QVERIFY(!first->isChecked());
}

void TestWindowFrames::presetsCanBeHidden()
{
    useLibrary();
    Settings::setValue(Key::HideTempoButtons, true);
    start();
    QVERIFY(find<QWidget>("widgetTempoPresets")->isHidden());
}

void TestWindowFrames::tempoDisplaysStepAround()
{
    useLibrary();
    Settings::setValue(Key::BpmDisplay, 1);
    start();
    auto *percent = find<QPushButton>("buttonTempoDisplay");
    auto *bpm = find<QPushButton>("buttonTempoDisplayBPM");
    // Only a step applies what is set.
    QVERIFY(percent->isVisible() && bpm->isVisible());
    key(Qt::Key_B); // 2: both
    QVERIFY(percent->isVisible() && bpm->isVisible());
    key(Qt::Key_B); // 0
    QVERIFY(percent->isVisible() && !bpm->isVisible());
    key(Qt::Key_B, Qt::ShiftModifier); // 1
    QVERIFY(!percent->isVisible() && bpm->isVisible());
    bpm->click(); // 2
    QVERIFY(percent->isVisible() && bpm->isVisible());
    percent->click(); // 0
    percent->click(); // 1
    QVERIFY(!percent->isVisible());
    window->resize(window->size() + QSize(10, 10));
    QTRY_VERIFY(percent->isVisible());
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::BpmDisplay).toInt(), 1);
}

void TestWindowFrames::timeDisplaysStepAround()
{
    useLibrary();
    start();
    auto *clock = find<QPushButton>("buttonTime");
    auto *runTime = find<QPushButton>("buttonRunTime");
    const auto shown
        = [&] { return (clock->isVisible() ? 1 : 0) + (runTime->isVisible() ? 2 : 0); };
    QCOMPARE(shown(), 3); // both, as set
    key(Qt::Key_C);
    QCOMPARE(shown(), 1); // in turns
    QCOMPARE(Settings::value(Key::TimeDisplayMode).toInt(), 0);
    clock->click();
    QCOMPARE(shown(), 1); // the clock alone
    QCOMPARE(Settings::value(Key::TimeDisplayMode).toInt(), 1);
    key(Qt::Key_C);
    QCOMPARE(shown(), 2);
    runTime->click();
    QCOMPARE(shown(), 3);
    key(Qt::Key_C, Qt::ShiftModifier);
    QCOMPARE(shown(), 3);
}

void TestWindowFrames::runTimeGoesWhereTheModeSays_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("onClock");
    QTest::addColumn<bool>("onRunTime");

    QTest::newRow("in turns") << 0 << true << false;
    QTest::newRow("clock") << 1 << false << false;
    QTest::newRow("run time") << 2 << false << true;
    QTest::newRow("both") << 3 << false << true;
}

void TestWindowFrames::runTimeGoesWhereTheModeSays()
{
    QFETCH(int, mode);
    QFETCH(bool, onClock);
    QFETCH(bool, onRunTime);
    useLibrary();
    Settings::setValue(Key::TimeDisplayMode, mode);
    start();
    auto *slider = find<QSlider>("horizontalSliderPosition");
    slider->setMaximum(200000);
    Q_EMIT tarvelo->getPlayer()->notifyPlayTimeChanged(125000);
    QCOMPARE(find<QPushButton>("buttonTime")->text() == u"02:05"_qs, onClock);
    QCOMPARE(find<QPushButton>("buttonRunTime")->text() == u"02:05"_qs, onRunTime);
    QCOMPARE(slider->value(), 125000);
    Q_EMIT tarvelo->getPlayer()->notifyPlayTimeChanged(-500);
    QCOMPARE(slider->value(), 125000);
    QCOMPARE(find<QPushButton>("buttonRunTime")->text() == u"-00:01"_qs, onRunTime);
}

void TestWindowFrames::fontSizeByKeys()
{
    useLibrary();
    start();
    auto *size = find<QSpinBox>("spinBoxFontSize");
    QCOMPARE(size->value(), 15);
    key(Qt::Key_Plus, Qt::AltModifier);
    QCOMPARE(size->value(), 16);
    QTRY_VERIFY(qApp->styleSheet().contains(u"font-size: 16pt"_qs));
    key(Qt::Key_Minus, Qt::AltModifier);
    key(Qt::Key_Minus, Qt::AltModifier);
    QCOMPARE(size->value(), 14);
    QCOMPARE(window->getTempo(), 0);
}

void TestWindowFrames::frameHeightByKeys()
{
    useLibrary();
    Settings::setValue(Key::FrameHeight, 50);
    start();
    const auto *frame = find<QFrame>("frameTop");
    QCOMPARE(frame->height(), 50);
    key(Qt::Key_Period, Qt::ControlModifier);
    QTRY_COMPARE(frame->height(), 55);
    QCOMPARE(find<QFrame>("buttonFrame")->height(), 55 * 7 / 5);
    QCOMPARE(find<QSpinBox>("spinBoxFrameSize")->value(), 55);
    QCOMPARE(Settings::value(Key::FrameHeight).toInt(), 55);
    for (const char *name : {"buttonPlay", "buttonHelp", "buttonTempoPercent3"})
        QCOMPARE(find<QPushButton>(name)->size(), QSize(55, 55));
    for (const char *name : {"buttonTempoPlus", "buttonPositionsDisplay", "buttonCountDownFull"})
        QCOMPARE(find<QPushButton>(name)->size(), QSize(44, 44));
    for (const char *name : {"buttonResetFilter", "buttonResetSelection"})
        QCOMPARE(find<QPushButton>(name)->size(), QSize(33, 33));
    key(Qt::Key_Comma, Qt::ControlModifier);
    QTRY_COMPARE(frame->height(), 50);
    key(Qt::Key_Comma);
    QCOMPARE(frame->height(), 50);
}

// The answer is the end, the frame stays where it was.
void TestWindowFrames::frameHeightStopsAtItsEnds()
{
    useLibrary();
    Settings::setValue(Key::FrameHeight, 79);
    Settings::setValue(Key::FontSize, 8);
    start();
    const auto *frame = find<QFrame>("frameTop");
    const auto *box = find<QSpinBox>("spinBoxFrameSize");
    QCOMPARE(frame->height(), 79);
    key(Qt::Key_Period, Qt::ControlModifier);
    QCOMPARE(box->value(), 80);
    QCOMPARE(frame->height(), 79);
    for (int height = 74; height >= 24; height -= 5) {
        key(Qt::Key_Comma, Qt::ControlModifier);
        QTRY_COMPARE(frame->height(), height);
    }
    key(Qt::Key_Comma, Qt::ControlModifier);
    QCOMPARE(box->value(), 20);
    QCOMPARE(frame->height(), 24);
}

void TestWindowFrames::sliderIsShownAndHidden()
{
    useLibrary();
    Settings::setValue(Key::ShowSlider, true);
    start();
    const auto *frame = find<QFrame>("frameSlider");
    const QAction *entry = action(u"Abspielfortschritt"_qs);
    QVERIFY(frame->isVisible() && entry->isChecked());
    key(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(!frame->isVisible() && !entry->isChecked());
    key(Qt::Key_F5); // whose menu has no such entry
    key(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(frame->isVisible() && entry->isChecked());
    key(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::ShowSlider).toBool(), false);
}

void TestWindowFrames::sliderStepsAndSeeks()
{
    useLibrary();
    start();
    auto *slider = find<QSlider>("horizontalSliderPosition");
    QSignalSpy seeks(tarvelo->getPlayer(), &Player::requestStartFromPlaytime);
    // Playing sets the slider to the length of the song.
    const auto step = [&](int from, QAbstractSlider::SliderAction way) {
        slider->setMaximum(100000);
        slider->setValue(from);
        seeks.clear();
        slider->triggerAction(way);
        return seeks.isEmpty() ? -1 : seeks.constLast().constFirst().toInt();
    };
    QCOMPARE(step(20000, QAbstractSlider::SliderPageStepAdd), -1); // no song
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    QCOMPARE(step(20000, QAbstractSlider::SliderPageStepAdd), 25000);
    QCOMPARE(step(94999, QAbstractSlider::SliderPageStepAdd), 99999);
    QCOMPARE(step(95000, QAbstractSlider::SliderPageStepAdd), -1);
    QCOMPARE(step(4999, QAbstractSlider::SliderPageStepSub), -1);
    QCOMPARE(step(5000, QAbstractSlider::SliderPageStepSub), 0);

    slider->setMaximum(100000);
    slider->setSliderDown(true);
    slider->setSliderPosition(42000);
    Q_EMIT tarvelo->getPlayer()->notifyPlayTimeChanged(7000);
    QCOMPARE(slider->value(), 42000);
    slider->setSliderDown(false);
    QCOMPARE(seeks.takeLast().constFirst().toInt(), 42000);
    tarvelo->getPlayer()->stop();
}

void TestWindowFrames::countDownButtonsFollowTheSong()
{
    useLibrary();
    start();
    const auto *full = find<QPushButton>("buttonCountDownFull");
    const auto *empty = find<QPushButton>("buttonCountDownEmpty");
    key(Qt::Key_F2);
    QVERIFY(full->isHidden() && empty->isHidden());
    QVERIFY(!action(u"Countdown bearbeiten ..."_qs)->isEnabled());
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    QVERIFY(full->isHidden() && empty->isVisible());
    window->getCurrentSong()->getCountDowns().addNew();
    window->adaptCountDownButtons();
    QVERIFY(full->isVisible() && full->isEnabled() && empty->isHidden());
    QVERIFY(action(u"Countdown bearbeiten ..."_qs)->isEnabled());
    key(Qt::Key_F3);
    QVERIFY(full->isHidden() && empty->isHidden());
    key(Qt::Key_F2);
    QVERIFY(full->isVisible());
}

void TestWindowFrames::countsShowOnThePositionsAlone()
{
    useLibrary();
    start();
    const auto *full = find<QPushButton>("buttonCountDownFull");
    const auto *empty = find<QPushButton>("buttonCountDownEmpty");
    const auto tell = [this](int type, int count) {
        Q_EMIT tarvelo->getPlayer()->notifyCountDown({.count = count, .comment = {}, .type = type});
    };
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    tell(1, 7);
    QVERIFY(full->isVisible() && empty->isHidden());
    QCOMPARE(full->text(), u"7"_qs);
    tell(1, 6);
    QCOMPARE(full->text(), u"6"_qs);
    tell(0, 0);
    QVERIFY(full->isHidden() && empty->isVisible());
    QCOMPARE(full->text(), QString());
    // At the end of a count the empty watch comes, also for a song that has countdowns.
    window->getCurrentSong()->getCountDowns().addNew();
    window->adaptCountDownButtons();
    tell(1, 3);
    tell(0, 0);
    QVERIFY(full->isHidden() && empty->isVisible());
    key(Qt::Key_F1);
    tell(1, 5);
    QVERIFY(full->isHidden() && empty->isHidden());
    tell(0, 0);
    QVERIFY(full->isHidden() && empty->isHidden());
}

void TestWindowFrames::countDownWithoutBpmIsTold()
{
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    window->getCurrentSong()->getCountDowns().addNew();
    key(Qt::Key_P);
    QVERIFY(boxes.isEmpty());
    window->getCurrentSong()->setBpm({});
    key(Qt::Key_P);
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.constFirst().text.startsWith(
        u"Dieser Song enthält einen Countdown, aber keine BPM Angabe"_qs));
    key(Qt::Key_S);
}

void TestWindowFrames::everyButtonHasNameAndTip()
{
    useLibrary();
    start();
    for (const char *frame : {"frameTop", "buttonFrame"})
        for (const auto *button : find<QFrame>(frame)->findChildren<QAbstractButton *>()) {
            if (button->objectName().startsWith(u"qt_"_qs) || button->objectName().isEmpty())
                continue; // Qt's own
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
            QVERIFY2(button->toolTip().startsWith(button->accessibleName()),
                     qPrintable(button->objectName()));
            QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        }
    QCOMPARE(find<QPushButton>("buttonList")->toolTip(), u"Musik       F1"_qs);
}

void TestWindowFrames::oddTemposOfFilesAreMended_data()
{
    QTest::addColumn<double>("stored");
    QTest::addColumn<int>("percent");
    QTest::newRow("none") << std::numeric_limits<double>::quiet_NaN() << 0;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 0;
    QTest::newRow("huge") << 1e30 << 50;
    QTest::newRow("beyond the end") << -60.0 << -50;
    QTest::newRow("with a fraction") << -7.6 << -7;
}

void TestWindowFrames::oddTemposOfFilesAreMended()
{
    QFETCH(double, stored);
    QFETCH(int, percent);
    useLibrary();
    start();
    select(u"Rocky Top"_qs);
    find<LibraryPage>("page1_MusicList")->selectedSong()->setTempo(stored);
    key(Qt::Key_Return);
    QCOMPARE(window->getTempo(), percent);
    key(percent < 0 ? Qt::Key_Plus : Qt::Key_Minus);
    QCOMPARE(window->getTempo(), percent < 0 ? percent + 1 : percent - 1);
}

TARVELO_TEST_MAIN(TestWindowFrames, QApplication)
#include "tst_WindowFrames.moc"
