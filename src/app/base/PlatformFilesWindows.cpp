#include "PlatformFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <windows.h>

#include <io.h>

namespace {

HANDLE handleOf(const QFile &file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
}

std::wstring nativePath(const QString &path)
{
    return QDir::toNativeSeparators(path).toStdWString();
}

std::optional<Platform::FileState> stateOf(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION found{};
    if (!GetFileInformationByHandle(file, &found))
        return std::nullopt;
    const auto joined
        = [](DWORD high, DWORD low) { return static_cast<quint64>(high) << 32 | low; };
    // In steps of 100 ns since the year 1601.
    constexpr qint64 epoch = 116444736000000000;
    const quint64 time
        = joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
    return Platform::FileState{found.dwVolumeSerialNumber,
                               joined(found.nFileIndexHigh, found.nFileIndexLow),
                               static_cast<qint64>(joined(found.nFileSizeHigh, found.nFileSizeLow)),
                               (static_cast<qint64>(time) - epoch) * 100, found.nNumberOfLinks};
}

} // namespace

std::optional<Platform::FileState> Platform::fileState(const QString &path)
{
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(nativePath(path).c_str(), FILE_READ_ATTRIBUTES, shared, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const auto state = stateOf(file);
    CloseHandle(file);
    return state;
}

std::optional<Platform::FileState> Platform::fileState(const QFile &open)
{
    return stateOf(handleOf(open));
}

bool Platform::isMissing(const QString &path)
{
    if (GetFileAttributesW(nativePath(path).c_str()) != INVALID_FILE_ATTRIBUTES)
        return false;
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

QString Platform::canonicalPath(const QString &path)
{
    return QFileInfo(path).canonicalFilePath();
}

bool Platform::touchFile(QFile &open)
{
    return open.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
}

bool Platform::setFileTime(QFile &open, const QDateTime &modified)
{
    return open.setFileTime(modified, QFileDevice::FileModificationTime);
}

void Platform::closeApart(std::unique_ptr<QFile> open)
{
    open.reset();
}

bool Platform::syncFile(const QFile &open)
{
    return FlushFileBuffers(handleOf(open)) != 0;
}

// The file system's own log keeps the entries.
bool Platform::syncDirectory(const QString &)
{
    return true;
}

// ReplaceFile takes them over by itself.
bool Platform::takeOverAttributes(const QFile &, const QFile &)
{
    return true;
}

Platform::Exchange Platform::exchangeFiles(const QString &newer, const QString &older)
{
    const BOOL done = ReplaceFileW(nativePath(older).c_str(), nativePath(newer).c_str(), nullptr, 0,
                                   nullptr, nullptr);
    return done ? Exchange::Replaced : Exchange::Failed;
}

bool Platform::canExchangeOpenFiles()
{
    return false;
}

bool Platform::renameOver(const QString &from, const QString &to)
{
    return MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), MOVEFILE_REPLACE_EXISTING)
           != 0;
}

Platform::Renaming Platform::renameNew(const QString &from, const QString &to)
{
    if (MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), 0))
        return Renaming::Done;
    return GetLastError() == ERROR_NOT_SAME_DEVICE ? Renaming::OtherFileSystem : Renaming::Failed;
}

bool Platform::lockFile(const QFile &open)
{
    OVERLAPPED place{};
    // Far behind the end, so that nobody is kept from reading.
    place.OffsetHigh = MAXLONG;
    return LockFileEx(handleOf(open), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                      &place)
           != 0;
}
