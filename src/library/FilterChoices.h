#pragma once

#include "Song.h"

#include <QList>
#include <QStringList>

// What the boxes of a filter row are filled from.
struct ChoiceSource
{
    const QList<SongPtr> &songs;     // of the list on show
    const QStringList &directories;  // of the library, as the column shows them
    const QString &highIntermediate; // shown for the level "Intermediate-Advanced"
    int currentYear;
};

// The entries of a column's box in the language of now. The first one is empty: no filter. Nothing
// for a column whose filter is no box.
QStringList filterChoices(int column, const ChoiceSource &source);
