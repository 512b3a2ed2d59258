#pragma once

#include "Player.h"
#include "PlayerLog.h"
#include "Samples.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <memory>

// A player on the session's own sound server, its log, and a song of ten seconds with parts at 0,
// 1000 and 2500 ms. To be made anew for each test.
class PlayerFixture
{
public:
    // Why no test can run here; null when it can.
    static const char *obstacle()
    {
        if (qEnvironmentVariable("TARVELO_SESSION") != QStringLiteral("1"))
            return "Needs a sound server of its own: run it through scripts/test-session.";
        const QList<QAudioDevice> outputs = QMediaDevices::audioOutputs();
        const bool isThere
            = std::any_of(outputs.cbegin(), outputs.cend(),
                          [](const QAudioDevice &device) { return device.id() == "null"; });
        return isThere ? nullptr : "The session has no null sink.";
    }

    void begin()
    {
        player = std::make_unique<Player>();
        log = std::make_unique<PlayerLog>(*player);
        song = newSong(10);
        QVERIFY(song);
        int index = 0;
        for (const int time : {0, 1000, 2500})
            song->getPositions().insert(index++, Position(time, QStringLiteral("Part"), QString()));
    }

    void end()
    {
        log.reset();
        player.reset();
        song.reset();
    }

    SongPtr newSong(double seconds, const QString &suffix = QStringLiteral("mp3"), int rate = 44100,
                    int channels = 2)
    {
        const QString file = directory.filePath(
            QStringLiteral("%1s-%2-%3.%4").arg(seconds).arg(rate).arg(channels).arg(suffix));
        if (!QFile::exists(file)
            && !Samples::writeTone(file, {.seconds = seconds, .rate = rate, .channels = channels}))
            return {};
        const SongPtr made(new Song(file, false));
        made->setFrequency(rate);
        made->setChannels(channels);
        made->setPlayLength(static_cast<int>(seconds));
        return made;
    }

    bool playBeyond(int ms)
    {
        return QTest::qWaitFor([this, ms] { return player->getPlaytime() > ms; },
                               qMax(ms, 0) + 5000);
    }

    // Some ticks of the player's clock pass.
    static void passTicks() { QTest::qWait(200); }

    QTemporaryDir directory;
    std::unique_ptr<Player> player;
    std::unique_ptr<PlayerLog> log;
    SongPtr song;
};
