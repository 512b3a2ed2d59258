#include "DefaultOutput.h"

#include <QMediaDevices>

QAudioDevice defaultOutput()
{
    return QMediaDevices::defaultAudioOutput();
}
