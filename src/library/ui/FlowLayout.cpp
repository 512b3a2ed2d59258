#include "FlowLayout.h"

#include <QWidget>

#include <algorithm>

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem *item)
{
    items.emplace_back(item);
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    const auto place = items.begin() + index;
    QLayoutItem *item = place->release();
    items.erase(place);
    return item;
}

int FlowLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : items)
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int FlowLayout::arrange(const QRect &rect, bool place) const
{
    const QRect inside = rect.marginsRemoved(contentsMargins());
    QPoint corner = inside.topLeft();
    int lineHeight = 0;
    for (const auto &item : items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (corner.x() > inside.left() && corner.x() + size.width() > inside.right() + 1) {
            corner = QPoint(inside.left(), corner.y() + lineHeight + spacing());
            lineHeight = 0;
        }
        if (place)
            item->setGeometry(QRect(corner, size));
        corner.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return corner.y() + lineHeight - rect.y() + contentsMargins().bottom();
}
