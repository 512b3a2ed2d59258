#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <array>

class QLabel;

// How far a number of the countdown has faded. One for the whole program: a count that follows
// before the last one has faded goes on from there, and so is seen dimmer.
struct CountDownFade
{
    QPointer<QTimer> timer; // of the overlay that fades
    int step = 0;           // next place in CountDownDisplayDialog::fadeOpacity
};

// Shows the number of a countdown, large, without ever taking the keys from the main window:
// as a window that the user places and sizes once and for all, or as an overlay over the middle
// of the main window, whose digits fade at each beat. Where the desktop can't show an overlay
// that is seen through, it is no more than the outline of its digits.
class CountDownDisplayDialog : public QWidget
{
    Q_OBJECT

public:
    // The main window is not the parent, and may go first. The fade outlives the display.
    CountDownDisplayDialog(QWidget *mainWindow, bool overlay, CountDownFade *fade);

    void setCount(int count);
    // Puts an overlay over the middle of the main window, with digits that fill it. To be called
    // once more when the display has just been shown.
    void updateGeometryAndFont();

    static constexpr int fadeIntervalMs = 30;
    static constexpr std::array<double, 7> fadeOpacity{1.0, 1.0, 0.8, 0.6, 0.4, 0.2, 0.0};

public Q_SLOTS:
    // One step of the fading.
    void counterFadeOut();

protected:
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeOverlay();
    void makeWindow();
    void setDigitHeight(int pixels);
    void fitDigits();
    void setStrength(double strength);
    QRegion outline(double strength) const;

    QPointer<QWidget> mainWindow;
    const bool overlay;
    // The overlay can't be seen through: it gets the shape of its digits.
    const bool shaped;
    CountDownFade *fade;
    QLabel *labelCounter;
    int digitHeight = 0; // pixels, where the number is narrow enough
};
