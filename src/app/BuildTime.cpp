// Alone, as a source with the time in it is compiled anew at each build.

#include "BuildTime.h"

QString buildTime()
{
    return QStringLiteral(__DATE__ " " __TIME__);
}
