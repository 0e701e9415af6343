#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/file_set.h"
#include "pattern/match_name.h"
#include "pattern/mode_patterns.h"
#include "pattern/name_pattern.h"
#include "rename/rename_all.h"
#include "run/messages.h"

namespace multirename {

/// The last states of the two check boxes, which outlive a run so that the next one opens with them.
struct RememberedBoxes {
    bool allow_extension_changes = false;
    bool numbers_as_text = false;
};

struct CheckBox {
    bool checked = false;
    bool enabled = true;
};

/// The picture beside a row of the names list, by its place in the list of pictures, from 1.
enum class StatusImage : std::uint32_t {
    Ready = 1,
    Unchanged = 2,
    Pending = 3,
    Empty = 4,
    SameName = 5,
    ExistingName = 6,
    Invalid = 7,
};

/// What the names list shows of one row.
struct RowView {
    std::u16string_view old_name;
    std::u16string_view new_name;
    std::u16string_view folder;
    StatusImage image = StatusImage::Ready;
    bool is_pasted = false; ///< the new name was pasted; shown bold
};

/// What to do when the user asks for the rename.
struct Verdict {
    enum class Kind {
        Refuse, ///< show the message, rename nothing, go on
        NothingToDo, ///< show the message and end
        Rename, ///< call `RenameRun::rename` and end
    };
    Kind kind = Kind::Rename;
    Message message;
};

/// One rename run without a window: the listed entries, the patterns of their names, what the user does to them, and
/// what there is to see afterwards. Every decision of the dialog and of the command line is made here.
///
/// Four patterns are kept, with numbers recognised or taken as text, and with extensions left alone or open to change;
/// two check boxes select the one that is shown and edited. After every operation all new names and statuses are up to
/// date. Rows are counted from 0, parts likewise; an index that does not exist is the caller's mistake.
class RenameRun {
public:
    /// Analyses the names of all listed entries and makes the first new names. `files` and `remembered` must outlive
    /// the run. With nothing listed the pattern is empty text.
    RenameRun(FileSet& files, RememberedBoxes& remembered, MessageSource texts = &built_in_text);

    RenameRun(const RenameRun&) = delete;
    RenameRun& operator=(const RenameRun&) = delete;

    // The pattern

    [[nodiscard]] const NamePattern& pattern() const noexcept { return modes_.patterns[pattern_index()]; }
    /// The extension that all names share, ".*" when they differ, or nothing.
    [[nodiscard]] const std::u16string& extension_text() const noexcept { return modes_.extension_text; }
    /// True when every listed entry is a folder: names are never split at a period then.
    [[nodiscard]] bool is_whole_name_mode() const noexcept { return !files_.has_plain_file; }
    [[nodiscard]] CheckBox allow_extension_changes() const noexcept { return allow_extension_changes_; }
    [[nodiscard]] CheckBox numbers_as_text() const noexcept { return numbers_as_text_; }
    /// False while all names are pasted ones, which the pattern does not touch; covers the check boxes too.
    [[nodiscard]] bool pattern_controls_enabled() const noexcept { return pattern_controls_enabled_; }

    /// What the part's control shows: the text of a text part, "*" for a wild part, "#" for a number part.
    [[nodiscard]] std::u16string_view part_label(std::size_t part) const;

    /// What the part is to someone who cannot see the row: its kind, and its place among the parts of that kind.
    [[nodiscard]] std::u16string part_description(std::size_t part) const;

    /// Sets what a text part puts into new names, of which 260 characters count. False, and nothing is done, when it
    /// has that text already.
    bool set_part_text(std::size_t part, std::u16string_view text);

    /// The same without making the new names, for many edits at once; `refresh_names` makes them count.
    bool change_part_text(std::size_t part, std::u16string_view text);

    /// A part of the current pattern, for changes to its settings; `refresh_names` makes them count. What the part
    /// takes of old names must stay as it is.
    [[nodiscard]] NamePart& part(std::size_t part) { return modes_.patterns[pattern_index()].parts[part]; }

    /// Makes all new names that the pattern governs and judges them.
    void refresh_names();

    /// A click on a check box: remembers the state for later runs and changes to the pattern that the boxes now select,
    /// which takes over the settings of the one before. A disabled box takes no click: false, and nothing is done.
    bool set_allow_extension_changes(bool checked);
    bool set_numbers_as_text(bool checked);

    /// Back to the start, with the rows that are left: fresh patterns, no pasted names, all controls enabled.
    void reset();

    // The rows

    [[nodiscard]] std::size_t row_count() const noexcept { return rows_.size(); }
    [[nodiscard]] RowView row(std::size_t row) const;
    [[nodiscard]] const Filename& row_entry(std::size_t row) const { return *rows_[row]; }
    /// Whether the row's old name fits the parts of the pattern. The new name of one that does not is made of what the
    /// parts took before they failed.
    [[nodiscard]] bool fits_pattern(std::size_t row) const;
    /// True when the entries come from more than one folder, so that the folder is worth showing.
    [[nodiscard]] bool shows_folders() const noexcept { return files_.folders.size() > 1; }

    /// Takes entries out of the run: they are never renamed, and their names stand in the way like those of any other
    /// entry. All rows of an entry that was listed twice go together. When no row would be left nothing is done, and
    /// the message says so.
    std::optional<Message> remove_rows(std::span<const std::size_t> rows);

    /// Has the pattern make the names of these rows again, pasted ones too. When it gets a name back, its controls are
    /// enabled.
    void reset_names(std::span<const std::size_t> rows);

    /// The new names of all rows, or of the given ones, each followed by a line feed.
    [[nodiscard]] std::u16string copied_names() const;
    [[nodiscard]] std::u16string copied_names(std::span<const std::size_t> rows) const;
    /// What to say once they are on the clipboard.
    [[nodiscard]] Message copied_message() const;

    /// Takes the new names of all rows, or of the given ones, from the lines of `text`; blank lines count for nothing.
    /// While extensions are left alone each file keeps its own. The lines cannot be used when one holds a character
    /// that names may not hold, when the first has more than 255, or when they are not as many as the rows: then every
    /// name stays as it is, and the message says why.
    std::optional<Message> paste_names(std::u16string_view text);
    std::optional<Message> paste_names(std::u16string_view text, std::span<const std::size_t> rows);

    // The rename

    /// Whether all new names can be had, with a message that counts the problems when they cannot.
    [[nodiscard]] Verdict judge();

    /// The same after a last look at the disk, for a rename that is to follow at once: names that have come to exist
    /// since the folders were read are existing names too.
    [[nodiscard]] Verdict judge_for_rename();

    /// Carries out the rename; call it only after one of these said so, and end the run then: the records keep the old
    /// names.
    void rename(OwnerWindow owner, RenameProgress& progress) { rename_all(owner, files_, progress); }

private:
    [[nodiscard]] std::size_t pattern_index() const noexcept;
    void compute_patterns();
    void mark_scope();
    void number_rows();
    bool click(CheckBox& box, bool checked, bool& remembered);
    void change_mode(std::size_t previous_index);
    [[nodiscard]] std::optional<Message> paste_lines(std::u16string_view text, std::span<const std::size_t> rows);
    [[nodiscard]] std::vector<std::size_t> all_rows() const;
    [[nodiscard]] bool all_names_are_pasted() const;
    [[nodiscard]] Message message(MessageId id, MessageIcon icon = MessageIcon::Exclamation) const;
    [[nodiscard]] std::u16string problem_text(const ProblemCounts& counts) const;

    FileSet& files_;
    RememberedBoxes& remembered_;
    MessageSource texts_;
    LargeVector<Filename*> rows_;
    std::optional<RememberedMatches> matches_; // of the names in scope, while these and the pattern are the same
    ModePatterns modes_;
    CheckBox allow_extension_changes_;
    CheckBox numbers_as_text_;
    bool pattern_controls_enabled_ = true;
};

} // namespace multirename
