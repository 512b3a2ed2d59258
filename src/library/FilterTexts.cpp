#include "FilterTexts.h"

#include "DatePresets.h"
#include "TempoBands.h"

#include <QCoreApplication>

namespace {

constexpr int mostStars = 5;
constexpr int digitsOfYear = 4;

QString translated(const char *source)
{
    return QCoreApplication::translate("FilterTexts", source);
}

QString stars(int count)
{
    return QString(count, u'★');
}

template <typename Rows> QStringList textsOf(const Rows &rows)
{
    QStringList texts;
    for (const auto &row : rows)
        texts.append(row.text());
    return texts;
}

} // namespace

QString FilterTexts::noEntry()
{
    return translated(QT_TRANSLATE_NOOP("FilterTexts", "<Kein Eintrag>"));
}

QString FilterTexts::anyEntry()
{
    return translated(QT_TRANSLATE_NOOP("FilterTexts", "<Irgendein Eintrag>"));
}

QStringList FilterTexts::choices()
{
    return {noEntry(), anyEntry()};
}

QString FilterTexts::dateRange()
{
    return ::datePresets().front().text();
}

QStringList FilterTexts::datePresets()
{
    return textsOf(::datePresets());
}

QStringList FilterTexts::tempoBands()
{
    return textsOf(::tempoBands());
}

QStringList FilterTexts::ratings()
{
    QStringList texts;
    for (int count = 1; count <= mostStars; ++count)
        texts.append(stars(count));
    for (int count = 1; count < mostStars; ++count)
        texts.append(stars(count) + u'+');
    for (int count = 1; count < mostStars; ++count)
        texts.append(u'-' + stars(count));
    return texts;
}

QString FilterTexts::yearRange(int first, int last)
{
    return QStringLiteral("%1-%2")
        .arg(first, digitsOfYear, 10, QLatin1Char('0'))
        .arg(last, digitsOfYear, 10, QLatin1Char('0'));
}
