#pragma once

#include "SettingsTable.h"

#include <QSettings>
#include <QString>
#include <QVariant>

// The one store of all configuration: "Tarvelo.ini" in the working directory if it exists, else
// the platform's native store. Only the GUI thread writes.
namespace Settings {

// Opened at the first call, never destroyed.
QSettings *instance();
// True when the working directory holds a "Tarvelo.ini".
bool isIniFile();
// Deletes "Tarvelo.ini" if there is one and empties the native store, which is the store in use
// from then on.
void factoryReset();

// The stored value; without one the default that the table gives every reader, else an empty
// variant (a first-run default is not given here, nor that of the frame height, which follows the
// screen: WindowSettings has both).
QVariant value(Key key);
bool contains(Key key);
void setValue(Key key, const QVariant &value);
void remove(Key key);

// The stored directories as they stand: not checked, not made absolute.
QString cacheDir();
QString cuesheetDir();
QString musicDir();
QString playlistDir();
QString posImExDir();
// Resource directory of the chosen theme, such as ":/Dark_Night".
QString styleSheetPath();

} // namespace Settings
