#include "MainWindow.h"

#include "BottomFrame.h"
#include "ChoreographyPage.h"
#include "FileTools.h"
#include "HelpPage.h"
#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionsPage.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "Tarvelo.h"
#include "TarveloSplashScreen.h"
#include "TopFrame.h"
#include "Version.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStackedWidget>
#include <QStyleFactory>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

MainWindow::MainWindow(Tarvelo *application, QWidget *parent)
    : QMainWindow(parent)
    , app(application)
    , player(application->getPlayer())
{
    screenDpi = QGuiApplication::primaryScreen()->logicalDotsPerInch();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    buildUi();
    createMenus();
    createConnections();
    settingsLoaded = loadSettings();
    showFirstScreen();
    const bool columnsRestored
        = libraryPage->restoreColumnConfig(settings.bytes(Settings::Key::ColumnConfig));
    refreshAllLists();
    if (columnsRestored)
        libraryPage->restoreColumnConfig(settings.bytes(Settings::Key::ColumnConfig));
    startClock();
    warnOfMissingLanguages();
    setTempo(0);
    setCurrentSong({});
    show();
    if (!settingsLoaded)
        showInfo(tr("Bitte wähle das Verzeichnis Deiner Clogging-Musiksammlung (Musikverzeichnis "
                    "-> Bearbeiten). Die meisten anderen Einstellungen können auch später noch "
                    "vorgenomen werden."));
    startingUp = false;
}

MainWindow::~MainWindow()
{
    qDebug("Program ending");
}

void MainWindow::buildUi()
{
    auto *central = new QWidget(this);
    central->setFocusPolicy(Qt::StrongFocus);
    setCentralWidget(central);
    frameTop = new TopFrame(central);
    stackedWidget = new QStackedWidget(central);
    buttonFrame = new BottomFrame(central);
    libraryPage = new LibraryPage(app->getSongManager(), stackedWidget);
    positionsPage = new PositionsPage(player, stackedWidget);
    choreographyPage = new ChoreographyPage(stackedWidget);
    settingsPage = new SettingsPage(stackedWidget);
    helpPage = new HelpPage(stackedWidget);
    for (QWidget *page : std::initializer_list<QWidget *>{libraryPage, positionsPage,
                                                          choreographyPage, settingsPage, helpPage})
        stackedWidget->addWidget(page);
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(frameTop);
    layout->addWidget(stackedWidget, 1);
    layout->addWidget(buttonFrame);
}

void MainWindow::createMenus()
{
    for (int screen = 0; screen < screenCount; ++screen)
        screenMenus.append(new QMenu(this));
    const auto add = [this](Screen screen, const char *text, auto slot) {
        QAction *action = screenMenus.at(screen)->addAction(tr(text), this, slot);
        actionTexts.insert(action, text);
        return action;
    };
    add(LibraryScreen, QT_TR_NOOP("Dateien neu einlesen"), &MainWindow::refreshAllLists)
        ->setShortcut(Qt::CTRL | Qt::Key_R);
    addColumnActions(screenMenus.at(PositionsScreen));
    add(SettingsScreen, QT_TR_NOOP("Werkseinstellung"), &MainWindow::factoryReset);
    add(SettingsScreen, QT_TR_NOOP("Rücksetzen Fensterpositionen"),
        &MainWindow::factoryResetWinPos);
    for (QMenu *menu : std::as_const(screenMenus))
        addQuitAction(menu);
}

void MainWindow::addColumnActions(QMenu *menu)
{
    struct Row
    {
        const char *text;
        Qt::Key key;
        PositionsColumn column;
    };
    constexpr Row rows[] = {
        {QT_TR_NOOP("Spalte mit Parts anzeigen"), Qt::Key_P, PartColumn},
        {QT_TR_NOOP("Spalte mit Beats anzeigen"), Qt::Key_B, BeatsColumn},
        {QT_TR_NOOP("Spalte mit Zeitpunkt anzeigen"), Qt::Key_T, TimeColumn},
    };
    for (const Row &row : rows) {
        QAction *action = menu->addAction(tr(row.text));
        action->setShortcut(Qt::CTRL | row.key);
        action->setCheckable(true);
        action->setData(row.column);
        connect(action, &QAction::toggled, positionsPage, [this, column = row.column](bool shown) {
            positionsPage->setColumnShown(column, shown);
        });
        actionTexts.insert(action, row.text);
        columnActions.append(action);
    }
}

void MainWindow::addQuitAction(QMenu *menu)
{
    if (!menu->isEmpty())
        menu->addSeparator();
    const char *text = QT_TR_NOOP("Beenden");
    QAction *action = menu->addAction(tr(text), this, &MainWindow::byeBye);
    action->setShortcut(Qt::CTRL | Qt::Key_X);
    actionTexts.insert(action, text);
}

void MainWindow::createConnections()
{
    connect(player, &Player::notifyPlayTimeChanged, this, &MainWindow::on_newTimeStamp);
    connect(player, &Player::notifyIsPlayingChanged, this, &MainWindow::on_playStatusChanged);
    connect(player, &Player::notifyActivePartChanged, this, &MainWindow::on_partChanged);

    connect(frameTop, &TopFrame::screenRequested, this, &MainWindow::showScreen);
    connect(frameTop, &TopFrame::fullWidthToggled, this, [this](bool full) {
        positionsPage->setFullWidth(full);
        frameTop->setFullWidth(full);
        positionsPage->refreshPositionsWindow();
        takeFocusBack();
    });
    connect(buttonFrame, &BottomFrame::screenRequested, this, &MainWindow::showScreen);
    connect(buttonFrame, &BottomFrame::stopClicked, this, &MainWindow::onButtonStop_clicked);
    connect(buttonFrame, &BottomFrame::pauseClicked, this, &MainWindow::onButtonPause_clicked);
    connect(buttonFrame, &BottomFrame::playClicked, this, &MainWindow::onButtonPlay_clicked);
    connect(buttonFrame, &BottomFrame::tempoMinusClicked, this,
            &MainWindow::onButtonTempoMinus_clicked);
    connect(buttonFrame, &BottomFrame::tempoPlusClicked, this,
            &MainWindow::onButtonTempoPlus_clicked);

    connect(libraryPage, &LibraryPage::songActivated, this, [this] {
        loadCurrentSong();
        showScreen(PositionsScreen);
    });
    connect(libraryPage, &LibraryPage::selectionChanged, this, &MainWindow::takeFocusBack);
    connect(positionsPage, &PositionsPage::startRequested, this, &MainWindow::startFromPart);
    connect(positionsPage, &PositionsPage::pressed, this, &MainWindow::takeFocusBack);

    connect(settingsPage, &SettingsPage::musicDirChosen, this, &MainWindow::changeMusicDir);
    connect(settingsPage, &SettingsPage::fontSizeChanged, this, &MainWindow::changeFontSize);
    connect(settingsPage, &SettingsPage::frameSizeChanged, this, &MainWindow::changeFrameSize);
    connect(settingsPage, &SettingsPage::maxFontSizePositionsChanged, this, [this](int points) {
        positionsPage->setMaxFontSize(points);
        takeFocusBack();
    });
}

void MainWindow::showFirstScreen()
{
    showScreen(settingsLoaded ? LibraryScreen : SettingsScreen);
    if (settingsLoaded)
        warnOfUnwritableMusicDir();
}

void MainWindow::warnOfUnwritableMusicDir()
{
    const QString directory = Settings::musicDir();
    if (directory.isEmpty() || isDirectoryWritable(directory))
        return;
    showError(
        tr("<p>Das konfigurierte Verzeichnis</p><code>") + directory.toHtmlEscaped()
        + tr("</code><p>kann nicht beschrieben werden!</p>Mögliche Ursachen:<ul>")
        + tr("<li>Unzureichende Freigabe im Virenscanner<br><b>Abhilfe:</b> In den Einstellungen "
             "des benutzten Virenscanners das Musikverzeichnis als vertrauenswürdige Ausnahme "
             "definieren.<br></li>")
        + tr("<li>Fehlende Lese- oder Schreibrechte für den aktuellen Benutzer auf dieses "
             "Verzeichnis<br><b>Abhilfe:</b> Testen, ob Du unter Windows Dateien hineinkopieren, "
             "ändern und löschen kannst.<br></li>")
        + tr("<li>Mieses Karma<br><b>Abhilfe:</b> Den Tarvelo Entwicklern eine Kiste Malzbier "
             "spendieren (bevorzugt Oettinger)!</li></ul>"));
}

void MainWindow::warnOfMissingLanguages()
{
    if (!Languages::areComplete())
        showError(tr("Konfigurationsproblem:<br>Das Verzeichnis<br>%1<br>mit Sprachinformationen "
                     "fehlt oder ist unvollständig!")
                      .arg(Languages::directory().toHtmlEscaped()));
}

void MainWindow::refreshMusicList()
{
    const QScopedValueRollback<bool> busy(scanning, true);
    auto *splash = new TarveloSplashScreen(this);
    splash->show();
    const SongManager *songs = app->getSongManager();
    connect(songs, &SongManager::notifySongCount, splash, &TarveloSplashScreen::setRange);
    connect(songs, &SongManager::notifySongScanned, splash,
            &TarveloSplashScreen::setSplashProgress);
    app->rescan();
    splash->finish();
    splash->deleteLater();
}

// The splash screen runs the event loop: what comes in meanwhile must not scan again.
void MainWindow::refreshAllLists()
{
    if (scanning)
        return;
    refreshMusicList();
    selectNoneInLibrary();
}

void MainWindow::startClock()
{
    auto *clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, &MainWindow::showTime);
    clock->start(1000);
    showTime();
}

// While a song plays or waits in its middle, its run time may stand in the clock's place.
void MainWindow::showTime()
{
    const bool inUse = player->isPlaying() || paused;
    if (buttonFrame->timeDisplayMode() == AlternatingTime && inUse)
        return;
    buttonFrame->setClock(QTime::currentTime().toString(QStringLiteral("HH:mm")));
}

void MainWindow::decoupledStartActions()
{
    setTempo(0);
    // The detour makes the page lay itself out once.
    stackedWidget->setCurrentIndex(ChoreographyScreen);
    showScreen(settingsLoaded ? LibraryScreen : SettingsScreen);
    adaptToFrameHeight(settingsPage->frameSize());
}

bool MainWindow::byeBye()
{
    if (leaving)
        return true;
    saveSettings();
    if (startingUp) {
        quitRequested = true;
        return true;
    }
    leaving = true;
    QCoreApplication::quit();
    return true;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (byeBye())
        event->accept();
    else
        event->ignore();
}

int MainWindow::currentScreen() const
{
    return stackedWidget->currentIndex();
}

void MainWindow::showScreen(int screen)
{
    if (screen == currentScreen() && screen == SettingsScreen)
        settingsPage->setCurrentIndex((settingsPage->currentIndex() + 1) % settingsPage->count());
    if (screen == currentScreen() && screen == HelpScreen)
        helpPage->nextTab();
    stackedWidget->setCurrentIndex(screen);
    frameTop->setScreen(screen, screenMenus.at(screen));
    buttonFrame->setScreen(screen);
    if (screen == PositionsScreen) {
        positionsPage->refreshPositionsWindow();
        QCoreApplication::processEvents();
        positionsPage->scrollToCurrentPosition();
    }
    takeFocusBack();
}

// The keys belong to the window: no widget keeps the focus.
void MainWindow::takeFocusBack()
{
    centralWidget()->setFocus();
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (const auto key = commandForKey(event->key(), event->modifiers(), currentScreen()))
        carryOut(*key);
    QMainWindow::keyPressEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    adaptPositionsHeader();
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && frameTop)
        retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::retranslate()
{
    for (auto action = actionTexts.cbegin(); action != actionTexts.cend(); ++action)
        action.key()->setText(tr(action.value()));
    frameTop->retranslate();
    buttonFrame->retranslate();
    choreographyPage->retranslate();
    settingsPage->retranslate();
    helpPage->retranslate();
    adaptPositionsHeader();
}

void MainWindow::adaptPositionsHeader()
{
    if (!currentSong) {
        frameTop->setSongTexts({});
        setWindowTitle(QStringLiteral("Tarvelo ") + Version::shortText());
        return;
    }
    const PositionsHeader header
        = positionsHeader(*currentSong, settings.text(Settings::Key::HighIntermediate),
                          settings.flag(Settings::Key::ShowMoreLyricsInfo),
                          [this](const QString &text) { return frameTop->elideForInfo(text); });
    frameTop->setSongTexts(header);
    setWindowTitle(header.windowTitle);
}
