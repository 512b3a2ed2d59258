#include "SaveStates.h"

#include "Song.h"

#include <algorithm>

namespace {

using SaveStates::Change;

// More than the library's least padding of 1024 bytes, and after so many states from the start.
constexpr int step = 3000;
constexpr int cycle = 40;

int fillerSize(Change change, int number)
{
    switch (change) {
    case Change::Grows:
        return 100 + step * (number % cycle);
    case Change::Shrinks:
        return 100 + step * (cycle - number % cycle);
    default:
        return 100;
    }
}

// As long for every number, so that a state takes as much room as the next.
QByteArray digits(int number)
{
    return QByteArray::number(number).rightJustified(8, '0');
}

QByteArray filler(Change change, int number)
{
    const QByteArray word = digits(number) + ' ';
    return word.repeated(fillerSize(change, number) / static_cast<int>(word.size()));
}

// What a field that takes 30 characters keeps.
bool agrees(const QByteArray &field, const QByteArray &text)
{
    return field.left(field.indexOf('\0') < 0 ? field.size() : field.indexOf('\0'))
           == text.left(30);
}

} // namespace

void SaveStates::put(Song &song, Change change, int number)
{
    const QString text = QString::fromLatin1(digits(number));
    song.setTitle(QStringLiteral("Title ") + text);
    song.setAlbum(QStringLiteral("Album ") + text);
    song.setSongId(text);
    song.setComment(QString::fromLatin1(filler(change, number)));
    song.getPositions().clear();
    for (int i = 0; i < 3; ++i)
        song.getPositions().insert(i, {1000 * i, QStringLiteral("A"), text});
}

int SaveStates::numberIn(const SongBytes &song, Change change)
{
    const QByteArray text = song.userText("SongId");
    const int number = text.toInt();
    const QByteArray title = "Title " + text;
    const auto positions = song.positions();
    const bool isWhole = text == digits(number) && song.text("TIT2") == title
                         && song.text("TALB") == "Album " + text
                         && song.comment() == filler(change, number) && positions.size() == 3
                         && std::all_of(positions.begin(), positions.end(),
                                        [&](auto &p) { return p.second == "A\t" + text; });
    const bool hasSameEnd = song.id3v1.isEmpty() || agrees(song.id3v1.mid(3, 30), title);
    return isWhole && hasSameEnd ? number : -1;
}

SaveStates::Change SaveStates::changeNamed(const QByteArray &name)
{
    if (name == "grows")
        return Change::Grows;
    return name == "shrinks" ? Change::Shrinks : Change::Fits;
}
