#include "SongSortKeys.h"

#include "LevelKey.h"
#include "SongListTableModel.h"

#include <QDateTime>
#include <QLocale>

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
    if (preparedColumn == column)
        return;
    clear();
    preparedColumn = column;
    const int type = SongListTableModel::columnType(column);
    const auto rows = static_cast<std::size_t>(model.rowCount());
    if (!isText(type)) {
        numbers.assign(rows, beforeAll);
        for (std::size_t row = 1; row < rows; ++row)
            numbers[row] = number(model, model.index(static_cast<int>(row), column), type);
        return;
    }
    const QCollator collator{QLocale()};
    texts.reserve(rows);
    for (std::size_t row = 0; row < rows; ++row) {
        const QString text = model.index(static_cast<int>(row), column).data().toString();
        texts.push_back(collator.sortKey(column == LevelColumn ? levelKey(text) : text));
    }
}

void SongSortKeys::clear()
{
    preparedColumn = -1;
    numbers.clear();
    texts.clear();
}

bool SongSortKeys::isLess(int row, int other) const
{
    const auto left = static_cast<std::size_t>(row);
    const auto right = static_cast<std::size_t>(other);
    return texts.empty() ? numbers[left] < numbers[right] : texts[left] < texts[right];
}
