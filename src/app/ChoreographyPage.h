#pragma once

#include <QWidget>

class QLabel;
class QScrollArea;

// The screen of the song's choreography document.
class ChoreographyPage : public QWidget
{
    Q_OBJECT

public:
    explicit ChoreographyPage(QWidget *parent = nullptr);

    // Another song: tells that it has no document; without a song the page is empty. The page
    // begins at its top again.
    void setSongPresent(bool present);
    void retranslate();

    // Down by so many pixels, or by so many heights of the page; up below 0.
    void scroll(int pixels);
    void scrollPages(int pages);

private:
    QScrollArea *scrollArea_PDF;
    QLabel *message;
    bool songPresent = false;
};
