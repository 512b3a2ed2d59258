#pragma once

#include "SettingsTable.h"

#include <QHash>
#include <QSet>
#include <QVersionNumber>

class QSettings;

// The configuration that the main window reads at its start and writes at its end, with the rules
// for a first run and for stores of older versions. A value between the store and the widgets:
// what nobody has set() stays in the store as it is then.
class WindowSettings
{
public:
    // Reads every key that the main window keeps. On a first run (no version key) the defaults
    // come into force and the cache directory is written to the store at once.
    static WindowSettings load(QSettings &store, const Settings::Environment &environment);

    // Writes the keys in the order of the table, the version first, and syncs. With iniFile the
    // directories are made relative to applicationDir, so that they move with it.
    void save(QSettings &store, bool iniFile, const QString &applicationDir) const;

    // Whether the store had a version key: false on the first run.
    bool wasStored() const { return stored; }
    // Version that wrote the store; null on the first run or if it can't be read.
    const QVersionNumber &storedVersion() const { return version; }
    // "de" or "en".
    QString languageCode() const;

    QVariant value(Settings::Key key) const { return values.value(key); }
    int number(Settings::Key key) const { return values.value(key).toInt(); }
    bool flag(Settings::Key key) const { return values.value(key).toBool(); }
    QString text(Settings::Key key) const { return values.value(key).toString(); }
    QByteArray bytes(Settings::Key key) const { return values.value(key).toByteArray(); }
    void set(Settings::Key key, const QVariant &value);

private:
    void applyVersionRules();

    bool stored = false;
    QVersionNumber version;
    QHash<Settings::Key, QVariant> values;
    QSet<Settings::Key> changed; // since load()
};
