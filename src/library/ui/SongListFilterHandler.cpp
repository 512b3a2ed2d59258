#include "SongListFilterHandler.h"

#include "Clock.h"
#include "DateRange.h"
#include "FilterChoices.h"
#include "FilterComboBox.h"
#include "FilterTableView.h"
#include "FilterTexts.h"
#include "FrozenTableView.h"
#include "SongListFilter.h"
#include "SongListTableModel.h"
#include "Theme.h"
#include "ThemeContext.h"
#include "Tips.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Combo, Edit, Button };

struct FilterRow
{
    SongColumn column;
    Kind kind;
    const char *placeholder; // null where the column is too narrow for one
};

struct ArrowRow
{
    Qt::Key key;
    int rows; // down, or up below 0
};

constexpr FilterRow rows[] = {
    {TitleColumn, Kind::Edit, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Titel")},
    {SelectedColumn, Kind::Button, nullptr},
    {ArtistColumn, Kind::Edit, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Künstler")},
    {LevelColumn, Kind::Combo, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Level")},
    {BpmColumn, Kind::Combo, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach BPM")},
    {IndexColumn, Kind::Edit, nullptr},
    {CommentColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Kommentar")},
    {GenreColumn, Kind::Combo, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Genre")},
    {YearColumn, Kind::Combo, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Jahr")},
    {LengthColumn, Kind::Edit, nullptr},
    {HasPositionsColumn, Kind::Button, nullptr},
    {HasChoreographyColumn, Kind::Button, nullptr},
    {ChoreographerColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Choreograf")},
    {FileDateColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Dateidatum")},
    {DirectoryColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Verzeichnis")},
    {LastTempoColumn, Kind::Edit, nullptr},
    {RatingColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Bewertung")},
    {OwnerColumn, Kind::Edit, nullptr},
    {AdaptedByColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Angepasst")},
    {EventCountColumn, Kind::Edit, nullptr},
    {EventDateColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Eventdatum")},
    {EventCategoryColumn, Kind::Combo,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Event Kategorie")},
    {EventNameColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Eventname")},
    {AlbumColumn, Kind::Edit, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Album")},
    {TrackNumberColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Track-Nr.")},
    {PositionTextsColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Positionen")},
    {PathColumn, Kind::Edit, QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach Dateipfad")},
    {CloudIdColumn, Kind::Edit, nullptr},
    {ChoreographyVersionColumn, Kind::Edit, nullptr},
    {PositionsVersionColumn, Kind::Edit, nullptr},
    {WritableColumn, Kind::Button, nullptr},
    {HasCountDownsColumn, Kind::Button, nullptr},
    {IswcColumn, Kind::Edit,
     QT_TRANSLATE_NOOP("SongListFilterHandler", "Filtern nach ISWC Nummer")},
};

static_assert(std::size(rows) == SongColumnCount);

constexpr SongColumn refillOrder[] = {
    BpmColumn,      ChoreographerColumn, DirectoryColumn, EventCategoryColumn, EventDateColumn,
    FileDateColumn, GenreColumn,         LevelColumn,     RatingColumn,        YearColumn,
};

// What a click on a button makes of its text.
struct ButtonStep
{
    QStringView from;
    QStringView to;
};
constexpr ButtonStep buttonSteps[] = {{u"", u"✓"}, {u"✓", u"-"}, {u"-", u""}};

constexpr int toTheEnd = 999999;
// Crossed on purpose: out of the field, up leads to the end of the list and down to its beginning.
constexpr ArrowRow arrows[] = {{Qt::Key_Up, toTheEnd}, {Qt::Key_Down, -toTheEnd}};

constexpr int leastWidth = 10;

} // namespace

SongListFilterHandler::SongListFilterHandler(SongListTableModel *songModel,
                                             SongListFilter *songFilter, int popupExtra,
                                             FrozenTableView *table, QObject *parent)
    : QObject(parent)
    , model(songModel)
    , filter(songFilter)
    , view(table)
    , extraWidth(popupExtra)
{
    for (const FilterRow &row : rows) {
        if (row.kind == Kind::Combo)
            createComboBox(row.column);
        else if (row.kind == Kind::Edit)
            createLineEdit(row.column);
        else
            createButton(row.column);
    }
    describeWidgets();
    colourEmptyBoxes();
    connect(model, &SongListTableModel::notifyModelChanged, this,
            &SongListFilterHandler::handleModelChanged);
}

FilterComboBox *SongListFilterHandler::comboBox(int column) const
{
    return cells.at(static_cast<std::size_t>(column)).combo;
}

QLineEdit *SongListFilterHandler::lineEdit(int column) const
{
    return cells.at(static_cast<std::size_t>(column)).edit;
}

QPushButton *SongListFilterHandler::button(int column) const
{
    return cells.at(static_cast<std::size_t>(column)).button;
}

QList<QLineEdit *> SongListFilterHandler::lineEdits() const
{
    QList<QLineEdit *> edits;
    for (const Widgets &cell : cells) {
        if (cell.edit)
            edits.append(cell.edit);
    }
    return edits;
}

// Once: the frozen row's cells never go.
void SongListFilterHandler::place(int column, QWidget *widget)
{
    FilterTableView *row = view->getFrozenView();
    row->setIndexWidget(row->model()->index(0, column), widget);
}

void SongListFilterHandler::createComboBox(int column)
{
    auto *combo = new FilterComboBox(extraWidth, view->getFrozenView());
    widgets(column).combo = combo;
    connect(combo, &QComboBox::currentIndexChanged, this,
            [this, column] { comboBoxChanged(column); });
    connect(combo, &FilterComboBox::chosenAgain, this, [this, column] { comboBoxChanged(column); });
    place(column, combo);
}

void SongListFilterHandler::createLineEdit(int column)
{
    auto *edit = new QLineEdit(view->getFrozenView());
    widgets(column).edit = edit;
    edit->setObjectName(u"filterLineEdit"_s);
    edit->setClearButtonEnabled(true);
    edit->setMinimumWidth(leastWidth);
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textChanged, this,
            [this, column](const QString &text) { lineEditChanged(column, text); });
    place(column, edit);
}

void SongListFilterHandler::createButton(int column)
{
    auto *cell = new QWidget(view->getFrozenView());
    auto *button = new QPushButton(cell);
    widgets(column).button = button;
    button->setObjectName(u"filterPushButton"_s);
    button->setFlat(true);
    button->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QHBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button, 0, Qt::AlignCenter);
    connect(button, &QPushButton::clicked, this, [this, column] { buttonClicked(column); });
    place(column, cell);
}

void SongListFilterHandler::comboBoxChanged(int column)
{
    const bool isDate = column == FileDateColumn || column == EventDateColumn;
    // What is chosen again by a refill has its dates.
    if (isDate && !collecting && comboBox(column)->currentText() == FilterTexts::dateRange())
        askForDates(column);
    setFilterText(comboBox(column)->currentText(), column);
    applyFilter(true);
}

void SongListFilterHandler::askForDates(int column)
{
    QDate from = Clock::today();
    QDate to = from;
    askDateRange(&from, &to, view->window());
    filter->setDateRange(column, from, to);
    if (from.isValid())
        return;
    const QScopedValueRollback<bool> first(collecting, true);
    comboBox(column)->clearEditText();
    comboBox(column)->setCurrentIndex(0);
}

void SongListFilterHandler::lineEditChanged(int column, const QString &filterText)
{
    setFilterText(filterText, column);
    applyFilter(false);
}

void SongListFilterHandler::buttonClicked(int column)
{
    const QString before = button(column)->text();
    const auto *step = std::find_if(std::begin(buttonSteps), std::end(buttonSteps),
                                    [&](const ButtonStep &row) { return row.from == before; });
    setButtonText(step->to.toString(), column);
    applyFilter(true);
}

void SongListFilterHandler::setButtonText(const QString &text, int column)
{
    button(column)->setText(text);
    setFilterText(text, column);
}

void SongListFilterHandler::setFilterText(const QString &text, int column)
{
    if (model->filterText(column) != text)
        model->setFilterText(text, column);
}

void SongListFilterHandler::applyFilter(bool setFocus)
{
    if (collecting)
        return;
    const QItemSelection selected = view->selectionModel()->selection();
    const auto isFilterRow = [](const QItemSelectionRange &range) { return range.bottom() == 0; };
    if (std::all_of(selected.begin(), selected.end(), isFilterRow))
        view->clearSelection();
    filter->applyFilters();
    Q_EMIT adaptFilterStats();
    if (setFocus)
        Q_EMIT focusReturned();
}

QStringList SongListFilterHandler::chosenTexts() const
{
    QStringList texts;
    for (const SongColumn column : refillOrder)
        texts.append(model->filterText(column));
    return texts;
}

void SongListFilterHandler::handleModelChanged()
{
    const QStringList before = chosenTexts();
    refillComboBoxes();
    // Nobody has chosen anything: whoever types goes on typing.
    if (chosenTexts() != before)
        applyFilter(false);
}

void SongListFilterHandler::refillComboBoxes()
{
    const QScopedValueRollback<bool> all(collecting, true);
    model->rebuildDirList();
    const QList<SongPtr> songs
        = model->getPlaylist() ? model->getPlaylist()->songs() : QList<SongPtr>();
    const ChoiceSource source{songs, SongListTableModel::getDirList(),
                              SongListTableModel::getHighIntermediateName(), Clock::today().year()};
    for (const SongColumn column : refillOrder)
        comboBox(column)->refill(filterChoices(column, source));
}

void SongListFilterHandler::resetFilters()
{
    {
        const QScopedValueRollback<bool> all(collecting, true);
        colourEmptyBoxes();
        for (const FilterRow &row : rows) {
            const Widgets &cell = widgets(row.column);
            if (cell.combo)
                cell.combo->setCurrentIndex(0);
            else if (cell.edit)
                cell.edit->clear();
            else
                setButtonText({}, row.column);
        }
    }
    applyFilter(true);
}

// What was chosen has another text in another language, at the same place.
void SongListFilterHandler::retranslate()
{
    describeWidgets();
    std::array<std::pair<int, int>, SongColumnCount> before{};
    for (const SongColumn column : refillOrder)
        before[column] = {comboBox(column)->currentIndex(), comboBox(column)->count()};
    refillComboBoxes();
    {
        const QScopedValueRollback<bool> all(collecting, true);
        for (const SongColumn column : refillOrder) {
            const auto [index, count] = before[column];
            if (index > 0 && comboBox(column)->count() == count)
                comboBox(column)->setCurrentIndex(index);
        }
    }
    applyFilter(false);
}

void SongListFilterHandler::describeWidgets()
{
    for (const FilterRow &row : rows) {
        const QString heading = model->headerData(row.column, Qt::Horizontal).toString();
        const QString text
            = row.placeholder ? tr(row.placeholder) : tr("Filtern nach %1").arg(heading);
        const Widgets &cell = widgets(row.column);
        if (QLineEdit *field = cell.combo ? cell.combo->lineEdit() : cell.edit)
            field->setPlaceholderText(row.placeholder ? text : QString());
        for (QWidget *widget :
             std::initializer_list<QWidget *>{cell.combo, cell.edit, cell.button}) {
            if (widget)
                describe(widget, text);
        }
    }
}

void SongListFilterHandler::colourEmptyBoxes()
{
    const bool isDark = themePath().endsWith(themeNamed({}).directory);
    const QString sheet = isDark ? u"QLineEdit[text=\"\"]{ color:#383; }"_s
                                 : u"QLineEdit[text=\"\"]{ color:#777; }"_s;
    for (const SongColumn column : refillOrder)
        comboBox(column)->setFieldStyleSheet(sheet);
}

void SongListFilterHandler::adaptToTheme()
{
    colourEmptyBoxes();
    // A field fetches the picture of its button when it gets one.
    for (QLineEdit *edit : lineEdits()) {
        edit->setClearButtonEnabled(false);
        edit->setClearButtonEnabled(true);
    }
}

bool SongListFilterHandler::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        reveal(watched);
    if (event->type() == QEvent::KeyPress && takeKey(*static_cast<QKeyEvent *>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}

// With other keys held down an arrow is one of the window's.
bool SongListFilterHandler::takeKey(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return true;
    const auto *arrow = std::find_if(std::begin(arrows), std::end(arrows),
                                     [&](const ArrowRow &row) { return row.key == event.key(); });
    if (arrow == std::end(arrows)
        || (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::NoModifier)
        return false;
    Q_EMIT musicListScrolled(arrow->rows);
    Q_EMIT focusReturned();
    return true;
}

// A field that the tab key leads to may lie outside of the view.
void SongListFilterHandler::reveal(const QObject *edit)
{
    const auto cell = std::find_if(cells.cbegin(), cells.cend(),
                                   [=](const Widgets &row) { return row.edit == edit; });
    const int column = static_cast<int>(cell - cells.cbegin());
    const int left = view->columnViewportPosition(column);
    const int beyond = left + view->columnWidth(column) - view->viewport()->width();
    QScrollBar *bar = view->horizontalScrollBar();
    if (left < 0)
        bar->setValue(bar->value() + left);
    else if (beyond > 0)
        bar->setValue(bar->value() + std::min(left, beyond));
}
