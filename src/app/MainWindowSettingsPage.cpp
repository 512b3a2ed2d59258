// What the settings screen sets in motion in the window.

#include "BottomFrame.h"
#include "FileDialogs.h"
#include "FileTools.h"
#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "Log.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "PositionsPage.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "SongColumns.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SystemInfo.h"
#include "Tarvelo.h"
#include "TopFrame.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTableView>
#include <QTextStream>

#include <algorithm>

using Settings::Key;

// What a value does at once; what isn't in the table is only held.
struct MainWindow::SettingEffect
{
    Key key;
    bool isWrittenAtOnce;
    void (*act)(MainWindow &window, const QVariant &value);
};

const MainWindow::SettingEffect MainWindow::settingEffects[] = {
    {Key::RegisterPlay, true, nullptr},
    {Key::Language, false,
     [](MainWindow &w, const QVariant &code) { w.setLanguage(code.toString()); }},
    {Key::StyleSheet, true,
     [](MainWindow &w, const QVariant &) {
         w.adaptToFrameHeight(w.frameTop->height());
         w.applyThemeSoon();
     }},
    {Key::FontSize, false, [](MainWindow &w, const QVariant &) { w.changeFontSize(); }},
    {Key::FrameHeight, false,
     [](MainWindow &w, const QVariant &pixels) { w.changeFrameSize(pixels.toInt()); }},
    {Key::LoggingEnabled, true, nullptr},
    {Key::HighIntermediate, false,
     [](MainWindow &w, const QVariant &name) { w.changeLevelName(name.toString()); }},
    {Key::MaxFontSizeLyrics, false,
     [](MainWindow &w, const QVariant &points) {
         w.positionsPage->setMaxFontSize(points.toInt());
     }},
    {Key::TempoDefault1, false, [](MainWindow &w, const QVariant &) { w.changeTempoPresets(); }},
    {Key::TempoDefault2, false, [](MainWindow &w, const QVariant &) { w.changeTempoPresets(); }},
    {Key::TempoDefault3, false, [](MainWindow &w, const QVariant &) { w.changeTempoPresets(); }},
    {Key::TempoDefault4, false, [](MainWindow &w, const QVariant &) { w.changeTempoPresets(); }},
    {Key::TempoDefault5, false, [](MainWindow &w, const QVariant &) { w.changeTempoPresets(); }},
    {Key::EventRounding, true,
     [](MainWindow &w, const QVariant &) {
         w.saveSettings();
         w.retellColumns(EventCountColumn);
     }},
    {Key::HideTempoButtons, false,
     [](MainWindow &w, const QVariant &hidden) {
         w.buttonFrame->setPresetsShown(!hidden.toBool());
     }},
    {Key::ShowMoreLyricsInfo, false,
     [](MainWindow &w, const QVariant &) {
         if (w.currentSong)
             w.adaptPositionsHeader();
     }},
    {Key::PositionAlignment, true,
     [](MainWindow &w, const QVariant &alignment) {
         w.positionsPage->setVerticalAlignment(Qt::Alignment::fromInt(alignment.toInt()));
         if (w.currentSong)
             w.positionsPage->refreshPositionsWindow();
     }},
    {Key::TimeDisplayMode, false,
     [](MainWindow &w, const QVariant &mode) { w.setTimeDisplayMode(mode.toInt()); }},
    {Key::CountDownType, true, nullptr},
};

struct MainWindow::SettingsRequest
{
    SettingsButton button;
    void (*carryOut)(MainWindow &window);
};

const MainWindow::SettingsRequest MainWindow::settingsRequests[] = {
    // There is no server to ask yet.
    {SettingsButton::SearchForUpdates, [](MainWindow &) { showNotImplemented(); }},
    {SettingsButton::TestUpdate, [](MainWindow &) { showNotImplemented(); }},
    {SettingsButton::SetEvent, [](MainWindow &w) { w.onButtonSetEvent_clicked(); }},
    {SettingsButton::MusicDir, [](MainWindow &w) { w.chooseMusicDir(); }},
    {SettingsButton::PlaylistDir, [](MainWindow &w) { w.choosePlaylistDir(); }},
    {SettingsButton::CacheDir, [](MainWindow &w) { w.chooseCacheDir(); }},
    {SettingsButton::ClearLog, [](MainWindow &w) { w.clearLog(); }},
    // There is no cloud yet.
    {SettingsButton::NewCloudAccount, [](MainWindow &) { showNotImplemented(); }},
};

void MainWindow::connectSettingsPage()
{
    connect(settingsPage, &SettingsPage::changed, this, &MainWindow::changeSetting);
    connect(settingsPage, &SettingsPage::valueChosen, this, [this] {
        // Whoever goes through the page by keys stays there.
        if (!settingsPage->isWorkedByKeys())
            takeFocusBack();
    });
    connect(settingsPage, &SettingsPage::pressed, this, [this](SettingsButton button) {
        for (const SettingsRequest &request : settingsRequests) {
            if (request.button == button)
                request.carryOut(*this);
        }
    });
    connect(settingsPage, &SettingsPage::stepped, this, [this](Key key, int step) {
        if (key == Key::FrameHeight)
            stepFrameHeight(step);
        else if (key == Key::FontSize)
            saveSettings();
    });
    connect(settingsPage, &SettingsPage::cacheToggled, this, &MainWindow::switchCache);
    connect(settingsPage, &SettingsPage::currentChanged, this, &MainWindow::fillSettingsTab);
}

void MainWindow::fillSettingsPage()
{
    for (const Key key : SettingsPage::keys())
        settingsPage->setValue(key, settings.value(key));
    settingsPage->setValue(Key::Language, settings.languageCode());
    settingsPage->setValue(Key::CountDownType, Settings::value(Key::CountDownType));
    settingsPage->setValue(Key::LoggingEnabled, Settings::value(Key::LoggingEnabled));
    const int rounding = settings.number(Key::EventRounding);
    const bool isOffered = rounding == 0 || rounding == 86400;
    settingsPage->setValue(Key::EventRounding, isOffered ? rounding : 3600);
    settingsPage->setTestUpdateShown(Settings::contains(Key::TestMode));
}

// What the page alone holds; the rest was kept when it was changed.
void MainWindow::collectSettingsPage()
{
    constexpr Key elsewhere[]
        = {Key::Language,    Key::TimeDisplayMode, Key::FrameHeight,    Key::MusicDir,
           Key::PlaylistDir, Key::CacheDir,        Key::LoggingEnabled, Key::CountDownType};
    for (const Key key : SettingsPage::keys()) {
        if (std::find(std::begin(elsewhere), std::end(elsewhere), key) == std::end(elsewhere))
            settings.set(key, settingsPage->value(key));
    }
}

void MainWindow::changeSetting(Key key, const QVariant &value)
{
    settings.set(key, value);
    const auto *effect = std::find_if(std::begin(settingEffects), std::end(settingEffects),
                                      [key](const SettingEffect &row) { return row.key == key; });
    if (effect == std::end(settingEffects))
        return;
    if (effect->isWrittenAtOnce && !startingUp) {
        Settings::setValue(key, value);
        Settings::instance()->sync();
    }
    if (effect->act)
        effect->act(*this, value);
}

// Cells of a column show another text now, and are found and sorted by it.
void MainWindow::retellColumns(int column)
{
    for (const SongListPanel *panel : {framePlaylist, libraryPage->songList()}) {
        SongListTableModel *model = panel->model();
        if (model->rowCount() > 1)
            Q_EMIT model->dataChanged(model->index(1, column),
                                      model->index(model->rowCount() - 1, column));
    }
}

void MainWindow::changeLevelName(const QString &name)
{
    SongListTableModel::setHighIntermediateName(name);
    if (startingUp)
        return;
    retellColumns(LevelColumn);
    // The boxes of the filter row offer the name.
    for (const SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        Q_EMIT panel->model()->notifyModelChanged();
    adaptPositionsHeader();
}

void MainWindow::changeTempoPresets()
{
    writeTempoPresetTexts();
    adaptTempoPresetChecks();
}

void MainWindow::setTimeDisplayMode(int mode)
{
    buttonFrame->setTimeDisplayMode(mode);
    settingsPage->setValue(Key::TimeDisplayMode, mode);
    Settings::setValue(Key::TimeDisplayMode, mode);
    Settings::instance()->sync();
}

void MainWindow::chooseMusicDir()
{
    const QString before = settings.text(Key::MusicDir);
    const bool sameForPlaylists = before == settings.text(Key::PlaylistDir);
    if (!sameForPlaylists)
        showInfo(
            tr("Achtung:<br>Die Verzeichnisse für die Musikdateien und für die Playlisten sind "
               "unterschiedlich!<br>Die Playlisten werden nach einem Verzeichniswechsel nicht "
               "mehr funktionieren, wenn das Playlist-Verzeichnis nicht auch entsprechend "
               "verschoben wird!"));
    const QString directory = chooseDirectory(this, tr("Verzeichnis mit Musik auswählen:"), before);
    if (directory.isEmpty() || !promptSaves())
        return;
    settings.set(Key::MusicDir, directory);
    settingsPage->setValue(Key::MusicDir, directory);
    if (sameForPlaylists)
        setPlaylistDir(directory);
    if (settings.text(Key::PosImExDir).isEmpty())
        settings.set(Key::PosImExDir, directory);
    for (const Key key : {Key::PlaylistDir, Key::MusicDir, Key::PosImExDir})
        Settings::setValue(key, settings.text(key));
    Settings::instance()->sync();
    readAllLists();
    if (!settingsLoaded)
        fitFirstColumns();
    settingsLoaded = true;
}

// The library's first songs: its columns get the widths that they need.
void MainWindow::fitFirstColumns()
{
    libraryPage->songList()->fitAllColumns();
    libraryPage->songList()->table()->sortByColumn(TitleColumn, Qt::AscendingOrder);
}

void MainWindow::choosePlaylistDir()
{
    const QString directory = chooseDirectory(this, tr("Playlist-Verzeichnis auswählen:"),
                                              settings.text(Key::PlaylistDir));
    if (directory.isEmpty() || !promptSaves())
        return;
    setPlaylistDir(directory);
    saveSettings();
}

void MainWindow::setPlaylistDir(const QString &directory)
{
    settings.set(Key::PlaylistDir, directory);
    settingsPage->setValue(Key::PlaylistDir, directory);
    Settings::setValue(Key::PlaylistDir, directory);
    Settings::instance()->sync();
    app->rescanPlaylists();
}

void MainWindow::switchCache(bool on)
{
    if (!on) {
        clearCache();
        return;
    }
    setDefaultCacheDir();
    if (!settings.text(Key::CacheDir).isEmpty())
        showInfo(tr("Der Cache ist jetzt eingeschaltet. Er wird beim nächsten Programmstart "
                    "aufgebaut, danach (also beim übernächsten Programmstart) sollte das Programm "
                    "<b>deutlich</b> schneller starten."));
}

void MainWindow::chooseCacheDir()
{
    const QString directory
        = chooseDirectory(this, tr("Cache-Verzeichnis auswählen:"), settings.text(Key::CacheDir));
    if (directory.isEmpty())
        return;
    clearCache();
    setCacheDir(directory);
}

void MainWindow::setDefaultCacheDir()
{
    setCacheDir(QDir::tempPath() + QStringLiteral("/Tarvelo"));
}

// A directory that can't be made leaves the cache as it was.
void MainWindow::setCacheDir(const QString &directory)
{
    if (QDir(directory).exists() || QDir().mkdir(directory))
        storeCacheDir(directory);
    else
        settingsPage->setCacheDir(settings.text(Key::CacheDir));
}

void MainWindow::clearCache()
{
    const QString directory = settings.text(Key::CacheDir);
    if (!directory.isEmpty())
        removeCacheFiles(directory);
    storeCacheDir({});
}

void MainWindow::storeCacheDir(const QString &directory)
{
    settings.set(Key::CacheDir, directory);
    Settings::setValue(Key::CacheDir, directory);
    Settings::instance()->sync();
    settingsPage->setCacheDir(directory);
}

void MainWindow::clearLog()
{
    if (!askYesNo(tr("Sollen die mitgeschriebenen Informationen gelöscht werden?")))
        return;
    Log::restartLogging();
    updateLogText();
}

void MainWindow::fillSettingsTab()
{
    if (settingsPage->currentIndex() == static_cast<int>(SettingsTab::SystemInfo))
        updateSystemInfo();
    if (settingsPage->currentIndex() == static_cast<int>(SettingsTab::Log))
        updateLogText();
}

void MainWindow::updateSystemInfo()
{
    SystemFacts facts = systemFacts();
    const int frame = frameTop->height();
    facts.window = size();
    facts.topFrameHeight = frame;
    facts.bottomFrameHeight = buttonFrame->height();
    facts.timeDisplayMode = buttonFrame->timeDisplayMode();
    facts.largeButton = frame;
    facts.mediumButton = frame * 4 / 5;
    facts.smallButton = frame * 3 / 5;
    settingsPage->setSystemInfo(systemInfoHtml(facts));
}

void MainWindow::updateLogText()
{
    QStringList lines;
    QFile file(Log::logFileName());
    if (!Log::logFileName().isEmpty() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        for (QString line; stream.readLineInto(&line);)
            lines.append(line);
    }
    settingsPage->setLog(lines);
}
