#include "ListExport.h"

#include "MessageBoxes.h"

#include <QAbstractItemModel>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QStringList>

namespace {

QString quoted(QString value)
{
    value.remove(u'\r').remove(u'\n').replace(u'"', QLatin1String("\"\""));
    return u'"' + value + u'"';
}

} // namespace

QString ListExport::text(const QAbstractItemModel &table, const QList<int> &columns,
                         const QList<int> &rows)
{
    QStringList headings;
    for (const int column : columns)
        headings.append(quoted(table.headerData(column, Qt::Horizontal).toString()));
    QString text = headings.join(u'\t') + u'\n';
    for (const int row : rows) {
        QStringList values;
        for (const int column : columns)
            values.append(quoted(table.index(row, column).data().toString()));
        text += values.join(u'\t') + u'\n';
    }
    return text;
}

void ListExport::copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    showInfo(QCoreApplication::translate(
        "ListExport",
        "Die Liste wurde in die Windows Zwischenablage kopiert.<br>Du kannst sie in einem "
        "Programm Deiner Wahl einfügen, z.B. mit Strg-V oder über die rechte Maustaste -> "
        "Einfügen."));
}
