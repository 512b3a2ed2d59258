#pragma once

#include <QString>

// When the compiler ran, in its own form: "Dec  6 2024 12:34:56".
QString buildTime();
