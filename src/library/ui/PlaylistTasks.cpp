#include "PlaylistTasks.h"

#include <algorithm>
#include <iterator>

namespace {

using State = PlaylistState;

struct Rule
{
    PlaylistTask task;
    bool (*enabled)(const State &);
};

constexpr auto isNotEmpty = [](const State &s) { return s.entries > 0; };

constexpr Rule rules[] = {
    {PlaylistTask::Open, [](const State &) { return true; }},
    {PlaylistTask::Save, [](const State &s) { return !s.isLibrary && s.isModified; }},
    {PlaylistTask::SaveAs, [](const State &s) { return !s.isLibrary; }},
    {PlaylistTask::Remove, [](const State &s) { return !s.isLibrary && !s.isNew; }},
    {PlaylistTask::CopyText, isNotEmpty},
    {PlaylistTask::CopyFiles, isNotEmpty},
    {PlaylistTask::AddSongs, [](const State &s) { return !s.isLibrary && s.isOtherSelected; }},
    {PlaylistTask::RemoveEntry, [](const State &s) { return !s.isLibrary && s.selectedEntry > 0; }},
    {PlaylistTask::MoveUp, [](const State &s) { return !s.isLibrary && s.selectedEntry > 1; }},
    {PlaylistTask::MoveDown,
     [](const State &s) {
         return !s.isLibrary && s.selectedEntry > 0 && s.selectedEntry < s.entries;
     }},
};

} // namespace

bool isTaskEnabled(PlaylistTask task, const PlaylistState &state)
{
    const auto *rule = std::find_if(std::begin(rules), std::end(rules),
                                    [&](const Rule &r) { return r.task == task; });
    return rule != std::end(rules) && rule->enabled(state);
}
