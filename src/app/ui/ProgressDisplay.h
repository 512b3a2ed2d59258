#pragma once

#include <QDialog>

class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;

// The small modal dialog that stands before the window while many files are copied. The work goes
// on in the caller, who shows the dialog, tells each step and hides or deletes it at the end; the
// dialog runs the event loop at each step, so that the window stays alive. Nothing that the user
// does makes it go.
class ProgressDisplay : public QDialog
{
    Q_OBJECT

public:
    // maximum: number of steps; 0 shows a bar that only moves. The header holds the program's
    // mark.
    ProgressDisplay(QWidget *parent, int maximum, bool showHeader, bool showCancel);

    // The user wants the work to end: by the cancel button, by Escape or by closing the dialog.
    // Without a cancel button there is no such wish.
    bool isCanceled() const { return canceled; }

    void reject() override;

public Q_SLOTS:
    // One step further. Runs the event loop.
    void updateProgress();
    // Plain text. Runs the event loop.
    void setText(const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QFrame *addFrame(const char *name, bool shown);
    void addHeader(bool shown);
    void addProgress(int maximum);
    void addCancel(bool shown);
    void adaptSize();

    QList<QFrame *> shownFrames;
    QLabel *labelDisplayText = nullptr;
    QProgressBar *progressBar = nullptr;
    QPushButton *buttonCancel = nullptr;
    bool canceled = false;
};
