#pragma once

#include <QList>
#include <QString>
#include <QTest>

#include <algorithm>
#include <numeric>

// The tempos at which the player is measured, in percent, and how the figures are told.
namespace Tempos {

inline const QList<int> &all()
{
    static const QList<int> percents{0, 20, -20, 40, -40};
    return percents;
}

// 1.0 is the recorded speed.
inline double factor(int percent)
{
    return 1.0 + percent / 100.0;
}

// One row of a test's data for each: "percent".
inline void addRows(const QList<int> &percents = all())
{
    QTest::addColumn<int>("percent");
    for (const int percent : percents)
        QTest::addRow("%+d%%", percent) << percent;
}

inline double mean(const QList<double> &values)
{
    return std::accumulate(values.cbegin(), values.cend(), 0.0)
           / static_cast<double>(values.size());
}

// "+12 (-3 to +47)": the mean and the ends.
inline QString summary(const QList<double> &values)
{
    if (values.isEmpty())
        return QStringLiteral("none");
    const auto [least, most] = std::minmax_element(values.cbegin(), values.cend());
    return QString::asprintf("%+.0f (%+.0f to %+.0f)", mean(values), *least, *most);
}

} // namespace Tempos
