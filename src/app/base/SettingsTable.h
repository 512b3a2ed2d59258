#pragma once

#include <QLocale>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <span>

// The one table of all configuration keys: name, type, default and for whom the default holds.
namespace Settings {

enum class Key {
    Version,
    FontSize,
    MaxFontSizeLyrics,
    FrameHeight,
    MainWindowGeometry,
    MainWindowState,
    MainWinSplitterState,
    SplitterPlaylistGeometry,
    ColumnConfig,
    LibPlaylistColumnConfig,
    ShowPartColumn,
    ShowBeatColumn,
    ShowTimeColumn,
    Tempo12,
    Tempo23,
    Tempo34,
    Tempo45,
    TempoDefault1,
    TempoDefault2,
    TempoDefault3,
    TempoDefault4,
    TempoDefault5,
    HideTempoButtons,
    ShowSlider,
    AutoUpdate,
    AutoEvent,
    PlaylistNonStop,
    TimeDisplayMode,
    ShowMoreLyricsInfo,
    BpmDisplay,
    RegisterPlay,
    HighIntermediate,
    StyleSheet,
    Language,
    LyricsFullPage,
    PositionAlignment,
    EventRounding,
    CloudOn,
    CloudUserId,
    CloudName,
    CloudEmail,
    CloudUserData,
    CacheDir,
    CuesheetDir,
    MusicDir,
    PlaylistDir,
    PosImExDir,
    StepEditInheritChanges,
    StepEditAutoSave,
    PosSeparators,
    SpecialChars,
    UserDefPartPresets,
    PresetChangePart,
    PresetChangePosition,
    LoggingEnabled,
    CountDownType,
    CountDownCountStart,
    CountDownCountEnd,
    CountDownComment,
    CountDownAdvancedMode,
    CountDownTableColConfig,
    CountDownConfigWindowGeometry,
    CountDownDisplayWindowGeometry,
    BpmCalculatorGeometry,
    EventEditorGeometry,
    EventListWindowGeometry,
    EventListTableCols,
    LastDanceEventCategory,
    FormPosGeometry,
    FormPosColumnConfig,
    FormPosApplyBrackets,
    FormPosLineEnd,
    FormPosApplyCase,
    FormPosReplace,
    FormPosApplySeparator,
    FormPosTrim,
    FormPartsTrim,
    FormPartsApplyCase,
    FormPosCaseIndex,
    FormPosPartsCaseIndex,
    FormPosBracketsFrom,
    FormPosBracketsTo,
    FormPosSeparatorsFrom,
    FormPosSeparatorsTo,
    MetadataId3Tags,
    MetadataPositions,
    MetadataCuesheet,
    MetadataEvents,
    MetadataCountdowns,
    MetadataDir,
    MetadataWindowGeometry,
    MoveCopyDirDest,
    SongFileImportDir,
    PosEditorGeometry,
    SearchAndReplaceGeometry,
    SearchAndReplaceDialogGeometry,
    TagEditorGeometry,
    TagEditorEventTable,
    TimeShiftGeometry,
    TestMode,
    Count
};

// What the defaults depend on.
struct Environment
{
    int screenHeight = 0; // pixels of the primary screen
    QString localeName;   // such as "de_DE"; "C" has no country
    QString tempPath;
};

enum class DefaultFor {
    Nobody,   // a missing key reads as zero, false or empty
    FirstRun, // holds only while the store has no version key
    EveryReader,
};

struct Entry
{
    Key key;
    const char *name;
    QMetaType::Type type;
    DefaultFor defaultFor;
    QVariant (*defaultValue)(const Environment &environment); // null for Nobody
};

std::span<const Entry> entries();
const Entry &entry(Key key);

} // namespace Settings
