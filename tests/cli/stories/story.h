#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/run_program.h"
#include "support/snapshot.h"
#include "support/temporary_folder.h"
#include "support/test_programs.h"
#include "support/traced_run.h"

namespace multirename {

using Words = std::vector<std::string>;
using Json = nlohmann::ordered_json;

/// A user at a terminal: a folder to work in and a place where batches are written down, both of the test's own.
class Story : public testing::Test {
protected:
    /// The program with these words, to be run in the folder.
    [[nodiscard]] ProgramRun program(const Words& words) const
    {
        ProgramRun run;
        run.arguments = {build_folder() / "multirename"};
        run.arguments.insert(run.arguments.end(), words.begin(), words.end());
        run.environment = {{"XDG_STATE_HOME", state.path()}, {"LC_ALL", "C.UTF-8"},    {"TZ", "UTC"},
                           {"VISUAL", std::nullopt},         {"EDITOR", std::nullopt}, {"NO_COLOR", std::nullopt},
                           {"PAGER", std::nullopt}};
        run.folder = folder.path();
        return run;
    }

    ProgramResult run(const Words& words) const { return run_program(program(words)); }

    /// Runs the program under the eyes of an observer, who sees the moves of the batch and not that of its journal.
    [[nodiscard]] static ProgramResult run_watched(const ProgramRun& run, const Observer& observer)
    {
        std::size_t others = 0;
        return run_traced(run, [&](const MoveCall& call) {
            if (call.to.ends_with(".journal")) {
                others = call.number;
                return Action::Continue;
            }
            MoveCall of_batch = call;
            of_batch.number -= others;
            return observer(of_batch);
        });
    }

    /// What the program prints with --format json.
    [[nodiscard]] Json json(Words words) const
    {
        words.insert(words.end(), {"--format", "json"});
        return Json::parse(run(words).output);
    }

    /// The new names that preview gives, in the order of the paths.
    [[nodiscard]] Words previewed(Words words) const
    {
        words.insert(words.begin(), "preview");
        Words names;
        const Json told = json(words);
        for (const Json& file : told["files"])
            names.push_back(file["new"]);
        return names;
    }

    void write(const Words& names) const
    {
        for (const std::string& name : names)
            folder.write(name, "content of " + name);
    }

    [[nodiscard]] Words names() const { return names_in(folder.path()); }
    [[nodiscard]] Snapshot tree() const { return snapshot_of(folder.path()); }

    /// What a file holds now, by its path below the folder.
    [[nodiscard]] std::string content(const std::string& path) const { return tree().entries.at(path).content; }

    [[nodiscard]] std::vector<std::string> journals() const
    {
        const std::string place = state.path() + "/multirename";
        return std::filesystem::exists(place) ? names_in(place) : std::vector<std::string>();
    }

    TemporaryFolder folder;
    TemporaryFolder state;
};

/// Exit statuses, by what they say.
inline constexpr int done = 0;
inline constexpr int refused = 1;
inline constexpr int wrong_command_line = 2;
inline constexpr int partly_done = 3;

} // namespace multirename
