#pragma once

#include <QString>

// A copy of text with character behind it.
inline QString appendChar(QString text, QChar character)
{
    return text.append(character);
}
