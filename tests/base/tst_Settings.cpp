#include "Settings.h"
#include "TestMain.h"
#include "WindowSettings.h"

#include <QCoreApplication>
#include <QSettings>

using Settings::DefaultFor;
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

class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void defaults_data();
    void defaults();
    void opaqueKeys_data();
    void opaqueKeys();
    void everyKeyIsListed();
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

    void storeIsChosenByWorkingDirectory();
    void styleSheetPath_data();
    void styleSheetPath();

private:
    QSettings &store() { return *settings; }

    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<QSettings> settings;
};

void TestSettings::init()
{
    directory = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<QSettings>(directory->filePath(QStringLiteral("store.ini")),
                                           QSettings::IniFormat);
}

void TestSettings::cleanup()
{
    settings.reset();
    directory.reset();
}

void TestSettings::defaults_data()
{
    QTest::addColumn<int>("defaultFor");
    QTest::addColumn<QVariant>("value");
    const auto first = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << static_cast<int>(DefaultFor::FirstRun) << value;
    };
    const auto every = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << static_cast<int>(DefaultFor::EveryReader) << value;
    };
    first("fontSize", 20);
    first("maxFontSizeLyrics", 70);
    every("frameHeight", 50);
    first("showPartColumn", true);
    first("showBeatColumn", true);
    first("showTimeColumn", false);
    first("tempo12", 85);
    first("tempo23", 98);
    first("tempo34", 112);
    first("tempo45", 125);
    first("tempoDefault1", 0);
    first("tempoDefault2", -7);
    first("tempoDefault3", -15);
    first("tempoDefault4", -22);
    first("tempoDefault5", -30);
    first("hideTempoButtons", false);
    first("showSlider", true);
    first("autoUpdate", true);
    first("autoEvent", false);
    first("playlistNonStop", false);
    first("timeDisplayMode", 3);
    every("showMoreLyricsInfo", true);
    first("bpmDisplay", 0);
    first("registerPlay", 90);
    first("highIntermediate", QStringLiteral("High Intermediate"));
    first("styleSheet", QStringLiteral("Dark Night"));
    first("language", QStringLiteral("de_DE"));
    every("lyricsFullPage", false);
    every("positionAlignment", 128);
    first("eventRounding", 3600);
    first("cloudOn", false);
    every("cloudUserId", QString());
    every("cloudName", QString());
    every("cloudEmail", QString());
    first("cloudUserData", true);
    first("cacheDir", QStringLiteral("/tmp/Tarvelo"));
    every("cuesheetDir", QString());
    every("musicDir", QString());
    every("playlistDir", QString());
    every("posImExDir", QString());
    first("stepEditInheritChanges", true);
    first("stepEditAutoSave", true);
    every("posSeparators", QStringLiteral(R"((\*|;|,|:|\[|\]|\(|\)|\{|\}| - | \/ |•|\n))"));
    every("specialChars", QStringLiteral("•¼½¾↺↻←↑→↓"));
    every("userDefPartPresets", QStringLiteral("Start\nIntro\nRap\nChorus\nBridge\nOutro\nEnd"));
    every("presetChangePart", false);
    every("presetChangePosition", true);
    every("loggingEnabled", false);
    every("countDown/type", 0);
    every("countDown/countStart", 9);
    every("countDown/countEnd", 0);
    every("countDown/comment", QStringLiteral("Start"));
    every("countDown/advancedMode", false);
    every("lastDanceEventCategory", QString());
    for (const char *name : {"formPosApplyBrackets", "formPosLineEnd", "formPosApplyCase",
                             "formPosReplace", "formPosApplySeparator", "formPosTrim"})
        every(name, true);
    every("formPartsTrim", false);
    every("formPosCaseIndex", 0);
    every("formPosPartsCaseIndex", 0);
    every("formPosBracketsFrom", QStringLiteral("{[(<"));
    every("formPosBracketsTo", QStringLiteral("{"));
    every("formPosSeparatorsFrom", QStringLiteral(";-*,•"));
    every("formPosSeparatorsTo", QStringLiteral(" • "));
    every("metadata/metadataDir", QString());
    every("moveCopyDirDest", QString());
    every("songFileImportDir", QString());
}

void TestSettings::defaults()
{
    const QByteArray name = QTest::currentDataTag();
    QFETCH(int, defaultFor);
    QFETCH(QVariant, value);
    for (const Settings::Entry &row : Settings::entries()) {
        if (name != row.name)
            continue;
        QCOMPARE(static_cast<int>(row.defaultFor), defaultFor);
        QCOMPARE(row.defaultValue(germanHall).toString(), value.toString());
        QCOMPARE(static_cast<int>(row.type), value.typeId());
        return;
    }
    QFAIL("not in the table");
}

void TestSettings::opaqueKeys_data()
{
    QTest::addColumn<int>("type");
    for (const char *name : {"mainWindowGeometry",
                             "mainWindowState",
                             "mainWinSplitterState",
                             "splitterPlaylistGeometry",
                             "columnConfig",
                             "libPlaylistColumnConfig",
                             "countDown/tableColConfig",
                             "countDown/configWindowGeometry",
                             "countDown/displayWindowGeometry",
                             "bpmCalculatorGeometry",
                             "eventEditorGeometry",
                             "eventListWindowGeometry",
                             "eventListTableCols",
                             "formPosGeometry",
                             "formPosColumnConfig",
                             "metadata/windowGeometry",
                             "posEditorGeometry",
                             "searchAndReplaceGeometry",
                             "searchAndReplaceDialogGeometry",
                             "tagEditorGeometry",
                             "tagEditorEventTable",
                             "timeShiftGeometry"})
        QTest::newRow(name) << static_cast<int>(QMetaType::QByteArray);
    for (const char *name : {"formPartsApplyCase", "metadata/id3Tags", "metadata/positions",
                             "metadata/cuesheet", "metadata/events", "metadata/countdowns"})
        QTest::newRow(name) << static_cast<int>(QMetaType::Bool);
    QTest::newRow("version") << static_cast<int>(QMetaType::QString);
    QTest::newRow("testMode") << static_cast<int>(QMetaType::QVariant);
}

void TestSettings::opaqueKeys()
{
    const QByteArray name = QTest::currentDataTag();
    QFETCH(int, type);
    for (const Settings::Entry &row : Settings::entries()) {
        if (name != row.name)
            continue;
        QCOMPARE(static_cast<int>(row.type), type);
        QCOMPARE(row.defaultFor, DefaultFor::Nobody);
        QVERIFY(!row.defaultValue);
        return;
    }
    QFAIL("not in the table");
}

// The two lists above name every row of the table, and no row twice.
void TestSettings::everyKeyIsListed()
{
    QSet<QByteArray> names;
    for (const Settings::Entry &row : Settings::entries())
        names.insert(row.name);
    QCOMPARE(names.size(), static_cast<qsizetype>(Settings::entries().size()));
    QCOMPARE(names.size(), 100);
}

void TestSettings::screenAndLocaleDefaults_data()
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

void TestSettings::screenAndLocaleDefaults()
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

void TestSettings::firstRunTakesDefaults()
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

void TestSettings::firstRunWritesCacheDirAlone()
{
    WindowSettings::load(store(), {1080, QStringLiteral("de_DE"), directory->path()});
    const QString cacheDir = directory->path() + QStringLiteral("/Tarvelo");
    QCOMPARE(store().allKeys(), QStringList{QStringLiteral("cacheDir")});
    QCOMPARE(store().value(QStringLiteral("cacheDir")).toString(), cacheDir);
    QVERIFY(QDir(cacheDir).exists());
}

void TestSettings::laterRunWithoutKeyReadsZero()
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

void TestSettings::versionRules_data()
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

void TestSettings::versionRules()
{
    QFETCH(QString, version);
    store().setValue(QStringLiteral("version"), version);
    store().setValue(QStringLiteral("showPartColumn"), false);
    store().setValue(QStringLiteral("eventRounding"), 86400);
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    QTEST(window.flag(Key::ShowPartColumn), "partColumn");
    QTEST(window.number(Key::EventRounding), "rounding");
}

void TestSettings::frameHeightIsClamped_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("height");
    QTest::newRow("too high") << 200 << 80;
    QTest::newRow("too low") << 3 << 20;
    QTest::newRow("kept") << 47 << 47;
}

void TestSettings::frameHeightIsClamped()
{
    QFETCH(int, stored);
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("frameHeight"), stored);
    QTEST(WindowSettings::load(store(), germanHall).number(Key::FrameHeight), "height");
}

void TestSettings::brokenValuesReadAsZero()
{
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("fontSize"), QStringLiteral("large"));
    QCOMPARE(WindowSettings::load(store(), germanHall).number(Key::FontSize), 0);
}

void TestSettings::language_data()
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

void TestSettings::language()
{
    QFETCH(QString, stored);
    store().setValue(QStringLiteral("version"), QStringLiteral("8.0.0"));
    store().setValue(QStringLiteral("language"), stored);
    QTEST(WindowSettings::load(store(), germanHall).languageCode(), "code");
}

void TestSettings::saveWritesEveryKeyOfTheWindow()
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

void TestSettings::saveKeepsWhatNobodyChanged()
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

void TestSettings::saveKeepsWhatOthersHaveWritten()
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

void TestSettings::checkStates()
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

void TestSettings::alignmentIsNotWrittenAtTheEnd()
{
    const WindowSettings window = WindowSettings::load(store(), germanHall);
    store().setValue(QStringLiteral("positionAlignment"), 32);
    window.save(store(), false, {});
    QCOMPARE(store().value(QStringLiteral("positionAlignment")).toInt(), 32);
}

void TestSettings::directoriesBecomeRelativeInIni()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::MusicDir, QStringLiteral("/stick/Tarvelo/Music"));
    window.set(Key::PlaylistDir, QStringLiteral("/stick/Lists"));
    window.save(store(), true, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("musicDir")).toString(), QStringLiteral("Music"));
    QCOMPARE(store().value(QStringLiteral("playlistDir")).toString(), QStringLiteral("../Lists"));
}

void TestSettings::directoriesStayAbsoluteInNativeStore()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::MusicDir, QStringLiteral("/stick/Tarvelo/Music"));
    window.save(store(), false, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("musicDir")).toString(),
             QStringLiteral("/stick/Tarvelo/Music"));
}

void TestSettings::emptyDirectoryStaysEmpty()
{
    WindowSettings window = WindowSettings::load(store(), germanHall);
    window.set(Key::CacheDir, QString());
    window.save(store(), true, QStringLiteral("/stick/Tarvelo"));
    QCOMPARE(store().value(QStringLiteral("cacheDir")).toString(), QString());
}

// The store in use is one for the whole process, so its life is one story.
void TestSettings::storeIsChosenByWorkingDirectory()
{
    QFile ini(QStringLiteral("Tarvelo.ini"));
    QVERIFY(ini.open(QIODevice::WriteOnly));
    ini.write("[General]\nmusicDir=Music\n");
    ini.close();
    QVERIFY(Settings::isIniFile());
    QSettings *const portable = Settings::instance();
    QCOMPARE(portable->format(), QSettings::IniFormat);
    QCOMPARE(Settings::instance(), portable);
    QCOMPARE(Settings::musicDir(), QStringLiteral("Music"));
    QVERIFY(!Settings::contains(Key::PlaylistDir));

    Settings::factoryReset();
    QVERIFY(!Settings::isIniFile());
    QVERIFY(Settings::instance() != portable);
    QCOMPARE(Settings::instance()->format(), QSettings::NativeFormat);
    QCOMPARE(Settings::instance()->organizationName(), QStringLiteral("Tarvelo Soft"));
    QCOMPARE(Settings::instance()->applicationName(), QStringLiteral("Tarvelo"));
    QVERIFY(Settings::instance()->allKeys().isEmpty());
    QCOMPARE(Settings::musicDir(), QString());
    QCOMPARE(Settings::value(Key::PositionAlignment).toInt(), 128);

    // Another working directory's file doesn't change the store in use.
    QVERIFY(ini.open(QIODevice::WriteOnly));
    ini.close();
    QVERIFY(Settings::isIniFile());
    QCOMPARE(Settings::instance()->format(), QSettings::NativeFormat);
    QVERIFY(ini.remove());
}

void TestSettings::styleSheetPath_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QVariant() << ":/Dark_Night";
    QTest::newRow("bright") << QVariant(QStringLiteral("Bright Morning")) << ":/Bright_Morning";
}

void TestSettings::styleSheetPath()
{
    QFETCH(QVariant, stored);
    if (stored.isValid())
        Settings::setValue(Key::StyleSheet, stored);
    QTEST(Settings::styleSheetPath(), "path");
}

TARVELO_TEST_MAIN(TestSettings, QCoreApplication)
#include "tst_Settings.moc"
