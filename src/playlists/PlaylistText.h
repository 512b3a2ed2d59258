#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <limits>

// The text of an m3u8 playlist: one path a line, relative to the directory of the file, so that a
// folder of music and playlists can move as a whole. In both functions the directory is absolute
// and ends with a slash; no file is looked at.
namespace PlaylistText {

enum class LineEnd { Unix, Windows };
#ifdef Q_OS_WIN
inline constexpr LineEnd platformLineEnd = LineEnd::Windows;
#else
inline constexpr LineEnd platformLineEnd = LineEnd::Unix;
#endif

// The full paths of all lines but those that begin with "#EXTM3U" or "#EXTINF": an empty line is
// the directory itself, a comment or an address is a path like any other, and an absolute path
// lies below the directory. Backslashes count as slashes. A byte order mark tells the encoding,
// which is UTF-8 without one; bytes that are no UTF-8 are taken as letters of Windows-1252 (and so
// of Latin-1), the encoding of older programs. A line ends with a line feed, carriage returns
// before it left out, or with a carriage return alone. What follows the first `most` of them is
// left out.
QStringList read(const QByteArray &content, const QString &directory,
                 qsizetype most = std::numeric_limits<qsizetype>::max());

// UTF-8 with a byte order mark, headed by "#EXTM3U". Read again it gives the same entries, if they
// are absolute paths as read() makes them. No line can hold a line break, which becomes a blank,
// nor on Unix a backslash in a name, which will be read as a slash, nor on Windows a path on
// another drive than the directory, which no relative path reaches.
QByteArray write(const QStringList &entries, const QString &directory,
                 LineEnd lineEnd = platformLineEnd);

} // namespace PlaylistText
