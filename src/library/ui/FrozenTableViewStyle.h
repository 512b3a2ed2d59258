#pragma once

#include <QProxyStyle>

// The program's style with another mark for the place of a drop: a thin line over the whole width,
// as the cell of a song list means nothing.
class FrozenTableViewStyle : public QProxyStyle
{
    Q_OBJECT

public:
    // Like this style, but independent of it: a proxy would own the style that it stands before.
    explicit FrozenTableViewStyle(const QStyle *style);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
};
