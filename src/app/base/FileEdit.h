#pragma once

#include "FilePieces.h"
#include "PlatformFiles.h"
#include "SaveJournal.h"

#include <QByteArray>
#include <QFile>
#include <QString>

// A file that is read and changed as if at once, while it stays as it is until commit() changes it
// whole or not at all.
class FileEdit
{
public:
    enum class Access { Read, Write };
    FileEdit(const QString &path, Access access);

    // False when the file can't be read.
    bool isOpen() const { return file.isOpen(); }
    // False when the file may not be written: what is changed is then never committed.
    bool isWritable() const { return file.isWritable(); }

    // All in bytes, and of the file as it is to be.
    qint64 size() const { return content.size(); }
    // Fewer bytes than asked for at the end. Fewer after an error too: nothing is committed then.
    QByteArray read(qint64 offset, qint64 length);
    void replace(qint64 offset, qint64 length, const QByteArray &bytes);
    void resize(qint64 newSize);
    // Whether all that stays stays where it is: such a change is written in place.
    bool keepsPlaces() const { return content.keepPlaces(); }

    // Brings the changes to the disk and gives the file the present time. False when that failed
    // or when another program has changed, removed or replaced the file since it was opened: the
    // file is then as it was. Once only.
    bool commit();

private:
    QByteArray readFile(qint64 offset, qint64 length);
    bool changeInPlace(const QList<SaveJournal::Range> &ranges, bool *isPossible);
    bool replaceWhole(bool *isPossible);
    bool copyTo(QFile &target);
    bool isAsOpened() const;
    QList<SaveJournal::Range> changedRanges();
    QList<SaveJournal::Range> wholeRange() const;

    QFile file;
    Platform::FileState state;
    FilePieces content;
    // False once a part of the file could not be read.
    bool isReadable = true;
};
