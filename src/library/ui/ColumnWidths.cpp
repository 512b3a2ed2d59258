#include "ColumnWidths.h"

#include "SongColumns.h"

#include <QPair>
#include <QStringList>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using ColumnWidths::Content;

constexpr int margin = 10;
constexpr int broadText = 200;
constexpr int noDate = 10;
constexpr qsizetype mostMeasured = 200;

// To measure ten thousand texts takes longer than a window may be busy while music plays.
int widestOf(const Content &content, const QStringList &texts)
{
    QList<QPair<double, QString>> candidates;
    for (const QString &text : texts)
        candidates.append({content.roughLength(text), text});
    if (candidates.size() > mostMeasured) {
        std::nth_element(
            candidates.begin(), candidates.begin() + mostMeasured, candidates.end(),
            [](const auto &one, const auto &other) { return one.first > other.first; });
        candidates.resize(mostMeasured);
    }
    int most = 0;
    for (const auto &candidate : std::as_const(candidates))
        most = std::max(most, content.length(candidate.second));
    return most;
}

QStringList textsOf(const Content &content)
{
    QStringList texts;
    for (int row = 1; row < content.rows; ++row)
        texts.append(content.text(row));
    return texts;
}

int widest(const Content &content)
{
    return widestOf(content, textsOf(content));
}

// A few long titles must not push everything else out of sight.
int widestDamped(const Content &content)
{
    const int most = widest(content);
    return most > broadText ? (most - broadText) / 4 + broadText : most;
}

int widestPart(const Content &content)
{
    return widestOf(content, textsOf(content).join(u',').split(u','));
}

int greatestNumber(const Content &content)
{
    int most = 0;
    for (int row = 1; row < content.rows; ++row)
        most = std::max(most, content.text(row).toInt());
    return content.length(QString::number(most));
}

struct Rule
{
    SongColumn column;
    int (*width)(const Content &content); // without the margin
};

constexpr auto mark = [](const Content &c) { return c.length(u"✓"_s); };

constexpr Rule rules[] = {
    {TitleColumn, widestDamped},
    {SelectedColumn, mark},
    {ArtistColumn, widestDamped},
    {LevelColumn, widest},
    {BpmColumn, [](const Content &c) { return c.length(u"800"_s); }},
    {IndexColumn, [](const Content &c) { return c.length(QString::number(c.rows)); }},
    {YearColumn, [](const Content &c) { return c.length(u"8888"_s); }},
    {LengthColumn, [](const Content &c) { return c.length(u"8:88"_s); }},
    {HasPositionsColumn, mark},
    {HasChoreographyColumn, mark},
    {ChoreographerColumn, widestPart},
    {FileDateColumn, [](const Content &c) { return std::max(widest(c), noDate); }},
    {DirectoryColumn, widest},
    {LastTempoColumn, [](const Content &c) { return c.length(u"+88.8"_s); }},
    {RatingColumn, [](const Content &c) { return c.length(u"★★★★★"_s); }},
    {AdaptedByColumn, widestPart},
    {EventCountColumn, greatestNumber},
    {EventDateColumn, [](const Content &c) { return std::max(widest(c), noDate); }},
    {EventCategoryColumn, widestPart},
    {EventNameColumn, widestPart},
    {TrackNumberColumn, [](const Content &c) { return c.length(u"88"_s); }},
    {PositionTextsColumn, [](const Content &c) { return c.viewWidth / 2 - margin; }},
    {PathColumn, widest},
    {WritableColumn, mark},
    {HasCountDownsColumn, mark},
};

} // namespace

std::optional<int> ColumnWidths::fitted(int column, const Content &content)
{
    const auto *rule = std::find_if(std::begin(rules), std::end(rules),
                                    [&](const Rule &r) { return r.column == column; });
    if (rule == std::end(rules))
        return std::nullopt;
    return rule->width(content) + margin;
}

const QList<int> &ColumnWidths::allInOrder()
{
    static const QList<int> order{2, 4, 12, 11, 31, 14, 19, 20, 7,  15,
                                  9, 3, 13, 26, 10, 16, 1,  0,  30, 8};
    return order;
}
