#include "FilterChoices.h"

#include "FilterTexts.h"
#include "Level.h"
#include "SongColumns.h"

#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

constexpr int firstDecade = 1960;
constexpr int yearsOfDecade = 10;
constexpr int singleYears = 5;

// Texts that differ in their case alone have an order as well: always the same one.
bool isBefore(const QString &a, const QString &b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order == 0 ? a < b : order < 0;
}

// An empty text is no choice: the first entry of each box stands for it.
QStringList sorted(QSet<QString> texts)
{
    texts.remove(QString());
    QStringList list(texts.cbegin(), texts.cend());
    std::sort(list.begin(), list.end(), isBefore);
    return list;
}

template <typename Text> QSet<QString> textsOf(const QList<SongPtr> &songs, Text text)
{
    QSet<QString> texts;
    for (const SongPtr &song : songs)
        texts.insert(text(*song));
    return texts;
}

QStringList tempoBands(const ChoiceSource &)
{
    return FilterTexts::tempoBands();
}

QStringList choreographers(const ChoiceSource &source)
{
    const auto names
        = textsOf(source.songs, [](const Song &song) { return song.getChoreographer(); });
    QSet<QString> single;
    for (const QString &several : names) {
        for (const QStringView name : qTokenize(several, u','))
            single.insert(name.toString().simplified());
    }
    return sorted(single);
}

QStringList directories(const ChoiceSource &source)
{
    return source.directories;
}

bool areKnown(const DanceEventList &events, const QSet<QString> &categories)
{
    return std::all_of(events.begin(), events.end(), [&](const auto &event) {
        return categories.contains(event->getCategory());
    });
}

// As the column shows them, which a filter is compared with. Songs of which it is clear beforehand
// that they have nothing new to tell are most of them, and the others take long.
QStringList eventCategories(const ChoiceSource &source)
{
    QSet<QString> categories{QString()};
    for (const SongPtr &song : source.songs) {
        const DanceEventList &events = song->getDanceEvents();
        if (areKnown(events, categories))
            continue;
        const QString all = events.allCategories();
        for (const QStringView category : qTokenize(all, u','))
            categories.insert(category.trimmed().toString());
    }
    return sorted(categories);
}

QStringList datePresets(const ChoiceSource &)
{
    return FilterTexts::datePresets();
}

QStringList genres(const ChoiceSource &source)
{
    return sorted(textsOf(source.songs, [](const Song &song) { return song.getGenre(); }));
}

QStringList levels(const ChoiceSource &source)
{
    return sorted(textsOf(source.songs, [&](const Song &song) {
        return displayedLevel(song.getLevel(), source.highIntermediate);
    }));
}

QStringList ratings(const ChoiceSource &)
{
    return FilterTexts::ratings();
}

QStringList years(const ChoiceSource &source)
{
    QStringList list{FilterTexts::yearRange(0, firstDecade)};
    const auto last = [](int first) { return first + yearsOfDecade - 1; };
    for (int first = firstDecade; last(first) < source.currentYear + yearsOfDecade;
         first += yearsOfDecade)
        list.append(FilterTexts::yearRange(first, last(first)));
    for (int year = source.currentYear - singleYears + 1; year <= source.currentYear; ++year)
        list.append(QString::number(year));
    return list;
}

struct BoxRow
{
    SongColumn column;
    QStringList (*choices)(const ChoiceSource &source);
    bool hasEntries; // "no entry" and "any entry" at the end
};

constexpr BoxRow rows[] = {
    {LevelColumn, levels, true},
    {BpmColumn, tempoBands, true},
    {GenreColumn, genres, true},
    {YearColumn, years, true},
    {ChoreographerColumn, choreographers, true},
    {FileDateColumn, datePresets, true},
    {DirectoryColumn, directories, false},
    {RatingColumn, ratings, true},
    {EventDateColumn, datePresets, true},
    {EventCategoryColumn, eventCategories, true},
};

} // namespace

QStringList filterChoices(int column, const ChoiceSource &source)
{
    const auto *row = std::find_if(std::begin(rows), std::end(rows),
                                   [=](const BoxRow &box) { return box.column == column; });
    if (row == std::end(rows))
        return {};
    QStringList choices = QStringList{QString()} + row->choices(source);
    return row->hasEntries ? choices + FilterTexts::choices() : choices;
}
