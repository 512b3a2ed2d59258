#include "DateRange.h"
#include "FilterComboBox.h"
#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "SongListFilterHandler.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

// The filter rows of both lists within the window: who gets which key, and what resets them.
class TestWindowFilters : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init()
    {
        prepareWindow();
        useLibrary();
        start();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { dropWindow(); }

    void typingTypes();
    void theSelectionMayGoWhileTyping();
    void arrowsLeadIntoTheList_data();
    void arrowsLeadIntoTheList();
    void arrowsOfTheLeftListMoveTheMusicList();
    void theWindowsKeysGoOn();
    void altGrBelongsToTheLeftList_data();
    void altGrBelongsToTheLeftList();
    void choosingGivesTheKeysBack();
    void whatResetsTheFilters_data();
    void whatResetsTheFilters();
    void escapeElsewhereKeepsTheFilters();
    void everyFieldSpeaksTheLanguage_data();
    void everyFieldSpeaksTheLanguage();

private:
    SongListPanel *left() const { return find<SongListPanel>("framePlaylist"); }
    SongListPanel *right() const { return find<LibraryPage>("page1_MusicList")->songList(); }
    QLineEdit *titles(const SongListPanel *panel) const
    {
        return panel->filterRow()->lineEdit(TitleColumn);
    }
    bool windowHasKeys() const { return window->centralWidget()->hasFocus(); }
    void fillLeft() const;
};

void TestWindowFilters::fillLeft() const
{
    left()->model()->addSongs(tarvelo->getSongManager()->getSongs().values());
    window->carryOut({Command::TogglePlaylistPanel, 0});
    QCoreApplication::processEvents();
}

void TestWindowFilters::typingTypes()
{
    QLineEdit *edit = titles(right());
    edit->setFocus();
    // Each of them is a key of the window.
    for (const char letter : "apslmrfebco19+-")
        if (letter)
            QTest::keyClick(edit, letter);
    QCOMPARE(edit->text(), u"apslmrfebco19+-"_s);
    QVERIFY(edit->hasFocus());
    QCOMPARE(window->currentScreen(), int(LibraryScreen));
    QCOMPARE(window->getTempo(), 0);
    QVERIFY(boxes.isEmpty());
    QTest::keyClick(edit, Qt::Key_Left);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QCOMPARE(edit->text(), u"apslmrfebco19-"_s);
}

void TestWindowFilters::theSelectionMayGoWhileTyping()
{
    right()->selection().goToFirst();
    titles(right())->setFocus();
    QTest::keyClick(titles(right()), Qt::Key_X);
    right()->selection().clear();
    right()->model()->refresh();
    QVERIFY(titles(right())->hasFocus());
    QTest::keyClick(titles(right()), Qt::Key_Y);
    QCOMPARE(titles(right())->text(), u"xy"_s);
}

void TestWindowFilters::arrowsLeadIntoTheList_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("row");
    QTest::newRow("up") << int(Qt::Key_Up) << 2 << 3;
    QTest::newRow("down") << int(Qt::Key_Down) << 2 << 1;
    QTest::newRow("up, nothing selected") << int(Qt::Key_Up) << 0 << -1;
    QTest::newRow("down, nothing selected") << int(Qt::Key_Down) << 0 << 1;
}

void TestWindowFilters::arrowsLeadIntoTheList()
{
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, row);
    right()->selection().clear();
    for (int step = 0; step < from; ++step)
        right()->selection().goToNext();
    titles(right())->setFocus();
    QTest::keyClick(titles(right()), static_cast<Qt::Key>(key));
    QCOMPARE(right()->selection().row(), row);
    QVERIFY(windowHasKeys());
}

void TestWindowFilters::arrowsOfTheLeftListMoveTheMusicList()
{
    fillLeft();
    left()->selection().goToFirst();
    right()->selection().goToFirst();
    titles(left())->setFocus();
    QVERIFY(titles(left())->hasFocus());
    QTest::keyClick(titles(left()), Qt::Key_Up);
    QCOMPARE(right()->selection().row(), 3);
    QVERIFY(windowHasKeys());
}

void TestWindowFilters::theWindowsKeysGoOn()
{
    titles(right())->setFocus();
    right()->selection().goToFirst();
    QTest::keyClick(titles(right()), Qt::Key_PageDown);
    QCOMPARE(right()->selection().row(), 3);
    QVERIFY(windowHasKeys());
    titles(right())->setFocus();
    QTest::keyClick(titles(right()), Qt::Key_F2);
    QCOMPARE(window->currentScreen(), int(PositionsScreen));
}

void TestWindowFilters::altGrBelongsToTheLeftList_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("its own") << Qt::KeyboardModifiers(Qt::GroupSwitchModifier);
    QTest::newRow("two keys") << (Qt::ControlModifier | Qt::AltModifier);
}

void TestWindowFilters::altGrBelongsToTheLeftList()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    fillLeft();
    for (SongListPanel *panel : {left(), right()}) {
        titles(panel)->setFocus();
        QTest::keyClick(titles(panel), Qt::Key_End, modifiers);
        QCOMPARE(left()->selection().row(), 3);
        titles(panel)->setFocus();
        QTest::keyClick(titles(panel), Qt::Key_Up, modifiers);
        QCOMPARE(left()->selection().row(), 2);
        titles(panel)->setFocus();
        QTest::keyClick(titles(panel), Qt::Key_Down, modifiers);
        QCOMPARE(left()->selection().row(), 3);
    }
}

void TestWindowFilters::choosingGivesTheKeysBack()
{
    titles(right())->setFocus();
    right()->filterRow()->comboBox(BpmColumn)->setCurrentIndex(1);
    QVERIFY(windowHasKeys());
    right()->table()->setColumnHidden(SelectedColumn, false);
    titles(right())->setFocus();
    QTest::mouseClick(right()->filterRow()->button(SelectedColumn), Qt::LeftButton);
    QVERIFY(windowHasKeys());
}

void TestWindowFilters::whatResetsTheFilters_data()
{
    QTest::addColumn<int>("key"); // 0: the button
    QTest::newRow("escape") << int(Qt::Key_Escape);
    QTest::newRow("R") << int(Qt::Key_R);
    QTest::newRow("button") << 0;
}

void TestWindowFilters::whatResetsTheFilters()
{
    QFETCH(int, key);
    fillLeft();
    find<QLineEdit>("lineEditFilter")->setText(u"x"_s);
    for (SongListPanel *panel : {left(), right()}) {
        QTest::keyClick(titles(panel), Qt::Key_O);
        panel->filterRow()->comboBox(BpmColumn)->setCurrentIndex(3);
        QCOMPARE(panel->model()->filterText(BpmColumn), u"Normal"_s);
    }
    if (key == Qt::Key_Escape) {
        titles(left())->setFocus();
        QTest::keyClick(titles(left()), Qt::Key_Escape);
    } else if (key != 0) {
        WindowFixture::key(key);
    } else {
        find<QPushButton>("buttonResetFilter")->click();
    }
    for (SongListPanel *panel : {left(), right()}) {
        for (int column = 0; column < SongColumnCount; ++column)
            QCOMPARE(panel->model()->filterText(column), QString());
        QCOMPARE(titles(panel)->text(), QString());
        QCOMPARE(panel->filterRow()->comboBox(BpmColumn)->currentIndex(), 0);
    }
    QCOMPARE(find<QLineEdit>("lineEditFilter")->text(), QString());
    QVERIFY(windowHasKeys());
}

void TestWindowFilters::escapeElsewhereKeepsTheFilters()
{
    fillLeft();
    QTest::keyClick(titles(left()), Qt::Key_O);
    window->showScreen(PositionsScreen);
    titles(left())->setFocus();
    QTest::keyClick(titles(left()), Qt::Key_Escape);
    QCOMPARE(titles(left())->text(), u"o"_s);
    QVERIFY(windowHasKeys());
}

void TestWindowFilters::everyFieldSpeaksTheLanguage_data()
{
    QTest::addColumn<QString>("beginning");
    QTest::newRow("de") << u"Filtern nach "_s;
    QTest::newRow("en") << u"Filter by "_s;
}

void TestWindowFilters::everyFieldSpeaksTheLanguage()
{
    QFETCH(QString, beginning);
    window->setLanguage(QString::fromLatin1(QTest::currentDataTag()));
    QTRY_VERIFY(titles(right())->placeholderText().startsWith(beginning));
    int told = 0;
    const QList<QLineEdit *> fields
        = right()->findChildren<QLineEdit *>(u"filterLineEdit"_s, Qt::FindChildrenRecursively);
    QVERIFY(fields.size() == 28);
    for (const QLineEdit *field : fields) {
        if (field->placeholderText().isEmpty())
            continue;
        ++told;
        QVERIFY2(field->placeholderText().startsWith(beginning),
                 qPrintable(field->placeholderText()));
    }
    QCOMPARE(told, 20);
}

TARVELO_TEST_MAIN(TestWindowFilters, QApplication)
#include "tst_WindowFilters.moc"
