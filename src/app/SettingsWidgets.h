#pragma once

#include "SettingsItems.h"

#include <QVariant>

class QWidget;

// The widgets that show a value of the settings screen, each made as its item says. Only what is
// typed into takes the focus by the mouse; Tab reaches all of them.

// For everything but tabs, rows and information buttons; without texts. The parent owns it.
QWidget *makeSettingsWidget(const SettingsItem &item, QWidget *parent);
// Sets the texts of the language on show.
void retranslateSettingsWidget(const SettingsItem &item, QWidget *widget);

// What the widget shows, in the form in which it is stored. Nothing for a radio button, which is
// one of several, and for what has no value.
QVariant shownSettingsValue(const SettingsItem &item, const QWidget *widget);
void showSettingsValue(const SettingsItem &item, QWidget *widget, const QVariant &value);
