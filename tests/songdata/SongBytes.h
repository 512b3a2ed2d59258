#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <optional>

// An mp3 taken apart byte by byte, with nothing of the tag library in use.
struct SongBytes
{
    // Contents by frame id, in file order.
    QHash<QByteArray, QList<QByteArray>> frames;
    QByteArray audio;
    // The 128 bytes at the end, and the APE tag before them; empty where there is none.
    QByteArray id3v1;
    QByteArray ape;

    // Nothing for a file whose tag claims more than is there, is not made of whole frames and
    // padding, or is not followed by an mp3's frame.
    static std::optional<SongBytes> read(const QByteArray &file);

    // Plain text of the first frame of this id; empty when there is none. ASCII only.
    QByteArray text(const QByteArray &id) const;
    // The value of the user text with this description.
    QByteArray userText(const QByteArray &description) const;
    QByteArray comment() const;
    // The entries of the SYLT frame: milliseconds and text.
    QList<std::pair<int, QByteArray>> positions() const;
};
