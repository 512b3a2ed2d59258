#pragma once

#include "Song.h"

#include <QHash>
#include <QStringList>

// The categories of all events of these songs, each once (compared case-sensitively), none empty,
// in alphabetical order.
QStringList eventCategories(const QHash<QString, SongPtr> &songs);

// The beats a minute at which a song of so many was played, without a fraction. The tempo is an
// offset in percent as text; one that is no whole number counts as 0. Empty without a tempo or
// without beats (bpm below 1).
QString eventTempoBpm(const QString &tempoPercent, int bpm);
