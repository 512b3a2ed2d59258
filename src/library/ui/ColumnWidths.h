#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>

// How broad a column of a song table has to be for what it shows. Plain rules, no widgets.
namespace ColumnWidths {

// What a rule looks at. Rows as the table has them: 0 is the filter row.
struct Content
{
    int rows = 0;
    std::function<QString(int row)> text;           // as shown
    std::function<int(const QString &text)> length; // pixels in the table's font
    // About the same, but faster: where there are many texts, it chooses those worth measuring.
    std::function<double(const QString &text)> roughLength;
    int viewWidth = 0; // pixels
};

// Pixels; nothing for a column that keeps the width it has.
std::optional<int> fitted(int column, const Content &content);

// The columns that are fitted when all are, in this order.
const QList<int> &allInOrder();

} // namespace ColumnWidths
