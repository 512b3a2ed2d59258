#include "Screens.h"

#include <QCoreApplication>

namespace {

constexpr ScreenRow rows[screenCount] = {
    {QT_TRANSLATE_NOOP("Screens", "Musik"), "Library", "F1"},
    {QT_TRANSLATE_NOOP("Screens", "Positionen"), "Positions", "F2"},
    {QT_TRANSLATE_NOOP("Screens", "Choreografie"), "PDF", "F3"},
    {QT_TRANSLATE_NOOP("Screens", "Einstellungen"), "Settings", "F4"},
    {QT_TRANSLATE_NOOP("Screens", "Hilfe"), "Help", "F5"},
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

QString screenTip(int screen)
{
    return screenName(screen) + QStringLiteral("       ") + QLatin1String(rows[screen].key);
}
