#include "TableRows.h"

#include <QTableWidget>

void swapTableRows(QTableWidget *table, int rowA, int rowB)
{
    const auto exists = [table](int row) { return row >= 0 && row < table->rowCount(); };
    if (rowA == rowB || !exists(rowA) || !exists(rowB))
        return;
    for (int column = 0; column < table->columnCount(); ++column) {
        QTableWidgetItem *itemA = table->takeItem(rowA, column);
        QTableWidgetItem *itemB = table->takeItem(rowB, column);
        table->setItem(rowA, column, itemB);
        table->setItem(rowB, column, itemA);
    }
}
