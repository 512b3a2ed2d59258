#pragma once

#include "Player.h"
#include "SongManager.h"

#include <QObject>
#include <QStringList>

// The application object: owns the library and the player, and with them the chain of song
// stores and the log. One for the whole program, made by main after the QApplication.
class Tarvelo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString about READ about)

public:
    explicit Tarvelo(QObject *parent = nullptr);
    ~Tarvelo() override;

    Player *getPlayer() { return player.get(); }
    SongManager *getSongManager() { return songManager.get(); }
    // An old text that is kept as it is.
    QString about() const;

    // Families of the embedded symbol font; empty if it couldn't be loaded.
    static const QStringList &symbolFontFamilies();

public Q_SLOTS:
    // Takes the song from the player, then reads the whole library anew.
    void rescan();
    // Reads the playlists anew; the song plays on.
    void rescanPlaylists();

private:
    static void loadSymbolFont();

    std::unique_ptr<SongManager> songManager;
    std::unique_ptr<Player> player;
};
