#include "Song.h"

#include "Samples.h"
#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <apetag.h>
#include <commentsframe.h>
#include <id3v1tag.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <textidentificationframe.h>

using namespace TagLib::ID3v2;

class TestGeneralFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void generalFieldsAreReadAndWritten_data();
    void generalFieldsAreReadAndWritten();
    void id3v1AndApeAreKeptUp();
    void emptiedFieldsAreEmptyInEveryTag();
    void unchangedFieldsKeepTheirForm();
    void valuesThatShowAsNoneStay();
    void commentsOfOthersStay();
    void anEmptiedCommentStaysEmpty();
    void otherFormatsLoseNothing_data();
    void otherFormatsLoseNothing();

private:
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
};

namespace {

TextIdentificationFrame *textFrame(const char *id, const TagLib::StringList &texts)
{
    auto *frame = new TextIdentificationFrame(id, TagLib::String::UTF8);
    frame->setText(texts);
    return frame;
}

void addComment(Tag &tag, const char *description, const char *text)
{
    auto *frame = new CommentsFrame(TagLib::String::Latin1);
    frame->setLanguage("eng");
    frame->setDescription(description);
    frame->setText(text);
    tag.addFrame(frame);
}

} // namespace

void TestGeneralFields::initTestCase()
{
    createSongStores();
}

void TestGeneralFields::cleanupTestCase()
{
    destroySongStores();
}

void TestGeneralFields::init()
{
    directory = std::make_unique<QTemporaryDir>();
}

void TestGeneralFields::generalFieldsAreReadAndWritten_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"mp3", "m4a", "flac", "ogg"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

void TestGeneralFields::generalFieldsAreReadAndWritten()
{
    QFETCH(QString, suffix);
    const QString path = files().filePath(u"tone."_qs + suffix);
    QVERIFY(Samples::writeTone(path));
    Song song(path, false);
    QCOMPARE(song.getFrequency(), 44100);
    QCOMPARE(song.getChannels(), 2);
    QCOMPARE(song.getPlayLength(), 2);
    QCOMPARE(song.getYear(), u"0"_qs);
    song.setArtist(u"Künstler"_qs);
    song.setAlbum(u"日本"_qs);
    song.setComment(u"Comment 💃"_qs);
    song.setGenre(u"Clogging"_qs);
    song.setTitle(u"Łódź"_qs);
    song.setTrackNum(u"7"_qs);
    song.setYear(u"1999"_qs);
    QVERIFY(song.save());

    const Song again(path, false);
    for (const char *property :
         {"artist", "album", "comment", "genre", "title", "tracknum", "year"})
        QCOMPARE(again.property(property), song.property(property));
    QCOMPARE(again.getRating(), suffix == u"mp3" ? 0 : -1);
    QCOMPARE(again.getBpm(), u"0"_qs);
}

void TestGeneralFields::id3v1AndApeAreKeptUp()
{
    const QString path = SongFiles::tone(files());
    {
        TagLib::MPEG::File file(QFile::encodeName(path).constData());
        file.ID3v1Tag(true)->setTitle("old v1");
        file.APETag(true)->setTitle("old ape");
        file.APETag(true)->setArtist("ape artist");
        QVERIFY(file.save(TagLib::MPEG::File::ID3v1 | TagLib::MPEG::File::APE,
                          TagLib::File::StripNone, TagLib::ID3v2::v4,
                          TagLib::File::DoNotDuplicate));
    }
    const QJsonObject before = SongFiles::dump(path);
    Song song(path, false);
    QCOMPARE(song.getTitle(), u"old ape"_qs);
    QCOMPARE(song.getArtist(), u"ape artist"_qs);
    song.setTitle(u"new"_qs);
    QVERIFY(song.save());

    TagLib::MPEG::File file(QFile::encodeName(path).constData());
    QVERIFY(file.hasID3v1Tag() && file.hasAPETag() && file.hasID3v2Tag());
    QVERIFY(file.ID3v1Tag()->title() == "new");
    QVERIFY(file.APETag()->title() == "new");
    QVERIFY(file.ID3v2Tag()->title() == "new");
    QVERIFY(file.ID3v2Tag()->artist() == "ape artist");
    QCOMPARE(SongFiles::dump(path).value(u"audio"), before.value(u"audio"));
}

void TestGeneralFields::emptiedFieldsAreEmptyInEveryTag()
{
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    for (const char *property : {"artist", "album", "comment", "genre", "title"})
        song.setProperty(property, u"Blues"_qs);
    song.setTrackNum(u"5"_qs);
    song.setYear(u"1999"_qs);
    QVERIFY(song.save());
    for (const char *property :
         {"artist", "album", "comment", "genre", "title", "tracknum", "year"})
        song.setProperty(property, QString());
    QVERIFY(song.save());
    const Song again(path, false);
    for (const char *property : {"artist", "album", "comment", "genre", "title", "tracknum"})
        QCOMPARE(again.property(property).toString(), QString());
    QCOMPARE(again.getYear(), u"0"_qs);
}

// What the record shows in short stays whole in the file.
void TestGeneralFields::unchangedFieldsKeepTheirForm()
{
    const QString path = SongFiles::tone(files());
    TagLib::StringList artists;
    artists.append("one");
    artists.append("two");
    SongFiles::edit(path, [&](Tag &tag) {
        tag.addFrame(textFrame("TPE1", artists));
        tag.addFrame(textFrame("TCON", TagLib::StringList(artists).append("17")));
        tag.addFrame(textFrame("TDRC", TagLib::String("2003-05-17")));
        tag.addFrame(textFrame("TRCK", TagLib::String("3/12")));
    });
    const QJsonObject before = SongFiles::dump(path);
    Song song(path, false);
    QCOMPARE(song.getArtist(), u"one two"_qs);
    QCOMPARE(song.getTrackNum(), u"3"_qs);
    QCOMPARE(song.getYear(), u"2003"_qs);
    QVERIFY(song.save());
    const QJsonObject after = SongFiles::dump(path);
    for (const QString &id : {u"TPE1"_qs, u"TCON"_qs, u"TDRC"_qs, u"TRCK"_qs})
        QCOMPARE(SongFiles::frames(after, id), SongFiles::frames(before, id));
}

void TestGeneralFields::valuesThatShowAsNoneStay()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        tag.addFrame(textFrame("TRCK", TagLib::String("A1")));
        tag.addFrame(textFrame("TDRC", TagLib::String("unknown")));
        addComment(tag, "", "");
        addComment(tag, "iTunNORM", "00000001");
    });
    const QJsonObject before = SongFiles::dump(path);
    Song song(path, false);
    QCOMPARE(song.getTrackNum(), QString());
    QCOMPARE(song.getYear(), u"0"_qs);
    QCOMPARE(song.getComment(), QString());
    song.setTitle(u"new"_qs);
    QVERIFY(song.save());
    const QJsonObject after = SongFiles::dump(path);
    for (const QString &id : {u"TRCK"_qs, u"TDRC"_qs, u"COMM"_qs})
        QCOMPARE(SongFiles::frames(after, id), SongFiles::frames(before, id));
}

void TestGeneralFields::commentsOfOthersStay()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        addComment(tag, "iTunNORM", "00000001");
        addComment(tag, "iTunSMPB", "00000002");
    });
    const QJsonArray before = SongFiles::frames(SongFiles::dump(path), u"COMM"_qs);
    Song song(path, false);
    QCOMPARE(song.getComment(), u"00000001"_qs);
    QVERIFY(song.save());
    QCOMPARE(SongFiles::frames(SongFiles::dump(path), u"COMM"_qs), before);

    song.setComment(u"mine"_qs);
    QVERIFY(song.save());
    QJsonArray after = SongFiles::frames(SongFiles::dump(path), u"COMM"_qs);
    QCOMPARE(after.size(), 3);
    after.removeLast();
    QCOMPARE(after, before);
    QCOMPARE(Song(path, false).getComment(), u"mine"_qs);
}

void TestGeneralFields::anEmptiedCommentStaysEmpty()
{
    const QString path = SongFiles::tone(files());
    SongFiles::edit(path, [](Tag &tag) {
        addComment(tag, "iTunNORM", "00000001");
        addComment(tag, "", "plain");
    });
    Song song(path, false);
    QCOMPARE(song.getComment(), u"plain"_qs);
    song.setComment(QString());
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getComment(), QString());
    QVERIFY(song.save());
    const QJsonArray after = SongFiles::frames(SongFiles::dump(path), u"COMM"_qs);
    QCOMPARE(after.at(0).toObject().value(u"desc").toString(), u"iTunNORM"_qs);
}

void TestGeneralFields::otherFormatsLoseNothing_data()
{
    QTest::addColumn<QString>("file");
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
    for (const char *file : {"dhowden-tag/with_tags__sample.flac",
                             "dhowden-tag/with_tags__sample.m4a",
                             "dhowden-tag/with_tags__sample.ogg",
                             "elisa/data__cover_art__artist4__test.flac",
                             "elisa/data__cover_art__artist4__test.ogg",
                             "kfilemetadata/samplefiles__test.m4a",
                             "mediafile/full.m4a",
                             "mediafile/full.alac.m4a",
                             "mediafile/full.ogg",
                             "mediafile/image.m4a",
                             "mediafile/image.ogg",
                             "taglib/has-tags.m4a",
                             "taglib/covr-junk.m4a",
                             "kfilemetadata/samplefiles__test.flac.ogg",
                             "taglib/no-tags.flac",
                             "tinytag/flac_application.flac",
                             "tinytag/with_padded_id3_header.flac",
                             "tinytag/ogg_with_image.ogg",
                             "tinytag/mpeg4_desc_cmt.m4a",
                             "tinytag/xmp_data.m4a",
                             "tika/test-documents__testFLAC_twoCovers.flac",
                             "atldotnet/MP4__mdat_before_moov.m4a"})
        QTest::newRow(file) << corpusDirectory() + u"/tags/"_qs + QString::fromLatin1(file);
}

void TestGeneralFields::otherFormatsLoseNothing()
{
    QFETCH(QString, file);
    const QString path = SongFiles::copyOf(file, files());
    const QJsonObject before = SongFiles::dump(path);
    Song song(path, false);
    QVERIFY(song.save());
    QCOMPARE(SongFiles::dump(path), before);
    song.setTitle(song.getTitle() + u" new"_qs);
    song.setRatingStars(5);
    song.setLevel(u"Easy"_qs);
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getTitle(), song.getTitle());

    QJsonObject after = SongFiles::dump(path);
    QVERIFY(!after.value(u"audio").toString().isEmpty());
    QCOMPARE(after.value(u"audio"), before.value(u"audio"));
    QCOMPARE(after.value(u"pictures"), before.value(u"pictures"));
    const auto others = [](const QJsonObject &dump) {
        QJsonObject tags = dump.value(u"tags").toObject();
        for (const QString &title : {u"title"_qs, u"TITLE"_qs, u"\u00a9nam"_qs})
            tags.remove(title);
        return tags;
    };
    QCOMPARE(others(after), others(before));
}

TARVELO_TEST_MAIN(TestGeneralFields, QGuiApplication)
#include "tst_GeneralFields.moc"
