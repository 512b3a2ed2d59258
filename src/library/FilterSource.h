#pragma once

#include "TempoBands.h"

#include <QString>

// What the filters of a song table need of the window around it, asked for at each evaluation.
class FilterSource
{
public:
    virtual ~FilterSource() = default;

    // Of the search over all columns; empty for none.
    virtual QString searchText() const = 0;
    virtual TempoBorders tempoBorders() const = 0;
    // While the settings are still being applied every song is shown.
    virtual bool isStartingUp() const = 0;
};
