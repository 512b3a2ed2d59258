#pragma once

#include <QDateTime>
#include <QDialog>
#include <QStringList>

#include <memory>

class DanceEvent;
class QComboBox;
class QDateTimeEdit;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

// The small modal dialog that edits one event. The event changes by OK alone. The window keeps its
// place and size in the settings, and is never larger than 600 by 600 pixels: where the program's
// font doesn't fit in there, this dialog's font is a smaller one.
class EventEditor : public QDialog
{
    Q_OBJECT

public:
    // showDate, showTempo: whether these can be seen and edited; hidden, they stay as they are.
    // eventCategories: what to offer; the usual ones come after it unless "Training" is among it.
    // bpm: the song's beats a minute, for what the tempo comes to; below 1 they are unknown.
    EventEditor(QWidget *parent, const std::shared_ptr<DanceEvent> &danceEvent, bool showDate,
                const QStringList &eventCategories, bool showTempo, int bpm);
    // Saves place and size.
    ~EventEditor() override;

public Q_SLOTS:
    // Writes the fields into the event, and the category into the settings, and accepts.
    void onButtonOK_clicked();
    // Leaves the event as it is.
    void onButtonCloseWindow_clicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void nameWidgets();
    void layOut();
    void addTempo(QGridLayout *grid, int row);
    void addButtons(QGridLayout *grid, int row);
    void offerCategories(const QStringList &eventCategories);
    void connectWidgets();
    void fill();
    void showBpm();
    void retranslate();
    bool isSmallEnough() const;
    void fitFont();

    const std::shared_ptr<DanceEvent> danceEvent;
    const bool tempoShown;
    const int songBpm;
    // What the date field showed first; it can't show every date.
    QDateTime filledDate;

    QLabel *labelTimeEdit;
    QDateTimeEdit *dateTimeEdit;
    QLabel *labelCategory;
    QComboBox *comboBoxCategory;
    QLabel *labelEvent;
    QLineEdit *lineEditEvent;
    QLabel *labelTempo;
    QLineEdit *lineEditTempoPercent;
    QLabel *labelPercent;
    QLineEdit *lineEditTempoBpm;
    QLabel *labelBpm;
    QPushButton *buttonOK;
    QPushButton *buttonCloseWindow;
};
