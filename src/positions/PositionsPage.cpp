#include "PositionsPage.h"

#include "Player.h"
#include "PositionsFont.h"
#include "Theme.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

namespace {

constexpr int measuringSize = 70; // points
constexpr int columnPadding = 10; // pixels

constexpr const char *headings[PositionsColumnCount] = {
    "",
    QT_TRANSLATE_NOOP("PositionsPage", "Part"),
    QT_TRANSLATE_NOOP("PositionsPage", "Zeitpunkt"),
    QT_TRANSLATE_NOOP("PositionsPage", "Beats"),
    QT_TRANSLATE_NOOP("PositionsPage", "Positionen"),
};

constexpr Qt::AlignmentFlag alignments[PositionsColumnCount]
    = {Qt::AlignRight, Qt::AlignLeft, Qt::AlignRight, Qt::AlignRight, Qt::AlignLeft};

int singleLineWidth(const QFont &font, const QString &text)
{
    return QFontMetrics(font).size(Qt::TextSingleLine, text).width();
}

} // namespace

PositionsPage::PositionsPage(Player *songPlayer, QWidget *parent)
    : QWidget(parent)
    , player(songPlayer)
    , tableWidgetPositions(new QTableWidget(0, PositionsColumnCount, this))
{
    setObjectName(QStringLiteral("page2_Lyrics"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tableWidgetPositions);
    setUpTable();
    writeHeaderTexts();
}

PositionsPage::~PositionsPage()
{
    // Hiding the table at its end resizes its sections; there is nothing to rebuild then.
    disconnect(sectionConnection);
}

void PositionsPage::setUpTable()
{
    QTableWidget *table = tableWidgetPositions;
    table->setObjectName(QStringLiteral("tableWidgetPositions"));
    table->setFocusPolicy(Qt::NoFocus);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setSelectionBehavior(QAbstractItemView::SelectItems);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setShowGrid(false);
    table->setContentsMargins(0, 0, 0, 0);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setMinimumSectionSize(1);
    connect(table, &QTableWidget::pressed, this, &PositionsPage::onTableWidgetPositions_pressed);
    connect(table, &QTableWidget::doubleClicked, this,
            &PositionsPage::onTableWidgetPositions_doubleClicked);
    followSectionSizes();
}

void PositionsPage::writeHeaderTexts()
{
    for (int column = 0; column < PositionsColumnCount; ++column) {
        auto *item
            = new QTableWidgetItem(column == NumberColumn ? QString() : tr(headings[column]));
        item->setTextAlignment(alignments[column] | Qt::AlignVCenter);
        tableWidgetPositions->setHorizontalHeaderItem(column, item);
    }
}

void PositionsPage::setSong(const SongPtr &newSong)
{
    song = newSong;
    tableWidgetPositions->clearSelection();
    tableWidgetPositions->setRowCount(song ? song->getPositions().count() : 0);
}

int PositionsPage::rowCount() const
{
    return tableWidgetPositions->rowCount();
}

void PositionsPage::setColumnShown(PositionsColumn column, bool shown)
{
    wanted[column] = shown;
    tableWidgetPositions->setColumnHidden(column, !shownColumns()[column]);
}

ShownColumns PositionsPage::shownColumns() const
{
    ShownColumns shown = wanted;
    shown[BeatsColumn] = wanted[BeatsColumn] && !(song && song->getBpm().toInt() == 0);
    return shown;
}

void PositionsPage::refreshPositionsWindow()
{
    if (!song) {
        tableWidgetPositions->setRowCount(0);
        return;
    }
    QTableWidget *table = tableWidgetPositions;
    // The widths set below must not start another rebuild.
    disconnect(sectionConnection);
    const int bpm = song->getBpm().toInt();
    const int durationMs = song->getPlayLength() * 1000;
    const ShownColumns shown = shownColumns();
    table->setUpdatesEnabled(false);
    table->setRowCount(song->getPositions().count());
    table->setColumnHidden(BeatsColumn, !shown[BeatsColumn]);

    QFont font = table->font();
    font.setPointSizeF(measuringSize);
    const PositionsExtent extent
        = positionsExtent(song->getPositions(), bpm, durationMs, shown,
                          [&font](const QString &text) { return singleLineWidth(font, text); });
    const FittedFont fitted = chooseFont(extent, shown);
    font.setPointSize(fitted.pointSize);
    fillTable(shown, font, fitted.rowHeight);

    table->hide();
    setColumnWidths(extent, font);
    table->setUpdatesEnabled(true);
    table->show();
    table->resizeRowsToContents();
    if (player->isPlaying())
        player->refreshActivePart();
    scrollToCurrentPosition();
    followSectionSizes();
}

void PositionsPage::followSectionSizes()
{
    sectionConnection
        = connect(tableWidgetPositions->horizontalHeader(), &QHeaderView::sectionResized, this,
                  &PositionsPage::refreshPositionsWindow);
}

FittedFont PositionsPage::chooseFont(const PositionsExtent &extent, const ShownColumns &shown) const
{
    QString widest;
    for (const QString &text : extent.widest)
        widest += text;
    const auto sized = [this](int pointSize) {
        QFont font = tableWidgetPositions->font();
        font.setPointSize(pointSize);
        return font;
    };
    const FontMeasures measures{
        [&](int pointSize) { return singleLineWidth(sized(pointSize), widest); },
        [&](int pointSize) { return QFontMetrics(sized(pointSize)).height(); }};
    const QHeaderView *header = tableWidgetPositions->horizontalHeader();
    const int shownCount = static_cast<int>(std::count(shown.begin(), shown.end(), true));
    return fittedFont({.width = header->width(),
                       .height = tableWidgetPositions->height() - header->height(),
                       .padding = shownCount * columnPadding,
                       .lines = extent.lines,
                       .maxFont = maxFontSize,
                       .wholeText = !fullWidth},
                      measures);
}

void PositionsPage::fillTable(const ShownColumns &shown, const QFont &font, int rowHeight)
{
    const SongPositions &positions = song->getPositions();
    const int bpm = song->getBpm().toInt();
    for (int row = 0; row < positions.count(); ++row) {
        fillRow(row, positionsRow(positions, row, bpm, song->getPlayLength() * 1000), shown, font);
        tableWidgetPositions->setRowHeight(row, rowHeight);
    }
}

void PositionsPage::fillRow(int row, const PositionsRow &texts, const ShownColumns &shown,
                            const QFont &font)
{
    static const QString section = QStringLiteral("QHeaderView::section");
    for (int column = 0; column < PositionsColumnCount; ++column) {
        const auto index = static_cast<std::size_t>(column);
        if (!shown[index]) {
            delete tableWidgetPositions->takeItem(row, column);
            continue;
        }
        auto *item = new QTableWidgetItem(texts[index]);
        item->setFont(font);
        item->setTextAlignment(verticalAlignment | alignments[column]);
        if (column == NumberColumn) {
            item->setForeground(Qt::white);
            item->setBackground(QColor(styleSheetColor(section)));
        }
        tableWidgetPositions->setItem(row, column, item);
    }
}

void PositionsPage::setColumnWidths(const PositionsExtent &extent, const QFont &font)
{
    std::array<int, PositionsColumnCount> widths{};
    std::transform(
        extent.widest.begin(), extent.widest.end(), widths.begin(),
        [&font](const QString &text) { return singleLineWidth(font, text) + columnPadding; });
    // What the cells leave over goes to headings that are wider than their column.
    int spare = tableWidgetPositions->horizontalHeader()->width()
                - std::accumulate(widths.begin(), widths.end(), 0);
    for (int column = 0; column < PositionsColumnCount; ++column) {
        int &width = widths[static_cast<std::size_t>(column)];
        const int more = std::clamp(fitHeading(column, width) - width, 0, std::max(spare, 0));
        spare -= more;
        width += more;
        tableWidgetPositions->setColumnWidth(column, width);
    }
}

// A heading that is wider than its column gets smaller, to a size that can still be read; the
// answer is the width that it needs then.
int PositionsPage::fitHeading(int column, int columnWidth)
{
    constexpr int margins = 16; // pixels at both sides of a heading
    constexpr int smallest = 8; // points
    QTableWidgetItem *heading = tableWidgetPositions->horizontalHeaderItem(column);
    if (heading->text().isEmpty())
        return 0;
    QFont font = tableWidgetPositions->horizontalHeader()->font();
    while (font.pointSize() > smallest
           && singleLineWidth(font, heading->text()) + margins > columnWidth)
        font.setPointSize(font.pointSize() - 1);
    heading->setFont(font);
    return singleLineWidth(font, heading->text()) + margins;
}

int PositionsPage::selectedPositionsRow() const
{
    for (const QTableWidgetItem *item : tableWidgetPositions->selectedItems()) {
        if (item->column() == StepsColumn)
            return item->row();
    }
    return -1;
}

void PositionsPage::selectPositionsRow(int rowNum, bool scrollToCenter)
{
    tableWidgetPositions->clearSelection();
    bool first = true;
    // The row number is never marked, so that it keeps looking like a button.
    for (int column = PartColumn; column < PositionsColumnCount; ++column) {
        QTableWidgetItem *item = tableWidgetPositions->item(rowNum, column);
        if (!item)
            continue;
        item->setSelected(true);
        if (first && scrollToCenter)
            tableWidgetPositions->scrollToItem(item, QAbstractItemView::PositionAtCenter);
        first = false;
    }
}

void PositionsPage::goToRow(int row)
{
    selectPositionsRow(row, true);
    if (QTableWidgetItem *number = tableWidgetPositions->item(row, NumberColumn))
        tableWidgetPositions->scrollToItem(number, QAbstractItemView::PositionAtCenter);
}

void PositionsPage::on_partChanged(int currentPart)
{
    tableWidgetPositions->clearSelection();
    if (currentPart > -1)
        goToRow(currentPart);
}

void PositionsPage::scrollDownPositions(int n)
{
    const int last = rowCount() - 1;
    const int current = selectedPositionsRow();
    if (current == -1)
        goToRow(n >= 10 ? last : 0);
    else
        goToRow(current >= rowCount() - n ? last : current + n);
}

void PositionsPage::scrollUpPositions(int n)
{
    const int current = selectedPositionsRow();
    if (current == -1)
        goToRow(n >= 10 ? 0 : rowCount() - 1);
    else
        goToRow(std::max(current - n, 0));
}

void PositionsPage::scrollToCurrentPosition()
{
    const int row = selectedPositionsRow();
    const QList<QTableWidgetItem *> marked = tableWidgetPositions->selectedItems();
    if (row >= 0)
        tableWidgetPositions->scrollToItem(tableWidgetPositions->item(row, NumberColumn),
                                           QAbstractItemView::PositionAtCenter);
    else if (marked.size() == 1)
        tableWidgetPositions->scrollToItem(marked.constFirst(), QAbstractItemView::EnsureVisible);
    else
        tableWidgetPositions->scrollToTop();
}

void PositionsPage::onTableWidgetPositions_pressed(const QModelIndex &index)
{
    selectPositionsRow(index.row(), false);
    if (index.column() == NumberColumn)
        Q_EMIT startRequested(index.row());
    Q_EMIT pressed();
}

void PositionsPage::onTableWidgetPositions_doubleClicked(const QModelIndex &index)
{
    Q_EMIT startRequested(index.row());
}

void PositionsPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        writeHeaderTexts();
    QWidget::changeEvent(event);
}

void PositionsPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isVisible())
        refreshPositionsWindow();
}
