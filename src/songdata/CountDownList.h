#pragma once

#include "CountDownItem.h"

#include <memory>
#include <vector>

// The countdowns of a song, in the order in which they were made. Owns its items: whoever holds
// one has to let go of it before it is removed or the list is read anew.
class CountDownList
{
public:
    // Texts read from a file give no more items than this.
    static constexpr int mostRead = 64000;
    // What earliestStart() answers when there is nothing to start.
    static constexpr int noStart = 999999999;

    int count() const { return static_cast<int>(items.size()); }
    // No bounds check: index is 0 to count() - 1.
    CountDownItem *at(int index) const { return items[static_cast<std::size_t>(index)].get(); }
    // A new item at the end, whose ignition isn't set yet. The list keeps it.
    CountDownItem *addNew();
    void removeAt(int index);
    void clear();

    // Hands the bpm, 0 for unknown, to every item.
    void reset(int bpm);
    // The smallest start time, in milliseconds, of all items that are enabled and have an
    // ignition; noStart when there is none before that.
    int earliestStart() const;
    // The first item that is active at this time; null where there is none.
    const CountDownItem *activeAt(qint64 nowMs) const;

    // The text of frame and cache: toJson() as compact JSON; empty for an empty list. A text that
    // is no JSON leaves the list as it is.
    QString toText() const;
    void fromText(const QString &text);

    // Key "countdowns" with an array of items. Reading replaces all items, and leaves none when
    // hasCountdowns() is false.
    static bool hasCountdowns(const QJsonObject &object);
    void fromJson(const QJsonObject &object);
    void toJson(QJsonObject &object) const;

private:
    std::vector<std::unique_ptr<CountDownItem>> items;
};
