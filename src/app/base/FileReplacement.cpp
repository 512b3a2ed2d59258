#include "FileReplacement.h"

#include "SaveNotes.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QtDebug>

using Platform::FileState;

namespace {

const QString suffix = QStringLiteral(".replacement");
const QString prefix = QStringLiteral("/.tarvelo-");

QString nameBeside(const QString &path)
{
    const QString number = QString::number(QRandomGenerator::global()->generate64(), 36);
    return QFileInfo(path).absolutePath() + prefix + number + QStringLiteral(".tmp");
}

// What a note tells: the names of both files, the old one's state, and behind that, once the two
// are about to be exchanged, the new one's.
struct Told
{
    QString newer;
    QString older;
    FileState before;
    bool isExchangeBegun = false;
    FileState made;

    // Exactly: another program may write a file of this size at the same time.
    bool isMade(const FileState &file) const
    {
        return file.number == made.number && file.size == made.size
               && file.modified == made.modified;
    }
};

// Nothing where the note can't be read; without names where it was cut off while it was written,
// before there was a new file.
std::optional<Told> read(QFile &note)
{
    const auto state = Platform::fileState(note);
    const QByteArray bytes = state ? note.read(state->size) : QByteArray();
    if (!state || bytes.size() != state->size)
        return std::nullopt;
    Told told;
    SaveNotes::Name newer;
    SaveNotes::Name older;
    QDataStream stream(bytes);
    stream >> newer.relative >> newer.absolute >> older.relative >> older.absolute
        >> told.before.size >> told.before.modified;
    if (stream.status() != QDataStream::Ok)
        return told;
    told.newer = SaveNotes::pathOf(newer, note);
    told.older = SaveNotes::pathOf(older, note);
    told.isExchangeBegun = !stream.atEnd();
    stream >> told.made.number >> told.made.size >> told.made.modified;
    return told;
}

bool isFile(const QString &path, const FileState &state)
{
    const auto present = Platform::fileState(path);
    return present && present->isUnchanged(state);
}

} // namespace

FileReplacement::FileReplacement(const QString &path)
    : older(path)
    , newer(nameBeside(path))
{ }

std::unique_ptr<FileReplacement> FileReplacement::create(const QString &path)
{
    std::unique_ptr<FileReplacement> replacement(new FileReplacement(path));
    return replacement->begin() ? std::move(replacement) : nullptr;
}

bool FileReplacement::begin()
{
    source = std::make_unique<QFile>(older);
    if (!source->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    const auto before = Platform::fileState(*source);
    if (!before || before->links > 1)
        return false;
    previous = *before;
    writeNote();
    if (!newer.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    made = Platform::fileState(newer).value_or(FileState());
    return Platform::takeOverAttributes(*source, newer);
}

// Without a note a killed process would leave its file for ever, and no more than that.
void FileReplacement::writeNote()
{
    note = SaveNotes::create(older, suffix);
    if (!note)
        return;
    const SaveNotes::Name newName = SaveNotes::nameOf(newer.fileName(), *note);
    const SaveNotes::Name oldName = SaveNotes::nameOf(older, *note);
    QByteArray text;
    QDataStream stream(&text, QIODevice::WriteOnly);
    stream << newName.relative << newName.absolute << oldName.relative << oldName.absolute
           << previous.size << previous.modified;
    note->write(text);
}

void FileReplacement::noteExchange()
{
    if (!note)
        return;
    QByteArray text;
    QDataStream(&text, QIODevice::WriteOnly) << made.number << made.size << made.modified;
    note->write(text);
}

FileReplacement::~FileReplacement()
{
    newer.close();
    // What can't be removed now goes at the next start.
    const bool isGone = removeNewer();
    if (note && isGone)
        SaveNotes::remove(*note);
    Platform::closeApart(std::move(source));
}

// True when nothing of this replacement is left under the new file's name. What another program
// has put there stays.
bool FileReplacement::removeNewer()
{
    const auto present = Platform::fileState(newer.fileName());
    if (!present)
        return !newer.exists();
    const bool isOurs = present->isSameFile(made) || present->isSameFile(previous);
    return !isOurs || newer.remove();
}

bool FileReplacement::commit(const FileState &state)
{
    if (!Platform::syncFile(newer))
        return false;
    made = Platform::fileState(newer).value_or(made);
    newer.close();
    if (!Platform::canExchangeOpenFiles())
        source->close();
    if (!isFile(older, state))
        return false;
    noteExchange();
    if (!bringIn(state))
        return false;
    if (!Platform::syncDirectory(QFileInfo(older).absolutePath()))
        qWarning() << "The directory could not be brought to the disk:" << older;
    return true;
}

bool FileReplacement::bringIn(const FileState &state)
{
    const QString name = newer.fileName();
    const Platform::Exchange exchange = Platform::exchangeFiles(name, older);
    if (exchange != Platform::Exchange::Swapped)
        return exchange == Platform::Exchange::Replaced;
    // Whatever came between the look and the swap gets its name back.
    if (isFile(name, state))
        return true;
    Platform::exchangeFiles(name, older);
    return false;
}

bool FileReplacement::isNote(const QFile &note)
{
    return note.fileName().endsWith(suffix);
}

bool FileReplacement::clearUp(QFile &note)
{
    const auto told = read(note);
    if (!told)
        return false;
    if (!told->newer.contains(prefix))
        return true;
    const auto newer = Platform::fileState(told->newer);
    // The drive may be back at another start.
    if (!newer)
        return Platform::isMissing(told->newer) && QFileInfo(told->newer).dir().exists();
    const auto older = Platform::fileState(told->older);
    if (!older && !Platform::isMissing(told->older))
        return false;
    // Either the exchange has been made and this is the old file, or it has not been. Anything
    // else came from another program.
    if (!told->isExchangeBegun || newer->looksLike(told->before) || told->isMade(*newer)
        || (older && older->looksLike(told->before)))
        return QFile::remove(told->newer);
    qWarning() << "A file was changed while it was saved; what lay there is now" << told->newer;
    return true;
}
