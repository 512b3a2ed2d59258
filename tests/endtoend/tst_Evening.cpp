#include "DanceEvent.h"
#include "DialogRunner.h"
#include "EventEditor.h"
#include "Keyboard.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "Samples.h"
#include "Settings.h"
#include "SongFiles.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SoundSession.h"
#include "TestMain.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

#include <cmath>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace {

constexpr int songCount = 20;
// Long enough to count as played after registerSeconds and a little more.
constexpr double songSeconds = 3.7;
constexpr int registerSeconds = 2;
// The song that has a tempo of its own from an earlier evening.
constexpr int slowSong = 7;
constexpr int slowTempo = -7;

// Far enough apart for an ear that hears a song through the stretcher.
int hertzOf(int number)
{
    return 300 + 40 * number;
}

struct Start
{
    int song;
    double time; // Recorder::now()
};

struct Play
{
    qint64 seconds;
    QString category;
    QString name;
    QString tempo;
};

// What another reader finds of a song's history.
QList<Play> historyOf(const QString &file)
{
    QList<Play> plays;
    const QStringList texts = SongFiles::userTexts(SongFiles::dump(file), u"DanceEvents"_qs);
    for (const QString &line : texts.join(QString()).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(u'\t');
        plays.append(
            {fields.value(0).toLongLong(), fields.value(1), fields.value(2), fields.value(3)});
    }
    return plays;
}

} // namespace

// A whole evening from one list, worked by keys while the songs play one after the other; then the
// songs' files tell what was danced.
class TestEvening : public SoundSession
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareSession(); }
    void cleanup();

    void everyPlayIsInItsSong();

private:
    QString fileOf(int number) const
    {
        return music.filePath(u"%1.mp3"_qs.arg(number, 2, 10, QLatin1Char('0')));
    }
    void begin();
    void openTheList();
    void playUpTo(int song, int ms = 0);
    void moveEntry(int from, int to);
    int currentSong() const;

    void firstHalf();
    void reorderWhilePlaying();
    void skipAndGoBack();
    void stopAndStartAgain();
    void rescanInBetween();
    void playToTheEnd();
    void checkHeard();
    void checkHistories();
    void checkOrder();

    QTemporaryDir music;
    QList<Start> starts;
    qint64 began = 0;
};

void TestEvening::initTestCase()
{
    if (const char *missing = obstacle())
        QSKIP(missing);
    QVERIFY(Keyboard::useGermanLayout());
    QStringList lines{u"#EXTM3U"_qs};
    for (int number = 1; number <= songCount; ++number) {
        QVERIFY(
            Samples::writeTone(fileOf(number), {.seconds = songSeconds, .hertz = hertzOf(number)}));
        lines.append(QFileInfo(fileOf(number)).fileName());
    }
    QFile list(music.filePath(u"Abend.m3u8"_qs));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write(lines.join(u'\n').toUtf8() + '\n');
    const Tarvelo stores;
    Song slow(fileOf(slowSong), false);
    slow.setTempo(slowTempo);
    QVERIFY(slow.save());
}

void TestEvening::cleanup()
{
    dropSession();
    setDialogRunner({});
    setCurrentDanceEvent({});
}

int TestEvening::currentSong() const
{
    const SongPtr song = window->getCurrentSong();
    return song ? QFileInfo(song->getFilename()).baseName().toInt() : 0;
}

// The event of the day is asked for, and the list is shown with none of its songs chosen.
void TestEvening::begin()
{
    Settings::setValue(Key::RegisterPlay, registerSeconds);
    Settings::setValue(Key::PlaylistNonStop, true);
    Settings::setValue(Key::PlaylistDir, music.path());
    Settings::setValue(Key::AutoEvent, true);
    setDialogRunner([](QDialog &dialog) {
        auto *editor = qobject_cast<EventEditor *>(&dialog);
        editor->findChild<QComboBox *>()->setCurrentText(u"Training"_qs);
        editor->findChild<QLineEdit *>(u"lineEditEvent"_qs)->setText(u"Übungsabend"_qs);
        editor->onButtonOK_clicked();
        return editor->result();
    });
    began = QDateTime::currentSecsSinceEpoch();
    start(music.path());
    setBoxRunner([](QMessageBox &) { return QMessageBox::No; });
    connect(player(), &Player::notifyIsPlayingChanged, this, [this](bool playing) {
        if (playing)
            starts.append({currentSong(), Recorder::now()});
    });
    openTheList();
}

void TestEvening::openTheList()
{
    const auto *panel = find<SongListPanel>("framePlaylist");
    const auto *lists = find<QComboBox>("comboBoxPlaylistSelectionL");
    QVERIFY(press(u"l"_qs));
    QTRY_VERIFY(panel->isVisible());
    QVERIFY(Keyboard::press({u"o"_qs, u"End"_qs, u"Return"_qs}));
    QTRY_COMPARE(lists->currentText(), u"Abend.m3u8"_qs);
    QCOMPARE(panel->model()->rowCount(), songCount + 1);
    QTRY_VERIFY(window->isActiveWindow());
}

// The list plays on by itself; most songs need no more than their time.
void TestEvening::playUpTo(int song, int ms)
{
    constexpr int patience = 20000;
    QTRY_COMPARE_WITH_TIMEOUT(currentSong(), song, patience);
    QTRY_VERIFY_WITH_TIMEOUT(player()->isPlaying() && player()->getPlaytime() >= ms, patience);
}

// As a drag within the list does it.
void TestEvening::moveEntry(int from, int to)
{
    SongListTableModel *model = find<SongListPanel>("framePlaylist")->model();
    for (; from > to; --from)
        model->moveRowsUp(from, 1);
    for (; from < to; ++from)
        model->moveRowsDown(from, 1);
}

void TestEvening::everyPlayIsInItsSong()
{
    for (const auto step :
         {&TestEvening::begin, &TestEvening::firstHalf, &TestEvening::reorderWhilePlaying,
          &TestEvening::skipAndGoBack, &TestEvening::stopAndStartAgain,
          &TestEvening::rescanInBetween, &TestEvening::playToTheEnd, &TestEvening::checkOrder,
          &TestEvening::checkHeard, &TestEvening::checkHistories}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
}

void TestEvening::firstHalf()
{
    QVERIFY(Keyboard::pressWithAltGr(u"Home"_qs));
    QTRY_COMPARE(currentSong(), 1);
    QVERIFY(press(u"p"_qs));
    playUpTo(3, 1500);
    QVERIFY(press(u"a"_qs));
    QTRY_VERIFY(window->isPaused());
    QTest::qWait(1000);
    QVERIFY(press(u"a"_qs));
    QTRY_VERIFY(player()->isPlaying());
    QCOMPARE(currentSong(), 3);
    playUpTo(5, 500);
    QVERIFY(Keyboard::press({u"plus"_qs, u"plus"_qs, u"plus"_qs, u"plus"_qs, u"plus"_qs}));
    QTRY_COMPARE(window->getTempo(), 5);
    playUpTo(6);
    QCOMPARE(window->getTempo(), 0);
    playUpTo(slowSong);
    QCOMPARE(window->getTempo(), slowTempo);
}

// The songs behind the one that plays are those that stand there then.
void TestEvening::reorderWhilePlaying()
{
    playUpTo(9, 500);
    moveEntry(15, 10);
    playUpTo(15, 500);
    playUpTo(10, 500);
    QCOMPARE(find<SongListPanel>("framePlaylist")->selection().row(), 11);
    moveEntry(11, 12);
    QCOMPARE(find<SongListPanel>("framePlaylist")->selection().row(), 12);
}

void TestEvening::skipAndGoBack()
{
    playUpTo(12, 1500);
    QVERIFY(press(u"XF86AudioNext"_qs));
    playUpTo(13);
    playUpTo(14, 1500);
    QVERIFY(press(u"XF86AudioPrev"_qs));
    playUpTo(13);
}

// What was played before the stop doesn't count.
void TestEvening::stopAndStartAgain()
{
    playUpTo(16, 1500);
    QVERIFY(press(u"s"_qs));
    QTRY_VERIFY(!player()->isPlaying());
    QTest::qWait(500);
    QCOMPARE(currentSong(), 16);
    QVERIFY(press(u"p"_qs));
    playUpTo(17);
}

// The play ends and the working list is shown; song 17 was counted before, song 18 was not.
void TestEvening::rescanInBetween()
{
    playUpTo(18, 1500);
    QVERIFY(press(u"ctrl+r"_qs));
    QTRY_COMPARE(currentSong(), 0);
    QTRY_VERIFY(!player()->isPlaying());
    const auto *lists = find<QComboBox>("comboBoxPlaylistSelectionL");
    QTRY_COMPARE(lists->currentIndex(), 1);
    QCOMPARE(find<QComboBox>("comboBoxPlaylistSelectionR")->currentIndex(), 0);
    QVERIFY(!find<SongListPanel>("framePlaylist")->isVisible());
    QTest::qWait(500);
    QVERIFY(!player()->isPlaying());
    openTheList();
}

// The last but three is danced once more: its history goes on where it was.
void TestEvening::playToTheEnd()
{
    QVERIFY(Keyboard::pressWithAltGr(u"End"_qs));
    for (const int song : {20, 19, 18, 17}) {
        QTRY_COMPARE(currentSong(), song);
        if (song > 17)
            QVERIFY(Keyboard::pressWithAltGr(u"Up"_qs));
    }
    QVERIFY(press(u"p"_qs));
    playUpTo(20, 1500);
    QTRY_VERIFY_WITH_TIMEOUT(!player()->isPlaying(), 10000);
    QTest::qWait(500);
    QVERIFY(!player()->isPlaying());
    QVERIFY(find<SongListPanel>("framePlaylist")->selection().rows().isEmpty());
}

void TestEvening::checkOrder()
{
    QList<int> order;
    for (const Start &play : std::as_const(starts))
        order.append(play.song);
    QCOMPARE(order, (QList<int>{1,  2,  3,  3,  4,  5,  6,  7,  8,  9,  15, 10, 12,
                                13, 14, 13, 14, 16, 16, 17, 18, 17, 18, 19, 20}));
}

void TestEvening::checkHeard()
{
    recorder->catchUp();
    for (const Start &play : std::as_const(starts)) {
        const double hertz = recorder->frequency(recorder->frameAt(play.time + 700),
                                                 recorder->frameAt(play.time + 1100));
        QVERIFY2(std::abs(hertz - hertzOf(play.song)) < 15,
                 qPrintable(u"song %1: %2 Hz"_qs.arg(play.song).arg(hertz)));
    }
}

void TestEvening::checkHistories()
{
    const QHash<int, qsizetype> counts{{11, 0}, {12, 0}, {13, 2}, {17, 2}};
    const QHash<int, QString> tempos{{5, u"5"_qs}, {slowSong, QString::number(slowTempo)}};
    qint64 last = began;
    for (int number = 1; number <= songCount; ++number) {
        const QList<Play> plays = historyOf(fileOf(number));
        QVERIFY2(plays.size() == counts.value(number, 1),
                 qPrintable(u"song %1: %2 plays"_qs.arg(number).arg(plays.size())));
        qint64 before = began;
        for (const Play &play : plays) {
            QCOMPARE(play.category, u"Training"_qs);
            QCOMPARE(play.name, u"Übungsabend"_qs);
            QCOMPARE(play.tempo, tempos.value(number, u"0"_qs));
            QVERIFY(play.seconds >= before);
            QVERIFY(play.seconds <= QDateTime::currentSecsSinceEpoch());
            before = play.seconds;
        }
        // Up to the ninth they were danced in the order of their numbers.
        if (number <= 9) {
            QVERIFY(before > last);
            last = before;
        }
    }
}

TARVELO_TEST_MAIN(TestEvening, QApplication)
#include "tst_Evening.moc"
