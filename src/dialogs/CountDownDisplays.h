#pragma once

#include "CountDownDisplayDialog.h"
#include "CountDownEvent.h"

#include <QObject>

#include <memory>

// Shows what the engine tells of countdowns, in the way that each event names: on the button of
// the top frame, whose owner follows the two signals, in a window, or over the main window.
class CountDownDisplays : public QObject
{
    Q_OBJECT

public:
    // The main window may go first.
    explicit CountDownDisplays(QWidget *mainWindow, QObject *parent = nullptr);
    ~CountDownDisplays() override;

public Q_SLOTS:
    void showCountDown(const CountDownEvent &event);

Q_SIGNALS:
    // The button that tells of a countdown takes the place of the other one, with this text.
    void buttonCountShown(const QString &count);
    // Its text is emptied, and the other button comes back.
    void buttonCountEnded();

private:
    using Display = std::unique_ptr<CountDownDisplayDialog>;

    void end();
    void show(Display &display, bool overlay, int count);
    static void close(Display &display);

    QPointer<QWidget> mainWindow;
    CountDownFade fade;
    // From the first number of a countdown to its end, also where the user has closed it.
    Display window;
    Display overlay;
};
