#include "SaveJournal.h"

#include "PlatformFiles.h"
#include "SaveNotes.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QtDebug>

#include <algorithm>
#include <optional>

namespace {

const QString suffix = QStringLiteral(".journal");
constexpr quint32 magic = 0x7A11E10D;
constexpr qint64 blockSize = 1 << 20;
constexpr qint64 digestSize = 16;
constexpr qint64 lengthSize = 4;

enum class Side { Old, New };

struct Content
{
    SaveJournal::Change change;
    // Where in the journal the first range's bytes begin.
    qint64 start = 0;
};

// The files that this process left half written.
QSet<QString> &unsettled()
{
    static QSet<QString> paths;
    return paths;
}

// Writes a journal and keeps its digest.
class Writer
{
public:
    explicit Writer(QFile &target)
        : file(target)
    { }
    void write(const QByteArray &bytes)
    {
        digest.addData(bytes);
        good = good && file.write(bytes) == bytes.size();
    }
    void copy(const SaveJournal::Reader &read, qint64 offset, qint64 length)
    {
        for (qint64 done = 0; good && done < length; done += blockSize) {
            const qint64 size = std::min(blockSize, length - done);
            const QByteArray bytes = read(offset + done, size);
            good = bytes.size() == size;
            write(bytes);
        }
    }
    bool finish()
    {
        write(digest.result());
        return good && Platform::syncFile(file)
               && Platform::syncDirectory(QFileInfo(file).absolutePath());
    }

private:
    QFile &file;
    QCryptographicHash digest{QCryptographicHash::Md5};
    bool good = true;
};

QByteArray headOf(const SaveNotes::Name &name, const SaveJournal::Change &change)
{
    QByteArray head;
    QDataStream stream(&head, QIODevice::WriteOnly);
    stream << magic << name.relative << name.absolute << change.oldSize << change.newSize
           << qint32(change.ranges.size());
    for (const SaveJournal::Range &range : change.ranges)
        stream << range.offset << range.oldLength << range.newLength;
    QByteArray framed;
    QDataStream(&framed, QIODevice::WriteOnly).writeBytes(head.constData(), unsigned(head.size()));
    return framed;
}

// What a look at a journal or a file tells; nothing where a part of it could not be read.
using Answer = std::optional<bool>;

Answer isWhole(QFile &journal)
{
    const auto state = Platform::fileState(journal);
    if (!state || !journal.seek(0))
        return std::nullopt;
    qint64 left = state->size - digestSize;
    if (left < lengthSize)
        return false;
    QCryptographicHash digest(QCryptographicHash::Md5);
    while (left > 0) {
        const QByteArray bytes = journal.read(std::min(blockSize, left));
        if (bytes.isEmpty())
            return std::nullopt;
        digest.addData(bytes);
        left -= bytes.size();
    }
    const QByteArray told = journal.read(digestSize);
    return told.size() == digestSize ? Answer(told == digest.result()) : std::nullopt;
}

// Of a whole journal; nothing where it can't be read.
std::optional<Content> contentOf(QFile &journal)
{
    QByteArray head;
    journal.seek(0);
    QDataStream stream(&journal);
    stream >> head;
    QDataStream fields(head);
    quint32 mark = 0;
    qint32 count = 0;
    SaveNotes::Name name;
    Content content{{}, lengthSize + head.size()};
    fields >> mark >> name.relative >> name.absolute >> content.change.oldSize
        >> content.change.newSize >> count;
    for (qint32 i = 0; i < count && fields.status() == QDataStream::Ok; ++i) {
        SaveJournal::Range range{};
        fields >> range.offset >> range.oldLength >> range.newLength;
        content.change.ranges.append(range);
    }
    if (mark != magic || count < 1 || fields.status() != QDataStream::Ok)
        return std::nullopt;
    content.change.path = SaveNotes::pathOf(name, journal);
    return content;
}

// Calls use(offset, old bytes, new bytes) for every block of every range until it answers false;
// of the two sides the shorter one runs out first.
using Block = std::function<bool(qint64 offset, const QByteArray &before, const QByteArray &after)>;

// Empty behind the end of the stretch, nothing where the journal can't be read.
std::optional<QByteArray> blockOf(QFile &journal, qint64 from, qint64 length, qint64 done)
{
    const qint64 size = std::clamp<qint64>(length - done, 0, blockSize);
    if (size == 0)
        return QByteArray();
    const QByteArray bytes = journal.seek(from + done) ? journal.read(size) : QByteArray();
    return bytes.size() == size ? std::optional(bytes) : std::nullopt;
}

bool forEachBlock(QFile &journal, const Content &content, const Block &use)
{
    qint64 place = content.start;
    for (const SaveJournal::Range &range : content.change.ranges) {
        const qint64 longest = std::max(range.oldLength, range.newLength);
        for (qint64 done = 0; done < longest; done += blockSize) {
            const auto before = blockOf(journal, place, range.oldLength, done);
            const auto after = blockOf(journal, place + range.oldLength, range.newLength, done);
            if (!before || !after || !use(range.offset + done, *before, *after))
                return false;
        }
        place += range.oldLength + range.newLength;
    }
    return true;
}

bool writeSide(Side side, QFile &journal, const Content &content, QFile &file)
{
    const bool written = forEachBlock(
        journal, content, [&](qint64 offset, const QByteArray &before, const QByteArray &after) {
            const QByteArray &bytes = side == Side::Old ? before : after;
            return bytes.isEmpty() || (file.seek(offset) && file.write(bytes) == bytes.size());
        });
    const qint64 size = side == Side::Old ? content.change.oldSize : content.change.newSize;
    return written && (file.size() == size || file.resize(size)) && Platform::syncFile(file);
}

// What lay behind the old end may hold anything after a power cut.
bool isOneOf(char byte, const QByteArray &before, const QByteArray &after, qsizetype at)
{
    return at >= before.size() || before[at] == byte || (at < after.size() && after[at] == byte);
}

// Whether the file is on the way from the old bytes to the new ones and nothing else.
Answer isBetween(QFile &journal, const Content &content, QFile &file)
{
    const auto [least, most] = std::minmax(content.change.oldSize, content.change.newSize);
    // Not QFile's size, which is 0 where it can't be told.
    const auto state = Platform::fileState(file);
    if (!state)
        return std::nullopt;
    if (state->size < least || state->size > most)
        return false;
    bool isOther = false;
    const bool isRead = forEachBlock(
        journal, content, [&](qint64 offset, const QByteArray &before, const QByteArray &after) {
            const QByteArray present = file.seek(offset)
                                           ? file.read(std::max(before.size(), after.size()))
                                           : QByteArray();
            if (present.size() < std::min(before.size(), after.size()))
                return false;
            for (qsizetype at = 0; at < present.size() && !isOther; ++at)
                isOther = !isOneOf(present[at], before, after, at);
            return !isOther;
        });
    return isRead || isOther ? Answer(!isOther) : std::nullopt;
}

bool isForgotten(const QFile &journal, const QString &path)
{
    constexpr int days = 30;
    return Platform::isMissing(path) && QFileInfo(path).dir().exists()
           && QFileInfo(journal).lastModified().daysTo(QDateTime::currentDateTime()) > days;
}

} // namespace

SaveJournal::SaveJournal(std::unique_ptr<QFile> note, const Change &made, qint64 first)
    : journal(std::move(note))
    , change(made)
    , start(first)
{ }

std::unique_ptr<SaveJournal> SaveJournal::create(const Change &change, const Reader &oldBytes,
                                                 const Reader &newBytes)
{
    auto note = SaveNotes::create(change.path, suffix);
    if (!note)
        return nullptr;
    Writer writer(*note);
    const QByteArray head = headOf(SaveNotes::nameOf(change.path, *note), change);
    writer.write(head);
    for (const Range &range : change.ranges) {
        writer.copy(oldBytes, range.offset, range.oldLength);
        writer.copy(newBytes, range.offset, range.newLength);
    }
    if (!writer.finish()) {
        SaveNotes::remove(*note);
        return nullptr;
    }
    return std::unique_ptr<SaveJournal>(new SaveJournal(std::move(note), change, head.size()));
}

bool SaveJournal::apply(QFile &file)
{
    const Content content{change, start};
    const bool done = writeSide(Side::New, *journal, content, file);
    if (done || writeSide(Side::Old, *journal, content, file))
        SaveNotes::remove(*journal);
    else
        unsettled().insert(change.path);
    return done;
}

bool SaveJournal::isSettled(const QString &path)
{
    if (unsettled().isEmpty())
        return true;
    const QString name = Platform::canonicalPath(path);
    if (!unsettled().contains(name))
        return true;
    for (const QString &directory : SaveNotes::directoriesFor(name))
        SaveNotes::forEach(directory, [](QFile &note) { return isJournal(note) && finish(note); });
    return !unsettled().contains(name);
}

void SaveJournal::discard()
{
    SaveNotes::remove(*journal);
}

bool SaveJournal::isJournal(const QFile &note)
{
    return note.fileName().endsWith(suffix);
}

bool SaveJournal::finish(QFile &note)
{
    const Answer whole = isWhole(note);
    if (!whole)
        return false;
    // The file is touched only once its journal is whole.
    if (!*whole)
        return true;
    const auto content = contentOf(note);
    if (!content)
        return false;
    QFile file(content->change.path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        qWarning() << "A save was cut off, and the file can't be written:" << file.fileName();
        return isForgotten(note, file.fileName());
    }
    const Answer isOurs = isBetween(note, *content, file);
    if (!isOurs)
        return false;
    if (*isOurs)
        qInfo() << "A save was cut off and is finished now:" << file.fileName();
    else
        qWarning() << "A save was cut off, and the file has changed since:" << file.fileName();
    if (*isOurs && !writeSide(Side::New, note, *content, file)
        && !writeSide(Side::Old, note, *content, file))
        return false;
    unsettled().remove(file.fileName());
    return true;
}
