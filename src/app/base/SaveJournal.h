#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

// Changes a file in place, whole or not at all: the old and the new bytes of every change lie in a
// journal on the disk before the first byte of the file is touched. A change that was cut off is
// finished at the next start.
class SaveJournal
{
public:
    // A stretch of the file that changes. The two lengths differ at the end of the file alone.
    struct Range
    {
        qint64 offset;
        qint64 oldLength;
        qint64 newLength;
    };
    struct Change
    {
        // Canonical.
        QString path;
        // Bytes.
        qint64 oldSize;
        qint64 newSize;
        // Ascending, none over another.
        QList<Range> ranges;
    };
    // Bytes from an offset on; fewer than asked for is a failure.
    using Reader = std::function<QByteArray(qint64 offset, qint64 length)>;

    // A journal on the disk. Null when no place takes one.
    static std::unique_ptr<SaveJournal> create(const Change &change, const Reader &oldBytes,
                                               const Reader &newBytes);

    // Writes the new bytes into the file, which is open for writing, and waits for the disk. On
    // false the file holds its old bytes again, or, where even that fails, the journal stays: the
    // file is then half written, and is finished before it is changed again or at the next start.
    bool apply(QFile &file);

    // False while a change of this file could be neither finished nor taken back. Tries again.
    static bool isSettled(const QString &path);

    // Takes a journal that was never applied away.
    void discard();

    // Whether a note is a journal.
    static bool isJournal(const QFile &note);
    // Finishes the change that a journal, open for reading, tells of. True when the journal has
    // done its work. A file that somebody has changed since then is left alone; one that can't be
    // written now, or isn't there, keeps its journal (a drive may come back), the latter for a
    // month.
    static bool finish(QFile &note);

private:
    SaveJournal(std::unique_ptr<QFile> note, const Change &change, qint64 start);

    std::unique_ptr<QFile> journal;
    Change change;
    // Where in the journal the first range's bytes begin.
    qint64 start;
};
