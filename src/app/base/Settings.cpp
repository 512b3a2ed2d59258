#include "Settings.h"

#include <QFile>

namespace Settings {

namespace {

const QString &iniFileName()
{
    static const QString name = QStringLiteral("Tarvelo.ini");
    return name;
}

QSettings *&shared()
{
    static QSettings *store = nullptr;
    return store;
}

QSettings *newNativeStore()
{
    return new QSettings(QStringLiteral("Tarvelo Soft"), QStringLiteral("Tarvelo"));
}

} // namespace

QSettings *instance()
{
    if (!shared())
        shared()
            = isIniFile() ? new QSettings(iniFileName(), QSettings::IniFormat) : newNativeStore();
    return shared();
}

bool isIniFile()
{
    return QFile::exists(iniFileName());
}

void factoryReset()
{
    if (isIniFile())
        QFile::remove(iniFileName());
    // The old object is left as it is: whoever still holds it must not find it deleted.
    shared() = newNativeStore();
    shared()->clear();
    shared()->sync();
}

QVariant value(Key key)
{
    const Entry &row = entry(key);
    if (row.defaultFor == DefaultFor::EveryReader && key != Key::FrameHeight)
        return instance()->value(QLatin1String(row.name), row.defaultValue({}));
    return instance()->value(QLatin1String(row.name));
}

bool contains(Key key)
{
    return instance()->contains(QLatin1String(entry(key).name));
}

void setValue(Key key, const QVariant &value)
{
    instance()->setValue(QLatin1String(entry(key).name), value);
}

void remove(Key key)
{
    instance()->remove(QLatin1String(entry(key).name));
}

QString cacheDir()
{
    return value(Key::CacheDir).toString();
}

QString cuesheetDir()
{
    return value(Key::CuesheetDir).toString();
}

QString musicDir()
{
    return value(Key::MusicDir).toString();
}

QString playlistDir()
{
    return value(Key::PlaylistDir).toString();
}

QString posImExDir()
{
    return value(Key::PosImExDir).toString();
}

QString styleSheetPath()
{
    if (!contains(Key::StyleSheet))
        return QStringLiteral(":/Dark_Night");
    return QStringLiteral(":/")
           + value(Key::StyleSheet).toString().replace(QLatin1Char(' '), QLatin1Char('_'));
}

} // namespace Settings
