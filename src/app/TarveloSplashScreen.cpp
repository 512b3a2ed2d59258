#include "TarveloSplashScreen.h"

#include "Settings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// A screen shows no more pictures than one in this time.
constexpr int pictureMs = 16;

// The translations are loaded later than the splash screen shows, so the word comes from here.
QString progressWord()
{
    const QString locale = Settings::value(Settings::Key::Language).toString();
    const QString language = locale.left(locale.lastIndexOf(QLatin1Char('_')));
    const bool german = !Settings::contains(Settings::Key::Language)
                        || language.compare(QLatin1String("de"), Qt::CaseInsensitive) == 0;
    return german ? QStringLiteral("Lese Datei") : QStringLiteral("Reading file");
}

} // namespace

TarveloSplashScreen::TarveloSplashScreen(QWidget *parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
    , word(progressWord())
{
    setObjectName(QStringLiteral("SplashScreen"));
    setModal(true);
    setAttribute(Qt::WA_TranslucentBackground);
    // Its measures are those of the desktop's font, whatever the program's own one is.
    setStyleSheet(QStringLiteral("QWidget { font-size: %1px; }")
                      .arg(QFontInfo(QApplication::font()).pixelSize()));
    resize(302, 406);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // No taller than its picture, which would begin again below.
    layout->addWidget(makeLogo(), 1, Qt::AlignCenter);
    layout->addWidget(makeInfo(), 0, Qt::AlignHCenter);
    centerOnScreen();
}

QFrame *TarveloSplashScreen::makeLogo()
{
    auto *logo = new QFrame(this);
    logo->setObjectName(QStringLiteral("frameSplashLogo"));
    logo->setMinimumSize(300, 300);
    logo->setFrameShape(QFrame::NoFrame);
    logo->setStyleSheet(QStringLiteral("background-image: url(:/Splash.png);"));
    return logo;
}

QFrame *TarveloSplashScreen::makeInfo()
{
    info = new QFrame(this);
    info->setObjectName(QStringLiteral("frameSplashInfo"));
    info->setFixedWidth(300);
    info->setStyleSheet(QStringLiteral("QFrame { background-color: black; border-radius: 15px; }"));
    const int lineHeight = QFontMetrics(QApplication::font()).height();

    labelSplashProgress = new QLabel(info);
    labelSplashProgress->setObjectName(QStringLiteral("labelSplashProgress"));
    labelSplashProgress->setStyleSheet(
        QStringLiteral("QLabel { background-color: black; color: #7f7; }"));
    labelSplashProgress->setTextFormat(Qt::PlainText);
    labelSplashProgress->setAlignment(Qt::AlignCenter);
    labelSplashProgress->setFixedSize(282, 3 * lineHeight);

    progressBar = new QProgressBar(info);
    progressBar->setObjectName(QStringLiteral("progressBar"));
    progressBar->setMaximumHeight(30);
    progressBar->setFixedHeight(3 * lineHeight / 2);
    progressBar->setAlignment(Qt::AlignCenter);
    progressBar->setStyleSheet(QStringLiteral(
        "QProgressBar { background-color: #444; border-radius: 8px; border: none; text-align: "
        "center; color: black; } QProgressBar::chunk { background-color: #7f7; border-radius: "
        "8px; }"));

    auto *layout = new QVBoxLayout(info);
    layout->addWidget(labelSplashProgress, 10);
    layout->addWidget(progressBar, 5);
    return info;
}

void TarveloSplashScreen::setRange(int max)
{
    progressBar->setRange(0, max);
}

void TarveloSplashScreen::setSplashProgress(int value, const QString &fileName, bool cached)
{
    progressBar->setValue(value);
    const QString mark = cached ? QStringLiteral(" ▶▶") : QString();
    labelSplashProgress->setText(
        QStringLiteral("%4 %1%3\n%2").arg(QString::number(value), fileName, mark, word));
    if (!shown.isValid() || shown.hasExpired(pictureMs) || value == progressBar->maximum())
        showProgress();
}

// In between nothing is painted, least of all by the bar, which does so at once when it is set.
void TarveloSplashScreen::showProgress()
{
    info->setUpdatesEnabled(true);
    QCoreApplication::processEvents();
    info->setUpdatesEnabled(false);
    shown.start();
}

void TarveloSplashScreen::finish()
{
    finished = true;
    close();
}

void TarveloSplashScreen::closeEvent(QCloseEvent *event)
{
    event->setAccepted(finished);
}

void TarveloSplashScreen::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    centerOnScreen();
}

void TarveloSplashScreen::centerOnScreen()
{
    move(QGuiApplication::primaryScreen()->geometry().center() - rect().center());
}
