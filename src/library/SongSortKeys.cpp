#include "SongSortKeys.h"

#include "LevelKey.h"
#include "SongListTableModel.h"

#include <QCollator>
#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace {

constexpr double beforeAll = -std::numeric_limits<double>::infinity();

bool isText(int type)
{
    return type == QMetaType::QString || type == QMetaType::Bool;
}

double dateNumber(const QVariant &value)
{
    const QDateTime date = value.toDateTime();
    return date.isValid() ? static_cast<double>(date.toMSecsSinceEpoch()) : beforeAll;
}

double number(const SongListTableModel &model, const QModelIndex &index, int type)
{
    // The text of a length turns around at an hour.
    if (type == QMetaType::QTime)
        return model.song(index.row())->getPlayLength();
    if (type == QMetaType::Double)
        return QLocale().toDouble(index.data().toString());
    return type == QMetaType::QDateTime ? dateNumber(index.data()) : index.data().toInt();
}

} // namespace

void SongSortKeys::prepare(const SongListTableModel &model, int column)
{
    clear();
    preparedColumn = column;
    const int type = SongListTableModel::columnType(column);
    const auto rows = static_cast<std::size_t>(model.rowCount());
    numbers.assign(rows, beforeAll);
    if (isText(type))
        return prepareTexts(model, column);
    for (std::size_t row = 1; row < rows; ++row)
        numbers[row] = number(model, model.index(static_cast<int>(row), column), type);
}

void SongSortKeys::prepareTexts(const SongListTableModel &model, int column)
{
    struct Entry
    {
        QCollatorSortKey key;
        std::size_t row;
    };
    const QCollator collator{QLocale()};
    std::vector<Entry> entries;
    entries.reserve(numbers.size());
    for (std::size_t row = 1; row < numbers.size(); ++row) {
        const QString text = model.index(static_cast<int>(row), column).data().toString();
        entries.push_back({collator.sortKey(column == LevelColumn ? levelKey(text) : text), row});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry &a, const Entry &b) { return a.key < b.key; });
    double place = 0;
    for (std::size_t number = 0; number < entries.size(); ++number) {
        if (number > 0 && entries[number - 1].key < entries[number].key)
            ++place;
        numbers[entries[number].row] = place;
    }
}

void SongSortKeys::clear()
{
    preparedColumn = -1;
    numbers.clear();
}

bool SongSortKeys::isLess(int row, int other) const
{
    return numbers[static_cast<std::size_t>(row)] < numbers[static_cast<std::size_t>(other)];
}
