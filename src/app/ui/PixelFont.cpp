#include "PixelFont.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QWidget>

void setPixelSize(QWidget *widget, int pixels)
{
    widget->setStyleSheet(QStringLiteral("font-size: %1px;").arg(pixels));
}

void setTabularPixelSize(QWidget *widget, int pixels)
{
    setPixelSize(widget, pixels);
    widget->ensurePolished();
    if (hasTabularFigures(widget->font()))
        return;
    widget->setStyleSheet(QStringLiteral("font-size: %1px; font-family: \"%2\";")
                              .arg(pixels)
                              .arg(withTabularFigures(widget->font()).family()));
}

int widthAt(const QWidget *widget, int pixels, const QString &text)
{
    QFont font = widget->font();
    font.setPixelSize(pixels);
    return QFontMetrics(font).horizontalAdvance(text);
}

bool hasTabularFigures(const QFont &font)
{
    const QFontMetricsF metrics(font);
    const qreal width = metrics.horizontalAdvance(u'0');
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (!qFuzzyCompare(metrics.horizontalAdvance(digit), width))
            return false;
    }
    return true;
}

QFont withTabularFigures(const QFont &font)
{
    if (hasTabularFigures(font))
        return font;
    QFont tabular = font;
    tabular.setFamilies({QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
    return tabular;
}
