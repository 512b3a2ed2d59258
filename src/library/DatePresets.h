#pragma once

#include <QDate>
#include <QString>

#include <span>

// From and to, both included; not valid while one of them is missing.
struct DateSpan
{
    QDate from;
    QDate to;

    bool isValid() const { return from.isValid() && to.isValid(); }
    bool contains(QDate date) const { return isValid() && date >= from && date <= to; }

    friend bool operator==(const DateSpan &, const DateSpan &) = default;
};

// What a preset is measured against.
struct DateTerms
{
    QDate today;
    DateSpan span; // for the first preset alone
};

struct DatePreset
{
    const char *source; // to be translated in the context "FilterTexts"
    bool (*matches)(QDate date, const DateTerms &terms);

    QString text() const;
};

// In the order in which they are offered; the first one asks for a span of dates.
std::span<const DatePreset> datePresets();
// Null for a text that is no preset in the language of now.
const DatePreset *datePreset(const QString &text);
