#include "Screens.h"

#include <QCoreApplication>

namespace {

constexpr ScreenRow rows[screenCount] = {
    {QT_TRANSLATE_NOOP("Screens", "Musik"), "♫", "F1"},
    {QT_TRANSLATE_NOOP("Screens", "Positionen"), "☰", "F2"},
    {QT_TRANSLATE_NOOP("Screens", "Choreografie"), "🗎", "F3"},
    {QT_TRANSLATE_NOOP("Screens", "Einstellungen"), "⚙", "F4"},
    {QT_TRANSLATE_NOOP("Screens", "Hilfe"), "?", "F5"},
};

} // namespace

const ScreenRow &screenRow(int screen)
{
    return rows[screen];
}

QString screenName(int screen)
{
    return QCoreApplication::translate("Screens", rows[screen].name);
}

QString screenSymbol(int screen)
{
    return QString::fromUtf8(rows[screen].symbol);
}

QString screenTip(int screen)
{
    return screenName(screen) + QStringLiteral("       ") + QLatin1String(rows[screen].key);
}
