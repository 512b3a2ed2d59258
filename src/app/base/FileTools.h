#pragma once

#include <QString>

// Whether files can be made, read back and removed in dir: a file "TarveloTestFile" comes and
// goes there.
bool isDirectoryWritable(const QString &dir);

// The name without the characters that a file name can't have on any platform.
QString cleanFileName(const QString &name);

// A file name as a piece of rich text: nothing in it counts as a tag or an entity, and where it has
// no blank for long, a line may break in it all the same.
QString fileNameAsHtml(const QString &name);

// Deletes the files of a song cache in dir: those with 32 hexadecimal digits in their name. Other
// files stay.
void removeCacheFiles(const QString &dir);
