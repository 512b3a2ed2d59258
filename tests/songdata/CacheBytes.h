#pragma once

#include "Position.h"

#include <QDataStream>
#include <QIODevice>
#include <QStringList>

// A cache file as it is documented, written without the program's own code.
struct Record
{
    quint32 magic = 0xAADDBBCC;
    quint32 version = 15;
    QStringList head{u"adapted"_qs, u"album"_qs,   u"artist"_qs, u"120"_qs,
                     u"chor"_qs,    u"comment"_qs, u"owner"_qs};
    qint32 frequency = 44100;
    QStringList middle{u"genre"_qs, u"1.5"_qs, u"-2.5"_qs, u"0.5"_qs, u"Advanced"_qs};
    qint32 channels = 2;
    qint32 length = 71;
    qint32 rating = 196;
    QStringList tail{u"id"_qs, u"tags"_qs, u"title"_qs, u"7"_qs, u"1999"_qs, u"2"_qs};
    quint32 count = 2;
    QList<Position> positions{Position(-300, u"A"_qs, u"Triple\nStep"_qs),
                              Position(5000, u"B"_qs, u"Basic"_qs)};
    QByteArray document = "%PDF-1.4 \xff";
    QString events = u"{\"events\":[{\"category\":\"c\",\"date\":1400000000,\"name\":\"n\","
                     "\"tempo\":\"1\"}]}"_qs;
    QString countdowns = u"{\"countdowns\":[{\"comment\":\"go\",\"count_end\":1,\"count_start\":8,"
                         "\"enabled\":true,\"ignition\":9000}]}"_qs;
    QString iswc = u"T-000"_qs;

    QByteArray bytes() const
    {
        QByteArray result;
        QDataStream out(&result, QIODevice::WriteOnly);
        out.setVersion(17);
        out << magic << version;
        for (const QString &text : head)
            out << text;
        out << frequency;
        for (const QString &text : middle)
            out << text;
        out << channels << length << rating;
        for (const QString &text : tail)
            out << text;
        out << count;
        for (const Position &position : positions)
            out << position.getPart() << position.getSteps() << qint32(position.getTime());
        out << document << events << countdowns << iswc;
        return result;
    }
};
