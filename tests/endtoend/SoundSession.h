#pragma once

#include "MainWindow.h"
#include "Recorder.h"
#include "Tarvelo.h"

#include <QObject>
#include <QPoint>

#include <memory>

class Player;

// A song whose sound tells where it is: each of its seconds is a tone of its own.
namespace Ladder {

// An mp3 without a tag; up to 60 seconds. False, with a warning, when it can't be written.
bool write(const QString &path, int seconds);
// Gives the song a part every so many milliseconds, named by their numbers from 1 on. The file has
// to be closed. False when it can't be saved.
bool addParts(const QString &path, int parts, int distanceMs);
// Which second of the song is heard at this time, from the 250 ms that follow; a fraction where
// two of them are.
double secondAt(const Recorder &recorder, double time);

} // namespace Ladder

// The window on the screen of the session, its music recorded: what the tests of the whole way
// have in common.
class SoundSession : public QObject
{
    Q_OBJECT

protected:
    // A gap that nobody hears.
    static constexpr double mostGapMs = 5;

    // Null, or why there is nothing to test with.
    static const char *obstacle();
    // An empty store with the settings of a later run, and a recorder that runs.
    void prepareSession();
    void dropWindow();
    void dropSession();

    // Brings the window up over a music directory, as main does, with the keys.
    void start(const QString &musicDir);
    // Goes down the list by keys until the file is the selected song.
    bool choose(const QString &fileName);
    // Chooses the song, shows its positions and plays it, all by keys.
    void play(const QString &fileName);
    static bool press(const QString &key);
    // 1 is the left button, 3 the right one.
    static bool click(const QPoint &global, int button);

    Player *player() const { return tarvelo->getPlayer(); }
    template <typename Widget> Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }

    // The longest silence from then to now, in milliseconds; the music plays all the time.
    double gapSince(double time);
    // What the music suffers from what is done meanwhile. The session's sound server has no rights
    // of its own: on a busy machine it gets a turn too late now and then, and the recording a gap.
    // So it is done up to three times.
    template <typename Act> double gapDuring(Act act, double bound)
    {
        constexpr int attempts = 3;
        double gap = bound;
        for (int attempt = 0; attempt < attempts && gap >= bound; ++attempt) {
            const double begin = Recorder::now();
            act();
            gap = gapSince(begin);
        }
        return gap;
    }

    std::unique_ptr<Tarvelo> tarvelo;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<Recorder> recorder;
};
