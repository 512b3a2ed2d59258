#include "LibraryPage.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

// The search field over the library, key by key.
class TestWindowSearch : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init();
    void cleanup() { dropWindow(); }

    void everyKeyFilters();
    void theSelectionFollows();
    void escapeGivesAllBack();
    void onlyTheLibraryIsSearched();
    void bothListsMayShowTheLibrary();
    void tempoBandsAreThoseOfTheSettings();

private:
    SongListPanel *right() const { return find<LibraryPage>("page1_MusicList")->songList(); }
    SongListPanel *left() const { return find<SongListPanel>("framePlaylist"); }
    QLineEdit *field() const { return find<QLineEdit>("lineEditFilter"); }
    QString stats() const { return find<QLabel>("labelFilterStats")->text(); }
    static QStringList titles(const SongListPanel *panel);
};

void TestWindowSearch::init()
{
    prepareWindow();
    useLibrary();
    Settings::setValue(Settings::Key::Tempo12, 85);
    start();
    window->activateWindow();
}

QStringList TestWindowSearch::titles(const SongListPanel *panel)
{
    QStringList all;
    for (int row = 1; row < panel->filter()->rowCount(); ++row)
        all.append(panel->filter()->song(row)->getTitle());
    all.sort();
    return all;
}

void TestWindowSearch::everyKeyFilters()
{
    QCOMPARE(titles(right()).size(), 3);
    key(Qt::Key_F);
    QTRY_VERIFY(field()->hasFocus());
    // A letter or two may stand in the path of each song.
    for (const QChar letter : u"rock"_s) {
        const qsizetype before = titles(right()).size();
        QTest::keyClicks(field(), letter);
        QVERIFY(titles(right()).size() <= before);
    }
    QCOMPARE(titles(right()), QStringList{u"Rocky Top"_s});
    QVERIFY(stats().startsWith(u"Zeige 1/3"_s));
    QTest::keyClicks(field(), u"zz"_s);
    QCOMPARE(titles(right()), QStringList());
    QVERIFY(stats().startsWith(u"Zeige 0/3"_s));
    QVERIFY(field()->hasFocus());
    field()->clear();
    QTest::keyClicks(field(), u"apfel"_s);
    QCOMPARE(titles(right()), QStringList{u"\u00c4pfel"_s});
    field()->setText(u"\"apfel\""_s);
    QCOMPARE(titles(right()), QStringList());
}

void TestWindowSearch::theSelectionFollows()
{
    select(u"Rocky Top"_s);
    const SongPtr song = right()->selection().song();
    QVERIFY(song);
    QVERIFY(stats().endsWith(u": 1"_s));
    field()->setText(u"rocky"_s);
    QCOMPARE(right()->selection().song(), song);
    QCOMPARE(right()->selection().row(), 1);
    field()->setText(u"cotton"_s);
    QVERIFY(!right()->selection().song());
    QVERIFY(stats().endsWith(u": 0"_s));
    field()->clear();
    QCOMPARE(titles(right()).size(), 3);
}

void TestWindowSearch::escapeGivesAllBack()
{
    key(Qt::Key_F);
    QTRY_VERIFY(field()->hasFocus());
    QTest::keyClicks(field(), u"rocky"_s);
    QTest::keyClick(field(), Qt::Key_Escape);
    QTRY_VERIFY(!field()->hasFocus());
    QCOMPARE(titles(right()).size(), 1);
    key(Qt::Key_Escape);
    QVERIFY(field()->text().isEmpty());
    QCOMPARE(titles(right()).size(), 3);
    QVERIFY(stats().startsWith(u"Zeige 3/3"_s));
}

void TestWindowSearch::onlyTheLibraryIsSearched()
{
    const PlaylistPtr list = tarvelo->getSongManager()->getPlaylist(1);
    for (const SongPtr &song : tarvelo->getSongManager()->getSongs())
        list->add(song->getFilename());
    left()->setList(list);
    field()->setText(u"rocky"_s);
    QCOMPARE(titles(left()).size(), 3);
    right()->setList(list);
    QCOMPARE(titles(right()).size(), 3);
    right()->setList(tarvelo->getSongManager()->getPlaylist(0));
    QCOMPARE(titles(right()), QStringList{u"Rocky Top"_s});
}

void TestWindowSearch::bothListsMayShowTheLibrary()
{
    left()->setList(tarvelo->getSongManager()->getPlaylist(0));
    field()->setText(u"rocky"_s);
    QCOMPARE(titles(left()), QStringList{u"Rocky Top"_s});
    QCOMPARE(titles(right()), QStringList{u"Rocky Top"_s});
    QTRY_VERIFY(left()->findChild<QLabel *>(u"labelPlaylistInfoL"_s)->text().startsWith(u"1/3"_s));
}

void TestWindowSearch::tempoBandsAreThoseOfTheSettings()
{
    const auto &songs = tarvelo->getSongManager()->getSongs();
    int bpm = 85;
    for (const SongPtr &song : songs)
        song->setBpm(QString::number(bpm++));
    right()->model()->setFilterText(u"Sehr langsam"_s, BpmColumn);
    right()->filter()->applyFilters();
    QCOMPARE(titles(right()).size(), 1);
    QCOMPARE(right()->filter()->song(1)->getBpm(), u"85"_s);
}

TARVELO_TEST_MAIN(TestWindowSearch, QApplication)
#include "tst_WindowSearch.moc"
