#pragma once

#include <QComboBox>

// A box of the filter row, with a field that is never typed into. Open, it is as wide as its
// longest entry.
class FilterComboBox : public QComboBox
{
    Q_OBJECT

public:
    // Pixels that the list of entries is wider than its longest text.
    explicit FilterComboBox(int popupExtra, QWidget *parent = nullptr);

    // The entries anew; the same text as before is chosen, nothing (index -1) where it is gone.
    // What is chosen meanwhile is told like any other choice.
    void refill(const QStringList &entries);
    // Of the field alone; where it looks at the text it is looked at anew with each.
    void setFieldStyleSheet(const QString &sheet);
    void showPopup() override;

Q_SIGNALS:
    // The user chose the entry that was chosen already.
    void chosenAgain();

protected:
    // A click into the field opens the box, as one on its arrow does.
    bool eventFilter(QObject *watched, QEvent *event) override;
    // Who scrolls through the page chooses nothing.
    void wheelEvent(QWheelEvent *event) override;

private:
    void showText();
    int popupWidth() const;

    int extraWidth;
    int indexBefore = -1;
};
