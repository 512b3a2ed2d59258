#pragma once

#include "ActionRules.h"
#include "Commands.h"
#include "FilterSource.h"
#include "Languages.h"
#include "Screens.h"
#include "Song.h"
#include "SongPositions.h"
#include "WindowSettings.h"

#include <QMainWindow>

#include <memory>

class Actions;
class BottomFrame;
class ChoreographyPage;
class HelpPage;
class LibraryPage;
class Player;
class PositionSlider;
class PositionsPage;
class QSplitter;
class QStackedWidget;
class QTimer;
class SettingsPage;
class SongFileActions;
class SongListPanel;
class SongListSelection;
class Tarvelo;
class TopFrame;

// The one window: owns the five screens, the current song and the order of things, and routes
// between them. What a screen shows and does belongs to its page.
class MainWindow : public QMainWindow, private FilterSource
{
    Q_OBJECT

public:
    // Comes up whole: settings, the first scan under the splash screen, the window visible. The
    // application object outlives the window.
    explicit MainWindow(Tarvelo *application, QWidget *parent = nullptr);
    ~MainWindow() override;

    // What needs the window's real geometry; main calls it after the constructor.
    void decoupledStartActions();
    // True when the window was told to quit while it came up: the event loop must not start.
    bool isQuitRequested() const { return quitRequested; }
    // True when the program is to be started anew after its end.
    static bool isRestartRequested();

    const SongPtr &getCurrentSong() const { return currentSong; }
    int getTempo() const { return tempo; }
    bool isPaused() const { return paused; }
    int currentScreen() const;
    // Carries out what a key, a button or a menu entry asks for.
    void carryOut(const CommandCall &call);

public Q_SLOTS:
    // Leaves the program, with the settings saved; false when the user wants to stay.
    bool byeBye();
    void refreshAllLists();
    void factoryReset();
    void factoryResetWinPos();

    // Nothing happens for a screen that can't be chosen now.
    void showScreen(int screen);
    void onButtonPlay_clicked();
    void onButtonPause_clicked();
    void onButtonPlayPause_clicked();
    void onButtonStop_clicked();
    // Percent, -50 to 50.
    void setTempo(int percent);
    // One step of percent up or down, not beyond the ends.
    void stepTempo(int percent);
    // "de" or "en".
    void setLanguage(const QString &language);

    // Makes the selected song the current one.
    void loadCurrentSong();
    void setCurrentSong(SongPtr song);
    void selectNoneInLibrary();
    void resetMusicListFilters();
    // Brings the actions' states and texts up to date.
    void adaptActions();
    // The same without taking the focus back.
    void adaptActionStates();
    void adaptCountDownButtons();
    void refreshFilterStats();
    void toggleSlider();
    // Asks for a file name and writes the selected song to it, at the tempo that is set.
    void exportSongFile();
    // The selected songs' files; one that plays stays where it is. The current song is the moved
    // one afterwards.
    void moveSongFile();
    // The selected song becomes the current one, and its file goes to the clipboard.
    void copyFileToBuffer();
    // Asks for the event under which plays are registered from now on.
    void onButtonSetEvent_clicked();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // What the song lists' filters ask for.
    QString searchText() const override;
    TempoBorders tempoBorders() const override;
    bool isStartingUp() const override { return startingUp; }

    struct Route;
    static const Route routes[];
    struct SettingEffect;
    static const SettingEffect settingEffects[];
    struct SettingsRequest;
    static const SettingsRequest settingsRequests[];

    void buildUi();
    QWidget *buildCenter();
    void createConnections();
    void connectPlayer();
    void connectPositionsPage();
    void connectSearch();
    void applySearch();
    void connectSongList(SongListPanel *panel);
    void showFirstScreen();
    void enterScreen(int screen);
    void stepScreen(int step);
    // Rows, up below 0.
    void scrollLibrary(int rows);
    void scrollPlaylist(int rows);
    void pagePlaylist(int pages);
    // -1 the first row, 1 the last.
    void showPlaylistEnd(int end);
    // Makes a song of the left list the current one; nothing happens for an empty pointer.
    void loadPlaylistSong(const SongPtr &song);
    // Plays the left list's next song, or the one before it for -1.
    void playPlaylistEntry(int step);
    void followSelection();
    // An entry was taken out of a list, in which this song is selected now; empty for none.
    void followRemoval(const SongPtr &song);
    // Asks for each list on show that has changed whether it is to be saved; false when the user
    // wants to stay.
    bool promptSaves();
    // What refreshAllLists() does once that is settled.
    void readAllLists();
    void showPlaylist(bool shown);
    void togglePlaylistManager();
    void showPlaylistManager(bool shown);
    void noteClipboard();
    // The list whose selection counts: the right one while it is the library, else the left one.
    SongListPanel *activePanel() const;
    SongListSelection &activeSelection() const;
    SongPtr songToPlay() const;
    void selectInOtherTable(const SongPtr &song);
    void warnOfUnwritableMusicDir();
    void warnOfMissingLanguages();
    void closeQuestions();
    void refreshMusicList();
    void startClock();
    void showTime();

    bool loadSettings();
    void applySettings();
    void applyColumnSettings();
    void saveSettings();
    void collectSettings();
    void restoreWindow();
    void restoreColumns();
    void applyTheme();
    void applyThemeNow();
    void applyThemeSoon();
    // Height of the top frame in pixels, within 20 to 80; answers the height in force.
    int adaptToFrameHeight(int height);
    // What is in force instead of a height that the frame can't have; nothing for one that it can.
    std::optional<int> heightInstead(int height) const;
    void setFrameHeights(int height);
    void stepFrameHeight(int pixels);
    void changeFontSize();
    void changeFrameSize(int pixels);
    void stepTimeDisplay();
    void stepBpmDisplay();
    int tempoPreset(int number) const;
    void writeTempoPresetTexts();
    void adaptTempoPresetChecks();

    void connectSettingsPage();
    void fillSettingsPage();
    void collectSettingsPage();
    void changeSetting(Settings::Key key, const QVariant &value);
    void retellColumns(int column);
    void changeLevelName(const QString &name);
    void changeTempoPresets();
    void setTimeDisplayMode(int mode);
    void chooseMusicDir();
    void fitFirstColumns();
    void choosePlaylistDir();
    void setPlaylistDir(const QString &directory);
    void switchCache(bool on);
    void chooseCacheDir();
    void setDefaultCacheDir();
    void setCacheDir(const QString &directory);
    void clearCache();
    void storeCacheDir(const QString &directory);
    void clearLog();
    void fillSettingsTab();
    void updateSystemInfo();
    void updateLogText();

    // By so many milliseconds; only while the song plays, and not beyond its ends.
    void seek(int ms);
    void seekTo(int ms);
    // Plays from a row of the positions; -1 plays from the beginning.
    void startFromPart(int row);
    void startLoop(int row);
    void warnOfCountDownWithoutBpm();
    bool isPartLooping() const;
    void writeExport(const QString &target);
    void on_newTimeStamp(int ms);
    void on_playStatusChanged(bool playing);
    void on_partChanged(int part);
    void adaptPlayActions(bool playing);
    void adaptActionsToSong();
    ActionState actionState() const;
    void adaptPositionsHeader();
    void toggleColumn(int column);
    void retranslate();
    void takeFocusBack();
    void divideRoomEqually();
    // Whether the key, typed into a field, was one of the window's with AltGr.
    bool carryOutAltGr(const QKeyEvent &event);

    Tarvelo *app;
    Player *player;
    Languages languages;
    WindowSettings settings;
    bool settingsLoaded = false;
    bool startingUp = true;
    bool quitRequested = false;
    // Quitting closes the window, which asks to quit: once is enough.
    bool leaving = false;

    SongPtr currentSong;
    int tempo = 0;
    int bpmDisplay = 0;
    // The pause command stopped the player.
    bool paused = false;
    // The window itself stops and restarts the player: that is no end of the song.
    bool ignoreStop = false;
    bool positionEditorOpen = false;
    bool scanning = false;
    bool clipboardEmpty = true; // of texts
    // The left list is wanted beside the first three screens.
    bool playlistShown = false;
    // Snapshots of the current song's positions, the one in force at the index.
    QList<SongPositions> undoBuffer;
    int undoIndex = 0;

    double screenDpi = -1.0;
    QTimer *themeTimer = nullptr; // runs out when the events at hand are dealt with
    Actions *actions = nullptr;
    TopFrame *frameTop = nullptr;
    PositionSlider *frameSlider = nullptr;
    BottomFrame *buttonFrame = nullptr;
    QSplitter *splitterPlaylist = nullptr;
    SongListPanel *framePlaylist = nullptr;
    QStackedWidget *stackedWidget = nullptr;
    LibraryPage *libraryPage = nullptr;
    std::unique_ptr<SongFileActions> songFiles;
    PositionsPage *positionsPage = nullptr;
    ChoreographyPage *choreographyPage = nullptr;
    SettingsPage *settingsPage = nullptr;
    HelpPage *helpPage = nullptr;
};
