#pragma once

#include <QStringList>

class QWidget;

// Copies all these files into a directory that is asked for, with a progress display before the
// window, and tells how many. A file of the same name that is there is replaced, but never by a
// copy that could not be made whole; one that is the song itself stays. Missing files are left out.
// After a copy that failed the user is asked whether to go on.
void copyListFiles(QWidget *window, const QStringList &files);
