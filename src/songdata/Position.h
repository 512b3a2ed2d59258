#pragma once

#include <QString>

// One part of a dance: the moment it starts, its name and its steps. A plain value.
class Position
{
public:
    Position() = default;
    Position(int time, const QString &part, const QString &steps);

    // Milliseconds from the beginning of the song; negative values can occur.
    int getTime() const { return time; }
    // Name of the part; may be empty.
    const QString &getPart() const { return part; }
    // Step text; may be empty and may hold several lines.
    const QString &getSteps() const { return steps; }

    void setTime(int ms);
    void addTime(int ms);
    void setPart(const QString &text);
    void setSteps(const QString &text);

    friend bool operator==(const Position &a, const Position &b) = default;
    // By time, then part, then steps; texts are compared case-sensitively.
    friend bool operator<(const Position &a, const Position &b);

private:
    int time = 0;
    QString part;
    QString steps;
};
