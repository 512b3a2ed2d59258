#include "SongTableColumns.h"

#include "ColumnWidths.h"
#include "FrozenTableView.h"

#include <QFontMetrics>
#include <QHash>
#include <QHeaderView>
#include <QMenu>
#include <QStyledItemDelegate>

#include <memory>

namespace {

// Letter by letter: what two letters do to each other is left out.
class RoughRuler
{
public:
    explicit RoughRuler(const QFont &font)
        : metrics(font)
    { }

    double length(const QString &text)
    {
        double sum = 0;
        for (const QChar letter : text) {
            auto known = widths.constFind(letter);
            if (known == widths.constEnd())
                known = widths.insert(letter, metrics.horizontalAdvance(letter));
            sum += *known;
        }
        return sum;
    }

private:
    QFontMetricsF metrics;
    QHash<QChar, double> widths;
};

QString textOf(const FrozenTableView &view, int row, int column)
{
    const QVariant value = view.model()->index(row, column).data();
    if (value.userType() == QMetaType::QString)
        return value.toString();
    const auto *delegate = qobject_cast<const QStyledItemDelegate *>(view.itemDelegate());
    return delegate->displayText(value, QLocale());
}

ColumnWidths::Content contentOf(const FrozenTableView &view, int column)
{
    const QFontMetrics metrics(view.font());
    const auto ruler = std::make_shared<RoughRuler>(view.font());
    return {.rows = view.model()->rowCount(),
            .text = [&view, column](int row) { return textOf(view, row, column); },
            .length = [metrics](const QString &text) { return metrics.horizontalAdvance(text); },
            .roughLength = [ruler](const QString &text) { return ruler->length(text); },
            .viewWidth = view.width()};
}

} // namespace

SongTableColumns::SongTableColumns(FrozenTableView *table, HiddenAtFirst hiddenMark,
                                   QObject *parent)
    : QObject(parent)
    , view(table)
    , hiddenBit(hiddenMark)
{
    QHeaderView *header = view->horizontalHeader();
    // The table's own way to fit a column knows nothing of these widths.
    disconnect(header, &QHeaderView::sectionHandleDoubleClicked, view, nullptr);
    connect(header, &QHeaderView::sectionHandleDoubleClicked, this,
            [this](int column) { fit({column}); });
}

void SongTableColumns::hideAtFirst()
{
    for (const SongColumnRow &column : songColumns())
        view->setColumnHidden(column.column, (column.hidden & hiddenBit) != 0);
}

void SongTableColumns::spreadAtFirst()
{
    if (placed)
        return;
    const int letter = view->fontMetrics().averageCharWidth();
    for (const SongColumnRow &column : songColumns()) {
        if (!view->isColumnHidden(column.column))
            view->setColumnWidth(column.column, column.letters * letter);
    }
    placed = true;
}

void SongTableColumns::fit(const QList<int> &columns)
{
    spreadAtFirst();
    for (const int column : columns) {
        if (const auto width = ColumnWidths::fitted(column, contentOf(*view, column)))
            view->setColumnWidth(column, *width);
    }
}

QList<int> SongTableColumns::shown() const
{
    QList<int> columns;
    const QHeaderView *header = view->horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        if (!header->isSectionHidden(header->logicalIndex(place)))
            columns.append(header->logicalIndex(place));
    }
    return columns;
}

QByteArray SongTableColumns::config() const
{
    return placed ? view->horizontalHeader()->saveState() : QByteArray();
}

bool SongTableColumns::restore(const QByteArray &config)
{
    QHeaderView *header = view->horizontalHeader();
    const QByteArray before = header->saveState();
    const bool sortable = header->sectionsClickable();
    const bool restored = header->restoreState(config);
    if (!restored)
        header->restoreState(before);
    // Whether the list can be sorted is a matter of the one on show.
    header->setSectionsClickable(sortable);
    header->setSortIndicatorShown(sortable);
    placed = placed || restored;
    view->refreshFrozenColumns();
    return restored;
}

void SongTableColumns::popupMenu(QPoint global, int column)
{
    if (column < 0)
        return;
    // The table has a style of its own, which a menu must not take over.
    auto *menu = new QMenu(view->window());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Breite anpassen"), this, [this, column] { fit({column}); });
    QAction *hide
        = menu->addAction(tr("Spalte ausblenden"), this, [this, column] { hideColumn(column); });
    // Without any heading no menu would bring one back.
    hide->setEnabled(shown().size() > 1);
    submenu(menu, tr("Spalte links einblenden"), column, Beside::Left);
    submenu(menu, tr("Spalte rechts einblenden"), column, Beside::Right);
    menu->popup(global);
}

QMenu *SongTableColumns::submenu(QMenu *menu, const QString &title, int column, Beside side)
{
    QMenu *columns = menu->addMenu(title);
    const QHeaderView *header = view->horizontalHeader();
    for (const SongColumnRow &row : songColumns()) {
        if (!header->isSectionHidden(row.column))
            continue;
        const int from = header->visualIndex(row.column);
        const int to = placeBeside(from, header->visualIndex(column), side);
        const QString heading = view->model()->headerData(row.column, Qt::Horizontal).toString();
        QAction *action = columns->addAction(heading);
        action->setData(QStringLiteral("%1 %2 %3").arg(row.column).arg(from).arg(to));
    }
    columns->setEnabled(!columns->isEmpty());
    connect(columns, &QMenu::triggered, this, &SongTableColumns::showColumn);
    return columns;
}

// The others close the gap that a column leaves behind.
int SongTableColumns::placeBeside(int hidden, int other, Beside side)
{
    const int left = hidden < other ? other - 1 : other;
    return side == Beside::Left ? left : left + 1;
}

void SongTableColumns::hideColumn(int column)
{
    view->setColumnHidden(column, true);
    // A header whose last section takes the rest tells nobody.
    view->updateSectionWidth(column, 0, 0);
}

void SongTableColumns::showColumn(const QAction *action)
{
    const QStringList numbers = action->data().toString().split(u' ');
    const int column = numbers.at(0).toInt();
    view->horizontalHeader()->moveSection(numbers.at(1).toInt(), numbers.at(2).toInt());
    view->setColumnHidden(column, false);
    fit({column});
}
