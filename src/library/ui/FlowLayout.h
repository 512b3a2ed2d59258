#pragma once

#include <QLayout>
#include <QList>

#include <memory>
#include <vector>

// Puts its widgets side by side and goes on in the next line where one is full: buttons of a fixed
// size in a frame of any width.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    using QLayout::QLayout;
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override { return static_cast<int>(items.size()); }
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    // Answers the height that the lines take; places the widgets if asked to.
    int arrange(const QRect &rect, bool place) const;

    std::vector<std::unique_ptr<QLayoutItem>> items;
};
