#include "run/testing/random_session.h"

#include <algorithm>
#include <array>
#include <set>
#include <span>

#include "run/pasted_names.h"
#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::array<std::u16string_view, 4> folders = {u"C:\\T\\", u"C:\\T\\Sub\\", u"C:\\T\\Sub\\Sub\\", u"C:\\U\\"};

// A rename that only notes what it would do.
class NotingProgress final : public RenameProgress {
public:
    std::vector<std::pair<std::u16string, std::u16string>> moves;

    void announce() override { }
    bool is_cancelled() override { return false; }
    void rename(OwnerWindow, std::span<const Filename* const> entries) override
    {
        for (const Filename* entry : entries) {
            const std::u16string& folder = entry->folder->path;
            moves.emplace_back(folder + std::u16string(entry->name), folder + std::u16string(entry->new_name));
        }
    }
};

bool is_problem(Status status) { return status >= Status::SameName && status <= Status::Forbidden; }

// Of names that one folder takes for one it can hold the first alone.
void leave_out_names_taken_for_one(std::vector<std::u16string>& listed, std::vector<std::u16string>& beside,
                                   bool tells_case_apart)
{
    std::set<std::u16string> known;
    const auto is_known = [&](const std::u16string& path) {
        const std::u16string_view bare(path.data(), path.size() - (path.ends_with(u'\\') ? 1 : 0));
        return !known.insert(tells_case_apart ? std::u16string(bare) : name_key(bare)).second;
    };
    std::erase_if(listed, is_known);
    std::erase_if(beside, is_known);
}

} // namespace

RandomSession::RandomSession(Choices& choices) : choices_(choices), tells_case_apart_(choices.one_in(4))
{
    std::vector<std::u16string> listed;
    std::vector<std::u16string> beside;
    make_up_paths(listed, beside);
    leave_out_names_taken_for_one(listed, beside, tells_case_apart_);
    if (!listed.empty() && choices_.one_in(8))
        listed.push_back(listed.front()); // a path that a host gives twice
    disk_files_ = std::make_unique<TestFiles>(listed, beside, tells_case_apart_);
    remembered_ = {choices_.one_in(2), choices_.one_in(2)};
    run_ = std::make_unique<RenameRun>(disk_files_->files, remembered_);
}

void RandomSession::make_up_paths(std::vector<std::u16string>& listed, std::vector<std::u16string>& beside)
{
    const std::uint32_t folder_count = 1 + choices_.below(folders.size());
    for (std::uint32_t i = 0; i < folder_count; ++i) {
        std::u16string folder(folders[i]);
        const bool is_inner = folder.find(u"Sub") != std::u16string::npos;
        if (is_inner)
            (choices_.one_in(2) ? listed : beside).push_back(folder);
        for (std::uint32_t names = 1 + choices_.below(8); names > 0; --names) {
            std::u16string path = folder + some_name();
            if (choices_.one_in(12))
                path += u'\\';
            (choices_.one_in(5) ? beside : listed).push_back(path);
        }
    }
}

std::u16string RandomSession::some_name()
{
    static constexpr std::array<std::u16string_view, 6> fronts = {u"IMG_", u"a", u"A", u"Scan ", u"é", u"\xD83D\xDE00"};
    static constexpr std::array<std::u16string_view, 8> middles = {u"",    u"-b",  u" Harbour", u".",
                                                                   u"x1y", u"(2)", u"_",        u"B"};
    static constexpr std::array<std::u16string_view, 6> ends = {u"", u".jpg", u".JPG", u".txt", u".tar.gz", u"."};
    std::u16string name(choices_.one_of(fronts));
    if (!choices_.one_in(3)) {
        const std::u16string digits = decimal_text(choices_.below(12));
        name.append(choices_.below(3), u'0').append(digits);
    }
    name.append(choices_.one_of(middles));
    return name.append(choices_.one_of(ends));
}

std::u16string RandomSession::some_text()
{
    static constexpr std::array<std::u16string_view, 26> texts = {
        u"",        u"x",   u"a",     u"A",     u"IMG_", u" ",   u".",      u"<1>",      u"<1:3>",
        u"<5,-1F>", u"<F>", u"<N:1>", u"<N:2>", u"<D>",  u"<S>", u"<S:3A>", u"<C:yyyy>", u"<",
        u">",       u"a<b", u"con",   u"\\",    u"b\\c", u"é",   u"2",      u"<D:hh:mm>"};
    if (choices_.one_in(40))
        return std::u16string(choices_.below(300), u'L');
    std::u16string text(choices_.one_of(texts));
    if (choices_.one_in(4))
        text += choices_.one_of(texts);
    return text;
}

std::vector<std::size_t> RandomSession::some_row()
{
    if (run_->row_count() == 0)
        return {};
    return {choices_.below(static_cast<std::uint32_t>(run_->row_count()))};
}

void RandomSession::edit_some_part()
{
    const std::size_t count = run_->pattern().parts.size();
    if (count == 0)
        return;
    const std::size_t index = choices_.below(static_cast<std::uint32_t>(count));
    NamePart& part = run_->part(index);
    switch (part.kind) {
    case NamePartKind::Text: run_->set_part_text(index, some_text()); return;
    case NamePartKind::Wild:
        part.caseStyle = static_cast<CaseStyle>(choices_.below(11));
        part.truncate = choices_.one_in(3);
        part.length = static_cast<std::int32_t>(choices_.below(6));
        part.findText = choices_.one_in(2) ? u"" : u"a";
        part.replaceText = choices_.one_in(2) ? u"" : u"bb";
        break;
    case NamePartKind::Number:
        part.clearText = choices_.one_in(6);
        part.renumber = !part.clearText && choices_.one_in(2);
        part.startNumber = static_cast<std::int64_t>(choices_.below(20)) - 1;
        part.leadingZeros = static_cast<LeadingZerosMode>(choices_.below(3));
        part.length = static_cast<std::int32_t>(choices_.below(5));
        break;
    }
    run_->refresh_names();
}

void RandomSession::paste_some_lines()
{
    std::u16string lines;
    for (std::size_t row = 0; row < run_->row_count(); ++row) {
        switch (choices_.below(4)) {
        case 0: lines.append(run_->row(row).new_name); break;
        case 1: lines.append(run_->row(choices_.below(static_cast<std::uint32_t>(run_->row_count()))).old_name); break;
        case 2: lines.append(some_name()); break;
        default: lines.append(some_text()); break;
        }
        lines += u'\n';
    }
    static_cast<void>(run_->paste_names(lines));
}

void RandomSession::act()
{
    switch (choices_.below(12)) {
    case 0: run_->set_allow_extension_changes(choices_.one_in(2)); break;
    case 1: run_->set_numbers_as_text(choices_.one_in(2)); break;
    case 2: paste_some_lines(); break;
    case 3: static_cast<void>(run_->remove_rows(some_row())); break;
    case 4: run_->reset_names(some_row()); break;
    case 5: run_->reset(); break;
    default: edit_some_part(); break;
    }
}

std::vector<RandomSession::Move> RandomSession::moves() const
{
    NotingProgress progress;
    run_->rename(OwnerWindow::none, progress);
    std::vector<Move> all;
    for (auto& [from, to] : progress.moves)
        all.push_back({from, to});
    return all;
}

FolderModel RandomSession::model() const
{
    FolderModel model(tells_case_apart_);
    for (const auto& [folder, entries] : disk_files_->disk.folders) {
        for (const DirectoryEntry& entry : entries)
            model.add(folder + entry.name);
    }
    return model;
}

std::optional<std::string> RandomSession::broken_by_statuses(Verdict::Kind verdict) const
{
    bool any_problem = false;
    bool any_change = false;
    for (std::size_t row = 0; row < run_->row_count(); ++row) {
        const Filename& entry = run_->row_entry(row);
        const bool is_settled =
            entry.status == Status::Ready || entry.status == Status::Unchanged || is_problem(entry.status);
        if (entry.in_scope && !is_settled)
            return "Every entry in scope is ready, unchanged, or says what is wrong with it.";
        if (entry.in_scope && (entry.status == Status::Unchanged) != (entry.new_name == entry.name) &&
            !is_problem(entry.status))
            return "An entry is unchanged exactly when it keeps its name.";
        if (entry.in_scope && entry.status == Status::Ready && holds_forbidden_character(entry.new_name))
            return "No entry gets a name with a character that names may not hold.";
        any_problem = any_problem || (entry.in_scope && is_problem(entry.status));
        any_change = any_change || (entry.in_scope && entry.status == Status::Ready);
    }
    if (any_problem != (verdict == Verdict::Kind::Refuse))
        return "A plan is refused exactly when an entry has a problem.";
    if (verdict == Verdict::Kind::NothingToDo && any_change)
        return "Where there is nothing to do, no name changes.";
    return std::nullopt;
}

std::optional<std::string> RandomSession::broken_by_order(const std::vector<Move>& moves) const
{
    std::vector<std::u16string> expected;
    for (std::size_t row = 0; row < run_->row_count(); ++row) {
        const Filename& entry = run_->row_entry(row);
        if (entry.in_scope && entry.status == Status::Ready)
            expected.push_back(entry.folder->path + std::u16string(entry.name));
    }
    std::ranges::sort(expected);
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    std::vector<std::u16string> sources;
    for (const Move& move : moves)
        sources.push_back(move.from);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        for (std::size_t later = i + 1; later < sources.size(); ++later) {
            if (sources[later].starts_with(sources[i] + u'\\'))
                return "Folders are renamed after what they hold.";
        }
    }
    std::ranges::sort(sources);
    if (sources != expected)
        return "Every entry that is ready is renamed once, and no other.";

    const FolderModel start = model();
    FolderModel now = start;
    for (const Move& move : moves) {
        if (!now.rename(move.from, move.to))
            return "No rename lands on a name that is in use.";
    }
    for (auto move = moves.rbegin(); move != moves.rend(); ++move) {
        if (!now.rename(move->to, move->from))
            return "Each rename can be taken back, the last one first.";
    }
    if (!(now == start))
        return "Taking everything back gives the start.";
    return std::nullopt;
}

std::optional<std::string> RandomSession::broken_promise()
{
    planned_ = 0;
    const Verdict::Kind verdict = run_->judge().kind;
    if (const std::optional<std::string> broken = broken_by_statuses(verdict))
        return broken;
    if (verdict != Verdict::Kind::Rename)
        return std::nullopt;
    const std::vector<Move> planned = moves();
    planned_ = planned.size();
    return broken_by_order(planned);
}

std::optional<std::string> RandomSession::changed_without_edit() const
{
    for (std::size_t row = 0; row < run_->row_count(); ++row) {
        const Filename& entry = run_->row_entry(row);
        if (entry.in_scope && run_->fits_pattern(row) && entry.new_name != entry.name)
            return "A pattern that nobody edited changes no name.";
    }
    return std::nullopt;
}

} // namespace multirename
