#include "FileDialogs.h"
#include "Keyboard.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;

} // namespace

// The AltGr key of a German keyboard, which is no Ctrl+Alt here, and keys that the screen brings
// in another form than a test would.
class TestKeys : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void altGrWalksThroughTheList_data();
    void altGrWalksThroughTheList();
    void altGrWorksOnTheList();
    void altGrTypesIntoTheField();
    void screensGoRound();
    void keysWorkBesideTheField();
    void settingsWithoutAMouse();

private:
    void startWithList();
    QString currentTitle() const
    {
        return window->getCurrentSong() ? window->getCurrentSong()->getTitle() : QString();
    }
};

void TestKeys::initTestCase()
{
    if (!qEnvironmentVariableIsSet("TARVELO_SESSION"))
        QSKIP("needs scripts/test-session");
    QVERIFY(Keyboard::useGermanLayout());
    prepareSample();
}

void TestKeys::startWithList()
{
    useLibrary();
    start();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QList<SongPtr> songs(3);
    for (const SongPtr &song : tarvelo->getSongManager()->getSongs())
        songs[u"ÄRC"_qs.indexOf(song->getTitle().at(0))] = song;
    find<SongListPanel>("framePlaylist")->model()->addSongs(songs);
    QVERIFY(Keyboard::press({u"l"_qs}));
    QTRY_VERIFY(find<SongListPanel>("framePlaylist")->isVisible());
}

void TestKeys::altGrWalksThroughTheList_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("no field") << QString();
    QTest::newRow("search field") << u"lineEditFilter"_qs;
}

void TestKeys::altGrWalksThroughTheList()
{
    QFETCH(QString, field);
    startWithList();
    const auto walk = [&](const QString &key, const QString &title) {
        if (!field.isEmpty())
            window->findChild<QLineEdit *>(field)->setFocus();
        QVERIFY(Keyboard::pressWithAltGr(key));
        QTRY_COMPARE(currentTitle(), title);
    };
    walk(u"Home"_qs, u"Äpfel"_qs);
    walk(u"Down"_qs, u"Rocky Top"_qs);
    walk(u"End"_qs, u"Cotton Eyed Joe"_qs);
    walk(u"Down"_qs, u"Äpfel"_qs);
    walk(u"Up"_qs, u"Cotton Eyed Joe"_qs);
    walk(u"Prior"_qs, u"Äpfel"_qs);
    walk(u"Next"_qs, u"Cotton Eyed Joe"_qs);
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
}

void TestKeys::altGrWorksOnTheList()
{
    startWithList();
    const auto *list = find<SongListPanel>("framePlaylist");
    key(Qt::Key_Home, altGr);
    QVERIFY(Keyboard::pressWithAltGr(u"Delete"_qs));
    QTRY_COMPARE(list->list()->count(), 2);
    QVERIFY(Keyboard::pressWithAltGr(u"Insert"_qs));
    QTRY_COMPARE(list->list()->count(), 3);
    setSaveFileChooser([this](const QString &, const QString &, const QString &) {
        return music->filePath(u"evening.m3u8"_qs);
    });
    QVERIFY(Keyboard::pressWithAltGr(u"s"_qs));
    QTRY_COMPARE(list->list()->name(), u"evening.m3u8"_qs);
    setSaveFileChooser({});
}

void TestKeys::altGrTypesIntoTheField()
{
    startWithList();
    QVERIFY(Keyboard::press({u"f"_qs}));
    QTRY_VERIFY(find<QLineEdit>("lineEditFilter")->hasFocus());
    QVERIFY(Keyboard::pressWithAltGr(u"s"_qs));
    QVERIFY(Keyboard::pressWithAltGr(u"e"_qs));
    QTRY_COMPARE(find<QLineEdit>("lineEditFilter")->text(), u"ſ€"_qs);
    QVERIFY(boxes.isEmpty());
}

void TestKeys::screensGoRound()
{
    startWithList();
    for (const int screen : {1, 2, 3, 4, 0}) {
        QVERIFY(Keyboard::press({u"ctrl+Tab"_qs}));
        QTRY_COMPARE(window->currentScreen(), screen);
    }
    for (const int screen : {4, 3, 2, 1, 0}) {
        QVERIFY(Keyboard::press({u"ctrl+shift+Tab"_qs}));
        QTRY_COMPARE(window->currentScreen(), screen);
    }
}

// What a number box on the settings page doesn't need for itself belongs to the window.
void TestKeys::keysWorkBesideTheField()
{
    startWithList();
    window->showScreen(SettingsScreen);
    QVERIFY(Keyboard::press({u"F4"_qs}));
    auto *size = find<QSpinBox>("spinBoxMaxFontSizePositions");
    QTRY_VERIFY(size->isVisible());
    size->setFocus();
    QVERIFY(Keyboard::press({u"Up"_qs}));
    QTRY_COMPARE(size->value(), 71);
    size->setFocus();
    QVERIFY(Keyboard::press({u"ctrl+Tab"_qs}));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(HelpScreen));
}

// Into the settings screen, through its first fields, and out again, without a mouse.
void TestKeys::settingsWithoutAMouse()
{
    startWithList();
    QVERIFY(Keyboard::press({u"F4"_qs}));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(SettingsScreen));
    const auto *first = find<QCheckBox>("checkBoxAutoUpdate");
    const bool checked = first->isChecked();
    QVERIFY(Keyboard::press({u"Tab"_qs}));
    QTRY_VERIFY(first->hasFocus());
    QVERIFY(Keyboard::press({u"space"_qs}));
    QTRY_COMPARE(first->isChecked(), !checked);
    QVERIFY(first->hasFocus());
    QVERIFY(Keyboard::press({u"plus"_qs}));
    QTRY_COMPARE(window->getTempo(), 1);
    auto *seconds = find<QSpinBox>("spinBoxRegisterPlay");
    for (int tries = 0; tries < 10 && !seconds->hasFocus(); ++tries) {
        QVERIFY(Keyboard::press({u"Tab"_qs}));
        QTest::qWait(50);
    }
    QVERIFY(seconds->hasFocus());
    const int before = seconds->value();
    QVERIFY(Keyboard::press({u"Up"_qs}));
    QTRY_COMPARE(seconds->value(), before + 1);
    QVERIFY(seconds->hasFocus());
    QVERIFY(Keyboard::press({u"Escape"_qs}));
    QTRY_VERIFY(window->centralWidget()->hasFocus());
    QVERIFY(Keyboard::press({u"F1"_qs}));
    QTRY_COMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
}

TARVELO_TEST_MAIN(TestKeys, QApplication)
#include "tst_Keys.moc"
