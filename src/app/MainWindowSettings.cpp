// What the window reads from the settings store at its start and writes at its end.

#include "BottomFrame.h"
#include "FileTools.h"
#include "LibraryPage.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "PositionsPage.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "SongListTableModel.h"
#include "Theme.h"
#include "TopFrame.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QSettings>

#include <algorithm>

using Settings::Key;

namespace {

bool restartRequested = false;

Settings::Environment environment()
{
    return {QGuiApplication::primaryScreen()->size().height(), QLocale::system().name(),
            QDir::tempPath()};
}

void setPaletteAll(QWidget *window, const QPalette &palette)
{
    QApplication::setPalette(palette);
    window->setPalette(palette);
    for (QWidget *child : window->findChildren<QWidget *>())
        child->setPalette(palette);
}

} // namespace

bool MainWindow::isRestartRequested()
{
    return restartRequested;
}

bool MainWindow::loadSettings()
{
    settings = WindowSettings::load(*Settings::instance(), environment());
    resize(QGuiApplication::primaryScreen()->availableSize() * 3 / 4);
    if (settings.wasStored())
        restoreWindow();
    applySettings();
    return settings.wasStored();
}

void MainWindow::restoreWindow()
{
    restoreGeometry(settings.bytes(Key::MainWindowGeometry));
    restoreState(settings.bytes(Key::MainWindowState));
}

void MainWindow::applySettings()
{
    frameTop->setFrameHeight(settings.number(Key::FrameHeight));
    buttonFrame->setFrameHeight(settings.number(Key::FrameHeight));
    settingsPage->setFrameSize(settings.number(Key::FrameHeight));
    buttonFrame->setTimeDisplayMode(settings.number(Key::TimeDisplayMode));
    settingsPage->setFontSize(settings.number(Key::FontSize));
    settingsPage->setMaxFontSizePositions(settings.number(Key::MaxFontSizeLyrics));
    settingsPage->setMusicDir(settings.text(Key::MusicDir));
    constexpr Key columnKeys[] = {Key::ShowPartColumn, Key::ShowBeatColumn, Key::ShowTimeColumn};
    for (std::size_t i = 0; i < std::size(columnKeys); ++i) {
        QAction *action = columnActions.at(static_cast<qsizetype>(i));
        action->setChecked(settings.flag(columnKeys[i]));
        positionsPage->setColumnShown(static_cast<PositionsColumn>(action->data().toInt()),
                                      action->isChecked());
    }
    positionsPage->setMaxFontSize(settingsPage->maxFontSizePositions());
    positionsPage->setVerticalAlignment(
        Qt::Alignment::fromInt(settings.number(Key::PositionAlignment)));
    positionsPage->setFullWidth(settings.flag(Key::LyricsFullPage));
    frameTop->setFullWidth(settings.flag(Key::LyricsFullPage));
    SongListTableModel::setHighIntermediateName(settings.text(Key::HighIntermediate));
    languages.setLanguage(settings.languageCode());
    applyTheme();
}

void MainWindow::applyTheme()
{
    const Theme &theme = themeNamed(settings.text(Key::StyleSheet));
    const QString sheet = styleSheetText(theme);
    if (sheet.isEmpty()) {
        showError(
            tr("Style Sheet %1 in Datei %2 konnte nicht gefunden werden.")
                .arg(theme.directory, QStringLiteral(":/%1/StyleSheet.qss").arg(theme.directory)));
        return;
    }
    setPaletteAll(this, theme.palette);
    qApp->setStyleSheet(filledStyleSheet(sheet, {.screenDpi = screenDpi,
                                                 .fontSize = settingsPage->fontSize(),
                                                 .screenButtonHeight = frameTop->menuButtonHeight(),
                                                 .topFrameHeight = frameTop->height()}));
    libraryPage->setFontSize(settingsPage->fontSize());
}

int MainWindow::adaptToFrameHeight(int height)
{
    constexpr int smallest = 20;
    constexpr int largest = 80;
    if (height < smallest)
        return smallest;
    if (height >= QGuiApplication::primaryScreen()->size().height() / 9 || height > largest)
        return largest;
    frameTop->setFrameHeight(height);
    buttonFrame->setFrameHeight(height);
    applyTheme();
    adaptPositionsHeader();
    return height;
}

void MainWindow::changeFontSize(int points)
{
    settings.set(Key::FontSize, points);
    if (startingUp)
        return;
    // Applying a theme is the longest that the window is ever busy: once is enough.
    if (adaptToFrameHeight(frameTop->height()) != frameTop->height())
        applyTheme();
    takeFocusBack();
}

void MainWindow::changeFrameSize(int pixels)
{
    if (startingUp)
        return;
    adaptToFrameHeight(pixels);
    saveSettings();
    takeFocusBack();
}

void MainWindow::changeMusicDir(const QString &directory)
{
    const bool sameForPlaylists = settings.text(Key::MusicDir) == settings.text(Key::PlaylistDir);
    settings.set(Key::MusicDir, directory);
    if (sameForPlaylists)
        settings.set(Key::PlaylistDir, directory);
    if (settings.text(Key::PosImExDir).isEmpty())
        settings.set(Key::PosImExDir, directory);
    for (const Key key : {Key::PlaylistDir, Key::MusicDir, Key::PosImExDir})
        Settings::setValue(key, settings.text(key));
    Settings::instance()->sync();
    refreshAllLists();
    settingsLoaded = true;
}

void MainWindow::collectSettings()
{
    settings.set(Key::ColumnConfig, libraryPage->columnConfig());
    settings.set(Key::MainWindowGeometry, saveGeometry());
    settings.set(Key::MainWindowState, saveState());
    settings.set(Key::FontSize, settingsPage->fontSize());
    settings.set(Key::MaxFontSizeLyrics, settingsPage->maxFontSizePositions());
    settings.set(Key::FrameHeight, frameTop->height());
    settings.set(Key::ShowPartColumn, columnActions.at(0)->isChecked());
    settings.set(Key::ShowBeatColumn, columnActions.at(1)->isChecked());
    settings.set(Key::ShowTimeColumn, columnActions.at(2)->isChecked());
    settings.set(Key::LyricsFullPage, frameTop->isFullWidth());
    settings.set(Key::TimeDisplayMode, buttonFrame->timeDisplayMode());
    settings.set(Key::Language, QLocale().name());
}

void MainWindow::saveSettings()
{
    collectSettings();
    settings.save(*Settings::instance(), Settings::isIniFile(),
                  QCoreApplication::applicationDirPath());
}

void MainWindow::factoryReset()
{
    const auto answer = askYesNoCancel(
        tr("Wenn Du auf 'Ja' oder 'Nein' klickst, wird Tarvelo auf Werkseinstellungen zurücksetzt. "
           "Alle Einstellungen sowie der Cache werden komplett gelöscht. Es werden dabei keine "
           "Musikdaten verändert.<br><br>Willst Du anschließend das Programm wieder neu "
           "starten?"));
    if (answer == QMessageBox::Cancel)
        return;
    removeCacheFiles(Settings::cacheDir());
    // Nothing may be saved into the emptied store any more.
    leaving = true;
    QCoreApplication::quit();
    Settings::factoryReset();
    // main starts the program anew when this one has let go of the single-instance guard.
    restartRequested = answer == QMessageBox::Yes;
}

void MainWindow::factoryResetWinPos()
{
    for (const Key key :
         {Key::MainWindowGeometry, Key::CountDownDisplayWindowGeometry,
          Key::CountDownConfigWindowGeometry, Key::TagEditorGeometry, Key::SearchAndReplaceGeometry,
          Key::SearchAndReplaceDialogGeometry, Key::PosEditorGeometry, Key::FormPosGeometry,
          Key::EventListWindowGeometry, Key::EventEditorGeometry, Key::BpmCalculatorGeometry,
          Key::MetadataWindowGeometry})
        Settings::remove(key);
    Settings::instance()->sync();
    showInfo(tr("Alle Fensterpositionen sind auf Werkseinstellung zurückgesetzt worden."));
}
