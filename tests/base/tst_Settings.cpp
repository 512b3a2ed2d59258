#include "Settings.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QSettings>

using Settings::DefaultFor;
using Settings::Key;

// The table of keys, and the store that is chosen.
class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults_data();
    void defaults();
    void opaqueKeys_data();
    void opaqueKeys();
    void everyKeyIsListed();
    void storeIsChosenByWorkingDirectory();
    void styleSheetPath_data();
    void styleSheetPath();
};

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
        QCOMPARE(row.defaultValue(Settings::Environment{1080, QStringLiteral("de_DE"),
                                                        QStringLiteral("/tmp")})
                     .toString(),
                 value.toString());
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
