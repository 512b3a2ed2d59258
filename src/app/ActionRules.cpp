#include "ActionRules.h"

namespace {

using State = ActionState;

struct Rule
{
    ActionId action;
    bool (*enabled)(const State &);
};

constexpr auto unlocked = [](const State &s) { return !s.locked; };
constexpr auto someSongs = [](const State &s) { return s.songsSelected > 0 && !s.locked; };
constexpr auto oneSong = [](const State &s) { return s.songsSelected == 1; };
constexpr auto oneSongUnlocked = [](const State &s) { return s.songsSelected == 1 && !s.locked; };
constexpr auto someRows = [](const State &s) { return s.rows > 0 && !s.locked; };
constexpr auto choreographyThere = [](const State &s) { return s.withChoreography > 0; };

constexpr Rule rules[] = {
    {ActionId::FitColumns, unlocked},
    {ActionId::EditCountDown, unlocked},
    {ActionId::ShowSettings, unlocked},
    {ActionId::Rescan, unlocked},
    {ActionId::ResetFilters, unlocked},
    {ActionId::ShowEventList, unlocked},
    {ActionId::CopySongFiles, someSongs},
    {ActionId::EditPositions, someSongs},
    {ActionId::ExportMetadata, someSongs},
    {ActionId::CompareSongPositions, someSongs},
    {ActionId::ConvertFile, oneSong},
    {ActionId::CopyFile, oneSong},
    {ActionId::Play, oneSong},
    {ActionId::EditTags, oneSongUnlocked},
    {ActionId::ImportChoreography, oneSongUnlocked},
    {ActionId::ImportMetadata, oneSongUnlocked},
    {ActionId::ImportPositions, oneSongUnlocked},
    {ActionId::CopyPosition, [](const State &s) { return s.hasMarkedRow; }},
    {ActionId::PastePosition,
     [](const State &s) { return s.hasMarkedRow && !s.locked && !s.clipboardEmpty; }},
    {ActionId::CopyAllPositions, someRows},
    {ActionId::FormatPositions, someRows},
    {ActionId::Replace, someRows},
    {ActionId::ShiftTimes, someRows},
    {ActionId::MoveSongFiles,
     [](const State &s) { return !s.playing && (s.hasSong || s.songsSelected > 0); }},
    {ActionId::RemoveSongFiles, [](const State &s) { return !s.playing; }},
    {ActionId::CopyChoreography,
     [](const State &s) { return s.songsSelected == 1 && s.withChoreography == 1; }},
    {ActionId::ExportChoreography, choreographyThere},
    {ActionId::RemoveChoreography, choreographyThere},
    {ActionId::ExportPositions, [](const State &s) { return s.withPositions > 0; }},
};

struct LoadingRule
{
    ActionId action;
    bool (*enabled)(const SongState &);
};

constexpr auto always = [](const SongState &) { return true; };
constexpr auto withPositions = [](const SongState &s) { return s.hasPositions; };
constexpr auto withChoreography = [](const SongState &s) { return s.hasChoreography; };

constexpr LoadingRule loadingRules[] = {
    {ActionId::EditTags, always},
    {ActionId::CopyFile, always},
    {ActionId::CopySongFiles, always},
    {ActionId::MoveSongFiles, always},
    {ActionId::ConvertFile, always},
    {ActionId::CopyPosition, withPositions},
    {ActionId::CopyAllPositions, withPositions},
    {ActionId::ExportPositions, withPositions},
    {ActionId::ImportPositions, always},
    {ActionId::ImportChoreography, always},
    {ActionId::ExportChoreography, withChoreography},
    {ActionId::RemoveChoreography, withChoreography},
    {ActionId::CopyChoreography, withChoreography},
    {ActionId::PastePosition,
     [](const SongState &s) { return s.hasPositions && !s.clipboardEmpty; }},
    {ActionId::CompareSongPositions, always},
};

template <typename Rules, typename AnyState>
std::optional<bool> answer(const Rules &rulesOfAll, ActionId action, const AnyState &state)
{
    for (const auto &rule : rulesOfAll)
        if (rule.action == action)
            return rule.enabled(state);
    return std::nullopt;
}

} // namespace

std::optional<bool> isActionEnabled(ActionId action, const ActionState &state)
{
    return answer(rules, action, state);
}

std::optional<bool> isActionEnabledByLoading(ActionId action, const SongState &state)
{
    return answer(loadingRules, action, state);
}
