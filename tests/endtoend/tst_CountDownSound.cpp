#include "BottomFrame.h"
#include "CountDownDisplayDialog.h"
#include "Library.h"
#include "Player.h"
#include "Score.h"
#include "Settings.h"
#include "SoundSession.h"
#include "TestMain.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace {

constexpr double mostLateMs = 150;
constexpr double never = 1e6;

struct Count
{
    int number;
    double time; // Recorder::now(), when it was painted
};

// The numbers as they come on the screen, on whichever display.
class CountLog : public QObject
{
public:
    CountLog() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *painted, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        const bool onButton = painted->objectName() == u"buttonCountDownFull";
        if (!onButton && painted->objectName() != u"labelCounter")
            return false;
        const QString text = painted->property("text").toString();
        if (text != last && !text.isEmpty())
            counts.append({text.toInt(), Recorder::now()});
        last = text;
        return false;
    }

    QList<int> numbers() const
    {
        QList<int> all;
        for (const Count &count : counts)
            all.append(count.number);
        return all;
    }
    void clear()
    {
        counts.clear();
        last.clear();
    }

    QList<Count> counts;

private:
    QString last;
};

double energyOf(const Recorder &recorder, double time, double ms)
{
    double energy = 0;
    for (qsizetype i = recorder.frameAt(time); i < recorder.frameAt(time + ms); ++i)
        energy += std::abs(double(recorder.samples().at(i)));
    return energy;
}

// The beat near this time, by all of the beats that lead to it: where the sound rises most at all
// of them together.
double lastOfBeats(const Recorder &recorder, double time, int beats, int beatMs)
{
    constexpr double window = 10;
    double best = time;
    double most = 0;
    for (double last = time - beatMs / 2.0; last < time + beatMs / 2.0; last += window / 2) {
        double rise = 0;
        for (int beat = 0; beat < beats; ++beat) {
            const double place = last - beat * beatMs;
            rise += energyOf(recorder, place, window) - energyOf(recorder, place - window, window);
        }
        if (rise > most) {
            most = rise;
            best = last;
        }
    }
    return best;
}

double worstOf(const QList<double> &late)
{
    return *std::max_element(late.cbegin(), late.cend(), [](double one, double other) {
        return std::abs(one) < std::abs(other);
    });
}

template <typename Condition> bool waitUntil(Condition condition)
{
    return QTest::qWaitFor(condition, 10000);
}

} // namespace

// A countdown in step with the music, in each of its displays.
class TestCountDownSound : public SoundSession
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareSession(); }
    void cleanup() { dropSession(); }

    void numbersComeOnTheirBeats_data();
    void numbersComeOnTheirBeats();

private:
    bool keysReachTheWindow();
    static bool isDisplayVisible();
    // How far the worst number was from its beat, in milliseconds; never where one was missing.
    double countIntoTheSong(CountLog &log);
    double countIntoThePart(CountLog &log);

    QTemporaryDir demo;
    QJsonObject facts; // of the song that has countdowns
    int beatMs = 0;
};

void TestCountDownSound::initTestCase()
{
    if (const char *missing = obstacle())
        QSKIP(missing);
    QList<Demo::Score> scores = Demo::songs();
    scores.removeIf([](const Demo::Score &score) { return score.countIns.isEmpty(); });
    QCOMPARE(scores.size(), 1);
    {
        const Tarvelo stores;
        QCOMPARE(Demo::writeLibrary(demo.path(), scores), QString());
    }
    QFile file(demo.filePath(u"demo.json"_qs));
    QVERIFY(file.open(QIODevice::ReadOnly));
    facts = QJsonDocument::fromJson(file.readAll()).object()[u"songs"][0].toObject();
    QVERIFY(!facts.isEmpty());
    beatMs = static_cast<int>(60000.0 / facts[u"bpm"].toInt());
}

void TestCountDownSound::numbersComeOnTheirBeats_data()
{
    QTest::addColumn<int>("display");
    QTest::newRow("button") << 0;
    QTest::newRow("window") << 1;
    QTest::newRow("overlay") << 2;
}

bool TestCountDownSound::keysReachTheWindow()
{
    const auto *frame = window->findChild<BottomFrame *>();
    const int before = frame->timeDisplayMode();
    return press(u"c"_qs) && QTest::qWaitFor([&] { return frame->timeDisplayMode() != before; });
}

// Before the first beat it counts without music: that beat tells where its numbers belong.
double TestCountDownSound::countIntoTheSong(CountLog &log)
{
    const double begin = Recorder::now();
    const bool shown = press(u"p"_qs) && waitUntil([&] { return log.numbers().contains(6); })
                       && keysReachTheWindow() && window->isActiveWindow()
                       && waitUntil([this] { return player()->getPlaytime() > 700; });
    recorder->catchUp();
    const qsizetype first = recorder->firstSound(recorder->frameAt(begin));
    if (!shown || first < 0 || log.numbers() != QList<int>{8, 7, 6, 5, 4, 3, 2, 1, 0})
        return never;
    QList<double> late;
    for (const Count &count : std::as_const(log.counts))
        late.append(count.time - (recorder->timeOf(first) - (count.number + 1) * beatMs));
    return worstOf(late);
}

// Into the fourth part it counts over the music: its beats are heard, and the part's row comes on
// the last of them.
double TestCountDownSound::countIntoThePart(CountLog &log)
{
    const QJsonArray parts = facts[u"parts"].toArray();
    const int partMs = parts.at(3)[u"ms"].toInt();
    double marked = -never;
    const auto connection
        = connect(player(), &Player::notifyActivePartChanged, this, [&marked](int part) {
              if (part == 3)
                  marked = Recorder::now();
          });
    const auto reach
        = [this](int ms) { return waitUntil([this, ms] { return player()->getPlaytime() > ms; }); };
    bool shown = press(u"3"_qs) && reach(parts.at(2)[u"ms"].toInt() + 200) && press(u"Right"_qs)
                 && reach(partMs - 6 * beatMs);
    log.clear();
    shown = shown && waitUntil([&] { return log.numbers().contains(3); }) && keysReachTheWindow()
            && window->isActiveWindow() && reach(partMs + 700);
    disconnect(connection);
    recorder->catchUp();
    if (!shown || log.numbers() != QList<int>{4, 3, 2, 1, 0})
        return never;
    const double ignition = lastOfBeats(*recorder, marked, 5, beatMs);
    QList<double> late;
    for (const Count &count : std::as_const(log.counts))
        late.append(count.time - (ignition - (count.number + 1) * beatMs));
    return worstOf(late);
}

bool TestCountDownSound::isDisplayVisible()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget *widget) {
        return widget->isVisible() && qobject_cast<const CountDownDisplayDialog *>(widget);
    });
}

void TestCountDownSound::numbersComeOnTheirBeats()
{
    QFETCH(int, display);
    Settings::setValue(Key::CountDownType, display);
    start(demo.path());
    QVERIFY(choose(facts[u"file"].toString()));
    QVERIFY(press(u"Return"_qs));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(PositionsScreen));
    CountLog log;
    for (const auto count :
         {&TestCountDownSound::countIntoTheSong, &TestCountDownSound::countIntoThePart}) {
        // On a busy machine the recording loses time now and then.
        constexpr int attempts = 3;
        double worst = never;
        for (int attempt = 0; attempt < attempts && std::abs(worst) >= mostLateMs; ++attempt) {
            QVERIFY(press(u"s"_qs));
            QTRY_VERIFY(!player()->isPlaying());
            log.clear();
            worst = (this->*count)(log);
            qInfo() << log.numbers() << "at most so many ms off:" << worst;
        }
        QVERIFY2(std::abs(worst) < mostLateMs, qPrintable(QString::number(worst)));
    }
    QVERIFY(press(u"s"_qs));
    QTRY_VERIFY(!player()->isPlaying());
    // Nothing stays on the screen.
    QTRY_VERIFY(!isDisplayVisible());
    QCOMPARE(find<QPushButton>("buttonCountDownFull")->text(), QString());
}

TARVELO_TEST_MAIN(TestCountDownSound, QApplication)
#include "tst_CountDownSound.moc"
