#pragma once

class QTableWidget;

// Exchanges the items of two rows. Widgets in cells, row headers and heights stay where they are;
// a row that isn't there changes nothing.
void swapTableRows(QTableWidget *table, int rowA, int rowB);
