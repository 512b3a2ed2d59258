#include "SoundKeeper.h"

#include "Player.h"

#include <QCoreApplication>
#include <QEvent>

SoundKeeper::SoundKeeper(Player *musicPlayer)
    : player(musicPlayer)
{
    sinceTurn.start();
    player->keepSounding();
    QCoreApplication::instance()->installEventFilter(this);
}

bool SoundKeeper::eventFilter(QObject *watched, QEvent *event)
{
    constexpr int turnMs = 20;
    if (event->type() == QEvent::StyleChange && sinceTurn.elapsed() >= turnMs) {
        player->keepSounding();
        sinceTurn.restart();
    }
    return QObject::eventFilter(watched, event);
}
