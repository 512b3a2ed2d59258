#pragma once

#include "Commands.h"

#include <QFrame>

class QPushButton;

// How clock and run time share their place; the numbers are those of the setting.
enum TimeDisplayMode { AlternatingTime, ClockOnly, RunTimeOnly, ParallelTime };
constexpr int timeDisplayModes = 4;

// What tells the tempo; the numbers are those of the setting.
enum BpmDisplay { PercentOnly, BpmOnly, PercentAndBpm };
constexpr int bpmDisplays = 3;

// The frame below the screens: screen buttons, clock, transport, run time and tempo.
class BottomFrame : public QFrame
{
    Q_OBJECT

public:
    static constexpr int presetCount = 5;

    explicit BottomFrame(QWidget *parent = nullptr);

    void setScreen(int screen);
    // False for a screen that can't be chosen now; its key does nothing then.
    void setScreenEnabled(int screen, bool enabled);
    bool isScreenEnabled(int screen) const;
    // Pixels of the top frame; this one is 7/5 of it and all its controls follow.
    void setFrameHeight(int height);
    void setTimeDisplayMode(int mode);
    int timeDisplayMode() const { return timeMode; }

    void setClock(const QString &text);
    // Goes where the mode shows the run time, if anywhere.
    void setRunTime(const QString &text);
    // Both empty without a song.
    void setTempo(const QString &percent, const QString &bpm);
    // The percent, as they are shown.
    QString tempoText() const;
    void setBpmDisplay(int display);
    // Shows again what a small window may have hidden.
    void showAgain();

    // number: 1 to 5, from the right. The text names the percent.
    void setPreset(int number, const QString &text);
    void setPresetChecked(int number, bool checked);
    void setPresetsShown(bool shown);
    void retranslate();

Q_SIGNALS:
    void requested(const CommandCall &call);

private:
    struct Row;
    static const Row table[];

    void addButton(const Row &row);
    QPushButton *button(int id) const { return buttons.at(id); }

    int timeMode = ParallelTime;
    QList<QPushButton *> buttons; // in the order of the table
    QList<QWidget *> groups;
};
