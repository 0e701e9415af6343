#include "operations.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <unordered_set>

#include "no_rename.h"
#include "pattern/mode_patterns.h"

namespace multirename {

namespace {

template <class Action>
double seconds_of(Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void require(bool holds)
{
    if (!holds)
        throw std::logic_error("A benchmark does not do what it is to time.");
}

// A run on the listing, made once for as many keystrokes as are timed.
ListingRun& run_on(Listing& listing)
{
    static std::size_t made_for = 0;
    static std::unique_ptr<ListingRun> run;
    if (made_for != listing.serial()) {
        run.reset();
        run = std::make_unique<ListingRun>(listing);
        made_for = listing.serial();
    }
    return *run;
}

double scan(Listing& listing)
{
    std::size_t sum = 0;
    const double seconds = seconds_of([&] {
        for (const std::u16string& name : listing.names()) {
            for (const char16_t unit : name)
                sum += unit;
        }
        benchmark::DoNotOptimize(sum);
    });
    require(sum > 0);
    return seconds;
}

double copy(Listing& listing)
{
    std::vector<std::u16string> names;
    const double seconds = seconds_of([&] {
        names = listing.names();
        benchmark::DoNotOptimize(names.data());
    });
    require(names.size() == listing.names().size());
    return seconds;
}

double hash(Listing& listing)
{
    std::unordered_set<std::u16string_view> names;
    const double seconds = seconds_of([&] {
        names.reserve(listing.names().size());
        names.insert(listing.names().begin(), listing.names().end());
    });
    require(names.size() == listing.names().size());
    return seconds;
}

double sort(Listing& listing)
{
    std::vector<std::u16string> names = listing.names();
    return seconds_of([&] { std::sort(names.begin(), names.end()); });
}

double file_set(Listing& listing)
{
    std::optional<FileSet> files;
    const double seconds = seconds_of([&] {
        files.emplace(listing);
        files->add_paths(listing.paths());
    });
    require(files->listed.size() == listing.names().size());
    return seconds;
}

// The four patterns that a run over files shows, with the smallest numbers that their number parts capture.
double analysis(Listing& listing)
{
    FileSet& files = run_on(listing).files;
    ModePatterns modes;
    const double seconds = seconds_of([&] { modes = computeModePatterns(files, !files.has_plain_file); });
    require(!modes.patterns.front().patternText.empty());
    return seconds;
}

double opening(Listing& listing)
{
    std::optional<ListingRun> run;
    const double seconds = seconds_of([&] { run.emplace(listing); });
    require(run->run.row_count() == listing.names().size());
    return seconds;
}

double keystroke(Listing& listing)
{
    RenameRun& run = run_on(listing).run;
    const std::u16string text = run.pattern().parts[0].text == u"Holiday 1 " ? u"Holiday 2 " : u"Holiday 1 ";
    const double seconds = seconds_of([&] { run.set_part_text(0, text); });
    for (const std::size_t row : {std::size_t{0}, run.row_count() - 1})
        require(!run.row_entry(row).in_scope || run.row(row).new_name.starts_with(text));
    return seconds;
}

// Every new name is the old name of another entry, wherever there are numbers in a row.
double keystroke_with_chains(Listing& listing)
{
    RenameRun& run = run_on(listing).run;
    for (std::size_t i = 0; i < run.pattern().parts.size(); ++i) {
        NamePart& part = run.part(i);
        if (part.kind != NamePartKind::Number)
            continue;
        run.change_part_text(0, run.pattern().parts[0].matchText);
        part.renumber = true;
        part.startNumber = part.baseNumber + 1 + (part.startNumber == part.baseNumber + 1 ? 1 : 0);
        const double seconds = seconds_of([&] { run.refresh_names(); });
        part.renumber = false;
        return seconds;
    }
    return 0; // no numbers to count on
}

double mode_change(Listing& listing)
{
    RenameRun& run = run_on(listing).run;
    const bool extensions = run.allow_extension_changes().enabled;
    bool is_changed = false;
    const double seconds = seconds_of([&] {
        is_changed = extensions ? run.set_allow_extension_changes(!run.allow_extension_changes().checked)
                                : run.set_numbers_as_text(!run.numbers_as_text().checked);
    });
    return is_changed ? seconds : 0;
}

double plan(Listing& listing)
{
    RenameRun& run = run_on(listing).run;
    keystroke(listing);
    NoRename nothing;
    const double seconds = seconds_of([&] {
        if (run.judge().kind == Verdict::Kind::Rename)
            run.rename(OwnerWindow::none, nothing);
    });
    return seconds;
}

constexpr Operation all[] = {
    {"scan", true, scan},
    {"copy", true, copy},
    {"hash", true, hash},
    {"sort", true, sort},
    {"file set", false, file_set},
    {"analysis", false, analysis},
    {"opening", false, opening},
    {"keystroke", false, keystroke},
    {"keystroke with chains", false, keystroke_with_chains},
    {"mode change", false, mode_change},
    {"plan", false, plan},
};

} // namespace

std::span<const Operation> operations() { return all; }

} // namespace multirename
