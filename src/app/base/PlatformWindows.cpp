#include "Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <windows.h>

#include <shellapi.h>

void Platform::detachConsole()
{
    FreeConsole();
}

bool Platform::moveToRecycleBin(const QString &file)
{
    // The shell takes a list of names, closed by an empty one, none longer than this.
    constexpr qsizetype longestPath = 259;
    const QString path = QDir::toNativeSeparators(QFileInfo(file).absoluteFilePath());
    if (path.size() > longestPath)
        return false;
    const std::wstring names = path.toStdWString() + L'\0';

    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    return SHFileOperationW(&operation) == 0;
}

bool Platform::setFileWritable(const QString &file, bool writable)
{
    QFile::Permissions permissions = QFile::ReadOther;
    if (writable)
        permissions |= QFile::WriteOther;
    return QFile::setPermissions(file, permissions);
}

int Platform::totalMemoryMB()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    if (!GlobalMemoryStatusEx(&status))
        return 0;
    return static_cast<int>(status.ullTotalPhys / (1024 * 1024));
}

void Platform::prepareDesktop() { }
