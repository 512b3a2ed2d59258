#pragma once

#include <QString>

// The text by which a level sorts: known levels in the order of their difficulty, before all
// others. The case of the names doesn't count.
QString levelKey(const QString &level);
