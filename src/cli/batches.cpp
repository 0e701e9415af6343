// The id of a batch is the moment at which it began, in UTC, and a number that tells batches of one second apart:
// 20240305-140709-001. Its file has that name, so that the order of the names is that of the batches, whatever happens
// to the files' times; a new batch comes after all that there are even when the clock was set back.

#include "cli/batches.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/local_time.h"
#include "platform/user_folders.h"
#include "text/utf8.h"

namespace multirename {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono;

constexpr std::string_view ending = ".journal";
constexpr std::string_view form = "00000000-000000-000";
constexpr std::size_t moment_length = 15;
constexpr int last_of_second = 999;
constexpr days keeping_time{90};

struct CivilTime {
    year_month_day date;
    hh_mm_ss<seconds> time;
    explicit CivilTime(Moment moment) : date(floor<days>(moment)), time(moment - floor<days>(moment)) { }
};

std::string formatted(const char* format, Moment moment)
{
    const CivilTime civil(moment);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, static_cast<int>(civil.date.year()),
                  static_cast<int>(static_cast<unsigned>(civil.date.month())),
                  static_cast<int>(static_cast<unsigned>(civil.date.day())),
                  static_cast<int>(civil.time.hours().count()), static_cast<int>(civil.time.minutes().count()),
                  static_cast<int>(civil.time.seconds().count()));
    return text.data();
}

std::string id_of(Moment moment, int number)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "-%03d", number);
    return formatted("%04d%02d%02d-%02d%02d%02d", moment) + digits.data();
}

// The next id after one that is there already.
std::string id_after(const std::string& id)
{
    const int number = std::stoi(id.substr(moment_length + 1));
    if (number < last_of_second)
        return id.substr(0, moment_length) + id_of(Moment(), number + 1).substr(moment_length);
    const auto digits = [&id](std::size_t start, std::size_t count) { return std::stoi(id.substr(start, count)); };
    const year_month_day date(year(digits(0, 4)), month(static_cast<unsigned>(digits(4, 2))),
                              day(static_cast<unsigned>(digits(6, 2))));
    const Moment moment = sys_days(date) + hours(digits(9, 2)) + minutes(digits(11, 2)) + seconds(digits(13, 2));
    return id_of(moment + seconds(1), 1);
}

// Out of the way of undo, yet there for somebody who can still read it.
void set_aside(const fs::path& path)
{
    std::error_code ignored;
    fs::rename(path, fs::path(path).replace_extension(".damaged"), ignored);
}

bool can_be_taken_back(EntryState state) { return state == EntryState::Planned || state == EntryState::Renamed; }

} // namespace

bool is_batch_id(std::string_view word) noexcept
{
    const auto fits = [](char character, char place) {
        return place == '0' ? character >= '0' && character <= '9' : character == place;
    };
    return std::ranges::equal(word, form, fits);
}

std::string utc_text(Moment moment) { return formatted("%04d-%02d-%02dT%02d:%02d:%02dZ", moment); }

std::string local_text(Moment moment)
{
    constexpr std::int64_t seconds_1601_to_1970 = 11'644'473'600;
    constexpr std::int64_t units_per_second = 10'000'000;
    const std::int64_t since_1601 = moment.time_since_epoch().count() + seconds_1601_to_1970;
    const auto time = local_time(static_cast<FileTime>(since_1601 * units_per_second));
    return time ? to_bytes(format_time(*time, "%Y-%m-%d %H:%M")) : utc_text(moment);
}

Batch::Batch(std::string id, fs::path path, Journal journal, DurableFile file) :
    id_(std::move(id)), path_(std::move(path)), journal_(std::move(journal)), file_(std::move(file))
{
    file_.ease_overwrites(journal_.end_of_states());
}

void Batch::mark(std::size_t entry, EntryState state)
{
    journal_.states[entry] = state;
    file_.overwrite(journal_.state_offset(entry), static_cast<char>(state));
}

void Batch::close()
{
    if (!file_.is_open())
        return;
    file_.sync();
    file_ = DurableFile();
    if (std::ranges::any_of(journal_.states, can_be_taken_back))
        return;
    std::error_code ignored;
    if (unknown() == 0)
        fs::remove(path_, ignored);
    else
        set_aside(path_);
}

std::error_code Batches::begin(const MoveList& moves, Moment now, Batch& batch)
{
    if (folder_.empty())
        return std::make_error_code(std::errc::no_such_file_or_directory);
    if (const std::error_code error = make_private_folder(folder_))
        return error;
    forget_before(now - keeping_time);
    const std::vector<std::string> known = ids();
    std::string id = id_of(now, 1);
    if (!known.empty() && known.front() >= id)
        id = id_after(known.front());
    const std::int64_t created = now.time_since_epoch().count();
    const auto content = [&](const DurableFile::Sink& sink) { return write_journal(moves, created, sink); };
    DurableFile file;
    std::error_code error;
    while (is_batch_id(id) && (error = DurableFile::create(journal_path(id), content, file)) == std::errc::file_exists)
        id = id_after(id);
    if (!is_batch_id(id)) // after the last second of the year 9999, where undo would not find it
        return std::make_error_code(std::errc::value_too_large);
    if (error)
        return error;
    batch = Batch(id, journal_path(id), Journal::begun(moves.size(), created), std::move(file));
    return {};
}

std::vector<std::string> Batches::ids() const
{
    std::vector<std::string> found;
    for (const std::string& name : file_names()) {
        if (std::string_view(name).substr(form.size()) == ending)
            found.push_back(name.substr(0, form.size()));
    }
    std::ranges::sort(found, std::greater());
    return found;
}

fs::path Batches::journal_path(const std::string& id) const { return folder_ / (id + std::string(ending)); }

std::vector<std::string> Batches::file_names() const
{
    std::vector<std::string> names;
    std::error_code error;
    for (auto entry = fs::directory_iterator(folder_, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        std::string name = native_bytes(entry->path().filename());
        if (is_batch_id(std::string_view(name).substr(0, form.size())))
            names.push_back(std::move(name));
    }
    return names;
}

std::error_code Batches::open(const std::string& id, Batch& batch) const
{
    if (!is_batch_id(id))
        return std::make_error_code(std::errc::no_such_file_or_directory);
    const fs::path path = journal_path(id);
    std::string content;
    DurableFile file;
    if (const std::error_code error = DurableFile::open(path, file, content))
        return error;
    std::optional<Journal> journal = Journal::read(std::move(content));
    if (!journal) {
        file = DurableFile();
        set_aside(path);
        return std::make_error_code(std::errc::bad_message);
    }
    batch = Batch(id, path, std::move(*journal), std::move(file));
    return {};
}

std::vector<BatchSummary> Batches::summaries() const
{
    std::vector<BatchSummary> all;
    for (const std::string& id : ids()) {
        std::string content;
        if (DurableFile::read(journal_path(id), content))
            continue;
        const std::optional<Journal> journal = Journal::read(std::move(content));
        if (!journal)
            continue;
        const auto names = std::ranges::count_if(journal->states, can_be_taken_back);
        if (names == 0)
            continue;
        JournalEntry first;
        journal->get(0, first);
        all.push_back({id, Moment(seconds(journal->created)), static_cast<std::size_t>(names), first.folder});
    }
    return all;
}

void Batches::forget_before(Moment moment) const
{
    const std::string first_to_keep = id_of(moment, 0);
    for (const std::string& name : file_names()) {
        std::error_code ignored;
        if (name.substr(0, form.size()) < first_to_keep)
            fs::remove(folder_ / name, ignored);
    }
}

} // namespace multirename
