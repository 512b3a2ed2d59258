// A settings file of any bytes: read, saved and read again.

#include "FuzzPlace.h"
#include "SettingsTable.h"
#include "WindowSettings.h"

#include <QSettings>

#include <cstdint>
#include <cstdlib>

using Settings::Key;

namespace {

QString key(Key which)
{
    return QLatin1String(Settings::entry(which).name);
}

void expectUsable(const WindowSettings &settings)
{
    const int height = settings.number(Key::FrameHeight);
    const bool hasLanguage = settings.languageCode() == QStringLiteral("de")
                             || settings.languageCode() == QStringLiteral("en");
    if (height < 20 || height > 80 || !hasLanguage)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString directory = FuzzPlace::directory();
    static const QString path = directory + QStringLiteral("Tarvelo.ini");
    const Settings::Environment environment{1080, QStringLiteral("de_DE"), directory};
    FuzzPlace::write(
        path, QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    {
        QSettings store(path, QSettings::IniFormat);
        // The directory that is named there would be made.
        store.setValue(key(Key::CacheDir), directory);
        const WindowSettings settings = WindowSettings::load(store, environment);
        expectUsable(settings);
        settings.save(store, true, directory);
    }
    QSettings again(path, QSettings::IniFormat);
    const WindowSettings settings = WindowSettings::load(again, environment);
    expectUsable(settings);
    if (!settings.wasStored() || settings.storedVersion().majorVersion() != 8)
        std::abort();
    return 0;
}
