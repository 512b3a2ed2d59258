#pragma once

#include <QString>

// The text shown for a level. The one stored form "Intermediate-Advanced", whatever its case, is
// shown as highIntermediate, unless that is empty.
QString displayedLevel(const QString &level, const QString &highIntermediate);
