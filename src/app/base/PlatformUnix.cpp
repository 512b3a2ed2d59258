#include "Platform.h"

#include "FreeDesktopTrash.h"

#include <QtGlobal>

#include <unistd.h>

#include <filesystem>

void Platform::detachConsole() { }

bool Platform::moveToRecycleBin(const QString &file)
{
    return FreeDesktopTrash::take(file);
}

// Giving back, only the owner's bit is certain: whether group or others could write before is
// not known any more.
bool Platform::setFileWritable(const QString &file, bool writable)
{
    using std::filesystem::perm_options;
    using std::filesystem::perms;
    std::error_code error;
    const std::filesystem::path path(file.toStdU16String());
    if (writable)
        std::filesystem::permissions(path, perms::owner_write, perm_options::add, error);
    else
        std::filesystem::permissions(path,
                                     perms::owner_write | perms::group_write | perms::others_write,
                                     perm_options::remove, error);
    return !error;
}

int Platform::totalMemoryMB()
{
    const qint64 pages = ::sysconf(_SC_PHYS_PAGES);
    const qint64 pageSize = ::sysconf(_SC_PAGE_SIZE);
    if (pages <= 0 || pageSize <= 0)
        return 0;
    return static_cast<int>(pages * pageSize / (1024 * 1024));
}

// A Wayland program may neither place its windows nor fade them; under the X server it may.
void Platform::prepareDesktop()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}
