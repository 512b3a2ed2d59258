#include "SaveNotes.h"

#include "PlatformFiles.h"
#include "Settings.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <filesystem>

namespace {

const QString prefix = QStringLiteral(".tarvelo-");

// By its full name: at start the application has none yet.
QString dataDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
           + QStringLiteral("/Tarvelo Soft/Tarvelo/saves");
}

QString musicDirectory()
{
    const QString directory = Settings::musicDir();
    return directory.isEmpty() ? QString() : QFileInfo(directory).canonicalFilePath();
}

// Not through QDir, which asks about every file in a directory of thousands.
QStringList notesIn(const QString &directory)
{
    const std::filesystem::path start(prefix.toStdU16String());
    QStringList notes;
    std::error_code error;
    std::filesystem::directory_iterator entry(QDir(directory).filesystemPath(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (!entry->path().filename().native().starts_with(start.native()))
            continue;
        const QString path = QFileInfo(entry->path()).filePath();
        // Not the unfinished copies, which begin alike.
        if (path.endsWith(u".journal") || path.endsWith(u".replacement"))
            notes.append(path);
    }
    return notes;
}

std::unique_ptr<QFile> createIn(const QString &directory, const QString &suffix)
{
    constexpr int attempts = 5;
    for (int i = 0; i < attempts; ++i) {
        const QString number = QString::number(QRandomGenerator::global()->generate(), 36);
        auto note = std::make_unique<QFile>(directory + u'/' + prefix + number + suffix);
        if (note->open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered))
            return note;
    }
    return nullptr;
}

} // namespace

QStringList SaveNotes::directoriesFor(const QString &path)
{
    const QString music = musicDirectory();
    QStringList directories;
    if (!music.isEmpty() && path.startsWith(music.endsWith(u'/') ? music : music + u'/'))
        directories.append(music);
    return directories << dataDirectory();
}

QStringList SaveNotes::allDirectories()
{
    const QString music = musicDirectory();
    return music.isEmpty() ? QStringList(dataDirectory()) : QStringList{music, dataDirectory()};
}

std::unique_ptr<QFile> SaveNotes::create(const QString &path, const QString &suffix)
{
    for (const QString &directory : directoriesFor(path)) {
        QDir().mkpath(directory);
        if (auto note = createIn(directory, suffix)) {
            Platform::lockFile(*note);
            return note;
        }
    }
    return nullptr;
}

void SaveNotes::remove(QFile &note)
{
    note.resize(0);
    note.remove();
}

void SaveNotes::forEach(const QString &directory, const std::function<bool(QFile &note)> &use)
{
    for (const QString &path : notesIn(directory)) {
        QFile note(path);
        if (note.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) && Platform::lockFile(note)
            && use(note))
            remove(note);
    }
}

SaveNotes::Name SaveNotes::nameOf(const QString &path, const QFile &note)
{
    return {QFileInfo(note).absoluteDir().relativeFilePath(path), path};
}

QString SaveNotes::pathOf(const Name &name, const QFile &note)
{
    const QString near = QDir::cleanPath(QFileInfo(note).absolutePath() + u'/' + name.relative);
    return Platform::isMissing(near) ? name.absolute : near;
}
