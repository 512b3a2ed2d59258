#pragma once

#include <QString>

// What differs from platform to platform: one source file a platform implements all of this.
namespace Platform {

// Leaves the console from which the program was started, where that would stay open beside it.
void detachConsole();

// Moves a file to where the user can get it back, without a dialog. False when it could not be
// moved there; the file is then where it was.
bool moveToRecycleBin(const QString &file);

// Takes away or gives back the write permission of a file; reading stays as it is. False when
// the permissions could not be changed.
bool setFileWritable(const QString &file, bool writable);

// The physical memory of this machine in megabytes (1024 * 1024 bytes); 0 when it can't be told.
int totalMemoryMB();

// Makes the program fit its desktop before the application object exists.
void prepareDesktop();

} // namespace Platform
