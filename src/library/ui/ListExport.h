#pragma once

#include <QList>
#include <QString>

class QAbstractItemModel;

// A table as text that a spreadsheet takes from the clipboard.
namespace ListExport {

// The headings of these columns, then these rows: each value in double quotes with its own ones
// doubled and without its line breaks, tabs between the values, a line feed behind each row.
QString text(const QAbstractItemModel &table, const QList<int> &columns, const QList<int> &rows);

// Puts the text on the clipboard and tells the user.
void copy(const QString &text);

} // namespace ListExport
