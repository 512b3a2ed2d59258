#pragma once

#include "SongBytes.h"

#include <QString>

class Song;

// States of a song that can be told apart wherever one looks: the state's number stands in every
// field, and the comment's length makes the tag fit into its place or not.
namespace SaveStates {

enum class Change {
    Fits,    // every state takes the same room
    Grows,   // each takes more than the one before and its padding
    Shrinks, // each takes less than the one before
};

void put(Song &song, Change change, int number);
// The number of the state that an mp3 holds everywhere; -1 where it is not the same everywhere.
int numberIn(const SongBytes &song, Change change);
// For numbers on a command line: "fits", "grows", "shrinks".
Change changeNamed(const QByteArray &name);

} // namespace SaveStates
