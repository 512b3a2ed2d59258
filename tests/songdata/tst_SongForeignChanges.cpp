#include "FileSystem.h"
#include "SaveLab.h"
#include "Song.h"
#include "SongFiles.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QCoreApplication>

#include <id3v2tag.h>

#include <cstdio>

using namespace Qt::StringLiterals;

// Another program takes the file away, or puts its own there, before, while and after a song is
// saved. What the other put there is not lost, and nothing that was taken away comes back.
class TestSongForeignChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void aRemovedFileIsNotSaved();
    void aShortenedFileIsNotHarmed();
    void aReplacedFileKeepsItsMusic_data() { addPlaces(); }
    void aReplacedFileKeepsItsMusic();
    void aLockedDirectoryHarmsNothing_data() { addPlaces(); }
    void aLockedDirectoryHarmsNothing();

    void replacedInTheMiddle_data() { addPlaces(); }
    void replacedInTheMiddle();
    void removedInTheMiddle_data() { addPlaces(); }
    void removedInTheMiddle();
    void shortenedInTheMiddle_data() { addPlaces(); }
    void shortenedInTheMiddle();
    void protectedInTheMiddle_data() { addPlaces(); }
    void protectedInTheMiddle();

    void replacedAfterAKill_data() { addPlaces(); }
    void replacedAfterAKill();
    void rewrittenAfterAKill_data() { addPlaces(); }
    void rewrittenAfterAKill();
    void awayAtTheNextStart_data() { addPlaces(); }
    void awayAtTheNextStart();

private:
    static void addPlaces();
    // Whether their file has got our fields, and nothing else of it was changed.
    bool isOnTheirs(const SaveLab &lab) const;
    // What every test of a change in the middle of a save does. mustFail: where the change came
    // before the new state, the save has to answer false.
    template <typename Change, typename Check>
    void changeAtEachStop(bool mustFail, Change change, Check check);
    template <typename Change, typename Check> void changeAfterEachKill(Change change, Check check);

    QByteArray foreign;
    std::optional<SongBytes> foreignSong;
};

namespace {

constexpr QFileDevice::Permissions readOnly = QFile::ReadOwner;
constexpr QFileDevice::Permissions closed = QFile::ReadOwner | QFile::ExeOwner;
constexpr QFileDevice::Permissions opened = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

// As programs do that mean well: a new file, and its name in one step.
void replaceFile(const QString &path, const QByteArray &bytes)
{
    const QString other = QDir::currentPath() + u"/other"_s;
    QFile file(other);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(bytes);
    file.close();
    std::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData());
}

// What was put there in the round before is another file.
void startAnew(const SaveLab &lab)
{
    QFile::remove(lab.song());
    SaveLab::write(lab.song(), lab.oldBytes());
}

QString directoryOf(const QString &file)
{
    return QFileInfo(file).path();
}

} // namespace

void TestSongForeignChanges::initTestCase()
{
    if (!TracedChild::isPossible())
        QSKIP("Processes can't be traced here.");
    const QTemporaryDir directory;
    const QString path = SongFiles::tone(QDir(directory.path()));
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) {
        tag.setTitle("theirs");
        SongFiles::addUserText(tag, "Theirs", "must stay");
    });
    // Other music, and a tag that may be as long as ours.
    foreign = SaveLab::read(path);
    foreign.insert(foreign.size() - 1, QByteArray(1000, 'x'));
    foreignSong = SongBytes::read(foreign);
    QVERIFY(foreignSong && foreignSong->userText("Theirs") == "must stay");
}

void TestSongForeignChanges::addPlaces()
{
    using Change = SaveStates::Change;
    using Place = SaveLab::Place;
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("start");
    const auto row = [](const char *name, Place place, Change change) {
        QTest::newRow(name) << int(place) << int(change) << int(SaveLab::Start::AllTags);
    };
    row("fits", Place::Library, Change::Fits);
    row("grows", Place::Library, Change::Grows);
    row("fits, elsewhere", Place::Elsewhere, Change::Fits);
    row("grows, elsewhere", Place::Elsewhere, Change::Grows);
}

void TestSongForeignChanges::aRemovedFileIsNotSaved()
{
    SaveLab lab(SaveLab::Place::Library, SaveStates::Change::Grows, SaveLab::Start::Tagged);
    TracedChild child(lab.saving());
    QVERIFY(QFile::remove(lab.song()));
    QCOMPARE(child.finish(), TracedChild::End::False);
    QVERIFY(SaveLab::recover());
    QCOMPARE(lab.leftOvers(), QStringList(u"gone "_s + lab.song()));
}

// Whatever the answer: what is left of the music stays.
void TestSongForeignChanges::aShortenedFileIsNotHarmed()
{
    SaveLab lab(SaveLab::Place::Library, SaveStates::Change::Grows, SaveLab::Start::Tagged);
    TracedChild child(lab.saving());
    const auto old = SongBytes::read(lab.oldBytes());
    QVERIFY(QFile::resize(lab.song(), lab.oldBytes().size() - 5000));
    QVERIFY(child.finish() != TracedChild::End::Crashed);
    const auto song = SongBytes::read(SaveLab::read(lab.song()));
    QVERIFY(song);
    const QByteArray rest = old->audio.chopped(5000 - old->id3v1.size());
    QVERIFY(song->audio == rest);
    QCOMPARE(lab.leftOvers(), QStringList());
}

void TestSongForeignChanges::aReplacedFileKeepsItsMusic()
{
    LAB_OF_ROW(lab);
    TracedChild child(lab->saving());
    replaceFile(lab->song(), foreign);
    QVERIFY(child.finish() != TracedChild::End::Crashed);
    const auto song = SongBytes::read(SaveLab::read(lab->song()));
    QVERIFY(song);
    QVERIFY(song->audio == foreignSong->audio);
    QCOMPARE(song->userText("Theirs"), QByteArray("must stay"));
    QCOMPARE(lab->leftOvers(), QStringList());
}

void TestSongForeignChanges::aLockedDirectoryHarmsNothing()
{
    LAB_OF_ROW(lab);
    TracedChild child(lab->saving());
    const QString directory = directoryOf(lab->song());
    QVERIFY(QFile::setPermissions(directory, closed));
    const TracedChild::End end = child.finish();
    QVERIFY(QFile::setPermissions(directory, opened));
    QVERIFY(end != TracedChild::End::Crashed);
    QCOMPARE(end == TracedChild::End::True ? lab->complaintUnlessNew() : lab->complaint(),
             QString());
}

template <typename Change, typename Check>
void TestSongForeignChanges::changeAtEachStop(bool mustFail, Change change, Check check)
{
    LAB_OF_ROW(lab);
    for (int stop = firstStop(*lab, 12);; stop += strideOfStops(*lab, 12)) {
        startAnew(*lab);
        TracedChild child(lab->saving());
        if (!child.stepTo(stop))
            break;
        const bool wasThere = SaveLab::read(lab->song()) == lab->newBytes();
        const QString place = child.place();
        change(*lab);
        const TracedChild::End end = child.finish();
        QVERIFY2(end != TracedChild::End::Crashed, qPrintable(place + u"the save crashed"_s));
        if (mustFail && !wasThere)
            QVERIFY2(end == TracedChild::End::False || isOnTheirs(*lab),
                     qPrintable(place + u"saved nowhere"_s));
        const QString complaint = check(*lab, end);
        QVERIFY2(complaint.isEmpty(), qPrintable(place + complaint));
        QVERIFY(SaveLab::recover());
        const QString later = check(*lab, end);
        QVERIFY2(later.isEmpty(), qPrintable(place + u"next start: "_s + later));
    }
}

template <typename Change, typename Check>
void TestSongForeignChanges::changeAfterEachKill(Change change, Check check)
{
    LAB_OF_ROW(lab);
    for (int stop = firstStop(*lab, 12);; stop += strideOfStops(*lab, 12)) {
        startAnew(*lab);
        TracedChild child(lab->saving());
        if (!child.stepTo(stop))
            break;
        child.kill();
        change(*lab);
        QVERIFY(SaveLab::recover());
        const QString complaint = check(*lab);
        QVERIFY2(complaint.isEmpty(), qPrintable(child.place() + complaint));
    }
}

bool TestSongForeignChanges::isOnTheirs(const SaveLab &lab) const
{
    const auto song = SongBytes::read(SaveLab::read(lab.song()));
    return song && song->audio == foreignSong->audio && song->userText("Theirs") == "must stay"
           && song->userText("SongId") == "00000002";
}

// Replaced before the save has opened the file, theirs gets our fields and keeps all else.
void TestSongForeignChanges::replacedInTheMiddle()
{
    if (!FileSystem::canExchange(QDir::tempPath()))
        QSKIP("Between a look and the renaming lies a moment where two files can't be exchanged.");
    const auto change = [this](const SaveLab &lab) { replaceFile(lab.song(), foreign); };
    const auto check = [this](const SaveLab &lab, TracedChild::End end) {
        const bool isTheirs = SaveLab::read(lab.song()) == foreign;
        const bool isBoth = end == TracedChild::End::True && isOnTheirs(lab);
        return isTheirs || isBoth ? lab.leftOvers().join(u", "_s) : u"their file is lost"_s;
    };
    changeAtEachStop(true, change, check);
}

void TestSongForeignChanges::removedInTheMiddle()
{
    const auto change = [](const SaveLab &lab) { QFile::remove(lab.song()); };
    const auto check = [](const SaveLab &lab, TracedChild::End) {
        const QStringList others = lab.leftOvers();
        return others == QStringList(u"gone "_s + lab.song()) ? QString() : others.join(u", "_s);
    };
    changeAtEachStop(true, change, check);
}

void TestSongForeignChanges::shortenedInTheMiddle()
{
    const auto change
        = [](const SaveLab &lab) { QFile::resize(lab.song(), QFileInfo(lab.song()).size() / 2); };
    const auto check
        = [](const SaveLab &lab, TracedChild::End) { return lab.leftOvers().join(u", "_s); };
    changeAtEachStop(false, change, check);
}

void TestSongForeignChanges::protectedInTheMiddle()
{
    const auto change = [](const SaveLab &lab) {
        QFile::setPermissions(lab.song(), readOnly);
        QFile::setPermissions(directoryOf(lab.song()), closed);
    };
    const auto check = [](const SaveLab &lab, TracedChild::End end) {
        QFile::setPermissions(directoryOf(lab.song()), opened);
        SaveLab::recover();
        const bool isNew = SaveLab::read(lab.song()) == lab.newBytes();
        if (end == TracedChild::End::True && !isNew)
            return u"not the new state"_s;
        return lab.complaintAboutBytes() + lab.leftOvers().join(u", "_s);
    };
    changeAtEachStop(false, change, check);
}

void TestSongForeignChanges::replacedAfterAKill()
{
    const auto change = [this](const SaveLab &lab) { replaceFile(lab.song(), foreign); };
    const auto check = [this](const SaveLab &lab) {
        return SaveLab::read(lab.song()) == foreign ? lab.leftOvers().join(u", "_s)
                                                    : u"their file is lost"_s;
    };
    changeAfterEachKill(change, check);
}

// The same file with other bytes, longer or as long as before.
void TestSongForeignChanges::rewrittenAfterAKill()
{
    for (const bool asLong : {false, true}) {
        QByteArray theirs = foreign;
        const auto change = [&](const SaveLab &lab) {
            const auto size = SaveLab::read(lab.song()).size();
            theirs = asLong ? foreign.leftJustified(size, 'y', true) : foreign;
            SaveLab::write(lab.song(), theirs);
        };
        const auto check = [&](const SaveLab &lab) {
            return SaveLab::read(lab.song()) == theirs ? lab.leftOvers().join(u", "_s)
                                                       : u"their bytes are lost"_s;
        };
        changeAfterEachKill(change, check);
    }
}

// The music lies on a drive that is not there at the next start, but at the one after.
void TestSongForeignChanges::awayAtTheNextStart()
{
    const auto change = [](const SaveLab &lab) {
        const QString away = QDir::currentPath() + u"/away"_s;
        QDir().rename(directoryOf(lab.song()), away);
        SaveLab::recover();
        QDir().rename(away, directoryOf(lab.song()));
    };
    const auto check = [](const SaveLab &lab) {
        return lab.complaintAboutBytes() + lab.leftOvers().join(u", "_s);
    };
    changeAfterEachKill(change, check);
}

TARVELO_TEST_MAIN(TestSongForeignChanges, QCoreApplication)
#include "tst_SongForeignChanges.moc"
