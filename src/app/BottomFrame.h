#pragma once

#include <QFrame>

class QPushButton;

// How clock and run time share their place; the numbers are those of the setting.
enum TimeDisplayMode { AlternatingTime, ClockOnly, RunTimeOnly, ParallelTime };

// The frame below the screens: screen buttons, clock, transport, run time and tempo.
class BottomFrame : public QFrame
{
    Q_OBJECT

public:
    explicit BottomFrame(QWidget *parent = nullptr);

    void setScreen(int screen);
    // Pixels of the top frame; this one is 7/5 of it and all its controls follow.
    void setFrameHeight(int height);
    void setTimeDisplayMode(int mode);
    int timeDisplayMode() const { return timeMode; }

    void setClock(const QString &text);
    void setRunTime(const QString &text);
    // Both empty without a song.
    void setTempo(const QString &percent, const QString &bpm);
    void retranslate();

Q_SIGNALS:
    void screenRequested(int screen);
    void stopClicked();
    void pauseClicked();
    void playClicked();
    void tempoMinusClicked();
    void tempoPlusClicked();

private:
    void addScreenButtons();
    void addTransport();
    void addTempo();
    QPushButton *addButton(const char *name, const QString &text);

    int timeMode = ParallelTime;
    QList<QPushButton *> screenButtons;
    QList<QPushButton *> squareButtons; // of the large size
    QList<QPushButton *> tempoButtons;  // of the medium size
    QPushButton *buttonTime = nullptr;
    QPushButton *buttonStop = nullptr;
    QPushButton *buttonPause = nullptr;
    QPushButton *buttonPlay = nullptr;
    QPushButton *buttonRunTime = nullptr;
    QPushButton *buttonTempoMinus = nullptr;
    QPushButton *buttonTempoDisplay = nullptr;
    QPushButton *buttonTempoDisplayBPM = nullptr;
    QPushButton *buttonTempoPlus = nullptr;
};
