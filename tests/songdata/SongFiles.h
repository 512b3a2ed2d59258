#pragma once

#include "SongStore.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <functional>

class Song;

namespace TagLib::ID3v2 {
class Tag;
}

// Music files for the tests of songs, and an independent look at them.
namespace SongFiles {

// A short mp3 without any tag, new in this directory.
QString tone(const QDir &directory, const QString &name = QStringLiteral("song.mp3"));
// A writable copy of a file in this directory, under its own name.
QString copyOf(const QString &file, const QDir &directory);
// Changes the ID3v2 tag of an mp3 with the tag library alone.
void edit(const QString &file, const std::function<void(TagLib::ID3v2::Tag &)> &change);
void addUserText(TagLib::ID3v2::Tag &tag, const char *description, const char *text);

// What another tag reader finds (see dump_tags.py), one object a file.
QJsonArray dump(const QStringList &files);
QJsonObject dump(const QString &file);
// The contents of all frames with this id; of user texts: those with this description.
QJsonArray frames(const QJsonObject &dump, const QString &id);
QStringList userTexts(const QJsonObject &dump, const QString &description);

// All that the tag and the cache both deliver of a song, as text.
QStringList fieldsOf(const Song &song);

} // namespace SongFiles

// The chain with stores that write down who was asked for what, in place of its own.
class RecordingStore : public SongStore
{
public:
    RecordingStore(const QString &name, bool answer, QStringList &log)
        : ownName(name)
        , ownAnswer(answer)
        , calls(log)
    { }
    bool load(Song &, const QFileInfo &) override { return note(QStringLiteral("load")); }
    bool save(Song &) override { return note(QStringLiteral("save")); }
    bool remove(const Song &) override { return note(QStringLiteral("remove")); }

private:
    bool note(const QString &call)
    {
        calls.append(call + u' ' + ownName);
        return ownAnswer;
    }

    QString ownName;
    bool ownAnswer;
    QStringList &calls;
};
