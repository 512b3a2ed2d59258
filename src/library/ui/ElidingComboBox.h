#pragma once

#include <QComboBox>

// A box that shortens a text with an ellipsis where it is too narrow for it.
class ElidingComboBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent *event) override;
};
