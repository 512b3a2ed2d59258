#pragma once

#include <QSettings>

// The settings of a program that has run before.
namespace StoredSettings {

// The defaults of a first run, and these directories of absolute paths.
void write(QSettings &store, const QString &music, const QString &cache);

} // namespace StoredSettings
