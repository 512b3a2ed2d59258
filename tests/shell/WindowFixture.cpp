#include "WindowFixture.h"

#include "DialogRunner.h"
#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Samples.h"

#include <QAction>
#include <QDialog>
#include <QtTest>

using Settings::Key;

void WindowFixture::prepareSample()
{
    QVERIFY(Samples::writeTone(samples.filePath(QStringLiteral("a.mp3")), {.seconds = 1.0}));
}

void WindowFixture::prepareWindow()
{
    Settings::factoryReset();
    answer = QMessageBox::Ok;
    music = std::make_unique<QTemporaryDir>();
    answerQuestions();
}

void WindowFixture::answerQuestions()
{
    boxes.clear();
    setBoxRunner([this](QMessageBox &box) {
        boxes.append({box.windowTitle(), box.text()});
        return answer;
    });
    // A question that no test has an answer for would wait for ever.
    setDialogRunner([](QDialog &) { return int(QDialog::Rejected); });
}

void WindowFixture::dropWindow()
{
    window.reset();
    tarvelo.reset();
    setBoxRunner({});
    setDialogRunner({});
}

void WindowFixture::start()
{
    tarvelo = std::make_unique<Tarvelo>();
    window = std::make_unique<MainWindow>(tarvelo.get());
    window->decoupledStartActions();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void WindowFixture::useLibrary()
{
    Settings::setValue(Key::Version, QStringLiteral("8.0.0"));
    Settings::setValue(Key::Language, QStringLiteral("de_DE"));
    Settings::setValue(Key::MusicDir, music->path());
    Settings::setValue(Key::FontSize, 15);
    Settings::setValue(Key::MaxFontSizeLyrics, 70);
    Settings::setValue(Key::ShowPartColumn, true);
    Settings::setValue(Key::ShowBeatColumn, true);
    Settings::setValue(Key::TimeDisplayMode, 3);
    const Tarvelo stores;
    int number = 0;
    for (const char *title : {"Cotton Eyed Joe", "Rocky Top", "Äpfel"}) {
        const QString path = music->filePath(QStringLiteral("%1.mp3").arg(++number));
        QVERIFY(QFile::copy(samples.filePath(QStringLiteral("a.mp3")), path));
        Song song(path, false);
        song.setTitle(QString::fromUtf8(title));
        song.setBpm(QStringLiteral("120"));
        song.setTempo(number == 2 ? -7 : 0);
        for (int i = 0; i < 12 && number < 3; ++i)
            song.getPositions().insert(i, {i * 50, QStringLiteral("P%1").arg(i), {}});
        QVERIFY(song.save());
    }
}

void WindowFixture::key(int code, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window->centralWidget(), static_cast<Qt::Key>(code), modifiers);
}

QAction *WindowFixture::action(const QString &text) const
{
    for (QAction *one : window->findChildren<QAction *>())
        if (one->text() == text)
            return one;
    return nullptr;
}

void WindowFixture::select(const QString &title)
{
    const auto *library = find<LibraryPage>("page1_MusicList");
    window->showScreen(LibraryScreen);
    key(Qt::Key_Home);
    SongPtr before;
    while (library->selectedSong() != before && library->selectedSong()->getTitle() != title) {
        before = library->selectedSong();
        key(Qt::Key_Down);
    }
    QCOMPARE(library->selectedSong()->getTitle(), title);
}
