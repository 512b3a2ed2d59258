#include "EventRules.h"

#include <QSet>

#include <algorithm>

QStringList eventCategories(const QHash<QString, SongPtr> &songs)
{
    QSet<QString> found;
    for (const SongPtr &song : songs) {
        for (const auto &event : song->getDanceEvents())
            found.insert(event->getCategory());
    }
    found.remove(QString());
    QStringList categories(found.cbegin(), found.cend());
    std::sort(categories.begin(), categories.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return categories;
}

QString eventTempoBpm(const QString &tempoPercent, int bpm)
{
    constexpr qint64 whole = 100; // percent
    if (bpm < 1 || tempoPercent.isEmpty())
        return {};
    return QString::number((tempoPercent.toInt() + whole) * bpm / whole);
}
