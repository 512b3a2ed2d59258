#include "SafeFile.h"

#include "FileEdit.h"
#include "FileReplacement.h"
#include "SaveJournal.h"
#include "SaveNotes.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

// A time that is not valid leaves the present one.
bool replaceUnsynced(const QString &path, const QByteArray &content, const QDateTime &modified)
{
    QFile newer(path + QStringLiteral(".new"));
    if (!newer.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    const bool written = newer.write(content) == content.size()
                         && (!modified.isValid() || Platform::setFileTime(newer, modified));
    newer.close();
    if (written && Platform::renameOver(newer.fileName(), path))
        return true;
    newer.remove();
    return false;
}

bool make(const QString &path, const QByteArray &content)
{
    // With a buffer the class doesn't see that its last write has failed.
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
           && file.write(content) == content.size() && file.commit();
}

bool replaceSynced(const QString &path, const QByteArray &content)
{
    if (!QFileInfo::exists(path))
        return make(path, content);
    FileEdit file(path, FileEdit::Access::Write);
    if (!file.isWritable())
        return false;
    file.replace(0, file.size(), content);
    return file.commit();
}

} // namespace

bool SafeFile::replace(const QString &path, const QByteArray &content, Durability durability)
{
    return durability == Durability::Synced ? replaceSynced(path, content)
                                            : replaceUnsynced(path, content, QDateTime());
}

bool SafeFile::replaceDated(const QString &path, const QByteArray &content,
                            const QDateTime &modified)
{
    return replaceUnsynced(path, content, modified);
}

void SafeFile::recover()
{
    for (const QString &directory : SaveNotes::allDirectories())
        recoverIn(directory);
}

void SafeFile::recoverIn(const QString &directory)
{
    SaveNotes::forEach(directory, [](QFile &note) {
        if (SaveJournal::isJournal(note))
            return SaveJournal::finish(note);
        return FileReplacement::isNote(note) && FileReplacement::clearUp(note);
    });
}
