#include "ProgramStyle.h"

#include <QWidget>

namespace {

int menuIconSize = 16; // pixels

} // namespace

ProgramStyle::ProgramStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{ }

// The style sheet can't tell a menu how large its pictures are.
int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const
{
    if (metric == PM_SmallIconSize && (!widget || widget->inherits("QMenu")))
        return menuIconSize;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void setMenuIconSize(int pixels)
{
    menuIconSize = pixels;
}
