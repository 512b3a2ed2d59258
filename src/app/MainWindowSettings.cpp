// What the window reads from the settings store at its start and writes at its end.

#include "Actions.h"
#include "BottomFrame.h"
#include "FileTools.h"
#include "LibraryPage.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "PositionSlider.h"
#include "PositionsPage.h"
#include "ProgramStyle.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SoundKeeper.h"
#include "TempoTexts.h"
#include "Theme.h"
#include "ThemeContext.h"
#include "TopFrame.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTimer>

#include <algorithm>

using Settings::Key;

namespace {

bool restartRequested = false;

struct ColumnSetting
{
    Key key;
    ActionId action;
    PositionsColumn column;
};
constexpr ColumnSetting columnSettings[] = {
    {Key::ShowPartColumn, ActionId::PartColumn, PartColumn},
    {Key::ShowBeatColumn, ActionId::BeatsColumn, BeatsColumn},
    {Key::ShowTimeColumn, ActionId::TimeColumn, TimeColumn},
};

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
    else
        splitterPlaylist->setSizes({width() / 5, width() * 4 / 5});
    applySettings();
    return settings.wasStored();
}

void MainWindow::restoreWindow()
{
    restoreGeometry(settings.bytes(Key::MainWindowGeometry));
    restoreState(settings.bytes(Key::MainWindowState));
    splitterPlaylist->restoreState(settings.bytes(Key::MainWinSplitterState));
}

// A list without a state of its own keeps what it began with.
void MainWindow::restoreColumns()
{
    libraryPage->restoreColumnConfig(settings.bytes(Key::ColumnConfig));
    // What older versions kept of the left list had other columns.
    if (settings.storedVersion() > QVersionNumber(6, 0, 0))
        framePlaylist->restoreColumnConfig(settings.bytes(Key::LibPlaylistColumnConfig));
}

void MainWindow::applySettings()
{
    setFrameHeights(settings.number(Key::FrameHeight));
    fillSettingsPage();
    settingsPage->setFrameSize(settings.number(Key::FrameHeight));
    buttonFrame->setTimeDisplayMode(settings.number(Key::TimeDisplayMode));
    applyColumnSettings();
    positionsPage->setMaxFontSize(settingsPage->maxFontSizePositions());
    positionsPage->setVerticalAlignment(
        Qt::Alignment::fromInt(settings.number(Key::PositionAlignment)));
    positionsPage->setFullWidth(settings.flag(Key::LyricsFullPage));
    frameTop->setFullWidth(settings.flag(Key::LyricsFullPage));
    SongListTableModel::setHighIntermediateName(
        settingsPage->value(Key::HighIntermediate).toString());
    frameSlider->setVisible(settings.flag(Key::ShowSlider));
    actions->action(ActionId::Slider)->setChecked(settings.flag(Key::ShowSlider));
    framePlaylist->setNonStop(settings.flag(Key::PlaylistNonStop));
    buttonFrame->setPresetsShown(!settings.flag(Key::HideTempoButtons));
    bpmDisplay = settings.number(Key::BpmDisplay);
    writeTempoPresetTexts();
    setLanguage(settings.languageCode());
    applyTheme();
}

void MainWindow::applyColumnSettings()
{
    for (const ColumnSetting &column : columnSettings) {
        actions->action(column.action)->setChecked(settings.flag(column.key));
        positionsPage->setColumnShown(column.column, settings.flag(column.key));
    }
}

// The rows stay as they are until the next rebuild.
void MainWindow::toggleColumn(int column)
{
    for (const ColumnSetting &setting : columnSettings) {
        if (setting.column != column)
            continue;
        positionsPage->toggleColumn(setting.column);
        actions->action(setting.action)->setChecked(positionsPage->isColumnShown(setting.column));
    }
}

void MainWindow::toggleSlider()
{
    const bool shown = frameSlider->isHidden();
    frameSlider->setVisible(shown);
    actions->action(ActionId::Slider)->setChecked(shown);
}

int MainWindow::tempoPreset(int number) const
{
    constexpr Key keys[] = {Key::TempoDefault1, Key::TempoDefault2, Key::TempoDefault3,
                            Key::TempoDefault4, Key::TempoDefault5};
    return settings.number(keys[number - 1]);
}

void MainWindow::writeTempoPresetTexts()
{
    for (int number = 1; number <= BottomFrame::presetCount; ++number)
        buttonFrame->setPreset(number, tempoPresetText(tempoPreset(number)));
}

void MainWindow::stepTimeDisplay()
{
    setTimeDisplayMode((buttonFrame->timeDisplayMode() + 1) % timeDisplayModes);
}

void MainWindow::stepBpmDisplay()
{
    bpmDisplay = (bpmDisplay + 1) % bpmDisplays;
    buttonFrame->setBpmDisplay(bpmDisplay);
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
    const SoundKeeper keeper(player);
    const QString filled
        = filledStyleSheet(sheet, {.screenDpi = screenDpi,
                                   .fontSize = settingsPage->fontSize(),
                                   .screenButtonHeight = frameTop->menuButtonHeight(),
                                   .topFrameHeight = frameTop->height()});
    // The longest that the window is ever busy: never for nothing.
    if (qApp->styleSheet() != filled)
        qApp->setStyleSheet(filled);
    setMenuIconSize(settingsPage->fontSize() * 5 / 3);
    setThemeContext({frameTop->menuButtonHeight(), frameTop->menuButtonHeight()},
                    QStringLiteral(":/") + theme.directory);
    actions->refreshPictures();
    frameTop->refreshPicture();
    for (SongListPanel *panel : {framePlaylist, libraryPage->songList()}) {
        panel->setFontSize(settingsPage->fontSize());
        panel->refreshPictures();
    }
    // After the sheet: setting one brings the palettes back that were there before.
    setPaletteAll(this, theme.palette);
}

std::optional<int> MainWindow::heightInstead(int height) const
{
    constexpr int smallest = 20;
    constexpr int largest = 80;
    if (height <= frameTop->filterFontPixels() || height < smallest)
        return smallest;
    if (height >= QGuiApplication::primaryScreen()->size().height() / 9 || height > largest)
        return largest;
    return std::nullopt;
}

int MainWindow::adaptToFrameHeight(int height)
{
    if (const auto other = heightInstead(height))
        return *other;
    setFrameHeights(height);
    applyThemeSoon();
    return height;
}

// A theme keeps the window busy for longer than anything else: what asks for it in one pass of the
// event loop, such as a key that is held, gets it once.
void MainWindow::applyThemeSoon()
{
    if (startingUp)
        applyThemeNow();
    else
        themeTimer->start();
}

void MainWindow::applyThemeNow()
{
    themeTimer->stop();
    applyTheme();
    // Another font leaves the texts more room or less.
    adaptPositionsHeader();
}

void MainWindow::setFrameHeights(int height)
{
    frameTop->setFrameHeight(height);
    frameSlider->setFrameHeight(height);
    buttonFrame->setFrameHeight(height);
    for (SongListPanel *panel : {framePlaylist, libraryPage->songList()}) {
        panel->setButtonSize({height * 4 / 5, height * 4 / 5});
        panel->setButtonSpacing(static_cast<int>(screenDpi * 0.125));
    }
}

void MainWindow::stepFrameHeight(int pixels)
{
    settingsPage->setFrameSize(adaptToFrameHeight(frameTop->height() + pixels));
    saveSettings();
}

void MainWindow::changeFontSize()
{
    if (startingUp)
        return;
    adaptToFrameHeight(frameTop->height());
    applyThemeSoon();
}

void MainWindow::changeFrameSize(int pixels)
{
    if (startingUp)
        return;
    adaptToFrameHeight(pixels);
    saveSettings();
}

void MainWindow::collectSettings()
{
    settings.set(Key::ColumnConfig, libraryPage->columnConfig());
    settings.set(Key::LibPlaylistColumnConfig, framePlaylist->columnConfig());
    settings.set(Key::MainWinSplitterState, splitterPlaylist->saveState());
    settings.set(Key::SplitterPlaylistGeometry, splitterPlaylist->saveState());
    settings.set(Key::PlaylistNonStop, framePlaylist->isNonStop());
    settings.set(Key::MainWindowGeometry, saveGeometry());
    settings.set(Key::MainWindowState, saveState());
    collectSettingsPage();
    settings.set(Key::FrameHeight, frameTop->height());
    for (const ColumnSetting &column : columnSettings)
        settings.set(column.key, actions->action(column.action)->isChecked());
    settings.set(Key::ShowSlider, !frameSlider->isHidden());
    settings.set(Key::BpmDisplay, bpmDisplay);
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
