#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QFrame;
class QLabel;
class QProgressBar;

// Shows the progress of a library scan, in the middle of the primary screen.
class TarveloSplashScreen : public QDialog
{
    Q_OBJECT

public:
    explicit TarveloSplashScreen(QWidget *parent = nullptr);
    // Closes it; before that neither Esc nor the window manager does.
    void finish();

public Q_SLOTS:
    // Number of files that the scan reads.
    void setRange(int max);
    // File number value has been read. Runs the event loop so that it shows: for the first file,
    // the last one, and in between as often as a screen can show another.
    void setSplashProgress(int value, const QString &fileName, bool cached);

    void reject() override { }

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QFrame *makeLogo();
    QFrame *makeInfo();
    void showProgress();
    void centerOnScreen();

    QString word; // "Lese Datei" in the language of the settings
    bool finished = false;
    QElapsedTimer shown; // since the progress was last
    QFrame *info = nullptr;
    QLabel *labelSplashProgress = nullptr;
    QProgressBar *progressBar = nullptr;
};
