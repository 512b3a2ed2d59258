#include "DefaultOutput.h"

#include <QMediaDevices>

QAudioDevice defaultOutput(const QAudioDevice &)
{
    return QMediaDevices::defaultAudioOutput();
}
