#pragma once

#include <QString>

// True when both paths lead to one file, through links too; it need not be there. Two names of a
// hard link are two files: a save parts them.
bool isSameFile(const QString &one, const QString &other);
