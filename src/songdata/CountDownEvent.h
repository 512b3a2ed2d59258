#pragma once

#include <QMetaType>
#include <QString>

// What the engine tells the display of countdowns: the number to show. A plain value.
struct CountDownEvent
{
    int count = 0;
    // The countdown's own comment.
    QString comment;
    // 1 simple, 2 window, 3 cool; 0 when there is nothing to show.
    int type = 0;

    bool isOn() const { return type != 0; }
    friend bool operator==(const CountDownEvent &a, const CountDownEvent &b) = default;
};

Q_DECLARE_METATYPE(CountDownEvent)
