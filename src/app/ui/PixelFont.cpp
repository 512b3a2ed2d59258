#include "PixelFont.h"

#include <QFontMetrics>
#include <QWidget>

void setPixelSize(QWidget *widget, int pixels)
{
    widget->setStyleSheet(QStringLiteral("font-size: %1px;").arg(pixels));
}

int widthAt(const QWidget *widget, int pixels, const QString &text)
{
    QFont font = widget->font();
    font.setPixelSize(pixels);
    return QFontMetrics(font).horizontalAdvance(text);
}
