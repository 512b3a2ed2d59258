#pragma once

#include "PlatformFiles.h"

#include <QFile>
#include <QString>

#include <memory>

// A new version of a file, written beside it and then given its name in one step. Owner,
// permissions and extended attributes stay. Until commit() the old file is untouched; without it
// the new one goes with this object. What a killed process leaves is found at the next start.
class FileReplacement
{
public:
    // path is canonical. Null when no file can be made beside it that is as the old one is: the
    // directory can't be written, the file has further names, its owner can't be kept.
    static std::unique_ptr<FileReplacement> create(const QString &path);
    ~FileReplacement();
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;

    // The new version, open for writing.
    QFile &file() { return newer; }
    // False, with the old file as it was, when the new one could not be brought to the disk or
    // when the old one isn't what state tells any more. Closes the new one.
    bool commit(const Platform::FileState &state);

    // Whether a note tells of a replacement.
    static bool isNote(const QFile &note);
    // Removes what a replacement that was cut off left behind, as its note tells. True when the
    // note has done its work.
    static bool clearUp(QFile &note);

private:
    explicit FileReplacement(const QString &path);
    bool begin();
    void writeNote();
    void noteExchange();
    bool removeNewer();
    bool bringIn(const Platform::FileState &state);

    QString older;
    // Open to the end, so that removing the old file takes no time here.
    std::unique_ptr<QFile> source;
    QFile newer;
    Platform::FileState previous;
    Platform::FileState made;
    std::unique_ptr<QFile> note;
};
