#include "PlaylistFile.h"

#include "PlaylistText.h"
#include "SafeFile.h"
#include "SameFile.h"
#include "Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QtDebug>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace {

// A list that a person made has a few hundred entries; more than this would eat the memory.
constexpr qint64 mostBytes = 16 * 1024 * 1024;
constexpr qsizetype mostEntries = 100'000;

QString directoryOf(const QString &file)
{
    return QFileInfo(file).absolutePath() + u'/';
}

// Empty when the file can't be read to its end or is too long. Reading a pipe or a device would
// never end.
std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError || content.size() > mostBytes)
        return {};
    return content;
}

// Empty when the file can't be read whole.
std::optional<QStringList> entriesOf(const QString &path)
{
    const std::optional<QByteArray> content = contentOf(path);
    if (!content)
        return {};
    const QStringList entries = PlaylistText::read(*content, directoryOf(path), mostEntries + 1);
    if (entries.size() > mostEntries)
        return {};
    return entries;
}

// Known for sure: a file in a closed directory may well be there.
bool isNowhere(const QString &path)
{
    std::error_code error;
    const std::filesystem::path file(QFile::encodeName(path).toStdString());
    return std::filesystem::status(file, error).type() == std::filesystem::file_type::not_found;
}

// One for all equal entries.
SongPtr missingSong(const QString &entry, QHash<QString, SongPtr> &missing)
{
    SongPtr &song = missing[entry];
    if (!song)
        song.reset(new Song(entry, true));
    return song;
}

} // namespace

PlaylistFile::PlaylistFile(SongLibrary *songManager, QObject *parent)
    : Playlist(songManager, parent)
{ }

QString PlaylistFile::name() const
{
    return path.isEmpty() ? tr("<Neue Playlist>") : QFileInfo(path).fileName();
}

QString PlaylistFile::fullPath() const
{
    return path.isEmpty() ? Settings::playlistDir() + u'/' + name() : path;
}

bool PlaylistFile::load(const QString &filename)
{
    path = filename;
    modified = false;
    const std::optional<QStringList> found = entriesOf(filename);
    unread = !found && !isNowhere(filename);
    entries = found.value_or(QStringList());
    return false;
}

bool PlaylistFile::revert()
{
    bool answer = true;
    if (isNew()) {
        entries.clear();
        refresh();
    } else if (isModified()) {
        answer = load(path);
        refresh();
    }
    modified = false;
    return answer;
}

bool PlaylistFile::saveAs(const QString &filename)
{
    if (filename.isEmpty() || (unread && isSameFile(filename, path)))
        return false;
    const QByteArray content = PlaylistText::write(entries, directoryOf(filename));
    if (!SafeFile::replace(filename, content, SafeFile::Durability::Synced))
        return false;
    path = filename;
    modified = false;
    unread = false;
    return true;
}

bool PlaylistFile::save()
{
    return saveAs(path);
}

bool PlaylistFile::remove()
{
    return !path.isEmpty() && QFileInfo::exists(path) && QFile::remove(path);
}

bool PlaylistFile::removeEntry(const QString &entry, bool flag)
{
    return removeEntryAt(static_cast<int>(entries.indexOf(entry)), flag);
}

bool PlaylistFile::removeEntryAt(int index, bool)
{
    if (!isEntry(index))
        return false;
    entries.removeAt(index);
    entriesChanged();
    return true;
}

void PlaylistFile::removeSong(const QString &entry)
{
    if (entries.removeAll(entry) > 0)
        entriesChanged();
    saveUnasked();
}

void PlaylistFile::renameSong(const QString &oldPath, const QString &newPath)
{
    if (entries.contains(oldPath)) {
        entries.replaceInStrings(oldPath, newPath, Qt::CaseSensitive);
        entriesChanged();
    }
    saveUnasked();
}

bool PlaylistFile::add(const QString &entry)
{
    return insert(entry, static_cast<int>(entries.size()));
}

bool PlaylistFile::insert(const QString &entry, int index)
{
    return insertAll({entry}, index);
}

bool PlaylistFile::addAll(const QStringList &paths)
{
    return insertAll(paths, static_cast<int>(entries.size()));
}

bool PlaylistFile::insertAll(const QStringList &paths, int index)
{
    if (paths.isEmpty())
        return true;
    if (index < 0 || index > entries.size())
        return false;
    entries = entries.first(index) + paths + entries.sliced(index);
    entriesChanged();
    return true;
}

void PlaylistFile::moveTo(int from, int to)
{
    if (!isEntry(from) || !isEntry(to))
        return;
    entries.move(from, to);
    entriesChanged();
}

void PlaylistFile::moveUp(int index, int count)
{
    if (index < 1 || !isEntry(index) || count > entries.size() - index)
        return;
    for (int entry = index; entry < index + std::max(count, 0); ++entry)
        entries.swapItemsAt(entry, entry - 1);
    entriesChanged();
}

void PlaylistFile::moveDown(int index, int count)
{
    if (!isEntry(index) || index == entries.size() - 1 || count > entries.size() - 1 - index)
        return;
    for (int entry = index + std::max(count, 0) - 1; entry >= index; --entry)
        entries.swapItemsAt(entry, entry + 1);
    entriesChanged();
}

void PlaylistFile::refresh()
{
    shown.clear();
    QHash<QString, SongPtr> missing;
    for (const QString &entry : entries) {
        const SongPtr song = songManager()->getSong(entry);
        shown.append(song ? song : missingSong(entry, missing));
    }
}

void PlaylistFile::entriesChanged()
{
    modified = true;
    refresh();
}

void PlaylistFile::saveUnasked()
{
    if (isModified() && !isNew() && !save())
        qWarning() << "Save Playlist failed:" << path;
}
