#include "RowNumberDelegate.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double edge = 1.5;   // pixels around the button
constexpr double radius = 6.0; // pixels, where the row is high enough
constexpr int textMargin = 5;  // pixels at both sides of the number
constexpr double faint = 0.25; // of a resting button's border

} // namespace

void RowNumberDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    QStyleOptionViewItem cell(option);
    initStyleOption(&cell, index);
    const bool hovered = cell.state.testFlag(QStyle::State_MouseOver);
    const bool down = hovered && QGuiApplication::mouseButtons() != Qt::NoButton;
    QColor ground = cell.backgroundBrush.color();
    QColor text = cell.palette.color(QPalette::Text);
    QColor border = option.palette.color(QPalette::Text);
    border.setAlphaF(hovered ? 1.0 : faint);
    if (down)
        std::swap(ground, text);

    const QRectF button = QRectF(cell.rect).adjusted(edge, edge, -edge, -edge);
    const double corner = std::min(radius, button.height() / 3.0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(border);
    painter->setBrush(ground);
    painter->drawRoundedRect(button, corner, corner);
    painter->setPen(text);
    painter->setFont(cell.font);
    painter->drawText(cell.rect.adjusted(textMargin, 0, -textMargin, 0),
                      static_cast<int>(cell.displayAlignment) | Qt::TextIncludeTrailingSpaces,
                      cell.text);
    painter->restore();
}
