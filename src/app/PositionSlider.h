#pragma once

#include <QFrame>

class QSlider;

// The slider between the screens and the bottom frame: how far the song has come, and where it is
// to go on. Milliseconds of the song.
class PositionSlider : public QFrame
{
    Q_OBJECT

public:
    explicit PositionSlider(QWidget *parent = nullptr);

    void setLength(int ms);
    int length() const;
    // Where the song is; nothing happens while the user holds the slider.
    void setPosition(int ms);
    bool isHeld() const { return held; }
    // Pixels of the top frame.
    void setFrameHeight(int height);
    void retranslate();

Q_SIGNALS:
    // The user has let go of the slider.
    void released(int ms);
    // A click beside the handle: five seconds ahead or back.
    void stepped(int ms);

private:
    void onHorizontalSliderPosition_actionTriggered(int action);

    QSlider *horizontalSliderPosition;
    bool held = false;
};
