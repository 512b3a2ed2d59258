#include "CountDownDisplays.h"

CountDownDisplays::CountDownDisplays(QWidget *theMainWindow, QObject *parent)
    : QObject(parent)
    , mainWindow(theMainWindow)
{ }

CountDownDisplays::~CountDownDisplays()
{
    for (Display *display : {&window, &overlay}) {
        if (*display)
            (*display)->close();
    }
}

void CountDownDisplays::showCountDown(const CountDownEvent &event)
{
    enum Type { Nothing, Simple, Window, Cool };
    switch (event.type) {
    case Nothing:
        return end();
    case Simple:
        Q_EMIT buttonCountShown(QString::number(event.count));
        return;
    case Window:
        return show(window, false, event.count);
    case Cool:
        return show(overlay, true, event.count);
    }
}

void CountDownDisplays::end()
{
    Q_EMIT buttonCountEnded();
    close(overlay);
    close(window);
    // What was cut off in the middle of its fading doesn't dim the next countdown.
    delete fade.timer;
    fade.step = 0;
}

void CountDownDisplays::show(Display &display, bool isOverlay, int count)
{
    if (!display) {
        display = std::make_unique<CountDownDisplayDialog>(mainWindow, isOverlay, &fade);
        display->show();
        display->updateGeometryAndFont();
    }
    display->setCount(count);
}

// It may be in the middle of an event of its own.
void CountDownDisplays::close(Display &display)
{
    if (!display)
        return;
    display->close();
    display.release()->deleteLater();
}
