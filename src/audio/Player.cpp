#include "Player.h"

#include "PlayerEngine2.h"

#include <QCoreApplication>

Player::Player(QObject *parent)
    : QObject(parent)
    , engine(new PlayerEngine2(this))
{
    connectRequests();
    connectNotifications();
    engine->start(QThread::TimeCriticalPriority);
}

// Nobody reaches the engine while it goes: taking down the output runs the event loop.
Player::~Player()
{
    engine->disconnect(this);
    disconnect();
    engine->quit();
    engine->wait();
    // Ticks under way would come while the output is taken down.
    QCoreApplication::removePostedEvents(engine);
    delete engine;
}

void Player::connectRequests()
{
    connect(this, &Player::requestStart, engine, &PlayerEngine2::doStart);
    connect(this, &Player::requestStartFromPart, engine, &PlayerEngine2::doStartFromPart);
    connect(this, &Player::requestStartFromPlaytime, engine, &PlayerEngine2::doStartFromPlaytime);
    connect(this, &Player::requestStartLoop, engine, &PlayerEngine2::doStartLoop);
    connect(this, &Player::requestStop, engine, &PlayerEngine2::doStop);
    connect(this, &Player::requestPause, engine, &PlayerEngine2::doPause);
    connect(this, &Player::requestResume, engine, &PlayerEngine2::doResume);
    connect(this, &Player::requestSetSong, engine, &PlayerEngine2::doSetSong);
    connect(this, &Player::requestSetTempo, engine, &PlayerEngine2::doSetTempo);
    connect(this, &Player::requestSetVolume, engine, &PlayerEngine2::doSetVolume);
    connect(this, &Player::requestSetPitch, engine, &PlayerEngine2::doSetPitch);
    connect(this, &Player::requestConvert, engine, &PlayerEngine2::doConvert);
}

void Player::connectNotifications()
{
    connect(engine, &PlayerEngine2::notifyPlayTimeChanged, this, &Player::doNotifyPlayTimeChanged);
    connect(engine, &PlayerEngine2::notifyIsPlayingChanged, this,
            &Player::doNotifyIsPlayingChanged);
    connect(engine, &PlayerEngine2::notifyActivePartChanged, this,
            &Player::doNotifyActivePartChanged);
    connect(engine, &PlayerEngine2::notifyCountDown, this, &Player::doNotifyCountDown);
}

void Player::setSong(const SongPtr &song)
{
    Q_EMIT requestSetSong(song);
}

SongPtr Player::getSong() const
{
    return engine->getSong();
}

void Player::setTempo(double percent)
{
    Q_EMIT requestSetTempo(percent);
}

bool Player::isPlaying() const
{
    return engine->isPlayingNow();
}

int Player::getLoopStart() const
{
    return engine->getLoopStartPart();
}

int Player::getLoopEnd() const
{
    return engine->getLoopEndPart();
}

int Player::getPlaytimeTotal() const
{
    return engine->getSong() ? engine->getSong()->getPlayLength() * 1000 : 0;
}

int Player::getPlaytime() const
{
    return engine->getSong() ? engine->getPlaytime() : 0;
}

void Player::keepSounding()
{
    engine->keepSounding();
}

double Player::getTempo() const
{
    return (engine->getTempo() - 1.0) * 100.0;
}

void Player::start()
{
    Q_EMIT requestStart();
}

void Player::startFromPart(int aPartIndex)
{
    Q_EMIT requestStartFromPart(aPartIndex);
}

void Player::startFromPlaytime(int aStartPosition)
{
    Q_EMIT requestStartFromPlaytime(aStartPosition);
}

void Player::startLoop(int aPartIndexStart, int aPartIndexEnd)
{
    Q_EMIT requestStartLoop(aPartIndexStart, aPartIndexEnd);
}

void Player::stop()
{
    Q_EMIT requestStop();
}

void Player::pause()
{
    Q_EMIT requestPause();
}

void Player::resume()
{
    Q_EMIT requestResume();
}

void Player::refreshActivePart()
{
    engine->refreshActivePart(true);
}

void Player::convert(const QString &filename, int tempo, Song::EFileFormat format)
{
    Q_EMIT requestConvert(filename, tempo, format);
}

void Player::convert(const QString &filename, int tempo)
{
    convert(filename, tempo, Song::EFileFormat::Wav);
}

void Player::doNotifyPlayTimeChanged(int playtime)
{
    Q_EMIT notifyPlayTimeChanged(playtime);
}

void Player::doNotifyIsPlayingChanged(bool isPlaying)
{
    Q_EMIT notifyIsPlayingChanged(isPlaying);
}

void Player::doNotifyActivePartChanged(int part)
{
    Q_EMIT notifyActivePartChanged(part);
}

void Player::doNotifyCountDown(CountDownEvent countdown)
{
    Q_EMIT notifyCountDown(countdown);
}
