#pragma once

#include <QString>

#include <functional>

// Copies everything below from to the directory to, which is made when it's missing; fileCopied is
// called after each file. Stops at the first file that can't be copied, such as one that is there
// already, and answers with a message in rich text; empty: all was copied. A link to a directory
// is copied as that directory, but not one that leads back to where it lies.
QString copyDirectory(const QString &from, const QString &to,
                      const std::function<void()> &fileCopied = {});

// How many files copyDirectory would copy; -1 when dir, or one of its directories, doesn't exist.
int countFiles(const QString &dir);
