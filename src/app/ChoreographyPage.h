#pragma once

#include <QWidget>

class QLabel;

// The screen of the song's choreography document.
class ChoreographyPage : public QWidget
{
    Q_OBJECT

public:
    explicit ChoreographyPage(QWidget *parent = nullptr);

    // Tells that the current song has no document; without a song the page is empty.
    void setSongPresent(bool present);
    void retranslate();

private:
    QLabel *message;
    bool songPresent = false;
};
