#include "Playlist.h"

Playlist::Playlist(SongLibrary *songManager, QObject *parent)
    : QObject(parent)
    , library(songManager)
{ }
