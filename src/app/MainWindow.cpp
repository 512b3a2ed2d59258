#include "MainWindow.h"

#include "Actions.h"
#include "BottomFrame.h"
#include "ChoreographyPage.h"
#include "CountDownDisplays.h"
#include "FileTools.h"
#include "FrozenTableView.h"
#include "HelpPage.h"
#include "KeyTable.h"
#include "LibraryPage.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionSlider.h"
#include "PositionsPage.h"
#include "ProgramStyle.h"
#include "Settings.h"
#include "SettingsPage.h"
#include "SongFileActions.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "Tarvelo.h"
#include "TopFrame.h"
#include "Version.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

MainWindow::MainWindow(Tarvelo *application, QWidget *parent)
    : QMainWindow(parent)
    , app(application)
    , player(application->getPlayer())
{
    screenDpi = QGuiApplication::primaryScreen()->logicalDotsPerInch();
    QApplication::setStyle(new ProgramStyle);
    buildUi();
    createConnections();
    settingsLoaded = loadSettings();
    showFirstScreen();
    restoreColumns();
    refreshAllLists();
    restoreColumns();
    startClock();
    warnOfMissingLanguages();
    setTempo(0);
    setCurrentSong({});
    adaptActions();
    show();
    if (!settingsLoaded)
        showInfo(tr("Bitte wähle das Verzeichnis Deiner Clogging-Musiksammlung (Musikverzeichnis "
                    "-> Bearbeiten). Die meisten anderen Einstellungen können auch später noch "
                    "vorgenomen werden."));
    if (settings.flag(Settings::Key::AutoEvent))
        onButtonSetEvent_clicked();
    startingUp = false;
    positionsPage->setStartingUp(false);
}

MainWindow::~MainWindow()
{
    qDebug("Program ending");
    for (const SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        panel->filter()->setSource(nullptr);
    // Lists and pages tell of their selection while they go, and there is nobody to hear it.
    for (QWidget *child : findChildren<QWidget *>())
        child->disconnect(this);
}

void MainWindow::buildUi()
{
    auto *central = new QWidget(this);
    central->setFocusPolicy(Qt::StrongFocus);
    setCentralWidget(central);
    actions = new Actions(this);
    themeTimer = new QTimer(this);
    themeTimer->setSingleShot(true);
    themeTimer->setInterval(0);
    connect(themeTimer, &QTimer::timeout, this, &MainWindow::applyThemeNow);
    frameTop = new TopFrame(central);
    QWidget *frameCenter = buildCenter();
    frameSlider = new PositionSlider(central);
    buttonFrame = new BottomFrame(central);
    frameTop->setScreenMenu(actions->menu(MenuId::Screens));
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(frameTop);
    layout->addWidget(frameCenter, 1);
    layout->addWidget(frameSlider);
    layout->addWidget(buttonFrame);
}

QWidget *MainWindow::buildCenter()
{
    auto *frameCenter = new QFrame(centralWidget());
    frameCenter->setObjectName(QStringLiteral("frameCenter"));
    splitterPlaylist = new QSplitter(frameCenter);
    splitterPlaylist->setObjectName(QStringLiteral("splitterPlaylist"));
    framePlaylist
        = new SongListPanel(SongListPanel::Side::Left, app->getSongManager(), splitterPlaylist);
    stackedWidget = new QStackedWidget(splitterPlaylist);
    stackedWidget->setObjectName(QStringLiteral("stackedWidget"));
    libraryPage = new LibraryPage(app->getSongManager(), stackedWidget);
    songFiles = std::make_unique<SongFileActions>(app->getSongManager(), libraryPage->songList(),
                                                  framePlaylist, this);
    positionsPage = new PositionsPage(player, stackedWidget);
    positionsPage->setStartingUp(true);
    choreographyPage = new ChoreographyPage(stackedWidget);
    settingsPage = new SettingsPage(stackedWidget);
    helpPage = new HelpPage(stackedWidget);
    for (QWidget *page : std::initializer_list<QWidget *>{libraryPage, positionsPage,
                                                          choreographyPage, settingsPage, helpPage})
        stackedWidget->addWidget(page);
    framePlaylist->setOther(libraryPage->songList());
    libraryPage->songList()->setOther(framePlaylist);
    splitterPlaylist->addWidget(framePlaylist);
    splitterPlaylist->addWidget(stackedWidget);
    splitterPlaylist->setChildrenCollapsible(false);
    splitterPlaylist->handle(1)->installEventFilter(this);
    frameTop->filterField()->installEventFilter(this);
    framePlaylist->hide();
    auto *layout = new QVBoxLayout(frameCenter);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitterPlaylist);
    return frameCenter;
}

void MainWindow::createConnections()
{
    connect(actions, &Actions::requested, this, &MainWindow::carryOut);
    connect(frameTop, &TopFrame::requested, this, &MainWindow::carryOut);
    connect(frameTop, &TopFrame::infoRoomChanged, this, &MainWindow::adaptPositionsHeader);
    connect(buttonFrame, &BottomFrame::requested, this, &MainWindow::carryOut);
    connectPlayer();
    connectPositionsPage();
    connectSearch();
    // Asked for once a change: another program may take its time to answer.
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &MainWindow::noteClipboard);
    noteClipboard();

    connect(libraryPage, &LibraryPage::songActivated, this, [this] {
        carryOut({Command::LoadAndShowPositions, 0});
    });
    connect(framePlaylist, &SongListPanel::songActivated, this, [this] {
        loadPlaylistSong(framePlaylist->selection().song());
        showScreen(PositionsScreen);
    });
    for (SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        connectSongList(panel);
    connect(songFiles.get(), &SongFileActions::musicDirWanted, this,
            [this] { showScreen(SettingsScreen); });
    connect(splitterPlaylist, &QSplitter::splitterMoved, this, [this] {
        if (currentScreen() == PositionsScreen)
            positionsPage->refreshPositionsWindow();
    });

    connectSettingsPage();
}

void MainWindow::connectPlayer()
{
    connect(player, &Player::notifyPlayTimeChanged, this, &MainWindow::on_newTimeStamp);
    connect(player, &Player::notifyIsPlayingChanged, this, &MainWindow::on_playStatusChanged);
    connect(player, &Player::notifyActivePartChanged, this, &MainWindow::on_partChanged);
    connect(frameSlider, &PositionSlider::released, this, &MainWindow::seekTo);
    connect(frameSlider, &PositionSlider::stepped, this, &MainWindow::seekTo);
}

void MainWindow::connectPositionsPage()
{
    positionsPage->setContextMenuActions(actions->entries(MenuId::PositionsPlay),
                                         actions->entries(MenuId::PositionsEdit));
    positionsPage->setContextMenuOrigin(libraryPage->songList()->table()->viewport());
    connect(positionsPage, &PositionsPage::startRequested, this, &MainWindow::startFromPart);
    connect(positionsPage, &PositionsPage::loopRequested, this, &MainWindow::startLoop);
    // Also while the music goes on by itself: whoever types keeps the focus.
    connect(positionsPage, &PositionsPage::markedRowChanged, this, &MainWindow::adaptActionStates);
    connect(positionsPage, &PositionsPage::pressed, this, &MainWindow::takeFocusBack);
    connect(positionsPage, &PositionsPage::emptied, this, [this] { frameTop->setSongTexts({}); });
    auto *countDowns = new CountDownDisplays(this, this);
    connect(player, &Player::notifyCountDown, countDowns, &CountDownDisplays::showCountDown);
    connect(countDowns, &CountDownDisplays::buttonCountShown, frameTop, &TopFrame::showCount);
    connect(countDowns, &CountDownDisplays::buttonCountEnded, frameTop, &TopFrame::endCount);
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
        tr("<p>Das konfigurierte Verzeichnis</p><code>") + fileNameAsHtml(directory)
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
                      .arg(fileNameAsHtml(Languages::directory())));
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
    writeTempoPresetTexts();
    refreshFilterStats();
    setTempo(0);
    // The detour makes the page lay itself out once.
    stackedWidget->setCurrentIndex(ChoreographyScreen);
    showScreen(settingsLoaded ? LibraryScreen : SettingsScreen);
    adaptToFrameHeight(settingsPage->frameSize());
    applyThemeNow();
}

bool MainWindow::byeBye()
{
    if (leaving)
        return true;
    if (positionEditorOpen || !promptSaves())
        return false;
    // A number that was typed counts when its field is left.
    takeFocusBack();
    saveSettings();
    if (startingUp) {
        quitRequested = true;
        closeQuestions();
        return true;
    }
    leaving = true;
    QCoreApplication::quit();
    return true;
}

// No event loop ends that hasn't begun: a question without its window would wait for ever.
void MainWindow::closeQuestions()
{
    while (QWidget *question = QApplication::activeModalWidget()) {
        if (!question->close())
            return;
    }
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
    if (!buttonFrame->isScreenEnabled(screen))
        return;
    if (screen == currentScreen() && screen == SettingsScreen)
        settingsPage->setCurrentIndex((settingsPage->currentIndex() + 1) % settingsPage->count());
    if (screen == currentScreen() && screen == HelpScreen)
        helpPage->nextTab();
    stackedWidget->setCurrentIndex(screen);
    frameTop->setScreen(screen, actions->menu(static_cast<MenuId>(screen)));
    buttonFrame->setScreen(screen);
    adaptCountDownButtons();
    enterScreen(screen);
    takeFocusBack();
}

void MainWindow::enterScreen(int screen)
{
    framePlaylist->setVisible(playlistShown && screen <= ChoreographyScreen);
    if (screen == PositionsScreen)
        positionsPage->enter();
    if (screen == SettingsScreen)
        fillSettingsTab();
}

void MainWindow::stepScreen(int step)
{
    showScreen((currentScreen() + step + screenCount) % screenCount);
}

// The keys belong to the window: no widget keeps the focus.
void MainWindow::takeFocusBack()
{
    centralWidget()->setFocus();
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (const auto call = commandForKey(event->key(), event->modifiers(), currentScreen()))
        carryOut(*call);
    QMainWindow::keyPressEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    buttonFrame->showAgain();
    frameTop->showTitle();
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LocaleChange)
        setLanguage(QLocale::system().name().left(2));
    if (event->type() == QEvent::LanguageChange && buttonFrame)
        retranslate();
    QMainWindow::changeEvent(event);
}

// The texts follow by the event that the new translation sends.
void MainWindow::setLanguage(const QString &language)
{
    languages.setLanguage(language == QStringLiteral("de") ? language : QStringLiteral("en"));
    settingsPage->setValue(Settings::Key::Language, languages.language());
    QTimer::singleShot(50, this, &MainWindow::refreshFilterStats);
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == splitterPlaylist->handle(1) && event->type() == QEvent::MouseButtonDblClick)
        divideRoomEqually();
    if (qobject_cast<QLineEdit *>(watched) && event->type() == QEvent::KeyPress
        && carryOutAltGr(*static_cast<QKeyEvent *>(event)))
        return true;
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::divideRoomEqually()
{
    const QList<int> sizes = splitterPlaylist->sizes();
    const int sum = sizes.at(0) + sizes.at(1);
    splitterPlaylist->setSizes({sum / 2, sum - sum / 2});
}

// A field takes Home with AltGr for plain Home, and the arrows for its own. Letters that AltGr
// gives belong to the field.
bool MainWindow::carryOutAltGr(const QKeyEvent &event)
{
    const bool typesNothing = event.text().isEmpty() || !event.text().at(0).isPrint();
    constexpr Qt::KeyboardModifiers altGr{Qt::ControlModifier | Qt::AltModifier};
    if ((meantModifiers(event.modifiers()) & altGr) != altGr || !typesNothing)
        return false;
    const auto call = commandForKey(event.key(), event.modifiers(), currentScreen());
    if (call)
        carryOut(*call);
    return call.has_value();
}

void MainWindow::retranslate()
{
    adaptActionStates();
    frameTop->retranslate();
    frameSlider->retranslate();
    buttonFrame->retranslate();
    choreographyPage->retranslate();
    settingsPage->retranslate();
    helpPage->retranslate();
    // Numbers and dates are written in another way.
    framePlaylist->table()->viewport()->update();
    libraryPage->songList()->table()->viewport()->update();
    if (currentScreen() == PositionsScreen)
        positionsPage->refreshPositionsWindow();
    adaptPositionsHeader();
}

void MainWindow::adaptPositionsHeader()
{
    if (!currentSong) {
        frameTop->setSongTexts({});
        setWindowTitle(QStringLiteral("Tarvelo ") + Version::shortText());
        return;
    }
    const PositionsHeader header = positionsHeader(
        *currentSong, settingsPage->value(Settings::Key::HighIntermediate).toString(),
        settings.flag(Settings::Key::ShowMoreLyricsInfo),
        [this](const QString &text) { return frameTop->elideForInfo(text); });
    frameTop->setSongTexts(header);
    setWindowTitle(header.windowTitle);
}
