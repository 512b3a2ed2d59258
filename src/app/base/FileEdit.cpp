#include "FileEdit.h"

#include "FileReplacement.h"

#include <QtDebug>

#include <algorithm>

namespace {

constexpr qint64 blockSize = 1 << 20;

QIODevice::OpenMode modeOf(FileEdit::Access access)
{
    // A buffer would tell of a failing write too late.
    constexpr auto writing = QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    return access == FileEdit::Access::Read ? QIODevice::OpenMode(QIODevice::ReadOnly) : writing;
}

// The part of a change that really changes; of length 0 when none does.
SaveJournal::Range trimmed(qint64 offset, const QByteArray &before, const QByteArray &after)
{
    const auto [first, unused] = std::mismatch(before.cbegin(), before.cend(), after.cbegin());
    const auto [last, unusedToo]
        = std::mismatch(before.crbegin(), std::make_reverse_iterator(first), after.crbegin());
    const qint64 start = first - before.cbegin();
    const qint64 length = last.base() - first;
    return {offset + start, length, length};
}

} // namespace

FileEdit::FileEdit(const QString &path, Access access)
    : file(access == Access::Read ? path : Platform::canonicalPath(path))
{
    if (file.fileName().isEmpty() || !SaveJournal::isSettled(path) || !file.open(modeOf(access)))
        return;
    const auto found = Platform::fileState(file);
    if (!found) {
        file.close();
        return;
    }
    state = *found;
    content = FilePieces(state.size);
}

QByteArray FileEdit::readFile(qint64 offset, qint64 length)
{
    const QByteArray bytes = file.seek(offset) ? file.read(length) : QByteArray();
    isReadable = isReadable && bytes.size() == length;
    return bytes;
}

QByteArray FileEdit::read(qint64 offset, qint64 length)
{
    QByteArray bytes;
    qint64 at = 0;
    for (const FilePieces::Piece &piece : content.pieces()) {
        const qint64 skipped = std::max<qint64>(offset - at, 0);
        const qint64 wanted
            = std::min(piece.length - skipped, length - static_cast<qint64>(bytes.size()));
        at += piece.length;
        if (skipped >= piece.length)
            continue;
        if (wanted <= 0)
            break;
        const QByteArray part = piece.isNew() ? piece.bytes.mid(skipped, wanted)
                                              : readFile(piece.offset + skipped, wanted);
        bytes.append(part);
        if (part.size() < wanted)
            break;
    }
    return bytes;
}

void FileEdit::replace(qint64 offset, qint64 length, const QByteArray &bytes)
{
    content.replace(offset, length, bytes);
}

void FileEdit::resize(qint64 newSize)
{
    content.resize(newSize);
}

bool FileEdit::commit()
{
    if (!isWritable() || !isReadable || !isAsOpened()) {
        qWarning() << "The file can't be written or has changed meanwhile:" << file.fileName();
        return false;
    }
    bool isPossible = false;
    if (content.keepPlaces()) {
        const bool done = changeInPlace(changedRanges(), &isPossible);
        if (isPossible)
            return done;
    }
    const bool done = replaceWhole(&isPossible);
    return isPossible ? done : changeInPlace(wholeRange(), &isPossible);
}

bool FileEdit::isAsOpened() const
{
    const auto present = Platform::fileState(file.fileName());
    return present && present->isUnchanged(state);
}

QList<SaveJournal::Range> FileEdit::changedRanges()
{
    QList<SaveJournal::Range> ranges;
    qint64 at = 0;
    for (const FilePieces::Piece &piece : content.pieces()) {
        if (piece.isNew()) {
            const auto range = trimmed(at, readFile(at, piece.length), piece.bytes);
            if (range.newLength > 0)
                ranges.append(range);
        }
        at += piece.length;
    }
    return ranges;
}

QList<SaveJournal::Range> FileEdit::wholeRange() const
{
    const auto &pieces = content.pieces();
    const bool isHeadKept = !pieces.empty() && pieces.front().offset == 0;
    const qint64 start = isHeadKept ? pieces.front().length : 0;
    return {{start, state.size - start, content.size() - start}};
}

// Of no use where no journal can be kept: isPossible tells that.
bool FileEdit::changeInPlace(const QList<SaveJournal::Range> &ranges, bool *isPossible)
{
    *isPossible = true;
    if (!isReadable)
        return false;
    if (ranges.isEmpty())
        return Platform::touchFile(file);
    const auto journal = SaveJournal::create(
        {file.fileName(), state.size, content.size(), ranges},
        [this](qint64 offset, qint64 length) { return readFile(offset, length); },
        [this](qint64 offset, qint64 length) { return read(offset, length); });
    *isPossible = journal != nullptr;
    if (!journal)
        return false;
    // It took a while to bring the journal to the disk.
    if (!isAsOpened()) {
        journal->discard();
        return false;
    }
    const bool done = journal->apply(file);
    const auto present = Platform::fileState(file.fileName());
    return done && present && present->isSameFile(state);
}

bool FileEdit::replaceWhole(bool *isPossible)
{
    const auto replacement = FileReplacement::create(file.fileName());
    *isPossible = replacement != nullptr;
    if (!replacement || !copyTo(replacement->file()))
        return false;
    // A platform may refuse to replace what is open.
    file.close();
    return replacement->commit(state);
}

bool FileEdit::copyTo(QFile &target)
{
    for (qint64 done = 0; done < content.size(); done += blockSize) {
        const qint64 size = std::min(blockSize, content.size() - done);
        const QByteArray bytes = read(done, size);
        if (bytes.size() != size || target.write(bytes) != size)
            return false;
    }
    return true;
}
