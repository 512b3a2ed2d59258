#pragma once

#include "SettingsTable.h"

#include <QString>

#include <optional>
#include <span>

// What the settings screen is made of: one table, from top to bottom and from left to right. Names,
// labels, ranges, keys and information texts stand there alone; who builds, translates or reads the
// screen goes through it.

enum class SettingsTab { Common, Adaptions, Cloud, SystemInfo, Log };

enum class SettingsKind {
    Tab,  // what follows stands on this tab
    Row,  // what follows stands in this row
    Word, // between two widgets
    CheckBox,
    SpinBox, // with a button for less before it and one for more behind it
    ComboBox,
    LineEdit,
    PasswordEdit,
    DirectoryField, // shows a directory that a button chooses
    TextEdit,
    RadioButton,
    Sample, // shows a font
    Button,
    InfoButton, // ends its row
};

// What needs more than the page itself.
enum class SettingsButton {
    None,
    SearchForUpdates,
    TestUpdate,
    SetEvent,
    MusicDir,
    PlaylistDir,
    CacheDir,
    ClearLog,
    NewCloudAccount,
};

struct SettingsItem
{
    SettingsKind kind;
    const char *name = nullptr; // of the object
    // In German: of a label, a button, a check box; the placeholder of a field.
    const char *text = nullptr;
    // In German: what the button tells, with %1 and %2 for the arguments.
    const char *info = nullptr;
    std::optional<Settings::Key> key = std::nullopt;
    int minimum = 0;
    int maximum = 0; // of the number; of a field the most characters
    int step = 1;
    const char *suffix = nullptr;
    int value = 0;           // what this radio button stands for
    bool inverted = false;   // the key says the opposite
    bool wide = false;       // the row takes the whole width, below its label
    bool needsCloud = false; // can be used while the cloud is on
    SettingsButton button = SettingsButton::None;
    int arguments[2] = {0, 0};
};

std::span<const SettingsItem> settingsItems();

// What a combo box offers for a key.
struct SettingsChoice
{
    Settings::Key key;
    const char *text;
    // What is stored; null: the place among the choices is stored, and the text has translations.
    const char *value = nullptr;
    const char *picture = nullptr; // in the directory of the languages
};

std::span<const SettingsChoice> settingsChoices();

// A text of these tables in the language on show.
QString settingsText(const char *text);
