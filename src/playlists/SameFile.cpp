#include "SameFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A file that isn't there has no canonical path, but its directory may have one.
QString placeOf(const QString &path)
{
    const QFileInfo file(path);
    const QString place = file.canonicalFilePath();
    if (!place.isEmpty())
        return place;
    const QString directory = QFileInfo(file.absolutePath()).canonicalFilePath();
    return QDir::cleanPath((directory.isEmpty() ? file.absolutePath() : directory) + u'/'
                           + file.fileName());
}

} // namespace

bool isSameFile(const QString &one, const QString &other)
{
    return one == other || placeOf(one) == placeOf(other);
}
