#include "WindowAnswers.h"

#include "Bench.h"
#include "FirstSound.h"
#include "Waiting.h"

#include <MainWindow.h>
#include <MessageBoxes.h>
#include <Screens.h>
#include <SongAudioData.h>
#include <Tarvelo.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

#include <algorithm>

using Bench::check;

namespace {

constexpr int patienceMs = 5000;
constexpr int settleMs = 1000;
constexpr int mostDowns = 200;
constexpr int screenRounds = 20;

// As main makes it, and as large as the screen.
class ShownWindow : public QObject
{
public:
    ShownWindow()
        : window(&tarvelo)
    {
        window.decoupledStartActions();
        window.installEventFilter(this);
        window.showMaximized();
        Waiting::milliseconds(settleMs);
        check(window.isActiveWindow() && window.isMaximized(), "The window is not in front.");
    }

    void press(int key)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(window.focusWidget(), &event);
        }
    }

    // Until the window has painted all that the key changed.
    double answerMs(int key)
    {
        isRepainted = false;
        return Bench::once([this, key] {
            press(key);
            waitForRepaint();
            QCoreApplication::processEvents();
        });
    }

    SongPtr song() const { return window.getCurrentSong(); }
    int screen() const { return window.currentScreen(); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        isRepainted = isRepainted || event->type() == QEvent::UpdateRequest;
        return false;
    }

private:
    void waitForRepaint() const
    {
        QElapsedTimer timer;
        timer.start();
        while (!isRepainted) {
            QCoreApplication::processEvents();
            check(!timer.hasExpired(patienceMs), "The window does not answer.");
        }
    }

    Tarvelo tarvelo;
    MainWindow window;
    bool isRepainted = false;
};

void refuseBoxes()
{
    setBoxRunner([](QMessageBox &box) {
        qCritical() << box.text();
        check(false, "The window shows a box.");
        return QMessageBox::NoButton;
    });
}

void loadFirstSong(ShownWindow &window)
{
    window.press(Qt::Key_Home);
    window.press(Qt::Key_Return);
    check(window.song() != nullptr, "The window has no song.");
    Waiting::forDecoder(*window.song()->getAudioData());
    Waiting::milliseconds(settleMs);
}

double onceKeyToSound()
{
    ShownWindow window;
    loadFirstSong(window);
    const double ms = FirstSound::after([&] { window.press(Qt::Key_P); });
    check(ms >= 0, "Nothing is heard.");
    window.press(Qt::Key_S);
    return ms;
}

// The last song has none below.
double selectMs(ShownWindow &window, int songs)
{
    QList<double> times;
    window.answerMs(Qt::Key_Home);
    for (int i = 0; i < std::min(mostDowns, songs - 1); ++i)
        times.append(window.answerMs(Qt::Key_Down));
    return Bench::percentile95(times);
}

double screenMs(ShownWindow &window)
{
    QList<double> times;
    loadFirstSong(window);
    for (int i = 0; i < screenRounds * screenCount; ++i) {
        const int screen = i % screenCount;
        times.append(window.answerMs(Qt::Key_F1 + screen));
        check(window.screen() == screen, "The key shows another screen.");
    }
    return Bench::percentile95(times);
}

} // namespace

double WindowAnswers::keyToSoundMs()
{
    constexpr int rounds = 7;
    refuseBoxes();
    QList<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(onceKeyToSound());
    return Bench::median(times);
}

WindowAnswers::Percentiles WindowAnswers::measure(int songs)
{
    refuseBoxes();
    ShownWindow window;
    const double select = selectMs(window, songs);
    return {select, screenMs(window)};
}
