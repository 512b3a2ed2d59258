#pragma once

#include "SongListTableModel.h"

#include <QRegularExpression>

// The rule of search and filters told as plainly as it can be, cell by cell, with nothing prepared:
// what the quick way is held against.
class PlainSongFilter
{
public:
    explicit PlainSongFilter(const SongListTableModel &songModel)
        : model(songModel)
    { }

    bool accepts(int row) const
    {
        if (row == 0)
            return true;
        if (!search.isEmpty() && !isFound(row))
            return false;
        for (int column = 0; column < SongColumnCount; ++column)
            if (!passes(row, column, model.filterText(column)))
                return false;
        return true;
    }

    QString search;
    QList<int> borders{85, 98, 112, 125};
    QDate today;
    QDate from[2]; // of files, of events
    QDate to[2];

private:
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }

    static QString cut(const QString &text)
    {
        static const QRegularExpression others(QStringLiteral("[^a-zA-Z0-9()\\[\\]/.:\\s]"));
        return text.normalized(QString::NormalizationForm_KD).remove(others);
    }

    bool isFound(int row) const
    {
        static const QRegularExpression blank(QStringLiteral(" (?=[^\"]*(\"[^\"]*\"[^\"]*)*$)"));
        const QString closed = search.count(u'"') % 2 == 1 ? search + u'"' : search;
        for (QString token : closed.split(blank)) {
            const bool phrase = token.startsWith(u'"');
            token.remove(u'"');
            if (!phrase)
                token = cut(token);
            bool found = false;
            for (int column = 0; column < SongColumnCount && !found; ++column) {
                if (!SongListTableModel::isSearchable(column))
                    continue;
                const QString cell = phrase ? text(row, column) : cut(text(row, column));
                found = cell.indexOf(token, 0, Qt::CaseInsensitive) >= 0;
            }
            if (!found)
                return false;
        }
        return true;
    }

    bool passes(int row, int column, const QString &filter) const
    {
        const QString value = text(row, column);
        if (!SongListTableModel::isComboColumn(column) || filter.isEmpty()) {
            if (column == 10 || column == 11 || column == 30)
                return value == filter || filter.isEmpty();
            return column == 1 || value.contains(filter, Qt::CaseInsensitive);
        }
        if (column != 13 && column != 14) {
            if (filter == QStringLiteral("<Kein Eintrag>"))
                return value.isEmpty();
            if (filter == QStringLiteral("<Irgendein Eintrag>"))
                return !value.isEmpty();
        }
        return passesCombo(row, column, filter, value);
    }

    bool passesCombo(int row, int column, const QString &filter, const QString &value) const
    {
        const int number = value.toInt();
        switch (column) {
        case 4:
            return passesTempo(filter, number);
        case 8:
            if (value.isEmpty())
                return false;
            if (filter.size() == 9)
                return number >= filter.split(u'-').value(0).toInt()
                       && number <= filter.split(u'-').value(1).toInt();
            return number == filter.toInt();
        case 12:
            return value.contains(filter, Qt::CaseInsensitive);
        case 13:
            return value.isEmpty()
                       ? false
                       : dateMatches(filter, model.song(row)->getModified().toLocalTime().date(), 0,
                                     true);
        case 20:
            for (const auto &event : model.song(row)->getDanceEvents())
                if (!value.isEmpty() && dateMatches(filter, event->getDate().date(), 1, false))
                    return true;
            return false;
        case 21:
            return value.split(QStringLiteral(", ")).contains(filter, Qt::CaseInsensitive);
        case 16:
            if (filter.contains(u'+'))
                return filter.indexOf(u'+') <= value.size();
            if (filter.startsWith(u'-'))
                return value.size() < filter.size();
            return value == filter;
        default:
            return value.compare(filter, Qt::CaseInsensitive) == 0;
        }
    }

    bool passesTempo(const QString &filter, int bpm) const
    {
        if (filter == QStringLiteral("Sehr langsam"))
            return bpm >= 1 && bpm <= borders[0];
        if (filter == QStringLiteral("Langsam"))
            return bpm > borders[0] && bpm <= borders[1];
        if (filter == QStringLiteral("Normal"))
            return bpm > borders[1] && bpm <= borders[2];
        if (filter == QStringLiteral("Schnell"))
            return bpm > borders[2] && bpm <= borders[3];
        return filter != QStringLiteral("Sehr schnell") || bpm > borders[3];
    }

    bool dateMatches(const QString &filter, QDate date, int span, bool otherwise) const
    {
        static const QStringList presets{
            QStringLiteral("Heute"),
            QStringLiteral("Seit Gestern"),
            QStringLiteral("Seit Vorgestern"),
            QStringLiteral("Diese Woche"),
            QStringLiteral("Seit letzter Woche"),
            QStringLiteral("Seit vorletzter Woche"),
            QStringLiteral("Seit 3 Wochen"),
            QStringLiteral("Dieser Monat"),
            QStringLiteral("Seit letztem Monat"),
            QStringLiteral("Heute vor einer Woche"),
            QStringLiteral("Heute vor zwei Wochen"),
            QStringLiteral("Heute vor drei Wochen"),
            QStringLiteral("Heute vor vier Wochen"),
            QStringLiteral("Montags"),
            QStringLiteral("Dienstags"),
            QStringLiteral("Mittwochs"),
            QStringLiteral("Donnerstags"),
            QStringLiteral("Freitags"),
            QStringLiteral("Samstags"),
            QStringLiteral("Sonntags"),
        };
        if (filter == QStringLiteral("Zeitspanne eingeben ...")) {
            if (!from[span].isValid() || !to[span].isValid())
                return otherwise;
            return date >= from[span] && date <= to[span];
        }
        const auto number = presets.indexOf(filter);
        if (number < 0)
            return otherwise;
        if (number >= 13)
            return date.dayOfWeek() == number - 12;
        const QDate monday = today.addDays(1 - today.dayOfWeek());
        const QDate first(today.year(), today.month(), 1);
        const auto days = date.daysTo(today);
        const bool answers[] = {days == 0,
                                days < 2,
                                days < 3,
                                date >= monday,
                                date >= monday.addDays(-7),
                                date >= monday.addDays(-14),
                                date >= monday.addDays(-21),
                                date >= first,
                                date >= first.addDays(-30),
                                days == 7,
                                days == 14,
                                days == 21,
                                days == 28};
        return answers[number];
    }

    const SongListTableModel &model;
};
