#include "FrozenTableViewStyle.h"

#include <QStyleOption>
#include <QWidget>

namespace {

// A style made by a style sheet has no name.
QString nameOf(const QStyle *style)
{
    return style->name().isEmpty() ? QStringLiteral("Fusion") : style->name();
}

} // namespace

FrozenTableViewStyle::FrozenTableViewStyle(const QStyle *style)
    : QProxyStyle(nameOf(style))
{ }

void FrozenTableViewStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                         QPainter *painter, const QWidget *widget) const
{
    if (element != PE_IndicatorItemViewItemDrop || option->rect.isNull()) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOption line(*option);
    line.rect.setLeft(0);
    line.rect.setHeight(1);
    if (widget)
        line.rect.setRight(widget->width());
    QProxyStyle::drawPrimitive(element, &line, painter, widget);
}
