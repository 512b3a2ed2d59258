#include "../playlists/TestLibrary.h"
#include "Clock.h"
#include "DateRange.h"
#include "DialogRunner.h"
#include "FilterComboBox.h"
#include "FilterTableView.h"
#include "FilterTexts.h"
#include "FrozenTableView.h"
#include "PlaylistMaster.h"
#include "SongListFilter.h"
#include "SongListFilterHandler.h"
#include "SongListPanel.h"
#include "TestMain.h"
#include "TestSongs.h"
#include "Theme.h"
#include "ThemeContext.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTranslator>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// Where keys arrive that no widget of the list wants.
class KeyWindow : public QWidget
{
public:
    QList<QPair<int, Qt::KeyboardModifiers>> keys;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        keys.append({event->key(), event->modifiers()});
    }
};

// Every text of the row in another language.
class Starred : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return u'*' + QString::fromUtf8(source);
    }
};

// In place of a user whom the row asks for dates; closes the dialog.
void answerDateRange(const std::function<void(DateRange &)> &answer)
{
    setDialogRunner([answer](QDialog &dialog) {
        answer(static_cast<DateRange &>(dialog));
        return dialog.result();
    });
}

} // namespace

// The filter row of a song list: what its widgets do to the list, and when.
class TestFilterRow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachColumnHasItsWidget_data();
    void eachColumnHasItsWidget();
    void boxesAreSetUp();
    void fieldsAreSetUp();
    void typing();
    void choosing();
    void theSongsFollow();
    void clickingThreeTimes();
    void swallowedKeys_data();
    void swallowedKeys();
    void arrowsLeaveTheField_data();
    void arrowsLeaveTheField();
    void otherKeysGoOn_data();
    void otherKeysGoOn();
    void tabLeadsToTheNextField();
    void resetsKeepWhatIsChosen();
    void aChoiceThatIsGoneIsDropped();
    void aRefillAppliesAtMostOnce();
    void aRefillTakesNoFocus();
    void aDateRange_data();
    void aDateRange();
    void aDateRangeCancelled_data();
    void aDateRangeCancelled();
    void aDateRangeChosenAgain();
    void aRefillAsksForNoDates();
    void resetFilters();
    void anotherListHasNoFilter();
    void theFilterRowIsNeverSelectedAlone();
    void anotherLanguageKeepsTheChoice();
    void theNameOfALevelChanges();
    void aClickIntoTheFieldOpensTheBox();
    void theWheelChoosesNothing();
    void anOpenBoxShowsItsLongestEntry();
    void emptyBoxesHaveTheirColour_data();
    void emptyBoxesHaveTheirColour();
    void widgetsFitTheirRow_data();
    void widgetsFitTheirRow();
    void theMarkIsInTheMiddle_data();
    void theMarkIsInTheMiddle();
    void refillingManySongsIsQuick();

    void theDialogHasItsTexts();
    void theDialogBeginsWithItsDates();
    void theDialogFitsTheScreen_data();
    void theDialogFitsTheScreen();
    void calendarsBoundEachOther();
    void aDoubleClickTakesOneDay();
    void theDialogAnswers_data();
    void theDialogAnswers();

private:
    SongListFilterHandler *row() const { return panel->filterRow(); }
    QString filterText(int column) const { return panel->model()->filterText(column); }
    void choose(int column, const QString &text) const
    {
        row()->comboBox(column)->setCurrentIndex(row()->comboBox(column)->findText(text));
    }
    void useTheme(const QString &name, int points) const;

    std::unique_ptr<TestSongs> songs;
    std::unique_ptr<KeyWindow> window;
    SongListPanel *panel = nullptr;
};

static const QDate today(2026, 3, 15);

void TestFilterRow::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    Clock::setClock([] { return QDateTime(today, QTime(12, 0)); });
    songs = std::make_unique<TestSongs>();
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        const SongPtr song = songs->song(name);
        song->setTitle(name);
        song->setChoreographer(u"Choreographer "_s + name);
        song->setLevel(name == u"c" ? u"Intermediate-Advanced"_s : u"Easy"_s);
        song->setBpm(u"100"_s);
    }
    songs->manager.updateAllLists();
    window = std::make_unique<KeyWindow>();
    window->setFocusPolicy(Qt::StrongFocus);
    panel = new SongListPanel(SongListPanel::Side::Right, &songs->manager, window.get());
    auto *layout = new QVBoxLayout(window.get());
    layout->addWidget(panel);
    panel->setFontSize(12);
    window->resize(1024, 500);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    // Columns that are hidden at first have filters as well.
    for (int column = 0; column < SongColumnCount; ++column)
        panel->table()->setColumnHidden(column, false);
    QCoreApplication::processEvents();
    window->setFocus();
}

void TestFilterRow::cleanup()
{
    window.reset();
    songs.reset();
    Clock::setClock({});
    setDialogRunner({});
    SongListTableModel::setHighIntermediateName({});
    qApp->setStyleSheet({});
    setThemeContext({40, 40}, u":/Dark_Night"_s);
}

void TestFilterRow::eachColumnHasItsWidget_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<char>("kind"); // box, field or button
    QTest::addColumn<QString>("placeholder");
    const auto add = [](int column, char kind, const char *text) {
        QTest::addRow("%d", column) << column << kind << QString::fromUtf8(text);
    };
    add(0, 'f', "Filtern nach Titel");
    add(1, 'b', "");
    add(2, 'f', "Filtern nach Künstler");
    add(3, 'x', "Filtern nach Level");
    add(4, 'x', "Filtern nach BPM");
    add(5, 'f', "");
    add(6, 'f', "Filtern nach Kommentar");
    add(7, 'x', "Filtern nach Genre");
    add(8, 'x', "Filtern nach Jahr");
    add(9, 'f', "");
    add(10, 'b', "");
    add(11, 'b', "");
    add(12, 'x', "Filtern nach Choreograf");
    add(13, 'x', "Filtern nach Dateidatum");
    add(14, 'x', "Filtern nach Verzeichnis");
    add(15, 'f', "");
    add(16, 'x', "Filtern nach Bewertung");
    add(17, 'f', "");
    add(18, 'f', "Filtern nach Angepasst");
    add(19, 'f', "");
    add(20, 'x', "Filtern nach Eventdatum");
    add(21, 'x', "Filtern nach Event Kategorie");
    add(22, 'f', "Filtern nach Eventname");
    add(23, 'f', "Filtern nach Album");
    add(24, 'f', "Filtern nach Track-Nr.");
    add(25, 'f', "Filtern nach Positionen");
    add(26, 'f', "Filtern nach Dateipfad");
    add(27, 'f', "");
    add(28, 'f', "");
    add(29, 'f', "");
    add(30, 'b', "");
    add(31, 'b', "");
    add(32, 'f', "Filtern nach ISWC Nummer");
}

void TestFilterRow::eachColumnHasItsWidget()
{
    QFETCH(int, column);
    QFETCH(char, kind);
    QFETCH(QString, placeholder);
    QCOMPARE(row()->comboBox(column) != nullptr, kind == 'x');
    QCOMPARE(row()->lineEdit(column) != nullptr, kind == 'f');
    QCOMPARE(row()->button(column) != nullptr, kind == 'b');
    QWidget *widget = row()->comboBox(column);
    if (kind == 'f')
        widget = row()->lineEdit(column);
    if (kind == 'b')
        widget = row()->button(column);
    FilterTableView *frozen = panel->table()->getFrozenView();
    QWidget *cell = frozen->indexWidget(frozen->model()->index(0, column));
    QVERIFY(cell == widget || cell == widget->parentWidget());
    QVERIFY(!widget->accessibleName().isEmpty());
    const QLineEdit *field
        = kind == 'x' ? row()->comboBox(column)->lineEdit() : row()->lineEdit(column);
    if (field)
        QCOMPARE(field->placeholderText(), placeholder);
}

void TestFilterRow::boxesAreSetUp()
{
    int count = 0;
    for (int column = 0; column < SongColumnCount; ++column) {
        const FilterComboBox *combo = row()->comboBox(column);
        if (!combo)
            continue;
        ++count;
        QCOMPARE(combo->objectName(), u"filterCombo"_s);
        QCOMPARE(combo->maxVisibleItems(), 999);
        QCOMPARE(combo->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QCOMPARE(combo->lineEdit()->objectName(), u"filterLineEdit"_s);
        QVERIFY(combo->lineEdit()->isReadOnly());
        QCOMPARE(combo->itemText(0), QString());
        QCOMPARE(combo->currentIndex(), 0);
        QVERIFY(combo->count() > 1);
    }
    QCOMPARE(count, 10);
    QCOMPARE(row()->lineEdits().size(), 18);
}

void TestFilterRow::fieldsAreSetUp()
{
    for (const QLineEdit *edit : row()->lineEdits()) {
        QCOMPARE(edit->objectName(), u"filterLineEdit"_s);
        QVERIFY(edit->isClearButtonEnabled());
        QCOMPARE(edit->minimumWidth(), 10);
        QVERIFY(!edit->isReadOnly());
    }
    for (const int column : {1, 10, 11, 30, 31}) {
        QCOMPARE(row()->button(column)->objectName(), u"filterPushButton"_s);
        QVERIFY(row()->button(column)->isFlat());
        QCOMPARE(row()->button(column)->text(), QString());
    }
}

void TestFilterRow::typing()
{
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    for (const int column : {0, 5, 25}) {
        QLineEdit *edit = row()->lineEdit(column);
        edit->setFocus();
        QTest::keyClicks(edit, u"p s1"_s);
        QCOMPARE(filterText(column), u"p s1"_s);
        QVERIFY(edit->hasFocus());
    }
    QCOMPARE(applied.count(), 12);
    QCOMPARE(returned.count(), 0);
    QVERIFY(window->keys.isEmpty());
}

void TestFilterRow::choosing()
{
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    choose(ChoreographerColumn, u"Choreographer b"_s);
    QCOMPARE(filterText(ChoreographerColumn), u"Choreographer b"_s);
    QCOMPARE(applied.count(), 1);
    QCOMPARE(returned.count(), 1);
    choose(BpmColumn, u"Sehr schnell"_s);
    QCOMPARE(filterText(BpmColumn), u"Sehr schnell"_s);
    choose(BpmColumn, QString());
    QCOMPARE(filterText(BpmColumn), QString());
}

void TestFilterRow::theSongsFollow()
{
    const auto shown = [this] {
        QString names;
        for (int number = 1; number < panel->filter()->rowCount(); ++number)
            names.append(panel->filter()->song(number)->getTitle());
        return names;
    };
    songs->song(u"b"_s)->setSelected(true);
    songs->song(u"b"_s)->setModified(QDateTime(QDate(2026, 3, 1), QTime(1, 0)));
    songs->song(u"c"_s)->setModified(QDateTime(QDate(2026, 3, 14), QTime(1, 0)));
    panel->model()->refresh();
    QCOMPARE(shown(), u"abc"_s);
    QTest::keyClicks(row()->lineEdit(TitleColumn), u"B"_s);
    QCOMPARE(shown(), u"b"_s);
    QTest::keyClick(row()->lineEdit(TitleColumn), Qt::Key_Backspace);
    choose(LevelColumn, u"Easy"_s);
    QCOMPARE(shown(), u"ab"_s);
    choose(LevelColumn, QString());
    choose(ChoreographerColumn, u"Choreographer c"_s);
    QCOMPARE(shown(), u"c"_s);
    // A filter that is dropped lets all songs through again.
    songs->song(u"c"_s)->setChoreographer({});
    panel->model()->refresh();
    QCOMPARE(shown(), u"abc"_s);
    answerDateRange([](DateRange &dialog) {
        dialog.fromCalendar()->setSelectedDate(QDate(2026, 2, 28));
        dialog.toCalendar()->setSelectedDate(QDate(2026, 3, 1));
        dialog.accept();
    });
    choose(FileDateColumn, FilterTexts::dateRange());
    QCOMPARE(shown(), u"b"_s);
    choose(FileDateColumn, u"Seit Gestern"_s);
    QVERIFY(shown().contains(u"c"_s) && !shown().contains(u"b"_s));
    answerDateRange([](DateRange &dialog) { dialog.reject(); });
    choose(FileDateColumn, FilterTexts::dateRange());
    QCOMPARE(shown(), u"abc"_s);
}

void TestFilterRow::clickingThreeTimes()
{
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    for (const int column : {1, 10, 11, 30, 31}) {
        QPushButton *button = row()->button(column);
        for (const QString &text : {u"✓"_s, u"-"_s, QString()}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(button->text(), text);
            QCOMPARE(filterText(column), text);
            QVERIFY(!button->hasFocus());
        }
    }
    QCOMPARE(returned.count(), 15);
}

void TestFilterRow::swallowedKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
}

void TestFilterRow::swallowedKeys()
{
    QFETCH(int, key);
    QLineEdit *edit = row()->lineEdit(TitleColumn);
    edit->setFocus();
    QTest::keyClicks(edit, u"x"_s);
    QTest::keyClick(edit, static_cast<Qt::Key>(key));
    QVERIFY(window->keys.isEmpty());
    QVERIFY(edit->hasFocus());
    QCOMPARE(filterText(TitleColumn), u"x"_s);
}

void TestFilterRow::arrowsLeaveTheField_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("rows");
    QTest::newRow("up") << int(Qt::Key_Up) << 999999;
    QTest::newRow("down") << int(Qt::Key_Down) << -999999;
}

void TestFilterRow::arrowsLeaveTheField()
{
    QFETCH(int, key);
    QFETCH(int, rows);
    const QSignalSpy scrolled(row(), &SongListFilterHandler::musicListScrolled);
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    int times = 0;
    for (QLineEdit *edit : row()->lineEdits()) {
        edit->setFocus();
        QTest::keyClick(edit, static_cast<Qt::Key>(key),
                        times % 2 ? Qt::KeypadModifier : Qt::NoModifier);
        ++times;
        QCOMPARE(scrolled.count(), times);
        QCOMPARE(scrolled.constLast().constFirst().toInt(), rows);
        QCOMPARE(returned.count(), times);
    }
    QVERIFY(window->keys.isEmpty());
}

void TestFilterRow::otherKeysGoOn_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    const auto add = [](const char *name, int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::newRow(name) << key << modifiers;
    };
    add("escape", Qt::Key_Escape);
    add("page up", Qt::Key_PageUp);
    add("page down", Qt::Key_PageDown);
    add("F2", Qt::Key_F2);
    add("tempo preset", Qt::Key_F10);
    add("media", Qt::Key_MediaPlay);
    add("next screen", Qt::Key_Tab, Qt::ControlModifier);
    add("frame", Qt::Key_Period, Qt::ControlModifier);
    add("up in the left list", Qt::Key_Up, Qt::GroupSwitchModifier);
}

void TestFilterRow::otherKeysGoOn()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    const QSignalSpy scrolled(row(), &SongListFilterHandler::musicListScrolled);
    panel->selection().goToFirst();
    QLineEdit *edit = row()->lineEdit(ArtistColumn);
    edit->setFocus();
    QTest::keyClick(edit, static_cast<Qt::Key>(key), modifiers);
    // Before it come the keys that are held down.
    QVERIFY(!window->keys.isEmpty());
    QCOMPARE(window->keys.constLast().first, key);
    QCOMPARE(window->keys.constLast().second, modifiers);
    QCOMPARE(scrolled.count(), 0);
    QCOMPARE(filterText(ArtistColumn), QString());
    QCOMPARE(panel->selection().rows(), QList<int>{1});
}

void TestFilterRow::tabLeadsToTheNextField()
{
    row()->lineEdit(TitleColumn)->setFocus();
    QTest::keyClick(row()->lineEdit(TitleColumn), Qt::Key_Tab);
    QVERIFY(row()->lineEdit(ArtistColumn)->hasFocus());
    // One that lies outside comes into view.
    row()->lineEdit(AlbumColumn)->setFocus(Qt::TabFocusReason);
    const int left = panel->table()->columnViewportPosition(AlbumColumn);
    QVERIFY(left >= 0);
    QVERIFY(left + panel->table()->columnWidth(AlbumColumn) <= panel->table()->viewport()->width());
    row()->lineEdit(TitleColumn)->setFocus(Qt::BacktabFocusReason);
    QCOMPARE(panel->table()->columnViewportPosition(TitleColumn), 0);
}

void TestFilterRow::resetsKeepWhatIsChosen()
{
    QTest::keyClicks(row()->lineEdit(TitleColumn), u"a"_s);
    choose(LevelColumn, u"Easy"_s);
    choose(YearColumn, u"<Kein Eintrag>"_s);
    QTest::mouseClick(row()->button(WritableColumn), Qt::LeftButton);
    const QPointer<QWidget> widgets[] = {row()->lineEdit(TitleColumn), row()->comboBox(LevelColumn),
                                         row()->button(WritableColumn)};
    for (int times = 0; times < 3; ++times) {
        panel->model()->refresh();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    for (const auto &widget : widgets)
        QVERIFY(widget && widget->isVisible());
    QCOMPARE(row()->lineEdit(TitleColumn)->text(), u"a"_s);
    QCOMPARE(row()->comboBox(LevelColumn)->currentText(), u"Easy"_s);
    QCOMPARE(row()->button(WritableColumn)->text(), u"✓"_s);
    QCOMPARE(filterText(TitleColumn), u"a"_s);
    QCOMPARE(filterText(LevelColumn), u"Easy"_s);
    QCOMPARE(filterText(YearColumn), u"<Kein Eintrag>"_s);
    QCOMPARE(filterText(WritableColumn), u"✓"_s);
}

void TestFilterRow::aChoiceThatIsGoneIsDropped()
{
    choose(ChoreographerColumn, u"Choreographer b"_s);
    songs->song(u"b"_s)->setChoreographer(u"Somebody else"_s);
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    panel->model()->refresh();
    const FilterComboBox *combo = row()->comboBox(ChoreographerColumn);
    QCOMPARE(combo->currentIndex(), -1);
    QCOMPARE(combo->currentText(), QString());
    QCOMPARE(filterText(ChoreographerColumn), QString());
    QCOMPARE(applied.count(), 1);
    QVERIFY(combo->findText(u"Somebody else"_s) > 0);
    QVERIFY(combo->findText(u"Choreographer b"_s) < 0);
    // It can be chosen from again, and reset.
    choose(ChoreographerColumn, u"Somebody else"_s);
    QCOMPARE(filterText(ChoreographerColumn), u"Somebody else"_s);
    panel->resetFilters();
    QCOMPARE(combo->currentIndex(), 0);
}

void TestFilterRow::aRefillAppliesAtMostOnce()
{
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    panel->model()->refresh();
    QCOMPARE(applied.count(), 0);
    choose(ChoreographerColumn, u"Choreographer b"_s);
    choose(LevelColumn, u"Easy"_s);
    QCOMPARE(applied.count(), 2);
    row()->handleModelChanged();
    QCOMPARE(applied.count(), 2);
    for (const QString &name : {u"a"_s, u"b"_s}) {
        songs->song(name)->setChoreographer({});
        songs->song(name)->setLevel({});
    }
    row()->handleModelChanged();
    QCOMPARE(applied.count(), 3);
    QCOMPARE(filterText(LevelColumn), QString());
}

void TestFilterRow::aRefillTakesNoFocus()
{
    choose(ChoreographerColumn, u"Choreographer b"_s);
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    row()->lineEdit(TitleColumn)->setFocus();
    songs->song(u"b"_s)->setChoreographer({});
    panel->model()->refresh();
    QCOMPARE(filterText(ChoreographerColumn), QString());
    QVERIFY(row()->lineEdit(TitleColumn)->hasFocus());
    QCOMPARE(returned.count(), 0);
}

static void dateColumns()
{
    QTest::addColumn<int>("column");
    QTest::newRow("file") << int(FileDateColumn);
    QTest::newRow("event") << int(EventDateColumn);
}

void TestFilterRow::aDateRange_data()
{
    dateColumns();
}

void TestFilterRow::aDateRange()
{
    QFETCH(int, column);
    QList<QDate> preset;
    answerDateRange([&](DateRange &dialog) {
        preset = {dialog.fromCalendar()->selectedDate(), dialog.toCalendar()->selectedDate()};
        dialog.fromCalendar()->setSelectedDate(QDate(2026, 2, 3));
        dialog.accept();
    });
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    choose(column, FilterTexts::dateRange());
    QCOMPARE(preset, (QList<QDate>{today, today}));
    QCOMPARE(filterText(column), u"Zeitspanne eingeben ..."_s);
    QCOMPARE(row()->comboBox(column)->currentIndex(), 1);
    QCOMPARE(applied.count(), 1);
}

void TestFilterRow::aDateRangeCancelled_data()
{
    dateColumns();
}

void TestFilterRow::aDateRangeCancelled()
{
    QFETCH(int, column);
    answerDateRange([](DateRange &dialog) { dialog.reject(); });
    choose(column, u"Heute"_s);
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    choose(column, FilterTexts::dateRange());
    QCOMPARE(filterText(column), QString());
    QCOMPARE(row()->comboBox(column)->currentIndex(), 0);
    QCOMPARE(row()->comboBox(column)->currentText(), QString());
    QCOMPARE(applied.count(), 1);
}

void TestFilterRow::aDateRangeChosenAgain()
{
    int asked = 0;
    answerDateRange([&](DateRange &dialog) {
        ++asked;
        dialog.accept();
    });
    FilterComboBox *combo = row()->comboBox(EventDateColumn);
    const auto take = [&](Qt::Key key) {
        combo->showPopup();
        QTest::keyClick(combo->view(), key);
        QTest::keyClick(combo->view(), Qt::Key_Return);
    };
    take(Qt::Key_Down);
    QCOMPARE(filterText(EventDateColumn), FilterTexts::dateRange());
    QCOMPARE(asked, 1);
    take(Qt::Key_Shift);
    QCOMPARE(asked, 2);
    take(Qt::Key_Down);
    QCOMPARE(filterText(EventDateColumn), u"Heute"_s);
    QCOMPARE(asked, 2);
}

void TestFilterRow::aRefillAsksForNoDates()
{
    int asked = 0;
    answerDateRange([&](DateRange &dialog) {
        ++asked;
        dialog.accept();
    });
    choose(FileDateColumn, FilterTexts::dateRange());
    QCOMPARE(asked, 1);
    panel->model()->refresh();
    QCOMPARE(asked, 1);
    QCOMPARE(filterText(FileDateColumn), FilterTexts::dateRange());
}

void TestFilterRow::resetFilters()
{
    answerDateRange([](DateRange &dialog) { dialog.accept(); });
    for (int column = 0; column < SongColumnCount; ++column) {
        if (row()->comboBox(column))
            row()->comboBox(column)->setCurrentIndex(1);
        else if (row()->lineEdit(column))
            QTest::keyClicks(row()->lineEdit(column), u"x"_s);
        else
            QTest::mouseClick(row()->button(column), Qt::LeftButton);
        QVERIFY(!filterText(column).isEmpty());
    }
    const QSignalSpy applied(row(), &SongListFilterHandler::adaptFilterStats);
    const QSignalSpy returned(row(), &SongListFilterHandler::focusReturned);
    row()->resetFilters();
    for (int column = 0; column < SongColumnCount; ++column) {
        QCOMPARE(filterText(column), QString());
        if (row()->comboBox(column))
            QCOMPARE(row()->comboBox(column)->currentIndex(), 0);
        else if (row()->lineEdit(column))
            QCOMPARE(row()->lineEdit(column)->text(), QString());
        else
            QCOMPARE(row()->button(column)->text(), QString());
    }
    QCOMPARE(applied.count(), 1);
    QCOMPARE(returned.count(), 1);
}

void TestFilterRow::anotherListHasNoFilter()
{
    const PlaylistPtr list = songs->playlist(u"evening.m3u8"_s, u"ab"_s);
    QTest::keyClicks(row()->lineEdit(TitleColumn), u"a"_s);
    choose(LevelColumn, u"Easy"_s);
    panel->setList(list);
    QCOMPARE(row()->lineEdit(TitleColumn)->text(), QString());
    QCOMPARE(row()->comboBox(LevelColumn)->currentIndex(), 0);
    for (int column = 0; column < SongColumnCount; ++column)
        QCOMPARE(filterText(column), QString());
    // Of the list's songs, but of the library's directories.
    QVERIFY(row()->comboBox(ChoreographerColumn)->findText(u"Choreographer b"_s) > 0);
    QVERIFY(row()->comboBox(ChoreographerColumn)->findText(u"Choreographer c"_s) < 0);
    QCOMPARE(row()->comboBox(DirectoryColumn)->count(), 2);
    QCOMPARE(row()->comboBox(DirectoryColumn)->itemText(1), u"/"_s);
}

void TestFilterRow::theFilterRowIsNeverSelectedAlone()
{
    panel->table()->selectRow(0);
    QTest::keyClicks(row()->lineEdit(TitleColumn), u"a"_s);
    QVERIFY(!panel->table()->selectionModel()->hasSelection());
    row()->lineEdit(TitleColumn)->clear();
    panel->table()->selectRow(1);
    QTest::mouseClick(row()->button(SelectedColumn), Qt::LeftButton);
    QCOMPARE(panel->selection().rows(), QList<int>{1});
}

void TestFilterRow::anotherLanguageKeepsTheChoice()
{
    choose(BpmColumn, u"Langsam"_s);
    choose(YearColumn, u"<Kein Eintrag>"_s);
    choose(LevelColumn, u"Easy"_s);
    QTest::keyClicks(row()->lineEdit(TitleColumn), u"a"_s);
    Starred language;
    QCoreApplication::installTranslator(&language);
    QCoreApplication::processEvents();
    QCOMPARE(filterText(BpmColumn), u"*Langsam"_s);
    QCOMPARE(row()->comboBox(BpmColumn)->currentText(), u"*Langsam"_s);
    QCOMPARE(filterText(YearColumn), u"*<Kein Eintrag>"_s);
    QCOMPARE(filterText(LevelColumn), u"Easy"_s);
    QCOMPARE(filterText(TitleColumn), u"a"_s);
    QCOMPARE(row()->lineEdit(TitleColumn)->placeholderText(), u"*Filtern nach Titel"_s);
    QCOMPARE(row()->comboBox(BpmColumn)->lineEdit()->placeholderText(), u"*Filtern nach BPM"_s);
    QCOMPARE(row()->button(SelectedColumn)->toolTip(), u"*Filtern nach *Auswahl"_s);
    QCoreApplication::removeTranslator(&language);
    QCoreApplication::processEvents();
    QCOMPARE(filterText(BpmColumn), u"Langsam"_s);
}

void TestFilterRow::theNameOfALevelChanges()
{
    SongListTableModel::setHighIntermediateName(u"High Intermediate"_s);
    row()->handleModelChanged();
    QCOMPARE(row()->comboBox(LevelColumn)->itemText(2), u"High Intermediate"_s);
}

void TestFilterRow::aClickIntoTheFieldOpensTheBox()
{
    FilterComboBox *combo = row()->comboBox(LevelColumn);
    QTest::mouseClick(combo->lineEdit(), Qt::RightButton);
    QVERIFY(!combo->view()->isVisible());
    QTest::mouseClick(combo->lineEdit(), Qt::LeftButton);
    QVERIFY(combo->view()->isVisible());
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QVERIFY(!combo->view()->isVisible());
    QCOMPARE(filterText(LevelColumn), u"Easy"_s);
    QVERIFY(!combo->lineEdit()->hasFocus());
}

void TestFilterRow::theWheelChoosesNothing()
{
    FilterComboBox *combo = row()->comboBox(LevelColumn);
    for (const int delta : {-120, 120}) {
        QWheelEvent event(QPointF(5, 5), combo->mapToGlobal(QPointF(5, 5)), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(combo, &event);
        QCOMPARE(combo->currentIndex(), 0);
    }
}

void TestFilterRow::anOpenBoxShowsItsLongestEntry()
{
    const QString longest(60, u'W');
    songs->song(u"a"_s)->setGenre(longest);
    row()->handleModelChanged();
    FilterComboBox *combo = row()->comboBox(GenreColumn);
    combo->showPopup();
    const QFontMetrics metrics(combo->font());
    const int screen = combo->screen()->availableGeometry().width();
    QCOMPARE(combo->view()->minimumWidth(),
             std::min(metrics.horizontalAdvance(longest) + metrics.maxWidth() / 2 + 20, screen));
    QVERIFY(combo->view()->width() >= combo->view()->minimumWidth());
    combo->hidePopup();
}

void TestFilterRow::useTheme(const QString &name, int points) const
{
    const Theme &theme = themeNamed(name);
    QApplication::setPalette(theme.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {.fontSize = points}));
    setThemeContext({40, 40}, u":/"_s + theme.directory);
    panel->setFontSize(points);
    panel->refreshPictures();
    QCoreApplication::processEvents();
}

void TestFilterRow::emptyBoxesHaveTheirColour_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QColor>("empty");
    QTest::addColumn<QColor>("filled");
    QTest::newRow("dark") << u"Dark Night"_s << u"QLineEdit[text=\"\"]{ color:#383; }"_s
                          << QColor(0x33, 0x88, 0x33) << QColor(0x7f, 0xff, 0x7f);
    QTest::newRow("bright") << u"Bright Morning"_s << u"QLineEdit[text=\"\"]{ color:#777; }"_s
                            << QColor(0x77, 0x77, 0x77) << QColor(Qt::black);
}

void TestFilterRow::emptyBoxesHaveTheirColour()
{
    QFETCH(QString, theme);
    QFETCH(QString, sheet);
    QFETCH(QColor, empty);
    QFETCH(QColor, filled);
    useTheme(theme, 12);
    row()->resetFilters();
    const QLineEdit *field = row()->comboBox(LevelColumn)->lineEdit();
    QCOMPARE(field->styleSheet(), sheet);
    QCOMPARE(field->palette().color(QPalette::Text), empty);
    choose(LevelColumn, u"Easy"_s);
    QCOMPARE(field->palette().color(QPalette::Text), filled);
    choose(LevelColumn, QString());
    QCOMPARE(field->palette().color(QPalette::Text), empty);
}

static void themesAndSizes()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("points");
    for (const QString &theme : {u"Dark Night"_s, u"Bright Morning"_s}) {
        for (const int points : {8, 12, 18, 30, 70})
            QTest::addRow("%s, %d", qPrintable(theme), points) << theme << points;
    }
}

void TestFilterRow::widgetsFitTheirRow_data()
{
    themesAndSizes();
}

void TestFilterRow::widgetsFitTheirRow()
{
    QFETCH(QString, theme);
    QFETCH(int, points);
    useTheme(theme, points);
    FilterTableView *frozen = panel->table()->getFrozenView();
    for (int column = 0; column < SongColumnCount; ++column) {
        const QWidget *cell = frozen->indexWidget(frozen->model()->index(0, column));
        QCOMPARE(cell->height(), panel->table()->rowHeight(0));
        QCOMPARE(cell->width(), panel->table()->columnWidth(column));
    }
    const QLineEdit *fields[]
        = {row()->lineEdit(TitleColumn), row()->comboBox(LevelColumn)->lineEdit()};
    for (const QLineEdit *field : fields) {
        QCOMPARE(field->fontInfo().pointSize(), points);
        QVERIFY2(field->fontMetrics().ascent() + field->fontMetrics().descent()
                     <= field->contentsRect().height() + 1,
                 qPrintable(u"%1 in %2"_s.arg(field->fontMetrics().height()).arg(field->height())));
    }
    QVERIFY(row()->button(SelectedColumn)->height() <= panel->table()->rowHeight(0));
}

void TestFilterRow::theMarkIsInTheMiddle_data()
{
    themesAndSizes();
}

void TestFilterRow::theMarkIsInTheMiddle()
{
    QFETCH(QString, theme);
    QFETCH(int, points);
    useTheme(theme, points);
    panel->table()->setColumnWidth(SelectedColumn, points * 6);
    QCoreApplication::processEvents();
    QPushButton *button = row()->button(SelectedColumn);
    const QWidget *cell = button->parentWidget();
    const int beside = button->x() - (cell->width() - button->x() - button->width());
    QVERIFY(qAbs(beside) <= 1);
    const int above = button->y() - (cell->height() - button->y() - button->height());
    QVERIFY(qAbs(above) <= 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseMove(window.get(), QPoint(2, window->height() - 2));
    QCoreApplication::processEvents();
    const QImage picture = button->grab().toImage();
    const QColor ground = picture.pixelColor(picture.width() / 2, 3);
    QRect mark;
    for (int y = 3; y < picture.height() - 3; ++y) {
        for (int x = 3; x < picture.width() - 3; ++x) {
            if (picture.pixelColor(x, y) != ground)
                mark |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(!mark.isEmpty());
    QVERIFY(qAbs(mark.center().x() - picture.width() / 2) <= 1 + points / 8);
    // Whole: it touches neither edge.
    QVERIFY(mark.top() > 3 || points == 8);
    QVERIFY(mark.bottom() < picture.height() - 4 || points == 8);
}

void TestFilterRow::refillingManySongsIsQuick()
{
    constexpr int count = 10000;
    TestLibrary library;
    for (int number = 0; number < count; ++number) {
        const SongPtr song = library.put(u"/music/%1/%2.mp3"_s.arg(number % 300).arg(number));
        song->setLevel(u"Level %1"_s.arg(number % 12));
        song->setGenre(u"Genre %1"_s.arg(number % 40));
        song->setChoreographer(u"Name %1, Name %2"_s.arg(number % 500).arg(number % 77));
        for (int event = 0; event < 10; ++event)
            song->getDanceEvents().append(std::make_shared<DanceEvent>(
                u"Category %1"_s.arg((number + event) % 30), QString(), QString(),
                QDateTime::fromSecsSinceEpoch(1700000000 + event)));
    }
    const PlaylistPtr list(new PlaylistMaster(&library));
    list->refresh();
    panel->setList(list);
    choose(ChoreographerColumn, u"Name 7"_s);
    QElapsedTimer timer;
    timer.start();
    constexpr int rounds = 10;
    for (int round = 0; round < rounds; ++round)
        row()->handleModelChanged();
    qInfo() << timer.elapsed() / rounds << "ms a refill";
    // A small part of it on a quiet machine.
    QVERIFY(timer.elapsed() / rounds < 1000);
    QCOMPARE(row()->comboBox(ChoreographerColumn)->count(), 503);
    QCOMPARE(row()->comboBox(DirectoryColumn)->count(), 301);
    panel->setList(songs->manager.getMasterList());
}

void TestFilterRow::theDialogHasItsTexts()
{
    QDate from = today;
    QDate to = today;
    const DateRange dialog(&from, &to);
    QCOMPARE(dialog.windowTitle(), u"Zeitspanne eingeben:"_s);
    QStringList texts;
    for (const QLabel *label : dialog.findChildren<QLabel *>(Qt::FindDirectChildrenOnly))
        texts.append(label->text());
    QCOMPARE(texts, (QStringList{u"Zeitspanne von:"_s, u"bis:"_s}));
    texts.clear();
    for (const QPushButton *button : dialog.findChildren<QPushButton *>())
        texts.append(button->text());
    texts.sort();
    QCOMPARE(texts, (QStringList{u"Abbruch"_s, u"Return"_s}));
}

void TestFilterRow::theDialogBeginsWithItsDates()
{
    QDate from(2024, 2, 29);
    QDate to(2025, 1, 1);
    const DateRange dialog(&from, &to);
    QCOMPARE(dialog.fromCalendar()->selectedDate(), QDate(2024, 2, 29));
    QCOMPARE(dialog.toCalendar()->selectedDate(), QDate(2025, 1, 1));
    QCOMPARE(dialog.fromCalendar()->maximumDate(), QDate(2025, 1, 1));
    QCOMPARE(dialog.toCalendar()->minimumDate(), QDate(2024, 2, 29));
}

void TestFilterRow::theDialogFitsTheScreen_data()
{
    themesAndSizes();
}

void TestFilterRow::theDialogFitsTheScreen()
{
    QFETCH(QString, theme);
    QFETCH(int, points);
    useTheme(theme, points);
    QDate from = today;
    QDate to = today;
    DateRange dialog(&from, &to);
    dialog.show();
    QVERIFY2(dialog.width() <= dialog.screen()->availableSize().width()
                 && dialog.height() <= dialog.screen()->availableSize().height(),
             qPrintable(u"%1 x %2"_s.arg(dialog.width()).arg(dialog.height())));
    QCOMPARE(dialog.findChild<QLabel *>()->fontInfo().pointSize() == points, points <= 12);
}

void TestFilterRow::calendarsBoundEachOther()
{
    QDate from = today;
    QDate to = today;
    DateRange dialog(&from, &to);
    dialog.toCalendar()->setSelectedDate(today.addDays(10));
    QCOMPARE(dialog.fromCalendar()->maximumDate(), today.addDays(10));
    dialog.fromCalendar()->setSelectedDate(today.addDays(4));
    QCOMPARE(dialog.toCalendar()->minimumDate(), today.addDays(4));
    dialog.fromCalendar()->setSelectedDate(today.addDays(11));
    QVERIFY(dialog.fromCalendar()->selectedDate() <= today.addDays(10));
    dialog.toCalendar()->setSelectedDate(today);
    QVERIFY(dialog.toCalendar()->selectedDate() >= dialog.fromCalendar()->selectedDate());
}

void TestFilterRow::aDoubleClickTakesOneDay()
{
    QDate from = today;
    QDate to = today.addDays(20);
    DateRange dialog(&from, &to);
    dialog.show();
    auto *days
        = dialog.fromCalendar()->findChild<QAbstractItemView *>(u"qt_calendar_calendarview"_s);
    const QRect day = days->visualRect(days->currentIndex());
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, day.center());
    QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, day.center());
    QCOMPARE(dialog.fromCalendar()->selectedDate(), today);
    QCOMPARE(dialog.toCalendar()->selectedDate(), today);
    QVERIFY(dialog.isVisible());
    dialog.accept();
    QCOMPARE(from, today);
    QCOMPARE(to, today);
}

void TestFilterRow::theDialogAnswers_data()
{
    QTest::addColumn<QString>("button"); // Escape without one
    QTest::addColumn<bool>("chosen");
    QTest::newRow("ok") << u"Return"_s << true;
    QTest::newRow("cancel") << u"Abbruch"_s << false;
    QTest::newRow("escape") << QString() << false;
}

void TestFilterRow::theDialogAnswers()
{
    QFETCH(QString, button);
    QFETCH(bool, chosen);
    QDate from = today.addDays(-3);
    QDate to = today;
    DateRange dialog(&from, &to);
    dialog.show();
    if (button.isEmpty())
        QTest::keyClick(&dialog, Qt::Key_Escape);
    for (QPushButton *candidate : dialog.findChildren<QPushButton *>()) {
        if (candidate->text() == button)
            QTest::mouseClick(candidate, Qt::LeftButton);
    }
    QVERIFY(!dialog.isVisible());
    QCOMPARE(from, chosen ? today.addDays(-3) : QDate());
    QCOMPARE(to, chosen ? today : QDate());
}

TARVELO_TEST_MAIN(TestFilterRow, QApplication)
#include "tst_FilterRow.moc"
