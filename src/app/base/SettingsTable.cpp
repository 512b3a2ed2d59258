#include "SettingsTable.h"

#include <QDir>

#include <algorithm>
#include <cmath>

namespace Settings {

namespace {

template <auto Constant> QVariant fixed(const Environment &)
{
    return Constant;
}

// Texts can't be template arguments; each stands in a function of its own.
#define TARVELO_TEXT(name, text)                                                                   \
    QVariant name(const Environment &)                                                             \
    {                                                                                              \
        return QStringLiteral(text);                                                               \
    }

TARVELO_TEXT(empty, "")
TARVELO_TEXT(darkNight, "Dark Night")
TARVELO_TEXT(posSeparators, "(\\*|;|,|:|\\[|\\]|\\(|\\)|\\{|\\}| - | \\/ |•|\\n)")
TARVELO_TEXT(specialChars, "•¼½¾↺↻←↑→↓")
TARVELO_TEXT(partPresets, "Start\nIntro\nRap\nChorus\nBridge\nOutro\nEnd")
TARVELO_TEXT(start, "Start")
TARVELO_TEXT(bracketsFrom, "{[(<")
TARVELO_TEXT(bracketsTo, "{")
TARVELO_TEXT(separatorsFrom, ";-*,•")
TARVELO_TEXT(separatorsTo, " • ")

#undef TARVELO_TEXT

QVariant fontSize(const Environment &environment)
{
    return std::clamp(environment.screenHeight / 54, 8, 50);
}

QVariant frameHeight(const Environment &environment)
{
    return std::clamp(static_cast<int>(std::floor(environment.screenHeight * 0.00926)) * 5, 20, 80);
}

QVariant highIntermediate(const Environment &environment)
{
    const QString country = environment.localeName.right(2);
    const bool european = country == QLatin1String("DE") || country == QLatin1String("GB");
    return european ? QStringLiteral("High Intermediate") : QStringLiteral("Intermediate+");
}

QVariant language(const Environment &environment)
{
    return environment.localeName;
}

QVariant cacheDir(const Environment &environment)
{
    return environment.tempPath + QStringLiteral("/Tarvelo");
}

constexpr auto Int = QMetaType::Int;
constexpr auto Bool = QMetaType::Bool;
constexpr auto Text = QMetaType::QString;
constexpr auto Bytes = QMetaType::QByteArray;
constexpr auto Nobody = DefaultFor::Nobody;
constexpr auto FirstRun = DefaultFor::FirstRun;
constexpr auto Every = DefaultFor::EveryReader;

constexpr Entry table[] = {
    {Key::Version, "version", Text, Nobody, nullptr},
    {Key::FontSize, "fontSize", Int, FirstRun, fontSize},
    {Key::MaxFontSizeLyrics, "maxFontSizeLyrics", Int, FirstRun, fixed<70>},
    {Key::FrameHeight, "frameHeight", Int, Every, frameHeight},
    {Key::MainWindowGeometry, "mainWindowGeometry", Bytes, Nobody, nullptr},
    {Key::MainWindowState, "mainWindowState", Bytes, Nobody, nullptr},
    {Key::MainWinSplitterState, "mainWinSplitterState", Bytes, Nobody, nullptr},
    // Written beside mainWinSplitterState and never read.
    {Key::SplitterPlaylistGeometry, "splitterPlaylistGeometry", Bytes, Nobody, nullptr},
    {Key::ColumnConfig, "columnConfig", Bytes, Nobody, nullptr},
    {Key::LibPlaylistColumnConfig, "libPlaylistColumnConfig", Bytes, Nobody, nullptr},
    {Key::ShowPartColumn, "showPartColumn", Bool, FirstRun, fixed<true>},
    {Key::ShowBeatColumn, "showBeatColumn", Bool, FirstRun, fixed<true>},
    {Key::ShowTimeColumn, "showTimeColumn", Bool, FirstRun, fixed<false>},
    {Key::Tempo12, "tempo12", Int, FirstRun, fixed<85>},
    {Key::Tempo23, "tempo23", Int, FirstRun, fixed<98>},
    {Key::Tempo34, "tempo34", Int, FirstRun, fixed<112>},
    {Key::Tempo45, "tempo45", Int, FirstRun, fixed<125>},
    {Key::TempoDefault1, "tempoDefault1", Int, FirstRun, fixed<0>},
    {Key::TempoDefault2, "tempoDefault2", Int, FirstRun, fixed<-7>},
    {Key::TempoDefault3, "tempoDefault3", Int, FirstRun, fixed<-15>},
    {Key::TempoDefault4, "tempoDefault4", Int, FirstRun, fixed<-22>},
    {Key::TempoDefault5, "tempoDefault5", Int, FirstRun, fixed<-30>},
    {Key::HideTempoButtons, "hideTempoButtons", Bool, FirstRun, fixed<false>},
    {Key::ShowSlider, "showSlider", Bool, FirstRun, fixed<true>},
    {Key::AutoUpdate, "autoUpdate", Bool, FirstRun, fixed<true>},
    {Key::AutoEvent, "autoEvent", Bool, FirstRun, fixed<false>},
    {Key::PlaylistNonStop, "playlistNonStop", Bool, FirstRun, fixed<false>},
    {Key::TimeDisplayMode, "timeDisplayMode", Int, FirstRun, fixed<3>},
    // A check state: 2 for on.
    {Key::ShowMoreLyricsInfo, "showMoreLyricsInfo", Bool, Every, fixed<true>},
    {Key::BpmDisplay, "bpmDisplay", Int, FirstRun, fixed<0>},
    {Key::RegisterPlay, "registerPlay", Int, FirstRun, fixed<90>},
    {Key::HighIntermediate, "highIntermediate", Text, FirstRun, highIntermediate},
    {Key::StyleSheet, "styleSheet", Text, FirstRun, darkNight},
    {Key::Language, "language", Text, FirstRun, language},
    {Key::LyricsFullPage, "lyricsFullPage", Bool, Every, fixed<false>},
    // A vertical alignment flag of Qt: 32 top, 64 bottom, 128 centre.
    {Key::PositionAlignment, "positionAlignment", Int, Every, fixed<128>},
    {Key::EventRounding, "eventRounding", Int, FirstRun, fixed<3600>},
    {Key::CloudOn, "cloudOn", Bool, FirstRun, fixed<false>},
    {Key::CloudUserId, "cloudUserId", Text, Every, empty},
    {Key::CloudName, "cloudName", Text, Every, empty},
    {Key::CloudEmail, "cloudEmail", Text, Every, empty},
    {Key::CloudUserData, "cloudUserData", Bool, FirstRun, fixed<true>},
    {Key::CacheDir, "cacheDir", Text, FirstRun, cacheDir},
    {Key::CuesheetDir, "cuesheetDir", Text, Every, empty},
    {Key::MusicDir, "musicDir", Text, Every, empty},
    {Key::PlaylistDir, "playlistDir", Text, Every, empty},
    {Key::PosImExDir, "posImExDir", Text, Every, empty},
    {Key::StepEditInheritChanges, "stepEditInheritChanges", Bool, FirstRun, fixed<true>},
    {Key::StepEditAutoSave, "stepEditAutoSave", Bool, FirstRun, fixed<true>},
    {Key::PosSeparators, "posSeparators", Text, Every, posSeparators},
    {Key::SpecialChars, "specialChars", Text, Every, specialChars},
    {Key::UserDefPartPresets, "userDefPartPresets", Text, Every, partPresets},
    {Key::PresetChangePart, "presetChangePart", Bool, Every, fixed<false>},
    {Key::PresetChangePosition, "presetChangePosition", Bool, Every, fixed<true>},
    {Key::LoggingEnabled, "loggingEnabled", Bool, Every, fixed<false>},
    {Key::CountDownType, "countDown/type", Int, Every, fixed<0>},
    {Key::CountDownCountStart, "countDown/countStart", Int, Every, fixed<9>},
    {Key::CountDownCountEnd, "countDown/countEnd", Int, Every, fixed<0>},
    {Key::CountDownComment, "countDown/comment", Text, Every, start},
    {Key::CountDownAdvancedMode, "countDown/advancedMode", Bool, Every, fixed<false>},
    {Key::CountDownTableColConfig, "countDown/tableColConfig", Bytes, Nobody, nullptr},
    {Key::CountDownConfigWindowGeometry, "countDown/configWindowGeometry", Bytes, Nobody, nullptr},
    {Key::CountDownDisplayWindowGeometry, "countDown/displayWindowGeometry", Bytes, Nobody,
     nullptr},
    {Key::BpmCalculatorGeometry, "bpmCalculatorGeometry", Bytes, Nobody, nullptr},
    {Key::EventEditorGeometry, "eventEditorGeometry", Bytes, Nobody, nullptr},
    {Key::EventListWindowGeometry, "eventListWindowGeometry", Bytes, Nobody, nullptr},
    {Key::EventListTableCols, "eventListTableCols", Bytes, Nobody, nullptr},
    {Key::LastDanceEventCategory, "lastDanceEventCategory", Text, Every, empty},
    {Key::FormPosGeometry, "formPosGeometry", Bytes, Nobody, nullptr},
    {Key::FormPosColumnConfig, "formPosColumnConfig", Bytes, Nobody, nullptr},
    {Key::FormPosApplyBrackets, "formPosApplyBrackets", Bool, Every, fixed<true>},
    {Key::FormPosLineEnd, "formPosLineEnd", Bool, Every, fixed<true>},
    {Key::FormPosApplyCase, "formPosApplyCase", Bool, Every, fixed<true>},
    {Key::FormPosReplace, "formPosReplace", Bool, Every, fixed<true>},
    {Key::FormPosApplySeparator, "formPosApplySeparator", Bool, Every, fixed<true>},
    {Key::FormPosTrim, "formPosTrim", Bool, Every, fixed<true>},
    {Key::FormPartsTrim, "formPartsTrim", Bool, Every, fixed<false>},
    // Written and never read: both case boxes open as formPosApplyCase says.
    {Key::FormPartsApplyCase, "formPartsApplyCase", Bool, Nobody, nullptr},
    {Key::FormPosCaseIndex, "formPosCaseIndex", Int, Every, fixed<0>},
    {Key::FormPosPartsCaseIndex, "formPosPartsCaseIndex", Int, Every, fixed<0>},
    {Key::FormPosBracketsFrom, "formPosBracketsFrom", Text, Every, bracketsFrom},
    {Key::FormPosBracketsTo, "formPosBracketsTo", Text, Every, bracketsTo},
    {Key::FormPosSeparatorsFrom, "formPosSeparatorsFrom", Text, Every, separatorsFrom},
    {Key::FormPosSeparatorsTo, "formPosSeparatorsTo", Text, Every, separatorsTo},
    {Key::MetadataId3Tags, "metadata/id3Tags", Bool, Nobody, nullptr},
    {Key::MetadataPositions, "metadata/positions", Bool, Nobody, nullptr},
    {Key::MetadataCuesheet, "metadata/cuesheet", Bool, Nobody, nullptr},
    {Key::MetadataEvents, "metadata/events", Bool, Nobody, nullptr},
    {Key::MetadataCountdowns, "metadata/countdowns", Bool, Nobody, nullptr},
    {Key::MetadataDir, "metadata/metadataDir", Text, Every, empty},
    {Key::MetadataWindowGeometry, "metadata/windowGeometry", Bytes, Nobody, nullptr},
    {Key::MoveCopyDirDest, "moveCopyDirDest", Text, Every, empty},
    {Key::SongFileImportDir, "songFileImportDir", Text, Every, empty},
    {Key::PosEditorGeometry, "posEditorGeometry", Bytes, Nobody, nullptr},
    {Key::SearchAndReplaceGeometry, "searchAndReplaceGeometry", Bytes, Nobody, nullptr},
    {Key::SearchAndReplaceDialogGeometry, "searchAndReplaceDialogGeometry", Bytes, Nobody, nullptr},
    {Key::TagEditorGeometry, "tagEditorGeometry", Bytes, Nobody, nullptr},
    {Key::TagEditorEventTable, "tagEditorEventTable", Bytes, Nobody, nullptr},
    {Key::TimeShiftGeometry, "timeShiftGeometry", Bytes, Nobody, nullptr},
    // Only its presence counts.
    {Key::TestMode, "testMode", QMetaType::QVariant, Nobody, nullptr},
};

static_assert(std::size(table) == static_cast<std::size_t>(Key::Count));

constexpr bool tableIsInKeyOrder()
{
    for (std::size_t i = 0; i < std::size(table); ++i) {
        if (table[i].key != static_cast<Key>(i))
            return false;
    }
    return true;
}
static_assert(tableIsInKeyOrder());

} // namespace

std::span<const Entry> entries()
{
    return table;
}

const Entry &entry(Key key)
{
    return table[static_cast<std::size_t>(key)];
}

} // namespace Settings
