#include "Version.h"

#include <QLocale>

namespace Version {

QVersionNumber number()
{
    return QVersionNumber(8, 0, 0);
}

QDate date()
{
    return QDate(2024, 12, 6);
}

QString shortText()
{
    return number().normalized().toString();
}

QString logText()
{
    const QDate day = date();
    return QStringLiteral("%1 %2-%3-%4")
        .arg(number().toString())
        .arg(day.year())
        .arg(day.month())
        .arg(day.day());
}

QString buildDate(const QString &format)
{
    const QLocale locale;
    QString pattern = QStringLiteral("dd MMM yyyy");
    if (format == u"S" && locale.name() == u"de_DE")
        pattern = QStringLiteral("dd.MM.yyyy");
    else if (format == u"S" && locale.name() == u"en_US")
        pattern = QStringLiteral("MM/dd/yyyy");
    return locale.toString(date(), pattern);
}

QString releaseName()
{
    return QStringLiteral("Rocking Chair");
}

} // namespace Version
