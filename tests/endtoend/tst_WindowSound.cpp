#include "FrozenTableView.h"
#include "Keyboard.h"
#include "LibraryPage.h"
#include "Player.h"
#include "PositionsPage.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "SongFiles.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SoundSession.h"
#include "TestMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>

using namespace Qt::StringLiterals;
using Settings::Key;

namespace {

// The pace of a hand that taps.
constexpr int betweenKeysMs = 150;
// Long enough for three attempts.
constexpr int ladderSeconds = 45;
// What a busy window may take from the music.
constexpr double mostGapOfChangeMs = 150;

} // namespace

// The window is used while its music plays, and the music doesn't suffer.
class TestWindowSound : public SoundSession
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareSession(); }
    void cleanup() { dropSession(); }

    void playIsWrittenWhileItSounds();
    void arrowsSeekWhatIsHeard();
    void languageChangesUnderTheMusic();
    void frameHeightAtItsEnds();
    void fontSizeAtItsEnds();
    void resizingKeepsTheMusic_data();
    void resizingKeepsTheMusic();
    void contextMenuLoopsItsRow();

private:
    QString ladder() const { return songs.filePath(u"ladder.mp3"_qs); }
    QTableWidget *positions() const { return find<QTableWidget>("tableWidgetPositions"); }
    QStringList texts() const;
    QStringList buttonTips() const;
    QStringList cutTexts() const;
    bool isMarkedRowInView() const;
    bool isSelectedSongInView() const;
    double heardSecond();
    QPoint placeOfRow(int row) const;

    // With a part every second.
    QTemporaryDir songs;
};

void TestWindowSound::initTestCase()
{
    if (const char *missing = obstacle())
        QSKIP(missing);
    QVERIFY(Ladder::write(ladder(), ladderSeconds));
    QVERIFY(Ladder::addParts(ladder(), ladderSeconds, 1000));
}

// Each attempt has a file of its own, whose tag has to grow: all of it is written anew.
void TestWindowSound::playIsWrittenWhileItSounds()
{
    const QTemporaryDir music;
    Settings::setValue(Key::RegisterPlay, 2);
    const QString sample = songs.filePath(u"short.mp3"_qs);
    QVERIFY(Ladder::write(sample, 10));
    const QStringList names{u"a.mp3"_qs, u"b.mp3"_qs, u"c.mp3"_qs};
    for (const QString &name : names)
        QVERIFY(QFile::copy(sample, music.filePath(name)));
    QVERIFY(QFile::remove(sample));
    start(music.path());
    double gap = mostGapMs;
    for (qsizetype attempt = 0; attempt < names.size() && gap >= mostGapMs; ++attempt) {
        QVERIFY(press(u"F1"_qs));
        play(names.at(attempt));
        QVERIFY(Keyboard::press({u"plus"_qs, u"plus"_qs}));
        QTRY_COMPARE(window->getTempo(), 2);
        const double begin = Recorder::now();
        QTRY_VERIFY(player()->getPlaytime() > 4500);
        gap = gapSince(begin);
        // A reader that knows nothing of the program, while the song goes on.
        const QJsonObject read = SongFiles::dump(music.filePath(names.at(attempt)));
        QVERIFY(player()->isPlaying());
        const QStringList events = SongFiles::userTexts(read, u"DanceEvents"_qs);
        QCOMPARE(events.size(), 1);
        const QStringList fields = events.constFirst().trimmed().split(u'\t');
        QVERIFY2(std::abs(fields.constFirst().toLongLong() - QDateTime::currentSecsSinceEpoch())
                     < 60,
                 qPrintable(events.constFirst()));
        QCOMPARE(read[u"song"].toObject()[u"tempo"].toString().toDouble(), 2.0);
        QVERIFY(press(u"s"_qs));
        QTRY_VERIFY(!player()->isPlaying());
    }
    QVERIFY2(gap < mostGapMs, qPrintable(QString::number(gap)));
}

double TestWindowSound::heardSecond()
{
    const double now = Recorder::now();
    QTest::qWait(300);
    recorder->catchUp();
    return Ladder::secondAt(*recorder, now);
}

void TestWindowSound::arrowsSeekWhatIsHeard()
{
    start(songs.path());
    play(u"ladder.mp3"_qs);
    const auto jump = [this](const QString &key, double seconds) {
        const double begin = Recorder::now();
        const double before = heardSecond();
        QVERIFY(press(key));
        QTest::qWait(400);
        const double passed = (Recorder::now() - begin) / 1000;
        const double moved = heardSecond() - before - passed;
        qInfo() << key << "moved by seconds:" << moved;
        QVERIFY2(std::abs(moved - seconds) < 1.2, qPrintable(QString::number(moved)));
    };
    jump(u"Right"_qs, 5);
    jump(u"Right"_qs, 5);
    jump(u"Left"_qs, -5);
}

// All that the window says, but for the clock and what follows a moment later.
QStringList TestWindowSound::texts() const
{
    QStringList all;
    for (const QObject *part : window->findChildren<QObject *>()) {
        const QString name = part->objectName();
        for (const char *property :
             {"text", "title", "toolTip", "accessibleName", "placeholderText", "plainText"}) {
            const QString text = part->property(property).toString();
            const bool changes
                = (name == u"buttonTime" || name == u"buttonRunTime" || name == u"labelFilterStats")
                  && QByteArrayView(property) == "text";
            if (!text.isEmpty() && !changes)
                all.append(name + u' ' + QLatin1String(property) + u": "_qs + text);
        }
    }
    for (const SongListPanel *panel : window->findChildren<SongListPanel *>()) {
        for (int column = 0; column < panel->model()->columnCount(); ++column)
            all.append(panel->model()->headerData(column, Qt::Horizontal).toString());
    }
    for (int column = 0; column < positions()->columnCount(); ++column)
        all.append(positions()->horizontalHeaderItem(column)->text());
    all.sort();
    return all;
}

// Of the two frames, without those that are the same in both languages.
QStringList TestWindowSound::buttonTips() const
{
    QStringList tips;
    for (const char *name : {"frameTop", "buttonFrame"}) {
        for (const auto *button : find<QFrame>(name)->findChildren<QAbstractButton *>()) {
            if (!button->toolTip().isEmpty() && !button->toolTip().startsWith(u"Tempo   "_qs))
                tips.append(button->toolTip());
        }
    }
    return tips;
}

void TestWindowSound::languageChangesUnderTheMusic()
{
    Settings::setValue(Key::Language, u"en_US"_qs);
    start(songs.path());
    QVERIFY(choose(u"ladder.mp3"_qs));
    QVERIFY(press(u"Return"_qs));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(PositionsScreen));
    const QStringList english = texts();
    dropWindow();
    Settings::setValue(Key::Language, u"de_DE"_qs);
    start(songs.path());
    QVERIFY(choose(u"ladder.mp3"_qs));
    QVERIFY(press(u"Return"_qs));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(PositionsScreen));
    const QStringList german = texts();
    QVERIFY(german.size() > 200);
    const QStringList germanTips = buttonTips();
    QVERIFY(germanTips.size() > 15);

    QVERIFY(press(u"p"_qs));
    QTRY_VERIFY(player()->getPlaytime() > 1000);
    const auto *stats = find<QLabel>("labelFilterStats");
    const auto change
        = [&](const QString &language, const QStringList &expected, const QString &statsBegin) {
              window->setLanguage(language);
              QCoreApplication::sendPostedEvents();
              const QStringList now = texts();
              for (qsizetype i = 0; i < std::min(now.size(), expected.size()); ++i)
                  QCOMPARE(now.at(i), expected.at(i));
              QCOMPARE(now.size(), expected.size());
              QTRY_VERIFY(stats->text().startsWith(statsBegin));
              QTest::qWait(600);
              QVERIFY(player()->isPlaying());
          };
    const double gap = gapDuring(
        [&] {
            change(u"en"_qs, english, u"Showing"_qs);
            for (const QString &tip : buttonTips())
                QVERIFY2(!germanTips.contains(tip), qPrintable(tip));
            change(u"de"_qs, german, u"Zeige"_qs);
        },
        mostGapMs);
    QVERIFY2(gap < mostGapMs, qPrintable(QString::number(gap)));
}

// What is on show in the two frames and has not the room that its text needs.
QStringList TestWindowSound::cutTexts() const
{
    QStringList cut;
    const QRect screen = window->screen()->geometry();
    for (const char *name : {"frameTop", "buttonFrame"}) {
        for (const QWidget *widget : find<QFrame>(name)->findChildren<QWidget *>()) {
            const auto *button = qobject_cast<const QPushButton *>(widget);
            const auto *label = qobject_cast<const QLabel *>(widget);
            if (!widget->isVisible() || (!button && !label))
                continue;
            const QString text = button ? button->text() : label->text();
            const bool plain = button || label->textFormat() == Qt::PlainText;
            const QSize needed = plain ? widget->fontMetrics().size(0, text) : label->sizeHint();
            const QRect place(widget->mapToGlobal(QPoint()), widget->size());
            const bool fits = needed.width() <= widget->width()
                              && widget->fontMetrics().ascent() <= widget->height();
            if (!screen.contains(place) || (!text.isEmpty() && !fits))
                cut.append(u"%1 '%2' %3x%4 at %5,%6 needs %7"_qs.arg(widget->objectName(), text)
                               .arg(place.width())
                               .arg(place.height())
                               .arg(place.x())
                               .arg(place.y())
                               .arg(needed.width()));
        }
    }
    return cut;
}

void TestWindowSound::frameHeightAtItsEnds()
{
    start(songs.path());
    window->showMaximized();
    play(u"ladder.mp3"_qs);
    const auto *frame = find<QFrame>("frameTop");
    const auto stepTo = [&](const QString &key, int height) {
        for (int step = 0; step < 13 && frame->height() != height; ++step) {
            QVERIFY(press(key));
            QTest::qWait(betweenKeysMs);
        }
        QTRY_COMPARE(frame->height(), height);
        QTest::qWait(100);
        QCOMPARE(cutTexts().join(u'\n'), QString());
        QCOMPARE(find<QFrame>("buttonFrame")->height(), height * 7 / 5);
    };
    const double gap = gapDuring(
        [&] {
            stepTo(u"ctrl+period"_qs, 80);
            // Here it ends.
            QVERIFY(press(u"ctrl+period"_qs));
            QTest::qWait(100);
            QCOMPARE(frame->height(), 80);
            stepTo(u"ctrl+comma"_qs, 25);
            // Lower than the letters of the search field it doesn't get.
            QVERIFY(press(u"ctrl+comma"_qs));
            QTest::qWait(100);
            QCOMPARE(frame->height(), 25);
        },
        mostGapOfChangeMs);
    QVERIFY(player()->isPlaying());
    QVERIFY(isMarkedRowInView());
    qInfo() << "Longest gap in ms:" << gap;
    QVERIFY2(gap < mostGapOfChangeMs, qPrintable(QString::number(gap)));
}

void TestWindowSound::fontSizeAtItsEnds()
{
    start(songs.path());
    window->showMaximized();
    play(u"ladder.mp3"_qs);
    auto *page = window->findChild<SettingsPage *>();
    const auto stepTo = [&](const QString &key, int from, int end) {
        page->setFontSize(from);
        QTest::qWait(betweenKeysMs);
        for (int step = 0; step < 4; ++step) {
            QVERIFY(press(key));
            QTest::qWait(betweenKeysMs);
        }
        QTRY_COMPARE(page->fontSize(), end);
        QTest::qWait(100);
        QCOMPARE(cutTexts().join(u'\n'), QString());
    };
    const double gap = gapDuring(
        [&] {
            stepTo(u"alt+KP_Add"_qs, 67, 70);
            stepTo(u"alt+KP_Subtract"_qs, 11, 8);
        },
        mostGapOfChangeMs);
    QVERIFY(player()->isPlaying());
    QVERIFY(isMarkedRowInView());
    qInfo() << "Longest gap in ms:" << gap;
    QVERIFY2(gap < mostGapOfChangeMs, qPrintable(QString::number(gap)));
}

bool TestWindowSound::isMarkedRowInView() const
{
    const int row = window->findChild<PositionsPage *>()->selectedPositionsRow();
    const QTableWidgetItem *steps = positions()->item(row, StepsColumn);
    return steps && positions()->viewport()->rect().intersects(positions()->visualItemRect(steps));
}

bool TestWindowSound::isSelectedSongInView() const
{
    const SongListPanel *panel = window->findChild<LibraryPage *>()->songList();
    const QRect place
        = panel->table()->visualRect(panel->filter()->index(panel->selection().row(), 0));
    return place.isValid() && panel->table()->viewport()->rect().intersects(place);
}

void TestWindowSound::resizingKeepsTheMusic_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("positions") << u"F2"_qs;
    QTest::newRow("library") << u"F1"_qs;
}

void TestWindowSound::resizingKeepsTheMusic()
{
    QFETCH(QString, key);
    constexpr int resizes = 60;
    Settings::setValue(Key::LyricsFullPage, true);
    start(songs.path());
    play(u"ladder.mp3"_qs);
    QVERIFY(press(key));
    const bool onPositions = key == u"F2";
    QTRY_COMPARE(window->currentScreen(),
                 static_cast<int>(onPositions ? PositionsScreen : LibraryScreen));
    const QSize smallest(1000, 500);
    const double gap = gapDuring(
        [&] {
            for (int i = 0; i < resizes; ++i) {
                const int step = std::abs(i % 20 - 10);
                window->resize(smallest + QSize(step * 60, step * 30));
                QTest::qWait(90);
                QVERIFY(onPositions ? isMarkedRowInView() : isSelectedSongInView());
            }
        },
        mostGapMs);
    QVERIFY2(gap < mostGapMs, qPrintable(QString::number(gap)));
    QVERIFY(player()->isPlaying());
    QVERIFY(press(u"F2"_qs));
    QTRY_VERIFY(isMarkedRowInView());
}

QPoint TestWindowSound::placeOfRow(int row) const
{
    const QRect cell = positions()->visualItemRect(positions()->item(row, StepsColumn));
    return {cell.left() + 30, cell.center().y()};
}

// Heard are the two seconds of the row, and again, until the song is stopped.
void TestWindowSound::contextMenuLoopsItsRow()
{
    const QTemporaryDir music;
    QVERIFY(Ladder::write(music.filePath(u"loop.mp3"_qs), 10));
    QVERIFY(Ladder::addParts(music.filePath(u"loop.mp3"_qs), 4, 2000));
    Settings::setValue(Key::MaxFontSizeLyrics, 30);
    start(music.path());
    window->setGeometry(200, 60, 1400, 800);
    QVERIFY(choose(u"loop.mp3"_qs));
    QVERIFY(press(u"Return"_qs));
    QTRY_COMPARE(positions()->rowCount(), 4);
    QTRY_COMPARE(window->size(), QSize(1400, 800));
    // A list that plays on by itself waits while a part loops, though each jump stops the music.
    auto *list = find<SongListPanel>("framePlaylist");
    list->model()->addSongs({window->getCurrentSong(), window->getCurrentSong()});
    list->selection().select(window->getCurrentSong());
    list->setNonStop(true);
    const auto menu = [] { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); };
    const QPoint place = placeOfRow(1);
    QVERIFY(click(positions()->viewport()->mapToGlobal(place), 3));
    QTRY_VERIFY(menu());
    // The menu's place counts from the corner of the song table.
    const QWidget *origin = window->findChild<LibraryPage *>()->songList()->table()->viewport();
    QCOMPARE(menu()->pos(), origin->mapToGlobal(place));

    QVERIFY(Keyboard::press({u"Down"_qs, u"Down"_qs}));
    QTRY_VERIFY(menu()->activeAction());
    QTRY_COMPARE(menu()->activeAction()->text(), u"Abspielen in Endlosschleife"_qs);
    const double begin = Recorder::now();
    QVERIFY(press(u"Return"_qs));
    QTRY_VERIFY(player()->isPlaying());
    QVERIFY(!menu());
    QTest::qWait(4600);
    QCOMPARE(window->findChild<PositionsPage *>()->selectedPositionsRow(), 1);
    QVERIFY(press(u"s"_qs));
    QTRY_VERIFY(!player()->isPlaying());
    recorder->catchUp();
    const qsizetype first = recorder->firstSound(recorder->frameAt(begin));
    QVERIFY(first >= 0);
    QList<int> heard;
    for (double at = 350; at < 4300; at += 1000)
        heard.append(qRound(Ladder::secondAt(*recorder, recorder->timeOf(first) + at)));
    QCOMPARE(heard, (QList<int>{2, 3, 2, 3}));

    // What a menu that went away has left is ended by the next click, where no row is.
    QVERIFY(click(positions()->viewport()->mapToGlobal(place), 3));
    QTRY_VERIFY(menu());
    QVERIFY(press(u"Escape"_qs));
    QTRY_VERIFY(!menu());
    const auto *page = window->findChild<PositionsPage *>();
    QVERIFY(page->isContextMenuOpen());
    const QPoint free(30, positions()->viewport()->height() - 20);
    QVERIFY(!positions()->indexAt(free).isValid());
    QVERIFY(click(positions()->viewport()->mapToGlobal(free), 3));
    QTRY_VERIFY(!page->isContextMenuOpen());
    QVERIFY(!menu());
    // Elsewhere, as two clicks at one place are a double click.
    QVERIFY(click(positions()->viewport()->mapToGlobal(free + QPoint(200, 0)), 3));
    QTRY_VERIFY(menu());
    QCOMPARE(page->contextMenuRow(), -1);
    QVERIFY(press(u"Escape"_qs));
    QTRY_VERIFY(!menu());
    QVERIFY(press(u"p"_qs));
    QTRY_VERIFY(player()->isPlaying());
}

TARVELO_TEST_MAIN(TestWindowSound, QApplication)
#include "tst_WindowSound.moc"
