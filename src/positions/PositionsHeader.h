#pragma once

#include <QString>

#include <functional>

class Song;

// The texts about a song around its positions.
struct PositionsHeader
{
    QString title;      // "title - artist (2:05)", plain text
    QString infoLabels; // plain text: a line each for the level and the choreographer
    QString infoValues; // rich text: the same lines
    QString windowTitle;
};

// Cuts a plain text that is too long for its place at the right end.
using Elide = std::function<QString(const QString &plainText)>;

// levelName stands for the level "Intermediate-Advanced". Without moreInfo the info texts are
// empty.
PositionsHeader positionsHeader(const Song &song, const QString &levelName, bool moreInfo,
                                const Elide &elide);
