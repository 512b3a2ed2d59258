#pragma once

#include <QByteArray>

// The choreography of a song, a whole PDF document as bytes. Present when there are any.
class Cuesheet
{
public:
    const QByteArray &data() const { return bytes; }
    void set(const QByteArray &document) { bytes = document; }
    void clear() { bytes.clear(); }
    bool isPresent() const { return !bytes.isEmpty(); }

private:
    QByteArray bytes;
};
