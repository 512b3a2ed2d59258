#include "LibraryVersions.h"

#include <SoundTouch.h>
#include <taglib.h>

QString stretcherVersion()
{
    return QString::fromLatin1(soundtouch::SoundTouch::getVersionString());
}

QString tagLibraryVersion()
{
    return QStringLiteral("%1.%2.%3")
        .arg(TAGLIB_MAJOR_VERSION)
        .arg(TAGLIB_MINOR_VERSION)
        .arg(TAGLIB_PATCH_VERSION);
}
