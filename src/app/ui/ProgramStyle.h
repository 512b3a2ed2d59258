#pragma once

#include <QProxyStyle>

// The style under the style sheet: Fusion, with pictures in menus that follow the font size.
class ProgramStyle : public QProxyStyle
{
    Q_OBJECT

public:
    ProgramStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
};

// Pixels, of all menus from now on.
void setMenuIconSize(int pixels);
