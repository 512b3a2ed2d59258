#pragma once

#include <QElapsedTimer>
#include <QObject>

class Player;

// Keeps the music going while all widgets get another style, which takes longer than the sound that
// is ready: each of them is told, and every now and then the player has its turn at that.
class SoundKeeper : public QObject
{
    Q_OBJECT

public:
    // For as long as it lives. The player outlives it.
    explicit SoundKeeper(Player *musicPlayer);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Player *player;
    QElapsedTimer sinceTurn;
};
