#pragma once

#include <QString>

// The recycle bin of Unix desktops: the user's own trash, or on another file system that
// system's trash, from which file managers put a file back where it was.
namespace FreeDesktopTrash {

// Moves the file there. False when no trash can take it; the file is then where it was.
bool take(const QString &file);

} // namespace FreeDesktopTrash
