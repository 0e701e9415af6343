#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fileset/testing/test_files.h"
#include "run/rename_run.h"
#include "run/testing/choices.h"
#include "run/testing/folder_model.h"

namespace multirename {

/// A run over folders that are made up, in which things are done that users do. What every plan promises, whatever was
/// done, can be asked for at any time.
class RandomSession {
public:
    /// The choices must outlive the session.
    explicit RandomSession(Choices& choices);

    /// Does something that a user may do.
    void act();

    /// The first promise that the present plan breaks, as a sentence; nothing when it keeps them all.
    [[nodiscard]] std::optional<std::string> broken_promise();

    /// The same of the names that are made before anything was done.
    [[nodiscard]] std::optional<std::string> changed_without_edit() const;

    /// How many renames the plan has that was looked at last; none when it was refused.
    [[nodiscard]] std::size_t planned() const noexcept { return planned_; }

private:
    struct Move {
        std::u16string from;
        std::u16string to;
        bool operator==(const Move&) const = default;
    };

    void make_up_paths(std::vector<std::u16string>& listed, std::vector<std::u16string>& beside);
    [[nodiscard]] std::u16string some_name();
    [[nodiscard]] std::u16string some_text();
    [[nodiscard]] std::vector<std::size_t> some_row();
    void edit_some_part();
    void paste_some_lines();
    [[nodiscard]] std::vector<Move> moves() const;
    [[nodiscard]] FolderModel model() const;
    [[nodiscard]] std::optional<std::string> broken_by_statuses(Verdict::Kind verdict) const;
    [[nodiscard]] std::optional<std::string> broken_by_order(const std::vector<Move>& moves) const;

    Choices& choices_;
    bool tells_case_apart_;
    std::unique_ptr<TestFiles> disk_files_;
    RememberedBoxes remembered_;
    std::unique_ptr<RenameRun> run_;
    std::size_t planned_ = 0;
};

} // namespace multirename
