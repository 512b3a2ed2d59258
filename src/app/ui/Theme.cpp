#include "Theme.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>

namespace {

struct ColourRow
{
    QPalette::ColorRole role;
    QRgb dark;
    QRgb bright;
};

constexpr ColourRow colours[] = {
    {QPalette::AlternateBase, qRgb(40, 40, 40), qRgb(220, 220, 220)},
    {QPalette::Base, qRgb(25, 25, 25), qRgb(255, 255, 255)},
    {QPalette::BrightText, qRgb(255, 0, 0), qRgb(255, 0, 0)},
    {QPalette::Button, qRgb(53, 53, 53), qRgb(160, 160, 164)},
    {QPalette::ButtonText, qRgb(255, 255, 255), qRgb(0, 0, 0)},
    {QPalette::Highlight, qRgb(127, 255, 127), qRgb(0, 0, 255)},
    {QPalette::HighlightedText, qRgb(0, 0, 0), qRgb(255, 255, 255)},
    {QPalette::Link, qRgb(42, 130, 218), qRgb(42, 130, 218)},
    {QPalette::PlaceholderText, qRgb(63, 127, 63), qRgb(127, 127, 127)},
    {QPalette::Text, qRgb(127, 255, 127), qRgb(0, 0, 0)},
    {QPalette::Window, qRgb(0, 0, 0), qRgb(255, 255, 255)},
    {QPalette::WindowText, qRgb(127, 255, 127), qRgb(0, 0, 0)},
};

QPalette palette(QRgb ColourRow::*column)
{
    QPalette result;
    for (const ColourRow &row : colours)
        result.setBrush(QPalette::All, row.role, QColor(row.*column));
    return result;
}

} // namespace

const Theme &themeNamed(const QString &displayName)
{
    static const Theme dark{QStringLiteral("Dark Night"), QStringLiteral("Dark_Night"),
                            palette(&ColourRow::dark)};
    static const Theme bright{QStringLiteral("Bright Morning"), QStringLiteral("Bright_Morning"),
                              palette(&ColourRow::bright)};
    const bool isBright = displayName.compare(bright.displayName, Qt::CaseInsensitive) == 0;
    return isBright ? bright : dark;
}

QString filledStyleSheet(const QString &sheet, const StyleSheetMeasures &measures)
{
    const QString values[] = {
        QString::number(measures.screenDpi * 0.25),
        QString::number(measures.screenDpi / 10.0),
        QString::number(measures.screenDpi * 0.5),
        QString::number(measures.scrollBarWidth),
        QString::number(measures.fontSize),
        QString::number(measures.screenButtonHeight * 4 / 5),
        QString::number(measures.topFrameHeight * 4 / 10),
        QString::number(measures.fontSize / 2),
        QString::number(measures.fontSize * 5 / 3),
    };
    QString filled = sheet;
    for (std::size_t i = 0; i < std::size(values); ++i)
        filled.replace(QLatin1Char('%') + QString::number(i + 1), values[i]);
    return filled;
}

QString styleSheetText(const Theme &theme)
{
    QFile file(QStringLiteral(":/") + theme.directory + QStringLiteral("/StyleSheet.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(file.readAll());
}

QString styleSheetColor(const QString &selector)
{
    static const QRegularExpression rule(selector
                                         + QStringLiteral(" \\{ background-color: (.*?);"));
    return rule.match(qApp->styleSheet()).captured(1);
}
