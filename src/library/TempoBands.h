#pragma once

#include <QString>

#include <array>
#include <span>

// The highest beats a minute of the four slower bands; whatever is beyond the last is very fast.
using TempoBorders = std::array<int, 4>;

struct TempoBand
{
    const char *source; // to be translated in the context "FilterTexts"
    bool (*contains)(int bpm, const TempoBorders &borders);

    QString text() const;
};

// From very slow to very fast.
std::span<const TempoBand> tempoBands();
// Null for a text that is no band in the language of now.
const TempoBand *tempoBand(const QString &text);
