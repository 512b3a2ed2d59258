#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

// What the whole program knows of the theme on show: where its pictures lie and how large the
// picture of a message box is.

// iconSize in pixels, at 100 %; themePath is a resource directory, such as ":/Dark_Night". Until
// the first call the dark theme is taken.
void setThemeContext(const QSize &iconSize, const QString &themePath);
QSize themeIconSize();
const QString &themePath();

// The theme's picture called name, such as "Help". Empty, and nobody is told, when there is none.
QPixmap themePicture(const QString &name);
// The same as an icon, which also knows the picture of a disabled control where the theme has one.
QIcon themeIcon(const QString &name);
