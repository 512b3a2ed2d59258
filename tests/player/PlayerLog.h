#pragma once

#include "Player.h"

#include <QStringList>

#include <utility>

// All that a player tells, in order: "playing", "silent", "part 2", "time 1300", "count 3".
class PlayerLog : public QObject
{
    Q_OBJECT

public:
    explicit PlayerLog(const Player &player)
    {
        connect(&player, &Player::notifyIsPlayingChanged, this, [this](bool playing) {
            all.append(playing ? QStringLiteral("playing") : QStringLiteral("silent"));
        });
        connect(&player, &Player::notifyActivePartChanged, this,
                [this](int part) { all.append(QStringLiteral("part %1").arg(part)); });
        connect(&player, &Player::notifyCountDown, this, [this](const CountDownEvent &event) {
            all.append(event.isOn() ? QStringLiteral("count %1").arg(event.count)
                                    : QStringLiteral("count off"));
        });
        connect(&player, &Player::notifyPlayTimeChanged, this, [this](int time) {
            times.append(time);
            all.append(QStringLiteral("time %1").arg(time));
        });
    }

    bool has(const QString &text) const { return all.contains(text); }
    // What has been told since the last call.
    QStringList take() { return std::exchange(all, {}); }
    // The same without the times that passed.
    QStringList takeStates()
    {
        QStringList states = take();
        states.removeIf([](const QString &text) {
            return text.startsWith(QStringLiteral("time ")) && text != QStringLiteral("time 0");
        });
        return states;
    }

    QList<int> times;

private:
    QStringList all;
};
