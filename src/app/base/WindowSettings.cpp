#include "WindowSettings.h"

#include "Version.h"

#include <QDir>
#include <QSettings>
#include <QtDebug>

#include <algorithm>

using Settings::Key;

namespace {

// Keys that are written at the moment they change and not again at the end.
bool isWrittenAtOnce(Key key)
{
    return key == Key::PositionAlignment;
}

bool isDirectory(Key key)
{
    return key == Key::CacheDir || key == Key::CuesheetDir || key == Key::MusicDir
           || key == Key::PlaylistDir || key == Key::PosImExDir;
}

bool isCheckState(Key key)
{
    return key == Key::ShowMoreLyricsInfo || key == Key::CloudOn || key == Key::CloudUserData;
}

// The main window's keys are the head of the table.
std::span<const Settings::Entry> windowEntries()
{
    return Settings::entries().first(static_cast<std::size_t>(Key::PresetChangePosition) + 1);
}

QVariant readValue(const QSettings &store, const Settings::Entry &row, bool firstRun,
                   const Settings::Environment &environment)
{
    const bool useDefault = row.defaultFor == Settings::DefaultFor::EveryReader
                            || (firstRun && row.defaultFor == Settings::DefaultFor::FirstRun);
    const QVariant fallback = useDefault ? row.defaultValue(environment) : QVariant();
    return store.value(QLatin1String(row.name), fallback);
}

QVariant storedForm(Key key, const QVariant &value, bool iniFile, const QString &applicationDir)
{
    if (isCheckState(key))
        return value.toBool() ? Qt::Checked : Qt::Unchecked;
    // An empty directory means "none" and must not become the program's own.
    if (iniFile && isDirectory(key) && !value.toString().isEmpty())
        return QDir(applicationDir).relativeFilePath(value.toString());
    return value;
}

void makeMissingDirectory(const QString &path)
{
    if (!path.isEmpty() && !QDir(path).exists())
        QDir().mkdir(path);
}

} // namespace

WindowSettings WindowSettings::load(QSettings &store, const Settings::Environment &environment)
{
    WindowSettings settings;
    settings.stored = store.contains(QLatin1String(Settings::entry(Key::Version).name));
    for (const Settings::Entry &row : windowEntries())
        settings.values.insert(row.key, readValue(store, row, !settings.stored, environment));
    if (settings.stored)
        settings.applyVersionRules();
    else
        store.setValue(QLatin1String(Settings::entry(Key::CacheDir).name),
                       settings.text(Key::CacheDir));
    settings.set(Key::FrameHeight, std::clamp(settings.number(Key::FrameHeight), 20, 80));
    makeMissingDirectory(settings.text(Key::CacheDir));
    return settings;
}

void WindowSettings::set(Key key, const QVariant &value)
{
    values.insert(key, value);
    changed.insert(key);
}

void WindowSettings::applyVersionRules()
{
    version = QVersionNumber::fromString(text(Key::Version)).normalized();
    if (version <= QVersionNumber(1, 5, 4))
        set(Key::ShowPartColumn, true);
    if (version < QVersionNumber(1, 6))
        set(Key::EventRounding, 3600);
}

void WindowSettings::save(QSettings &store, bool iniFile, const QString &applicationDir) const
{
    qDebug("Save Settings");
    for (const Settings::Entry &row : windowEntries()) {
        const QLatin1String name(row.name);
        // Others may have written the key in the meantime.
        const bool ours = changed.contains(row.key) || !store.contains(name);
        const QVariant value = row.key == Key::Version ? Version::number().toString()
                               : ours                  ? values.value(row.key)
                                                       : store.value(name);
        // A key that nobody has set stays away from the store, as it was.
        if (isWrittenAtOnce(row.key) || !value.isValid())
            continue;
        store.setValue(name, storedForm(row.key, value, iniFile, applicationDir));
    }
    store.sync();
}

QString WindowSettings::languageCode() const
{
    const QString name = text(Key::Language);
    const bool german
        = stored ? name == QLatin1String("de_DE") : name.left(2) == QLatin1String("de");
    return german ? QStringLiteral("de") : QStringLiteral("en");
}
