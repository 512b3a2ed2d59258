#include "FilePieces.h"

#include <algorithm>

FilePieces::FilePieces(qint64 fileSize)
    : total(fileSize)
    , sizeBefore(fileSize)
{
    if (fileSize > 0)
        list.push_back({0, fileSize, {}});
}

FilePieces::Piece FilePieces::part(const Piece &piece, qint64 start, qint64 length)
{
    if (piece.isNew())
        return {-1, length, piece.bytes.mid(start, length)};
    return {piece.offset + start, length, {}};
}

std::size_t FilePieces::cutAt(qint64 position)
{
    qint64 at = 0;
    for (std::size_t index = 0; index < list.size(); ++index) {
        const Piece piece = list[index];
        if (at == position)
            return index;
        if (position < at + piece.length) {
            const qint64 first = position - at;
            list[index] = part(piece, first, piece.length - first);
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), part(piece, 0, first));
            return index + 1;
        }
        at += piece.length;
    }
    return list.size();
}

void FilePieces::replace(qint64 start, qint64 length, const QByteArray &bytes)
{
    if (start < 0)
        return;
    if (start > total)
        resize(start);
    const qint64 gone = std::clamp<qint64>(length, 0, total - start);
    const auto first = static_cast<std::ptrdiff_t>(cutAt(start));
    const auto last = static_cast<std::ptrdiff_t>(cutAt(start + gone));
    const auto place = list.erase(list.begin() + first, list.begin() + last);
    if (!bytes.isEmpty())
        list.insert(place, {-1, bytes.size(), bytes});
    total += bytes.size() - gone;
}

void FilePieces::resize(qint64 newSize)
{
    if (newSize < total)
        replace(newSize, total - newSize, {});
    else if (newSize > total)
        replace(total, 0, QByteArray(newSize - total, '\0'));
}

bool FilePieces::keepPlaces() const
{
    qint64 at = 0;
    for (const Piece &piece : list) {
        if (!piece.isNew() && piece.offset != at)
            return false;
        at += piece.length;
    }
    return total == sizeBefore;
}
