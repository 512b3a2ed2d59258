#include "StoredSettings.h"

#include <SettingsTable.h>
#include <Version.h>

using namespace Qt::StringLiterals;
using Settings::Key;

void StoredSettings::write(QSettings &store, const QString &music, const QString &cache)
{
    const auto set = [&store](const Settings::Entry &row, const QVariant &value) {
        store.setValue(QLatin1String(row.name), value);
    };
    for (const Settings::Entry &row : Settings::entries())
        if (row.defaultValue)
            set(row, row.defaultValue({1080, u"de_DE"_s, {}}));
    for (const Key key : {Key::MusicDir, Key::PlaylistDir})
        set(Settings::entry(key), music);
    set(Settings::entry(Key::CacheDir), cache);
    set(Settings::entry(Key::Version), Version::number().toString());
    store.sync();
}
