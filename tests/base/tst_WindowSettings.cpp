#include "TestMain.h"
#include "WindowSettings.h"

#include <QCoreApplication>
#include <QSettings>

#include <memory>

using Settings::Key;

namespace {

const Settings::Environment germanHall{1080, QStringLiteral("de_DE"), QStringLiteral("/tmp")};

const char *const mainWindowKeys[] = {
    "version",
    "fontSize",
    "maxFontSizeLyrics",
    "frameHeight",
    "showPartColumn",
    "showBeatColumn",
    "showTimeColumn",
    "tempo12",
    "tempo23",
    "tempo34",
    "tempo45",
    "tempoDefault1",
    "tempoDefault2",
    "tempoDefault3",
    "tempoDefault4",
    "tempoDefault5",
    "hideTempoButtons",
    "showSlider",
    "autoUpdate",
    "autoEvent",
    "playlistNonStop",
    "timeDisplayMode",
    "showMoreLyricsInfo",
    "bpmDisplay",
    "registerPlay",
    "highIntermediate",
    "styleSheet",
    "language",
    "lyricsFullPage",
    "eventRounding",
    "cloudOn",
    "cloudUserId",
    "cloudName",
    "cloudEmail",
    "cloudUserData",
    "cacheDir",
    "cuesheetDir",
    "musicDir",
    "playlistDir",
    "posImExDir",
    "stepEditInheritChanges",
    "stepEditAutoSave",
    "posSeparators",
    "specialChars",
    "userDefPartPresets",
    "presetChangePart",
    "presetChangePosition",
};

} // namespace

// What the main window reads and writes, and the rules for first runs and older stores.
class TestWindowSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void screenAndLocaleDefaults_data();
    void screenAndLocaleDefaults();
    void firstRunTakesDefaults();
    void firstRunWritesCacheDirAlone();
    void laterRunWithoutKeyReadsZero();
    void versionRules_data();
    void versionRules();
    void frameHeightIsClamped_data();
    void frameHeightIsClamped();
    void brokenValuesReadAsZero();
    void language_data();
    void language();
    void saveWritesEveryKeyOfTheWindow();
    void saveKeepsWhatNobodyChanged();
    void saveKeepsWhatOthersHaveWritten();
    void checkStates();
    void alignmentIsNotWrittenAtTheEnd();
    void directoriesBecomeRelativeInIni();
    void directoriesStayAbsoluteInNativeStore();
    void emptyDirectoryStaysEmpty();

private:
    QSettings &store() { return *settings; }

    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<QSettings> settings;
};

void TestWindowSettings::init()
{
    directory = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<QSettings>(directory->filePath(QStringLiteral("store.ini")),
                                           QSettings::IniFormat);
}

void TestWindowSettings::cleanup()
{
    settings.reset();
    directory.reset();
}

void TestWindowSettings::screenAndLocaleDefaults_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<int>("frameHeight");
    QTest::addColumn<QString>("highIntermediate");
    QTest::addColumn<QString>("languageCode");
    const QString high = QStringLiteral("High Intermediate");
    const QString plus = QStringLiteral("Intermediate+");
    const QString de = QStringLiteral("de");
    const QString en = QStringLiteral("en");
    QTest::newRow("768 de_DE") << 768 << "de_DE" << 14 << 35 << high << de;
    QTest::newRow("1080 de_DE") << 1080 << "de_DE" << 20 << 50 << high << de;
    QTest::newRow("1080 en_GB") << 1080 << "en_GB" << 20 << 50 << high << en;
    QTest::newRow("1080 en_US") << 1080 << "en_US" << 20 << 50 << plus << en;
    QTest::newRow("1080 fr_FR") << 1080 << "fr_FR" << 20 << 50 << plus << en;
    QTest::newRow("1080 C") << 1080 << "C" << 20 << 50 << plus << en;
    QTest::newRow("1080 de_AT") << 1080 << "de_AT" << 20 << 50 << plus << de;
    QTest::newRow("2160") << 2160 << "de_DE" << 40 << 80 << high << de;
    QTest::newRow("4320") << 4320 << "de_DE" << 50 << 80 << high << de;
    QTest::newRow("240") << 240 << "de_DE" << 8 << 20 << high << de;
}

void TestWindowSettings::screenAndLocaleDefaults()
{
    QFETCH(int, height);
    QFETCH(QString, locale);
    const WindowSettings window
        = WindowSettings::load(store(), {height, locale, directory->path()});
    QTEST(window.number(Key::FontSize), "fontSize");
    QTEST(window.number(Key::FrameHeight), "frameHeight");
    QTEST(window.text(Key::HighIntermediate), "highIntermediate");
    QTEST(window.languageCode(), "languageCode");
    QCOMPARE(window.text(Key::Language), locale);
}

void TestWindowSettings::firstRunTakesDefaults()
{
    store().setValue(QStringLiteral("tempo23"), 99);
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    QVERIFY(!window.wasStored());
    QCOMPARE(window.number(Key::Tempo12), 85);
    QCOMPARE(window.number(Key::Tempo23), 99);
    QVERIFY(window.flag(Key::ShowPartColumn));
    QVERIFY(window.flag(Key::ShowBeatColumn));
    QVERIFY(!window.flag(Key::ShowTimeColumn));
    QVERIFY(window.storedVersion().isNull());
}

void TestWindowSettings::firstRunWritesCacheDirAlone()
{
    WindowSettings::load(store(), {1080, QStringLiteral("de_DE"), directory->path()});
    const QString cacheDir = directory->path() + QStringLiteral("/Tarvelo");
    QCOMPARE(store().allKeys(), QStringList{QStringLiteral("cacheDir")});
    QCOMPARE(store().value(QStringLiteral("cacheDir")).toString(), cacheDir);
    QVERIFY(QDir(cacheDir).exists());
}

void TestWindowSettings::laterRunWithoutKeyReadsZero()
{
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    QVERIFY(window.wasStored());
    QCOMPARE(window.number(Key::Tempo12), 0);
    QVERIFY(!window.flag(Key::ShowSlider));
    QCOMPARE(window.text(Key::HighIntermediate), QString());
    QCOMPARE(window.text(Key::CacheDir), QString());
    // These every reader gets.
    QCOMPARE(window.number(Key::FrameHeight), 50);
    QVERIFY(window.flag(Key::ShowMoreLyricsInfo));
    QCOMPARE(window.text(Key::SpecialChars), QStringLiteral("•¼½¾↺↻←↑→↓"));
}

void TestWindowSettings::versionRules_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("partColumn");
    QTest::addColumn<int>("rounding");
    QTest::newRow("1.5.3") << "1.5.3" << true << 3600;
    QTest::newRow("1.5.4") << "1.5.4" << true << 3600;
    QTest::newRow("1.5.5") << "1.5.5" << false << 3600;
    QTest::newRow("1.6") << "1.6" << false << 86400;
    QTest::newRow("1.6.0") << "1.6.0" << false << 86400;
    QTest::newRow("8.0.0") << "8.0.0" << false << 86400;
    QTest::newRow("no version at all") << "nonsense" << true << 3600;
}

void TestWindowSettings::versionRules()
{
    QFETCH(QString, version);
    store().setValue(QStringLiteral("version"), version);
    store().setValue(QStringLiteral("showPartColumn"), false);
    store().setValue(QStringLiteral("eventRounding"), 86400);
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    QTEST(window.flag(Key::ShowPartColumn), "partColumn");
    QTEST(window.number(Key::EventRounding), "rounding");
}

void TestWindowSettings::frameHeightIsClamped_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("height");
    QTest::newRow("too high") << 200 << 80;
    QTest::newRow("too low") << 3 << 20;
    QTest::newRow("kept") << 47 << 47;
}

void TestWindowSettings::frameHeightIsClamped()
{
    QFETCH(int, stored);
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("frameHeight"), stored);
    QTEST(WindowSettings::load(store(), germanHall).number(Key::FrameHeight), "height");
}

void TestWindowSettings::brokenValuesReadAsZero()
{
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("fontSize"), QStringLiteral("large"));
    QCOMPARE(WindowSettings::load(store(), germanHall).number(Key::FontSize), 0);
}

void TestWindowSettings::language_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("code");
    QTest::newRow("German") << "de_DE"
                            << "de";
    QTest::newRow("English") << "en_US"
                             << "en";
    QTest::newRow("French") << "fr_FR"
                            << "en";
    QTest::newRow("Austrian") << "de_AT"
                              << "en";
    QTest::newRow("nothing") << ""
                             << "en";
}

void TestWindowSettings::language()
{
    QFETCH(QString, stored);
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("language"), stored);
    QTEST(WindowSettings::load(store(), germanHall).languageCode(), "code");
}

void TestWindowSettings::saveWritesEveryKeyOfTheWindow()
{
    const WindowSettings window
        = WindowSettings::load(store(), {1080, QStringLiteral("de_DE"), directory->path()});
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("version")).toString(), QStringLiteral("8.0.0"));
    for (const char *name : mainWindowKeys)
        QVERIFY2(store().contains(QLatin1String(name)), name);
    const WindowSettings again = WindowSettings::load(store(), germanHall);
    QVERIFY(again.wasStored());
    QCOMPARE(again.number(Key::Tempo12), 85);
    QCOMPARE(again.storedVersion(), QVersionNumber(8));
}

void TestWindowSettings::saveKeepsWhatNobodyChanged()
{
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("tempo12"), 77);
    store().setValue(QStringLiteral("columnConfig"), QByteArray("\0\1state", 7));
    store().setValue(QStringLiteral("unknown"), QStringLiteral("left alone"));
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::Tempo23, 101);
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("tempo12")).toInt(), 77);
    QCOMPARE(store().value(QStringLiteral("tempo23")).toInt(), 101);
    QCOMPARE(store().value(QStringLiteral("columnConfig")).toByteArray(),
             QByteArray("\0\1state", 7));
    QCOMPARE(store().value(QStringLiteral("unknown")).toString(), QStringLiteral("left alone"));
}

void TestWindowSettings::saveKeepsWhatOthersHaveWritten()
{
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("cuesheetDir"), QStringLiteral("/before"));
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::MusicDir, QStringLiteral("/mine"));
    store().setValue(QStringLiteral("cuesheetDir"), QStringLiteral("/after"));
    store().setValue(QStringLiteral("musicDir"), QStringLiteral("/other"));
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("cuesheetDir")).toString(), QStringLiteral("/after"));
    QCOMPARE(store().value(QStringLiteral("musicDir")).toString(), QStringLiteral("/mine"));
}

void TestWindowSettings::checkStates()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::ShowMoreLyricsInfo, true);
    window.set(Key::CloudOn, false);
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("showMoreLyricsInfo")).toInt(), 2);
    QCOMPARE(store().value(QStringLiteral("cloudOn")).toInt(), 0);
    const WindowSettings again = WindowSettings::load(store(), germanHall);
    QVERIFY(again.flag(Key::ShowMoreLyricsInfo));
    QVERIFY(!again.flag(Key::CloudOn));
}

void TestWindowSettings::alignmentIsNotWrittenAtTheEnd()
{
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    store().setValue(QStringLiteral("positionAlignment"), 32);
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("positionAlignment")).toInt(), 32);
}

void TestWindowSettings::directoriesBecomeRelativeInIni()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::MusicDir, QStringLiteral("/stick/Tarvelo/Music"));
    window.set(Key::PlaylistDir, QStringLiteral("/stick/Lists"));
    window.save(store(), true, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("musicDir")).toString(), QStringLiteral("Music"));
    QCOMPARE(store().value(QStringLiteral("playlistDir")).toString(), QStringLiteral("../Lists"));
}

void TestWindowSettings::directoriesStayAbsoluteInNativeStore()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::MusicDir, QStringLiteral("/stick/Tarvelo/Music"));
    window.save(store(), false, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("musicDir")).toString(),
             QStringLiteral("/stick/Tarvelo/Music"));
}

void TestWindowSettings::emptyDirectoryStaysEmpty()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::CacheDir, QString());
    window.save(store(), true, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("cacheDir")).toString(), QString());
}

TARVELO_TEST_MAIN(TestWindowSettings, QCoreApplication)
#include "tst_WindowSettings.moc"
