#include "PositionsTable.h"

#include "PositionsFont.h"
#include "RowNumberDelegate.h"
#include "Song.h"
#include "Theme.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeySequence>

#include <algorithm>
#include <numeric>

namespace {

constexpr double measuringSize = 70.0; // points
constexpr int columnPadding = 10;      // pixels

struct Column
{
    const char *heading;
    Qt::AlignmentFlag alignment;
    bool headingFollows; // the heading aligns as its cells do
};

constexpr Column columns[PositionsColumnCount] = {
    {"", Qt::AlignRight, false},
    {QT_TRANSLATE_NOOP("PositionsPage", "Part"), Qt::AlignLeft, true},
    {QT_TRANSLATE_NOOP("PositionsPage", "Zeitpunkt"), Qt::AlignRight, false},
    {QT_TRANSLATE_NOOP("PositionsPage", "Beats"), Qt::AlignRight, true},
    {QT_TRANSLATE_NOOP("PositionsPage", "Positionen"), Qt::AlignLeft, true},
};

int singleLineWidth(const QFontMetrics &metrics, const QString &text)
{
    return metrics.size(Qt::TextSingleLine, text).width();
}

QList<PositionsRow> rowsOf(const Song &song)
{
    const SongPositions &positions = song.getPositions();
    const int bpm = song.getBpm().toInt();
    QList<PositionsRow> rows;
    rows.reserve(positions.count());
    for (int row = 0; row < positions.count(); ++row)
        rows.append(positionsRow(positions, row, bpm, song.getPlayLength() * 1000));
    return rows;
}

// The keys that play a row: the digits, and with Ctrl the next ten.
QString rowTip(int row)
{
    const QString tip = QCoreApplication::translate("PositionsPage", "Ab hier abspielen");
    if (row >= 20)
        return tip;
    const int digit = Qt::Key_0 + (row + 1) % 10;
    const QKeySequence key(row < 10 ? digit : Qt::CTRL | digit);
    return tip + QStringLiteral("      ") + key.toString(QKeySequence::NativeText);
}

} // namespace

PositionsTable::PositionsTable(QWidget *parent)
    : QTableWidget(0, PositionsColumnCount, parent)
{
    setUp();
    writeHeaderTexts();
}

void PositionsTable::setUp()
{
    setObjectName(QStringLiteral("tableWidgetPositions"));
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setSelectionMode(QAbstractItemView::NoSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setShowGrid(false);
    setItemDelegateForColumn(NumberColumn, new RowNumberDelegate(this));
    // The number under the pointer looks like a button that can be pressed.
    viewport()->setAttribute(Qt::WA_Hover);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(1);
}

void PositionsTable::writeHeaderTexts()
{
    for (int column = 0; column < PositionsColumnCount; ++column) {
        const Column &rule = columns[column];
        auto *heading = new QTableWidgetItem(
            column == NumberColumn ? QString()
                                   : QCoreApplication::translate("PositionsPage", rule.heading));
        heading->setTextAlignment((rule.headingFollows ? rule.alignment : Qt::AlignHCenter)
                                  | Qt::AlignVCenter);
        setHorizontalHeaderItem(column, heading);
    }
    setAccessibleName(horizontalHeaderItem(StepsColumn)->text());
}

void PositionsTable::fill(const Song &song, const Look &look)
{
    const QList<PositionsRow> rows = rowsOf(song);
    setUpdatesEnabled(false);
    setRowCount(static_cast<int>(rows.size()));
    setContentsMargins(0, 0, 0, 0);
    setColumnHidden(BeatsColumn, !look.shown[BeatsColumn]);

    QFont working = font();
    working.setPointSizeF(measuringSize);
    const QFontMetrics metrics(working);
    const PositionsExtent extent
        = positionsExtent(rows, look.shown, [&metrics](const QString &text) {
              return singleLineWidth(metrics, text);
          });
    const FittedFont fitted = chooseFont(extent, look);
    working.setPointSize(fitted.pointSize);
    const QColor numberGround(styleSheetColor(QStringLiteral("QHeaderView::section")));
    for (int row = 0; row < rows.size(); ++row) {
        fillRow(row, rows.at(row), look, working, numberGround);
        setRowHeight(row, fitted.rowHeight);
    }

    hide();
    setColumnWidths(extent, look.shown, working);
    setUpdatesEnabled(true);
    show();
    resizeRowsToContents();
}

FittedFont PositionsTable::chooseFont(const PositionsExtent &extent, const Look &look) const
{
    const QString widest = std::accumulate(extent.widest.begin(), extent.widest.end(), QString());
    const auto sized = [this](int pointSize) {
        QFont sizedFont = font();
        sizedFont.setPointSize(pointSize);
        return QFontMetrics(sizedFont);
    };
    const FontMeasures measures{
        [&](int pointSize) { return singleLineWidth(sized(pointSize), widest); },
        [&](int pointSize) { return sized(pointSize).height(); }};
    const auto shownCount = std::count(look.shown.begin(), look.shown.end(), true);
    return fittedFont({.width = horizontalHeader()->width(),
                       .height = height() - horizontalHeader()->height(),
                       .padding = static_cast<int>(shownCount) * columnPadding,
                       .lines = extent.lines,
                       .maxFont = look.maxFontSize,
                       .wholeText = !look.fullWidth},
                      measures);
}

void PositionsTable::fillRow(int row, const PositionsRow &texts, const Look &look,
                             const QFont &font, const QColor &numberGround)
{
    for (int column = 0; column < PositionsColumnCount; ++column) {
        const auto index = static_cast<std::size_t>(column);
        if (look.shown[index])
            setCell(row, column, texts[index], font,
                    look.verticalAlignment | columns[column].alignment);
        else
            delete takeItem(row, column);
    }
    QTableWidgetItem *number = item(row, NumberColumn);
    number->setForeground(Qt::white);
    number->setBackground(numberGround);
    number->setToolTip(rowTip(row));
}

void PositionsTable::setCell(int row, int column, const QString &text, const QFont &font,
                             Qt::Alignment alignment)
{
    QTableWidgetItem *cell = item(row, column);
    const bool isNew = !cell;
    if (isNew)
        cell = new QTableWidgetItem;
    cell->setText(text);
    cell->setFont(font);
    cell->setTextAlignment(alignment);
    if (isNew)
        setItem(row, column, cell);
}

void PositionsTable::setColumnWidths(const PositionsExtent &extent, const ShownColumns &shown,
                                     const QFont &font)
{
    const QFontMetrics metrics(font);
    std::array<int, PositionsColumnCount> widths{};
    std::transform(
        extent.widest.begin(), extent.widest.end(), widths.begin(),
        [&metrics](const QString &text) { return singleLineWidth(metrics, text) + columnPadding; });
    // What the cells leave over goes to headings that are wider than their column.
    int spare = horizontalHeader()->width();
    for (std::size_t column = 0; column < widths.size(); ++column)
        spare -= shown[column] ? widths[column] : 0;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        int &width = widths[column];
        if (shown[column]) {
            const int needed = fitHeading(static_cast<int>(column), width);
            const int more = std::clamp(needed - width, 0, std::max(spare, 0));
            spare -= more;
            width += more;
        }
        setColumnWidth(static_cast<int>(column), width);
    }
}

// A heading that is wider than its column gets smaller, to a size that can still be read; the
// answer is the width that it needs then.
int PositionsTable::fitHeading(int column, int columnWidth)
{
    constexpr int margins = 16; // pixels at both sides of a heading
    constexpr int smallest = 8; // points
    QTableWidgetItem *heading = horizontalHeaderItem(column);
    if (heading->text().isEmpty())
        return 0;
    QFont font = horizontalHeader()->font();
    const auto needed = [&font, heading] {
        return singleLineWidth(QFontMetrics(font), heading->text()) + margins;
    };
    while (font.pointSize() > smallest && needed() > columnWidth)
        font.setPointSize(font.pointSize() - 1);
    heading->setFont(font);
    return needed();
}

// A number that is pressed looks so, and so it does when it is let go.
void PositionsTable::mousePressEvent(QMouseEvent *event)
{
    QTableWidget::mousePressEvent(event);
    viewport()->update();
}

void PositionsTable::mouseReleaseEvent(QMouseEvent *event)
{
    QTableWidget::mouseReleaseEvent(event);
    viewport()->update();
}
