#pragma once

#include <QByteArray>

#include <vector>

// What a file is to become, told as pieces: stretches of the file as it stands and new bytes
// between them. Composing costs nothing but the new bytes; the file isn't touched. A plain value.
class FilePieces
{
public:
    struct Piece
    {
        // Where the stretch begins in the file as it stands; -1 for new bytes.
        qint64 offset;
        qint64 length;
        // The new bytes, length of them; empty for a stretch.
        QByteArray bytes;
        bool isNew() const { return offset < 0; }
    };

    // The whole file, of this size in bytes, as it stands.
    explicit FilePieces(qint64 fileSize = 0);

    // Bytes of the file to be.
    qint64 size() const { return total; }
    // Puts bytes in place of length bytes from start on. What lies behind the end is not there to
    // be replaced; a start behind the end fills the gap with zeros.
    void replace(qint64 start, qint64 length, const QByteArray &bytes);
    // Cuts, or fills up with zeros.
    void resize(qint64 newSize);
    const std::vector<Piece> &pieces() const { return list; }
    // Whether every stretch lies where it lay, and the file stays as long as it was.
    bool keepPlaces() const;

private:
    // The index of the piece that begins at this position, cutting one in two where needed.
    std::size_t cutAt(qint64 position);
    static Piece part(const Piece &piece, qint64 start, qint64 length);

    std::vector<Piece> list;
    qint64 total;
    qint64 sizeBefore;
};
