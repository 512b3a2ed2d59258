#pragma once

#include "KeyTable.h"
#include "Languages.h"
#include "Song.h"
#include "WindowSettings.h"

#include <QMainWindow>

class BottomFrame;
class ChoreographyPage;
class HelpPage;
class LibraryPage;
class Player;
class PositionsPage;
class QStackedWidget;
class SettingsPage;
class Tarvelo;
class TopFrame;

// The one window: owns the five screens, the current song and the order of things, and routes
// between them. What a screen shows and does belongs to its page.
class MainWindow : public QMainWindow
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

public Q_SLOTS:
    // Leaves the program, with the settings saved; false when the user wants to stay.
    bool byeBye();
    void refreshAllLists();
    void factoryReset();
    void factoryResetWinPos();

    void showScreen(int screen);
    void onButtonPlay_clicked();
    void onButtonPause_clicked();
    void onButtonPlayPause_clicked();
    void onButtonStop_clicked();
    void onButtonTempoPlus_clicked();
    void onButtonTempoMinus_clicked();
    // Percent, -50 to 50.
    void setTempo(int percent);

    // Makes the selected song the current one.
    void loadCurrentSong();
    void setCurrentSong(SongPtr song);
    void selectNoneInLibrary();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildUi();
    void createMenus();
    void createConnections();
    void addColumnActions(QMenu *menu);
    void addQuitAction(QMenu *menu);
    void showFirstScreen();
    void warnOfUnwritableMusicDir();
    void warnOfMissingLanguages();
    void refreshMusicList();
    void startClock();
    void showTime();

    bool loadSettings();
    void applySettings();
    void saveSettings();
    void collectSettings();
    void restoreWindow();
    void applyTheme();
    // Height of the top frame in pixels, within 20 to 80; answers the height in force.
    int adaptToFrameHeight(int height);
    void changeMusicDir(const QString &directory);
    void changeFontSize(int points);
    void changeFrameSize(int pixels);

    void carryOut(const KeyCommand &key);
    void seek(int ms);
    // Plays from a row of the positions; -1 plays from the beginning.
    void startFromPart(int row);
    void on_newTimeStamp(int ms);
    void on_playStatusChanged(bool playing);
    void on_partChanged(int part);
    void adaptPositionsHeader();
    void retranslate();
    void takeFocusBack();

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
    bool paused = false;
    bool scanning = false;

    double screenDpi = -1.0;
    TopFrame *frameTop = nullptr;
    BottomFrame *buttonFrame = nullptr;
    QStackedWidget *stackedWidget = nullptr;
    LibraryPage *libraryPage = nullptr;
    PositionsPage *positionsPage = nullptr;
    ChoreographyPage *choreographyPage = nullptr;
    SettingsPage *settingsPage = nullptr;
    HelpPage *helpPage = nullptr;
    QList<QMenu *> screenMenus;                 // one a screen
    QHash<QAction *, const char *> actionTexts; // source texts, for a change of language
    QList<QAction *> columnActions;             // checked: the column is wanted; parts, beats, time
};
