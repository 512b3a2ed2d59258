#include "Tips.h"

#include <QString>
#include <QWidget>

// Several blanks part the text from the key.
void describe(QWidget *widget, const QString &tip)
{
    widget->setToolTip(tip);
    widget->setAccessibleName(tip.section(QStringLiteral("  "), 0, 0));
}
