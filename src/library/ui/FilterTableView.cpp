#include "FilterTableView.h"

#include <QCoreApplication>
#include <QKeyEvent>

void FilterTableView::keyPressEvent(QKeyEvent *event)
{
    const QWidget *table = parentWidget();
    if (table && table->parentWidget())
        QCoreApplication::sendEvent(table->parentWidget(), event);
    event->accept();
}
