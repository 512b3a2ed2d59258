#pragma once

#include <QString>

// What an import of music files has to tell the user, and to ask.
class SongImportTalk
{
public:
    virtual ~SongImportTalk() = default;

    // There is no music directory to import into; nothing was done.
    virtual void tellNoMusicDirectory() = 0;
    // The directory for the imported files can't be made; nothing was done.
    virtual void tellDirectoryFailed(const QString &directory) = 0;
    virtual void importBegins(int files) = 0;
    // A file is done, copied or not.
    virtual void importStepped() = 0;
    // True to go on with the next file.
    virtual bool askAfterFailure(const QString &source, const QString &target) = 0;
    // So many files are in the directory now.
    virtual void importEnds(int count, const QString &directory) = 0;
};
