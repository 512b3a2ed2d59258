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

template <typename Change> QSet<QString> parts(const QSet<QString> &texts, Change change)
{
    QSet<QString> found;
    for (const QString &text : texts) {
        for (const QStringView part : qTokenize(text, u','))
            found.insert(change(part));
    }
    return found;
}

QStringList tempoBands(const ChoiceSource &)
{
    return FilterTexts::tempoBands();
}

QStringList choreographers(const ChoiceSource &source)
{
    const auto names
        = textsOf(source.songs, [](const Song &song) { return song.getChoreographer(); });
    return sorted(parts(names, [](QStringView name) { return name.toString().simplified(); }));
}

QStringList directories(const ChoiceSource &source)
{
    return source.directories;
}

QStringList eventCategories(const ChoiceSource &source)
{
    const auto texts = textsOf(
        source.songs, [](const Song &song) { return song.getDanceEvents().allCategories(); });
    return sorted(parts(texts, [](QStringView category) { return category.trimmed().toString(); }));
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
