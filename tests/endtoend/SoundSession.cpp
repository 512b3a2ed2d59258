#include "SoundSession.h"

#include "Keyboard.h"
#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "Samples.h"
#include "Settings.h"
#include "Song.h"
#include "Waves.h"

#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace Ladder {

namespace {

// Whole numbers: every second begins where the tone before it ended.
constexpr int firstHertz = 300;
constexpr int stepHertz = 25;

} // namespace

bool write(const QString &path, int seconds)
{
    const QString wave = path + u".wav"_qs;
    const QList<qint16> samples = Waves::render(
        seconds, [](double t) { return Waves::sine(firstHertz + stepHertz * std::floor(t), t); });
    return Samples::writeWave(wave, samples) && Samples::encode(wave, path) && QFile::remove(wave);
}

bool addParts(const QString &path, int parts, int distanceMs)
{
    const Tarvelo stores;
    Song song(path, false);
    for (int part = 0; part < parts; ++part)
        song.getPositions().insert(
            part, {part * distanceMs, u"Part %1"_qs.arg(part + 1), u"2 Triple (8)"_qs});
    return song.save();
}

double secondAt(const Recorder &recorder, double time)
{
    const double hertz = recorder.frequency(recorder.frameAt(time), recorder.frameAt(time + 250));
    return (hertz - firstHertz) / stepHertz;
}

} // namespace Ladder

const char *SoundSession::obstacle()
{
    return qEnvironmentVariableIsSet("TARVELO_SESSION") ? nullptr : "needs scripts/test-session";
}

void SoundSession::prepareSession()
{
    Settings::factoryReset();
    Settings::setValue(Key::Version, u"8.0.0"_qs);
    Settings::setValue(Key::Language, u"de_DE"_qs);
    Settings::setValue(Key::FontSize, 15);
    Settings::setValue(Key::MaxFontSizeLyrics, 70);
    Settings::setValue(Key::ShowPartColumn, true);
    setBoxRunner([](QMessageBox &box) {
        qWarning() << "Unexpected box:" << box.text();
        return QMessageBox::Ok;
    });
    recorder = std::make_unique<Recorder>();
    QVERIFY(recorder->start());
}

void SoundSession::dropWindow()
{
    window.reset();
    tarvelo.reset();
}

void SoundSession::dropSession()
{
    recorder.reset();
    dropWindow();
    setBoxRunner({});
}

void SoundSession::start(const QString &musicDir)
{
    Settings::setValue(Key::MusicDir, musicDir);
    tarvelo = std::make_unique<Tarvelo>();
    window = std::make_unique<MainWindow>(tarvelo.get());
    window->decoupledStartActions();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

bool SoundSession::choose(const QString &fileName)
{
    const auto *library = window->findChild<LibraryPage *>();
    if (!press(u"Home"_qs))
        return false;
    SongPtr before;
    while (library->selectedSong() && library->selectedSong() != before) {
        before = library->selectedSong();
        if (before->getFilename().endsWith(fileName))
            return true;
        if (!press(u"Down"_qs))
            return false;
    }
    return false;
}

void SoundSession::play(const QString &fileName)
{
    QVERIFY(choose(fileName));
    QVERIFY(Keyboard::press({u"Return"_qs, u"p"_qs}));
    QTRY_VERIFY(player()->getPlaytime() > 1000);
}

bool SoundSession::press(const QString &key)
{
    return Keyboard::press({key});
}

bool SoundSession::click(const QPoint &global, int button)
{
    QProcess xdotool;
    xdotool.start(u"xdotool"_qs,
                  {u"mousemove"_qs, QString::number(global.x()), QString::number(global.y()),
                   u"click"_qs, QString::number(button)});
    return QTest::qWaitFor([&xdotool] { return xdotool.state() == QProcess::NotRunning; }, 10000)
           && xdotool.error() == QProcess::UnknownError && xdotool.exitCode() == 0;
}

double SoundSession::gapSince(double time)
{
    recorder->catchUp();
    return recorder->longestSilence(recorder->frameAt(time), recorder->samples().size());
}
