#pragma once

#include "SaveStates.h"
#include "TracedChild.h"

#include <QDir>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

#include <sys/stat.h>

// A song whose save is about to be disturbed, in a music directory of its own under the working
// directory, which has to be the test's home. All work on the song is done by other processes: the
// test itself never has a chain of stores, so that each process starts as the program does.
class SaveLab
{
public:
    enum class Place {
        Library,         // in the music directory
        Elsewhere,       // outside of it
        LockedDirectory, // in a directory that takes no new files
        LockedLibrary,   // the same, and the music directory is that directory
        HardLink,        // the file has a second name
        SymbolicLink,    // the name in the music directory is a link to a file elsewhere
    };
    enum class Start {
        Bare,    // no tag at all
        Tagged,  // an ID3v2 tag
        AllTags, // and an APE tag, and an ID3v1 tag
    };

    // What is in the music file before the save; the save brings state 2.
    SaveLab(Place place, SaveStates::Change change, Start start,
            const QString &suffix = QStringLiteral("mp3"));
    ~SaveLab();

    // Empty, or why there is nothing to be tried here.
    QString obstacle() const { return reason; }
    QString song() const { return path; }
    QDir library() const { return QDir(root + QStringLiteral("/music")); }
    const QByteArray &oldBytes() const { return before; }
    const QByteArray &newBytes() const { return after; }
    // Stops of the undisturbed save. Memory and random numbers make it a few more or less.
    int stops() const { return stopCount; }

    // The song as it was, where a round begins.
    void reset();
    // Loads the song, and gives the work that is disturbed: its save as state 2.
    std::function<std::function<bool()>()> saving() const;
    // The same, and the save once more after a call of getppid().
    std::function<std::function<bool()>()> savingTwice() const;
    // Loads and saves as this state, undisturbed.
    bool saveAs(int number) const;
    // The start of the program after a round; recover() answers false when it crashed.
    static std::function<std::function<bool()>()> recovering();
    static bool recover();

    // Empty when the song holds one of its two states with all that belongs to the file, and
    // nothing lies about that was not there before; else what is wrong.
    QString complaint() const;
    QString complaintUnlessNew() const;
    QString complaintAboutBytes() const;
    // The same without a look at the song's own bytes.
    QString complaintAboutFile() const;
    QStringList leftOvers() const;

    static QByteArray read(const QString &path);
    // In place, in the same file.
    static void write(const QString &path, const QByteArray &bytes);

private:
    void build(Place place, Start start, const QString &suffix);
    void makeOld(Start start);
    void makeNew();
    void keepWhatIsThere();
    std::shared_ptr<Song> changedSong() const;
    QStringList allFiles() const;

    QString root;
    QString path;
    QString locked;
    QString reason;
    SaveStates::Change kind;
    QByteArray before;
    QByteArray after;
    QStringList filesBefore;
    struct stat infoBefore = {};
    QByteArray attribute;
    int stopCount = 0;
};

// Rows of every place, change and start that make sense together.
void addSaveCases();
// The lab that the row of addSaveCases() asks for.
std::unique_ptr<SaveLab> labOfRow();
// Where to stop a save: at every stop when TARVELO_KILLS is set, or else at about this many, by
// chance.
int firstStop(const SaveLab &lab, int few);
int strideOfStops(const SaveLab &lab, int few);
// TARVELO_KILLS, or few.
int roundsToTry(int few);
// False when TARVELO_KILLS asks for the long form.
bool isShort();

// The lab of the row, or out of the test with the reason why there is none.
#define LAB_OF_ROW(lab)                                                                            \
    const auto lab = labOfRow();                                                                   \
    if (!lab->obstacle().isEmpty())                                                                \
    QSKIP(qPrintable(lab->obstacle()))
