// Names are put in order through their keys four units at a time, as numbers. Most bits of those are the same in all
// names: what all of them begin with, and the upper halves of the units. The bits that differ are packed, in their
// order, into one number for each name, which sorts as the names do as far as it reaches; names whose numbers are equal
// are sorted among themselves by what comes behind.

#include "fileset/filename_set.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <span>
#include <tuple>
#include <utility>

#include "platform/name_key.h"

namespace multirename {

namespace {

constexpr std::size_t names_ahead = 8;
constexpr std::size_t names_at_once = 16;
constexpr std::size_t units_per_word = 4;
constexpr unsigned bits_per_word = 64;

struct SortItem {
    std::uint64_t packed = 0; // bits of the key
    std::uint32_t row = 0;
};

// A row of bits of one word of the keys, which is moved as a whole.
struct BitRun {
    std::size_t start = 0; // of the word, in units
    unsigned shift = 0;
    std::uint64_t mask = 0; // after the shift
    unsigned length = 0;
};

// Which bits of a stretch's keys differ, from some unit on, as many as one number holds.
struct DifferingBits {
    std::vector<BitRun> runs;
    unsigned count = 0;
    std::size_t end = 0; // the unit behind the last word that was looked at

    // Takes the bits of one word from the highest on; false when not all of them had room.
    bool add(std::size_t start, std::uint64_t differing)
    {
        while (differing != 0) {
            const unsigned last = bits_per_word - 1 - static_cast<unsigned>(std::countl_zero(differing));
            const auto room = bits_per_word - count;
            if (room == 0)
                return false;
            const std::uint64_t ones_below = ~(differing << (bits_per_word - 1 - last));
            const unsigned length = std::min({static_cast<unsigned>(std::countl_zero(ones_below)), last + 1, room});
            const unsigned shift = last + 1 - length;
            const std::uint64_t mask = ~std::uint64_t{0} >> (bits_per_word - length);
            runs.push_back({start, shift, mask, length});
            count += length;
            differing &= ~(mask << shift);
        }
        end = start + units_per_word;
        return true;
    }
};

int compare_names(std::u16string_view a, std::u16string_view b, bool tells_case_apart)
{
    const int order = compare_keys(a, b);
    return order == 0 && tells_case_apart ? a.compare(b) : order;
}

template <class Rows>
class KeySorter {
public:
    KeySorter(const Rows& rows, bool tells_case_apart) : rows_(rows), tells_case_apart_(tells_case_apart) { }

    [[nodiscard]] bool is_sorted() const
    {
        for (std::size_t i = 1; i < rows_.size(); ++i) {
            if (compare_names(rows_[i - 1].name, rows_[i].name, tells_case_apart_) > 0)
                return false;
        }
        return true;
    }

    // The numbers of the names in their order; equal ones stay in theirs.
    LargeVector<SortItem> sorted()
    {
        LargeVector<SortItem> items(rows_.size());
        for (std::size_t i = 0; i < items.size(); ++i)
            items[i].row = static_cast<std::uint32_t>(i);
        spare_.resize(items.size());
        sort(items, 0);
        spare_ = {};
        return items;
    }

private:
    static constexpr std::size_t few = 16;
    static constexpr std::size_t worth_counting = 1024;

    [[nodiscard]] bool sorts_before(const SortItem& a, const SortItem& b) const
    {
        const int order = compare_names(name_of(a), name_of(b), tells_case_apart_);
        return order < 0 || (order == 0 && a.row < b.row);
    }

    // Of a stretch whose names share the first `start` units of their keys.
    void sort(std::span<SortItem> items, std::size_t start)
    {
        const DifferingBits bits = items.size() <= few ? DifferingBits() : differing_bits(items, start);
        if (bits.count == 0) {
            std::sort(items.begin(), items.end(), [this](const auto& a, const auto& b) { return sorts_before(a, b); });
            return;
        }
        for (SortItem& item : items)
            item.packed = packed(name_of(item), bits);
        sort_packed(items, bits.count);
        for (auto first = items.begin(); first != items.end();) {
            const auto differs = [&first](const SortItem& item) { return item.packed != first->packed; };
            const auto last = std::find_if(first, items.end(), differs);
            if (last - first > 1)
                sort({first, last}, bits.end);
            first = last;
        }
    }

    [[nodiscard]] DifferingBits differing_bits(std::span<const SortItem> items, std::size_t start) const
    {
        constexpr std::size_t words_at_once = 8;
        const std::u16string_view first = name_of(items.front());
        std::size_t longest = 0;
        for (const SortItem& item : items)
            longest = std::max(longest, name_of(item).size());
        DifferingBits bits;
        for (bits.end = start; bits.end < longest && bits.count < bits_per_word;) {
            std::array<std::uint64_t, words_at_once> differing{};
            const std::size_t from = bits.end;
            for (const SortItem& item : items) {
                for (std::size_t word = 0; word < words_at_once; ++word) {
                    const std::size_t unit = from + word * units_per_word;
                    differing[word] |= key_word(first, unit) ^ key_word(name_of(item), unit);
                }
            }
            for (std::size_t word = 0; word < words_at_once; ++word) {
                if (!bits.add(from + word * units_per_word, differing[word]))
                    return bits;
            }
        }
        return bits;
    }

    static std::uint64_t packed(std::u16string_view name, const DifferingBits& bits)
    {
        std::uint64_t number = 0;
        std::uint64_t word = 0;
        std::size_t start = std::u16string_view::npos;
        for (const BitRun& run : bits.runs) {
            if (run.start != start) {
                start = run.start;
                word = key_word(name, start);
            }
            number = number << (run.length - 1) << 1 | (word >> run.shift & run.mask);
        }
        return number;
    }

    void sort_packed(std::span<SortItem> items, unsigned bits)
    {
        if (items.size() >= worth_counting) {
            sort_by_counting(items, bits);
            return;
        }
        std::sort(items.begin(), items.end(), [](const SortItem& a, const SortItem& b) {
            return std::tie(a.packed, a.row) < std::tie(b.packed, b.row);
        });
    }

    // Some bits after the other, from the lowest; equal items stay in their order.
    void sort_by_counting(std::span<SortItem> items, unsigned bits)
    {
        constexpr unsigned bits_at_once = 11;
        constexpr std::uint64_t mask = (1U << bits_at_once) - 1;
        std::span<SortItem> from = items;
        std::span<SortItem> to = std::span(spare_).first(items.size());
        for (unsigned shift = 0; shift < bits; shift += bits_at_once) {
            std::array<std::uint32_t, mask + 2> places{};
            for (const SortItem& item : from)
                ++places[(item.packed >> shift & mask) + 1];
            std::partial_sum(places.begin(), places.end(), places.begin());
            for (const SortItem& item : from)
                to[places[item.packed >> shift & mask]++] = item;
            std::swap(from, to);
        }
        if (from.data() != items.data())
            std::copy(from.begin(), from.end(), items.begin());
    }

    [[nodiscard]] std::u16string_view name_of(const SortItem& item) const { return rows_[item.row].name; }

    const Rows& rows_;
    bool tells_case_apart_;
    LargeVector<SortItem> spare_;
};

} // namespace

void FolderEntries::add(const DirectoryEntry& entry)
{
    if (entry.has_details)
        details_.push_back({entry.created, entry.last_write, entry.size, entry.read_only});
    const std::size_t details = entry.has_details ? details_.size() : 0;
    rows_.push_back({names_.add(entry.name), static_cast<std::uint32_t>(details), entry.is_folder, entry.is_hidden});
}

void FolderEntries::fill(Filename& entry, const Row& row) const
{
    entry.is_folder = row.is_folder;
    entry.is_hidden = row.is_hidden;
    if (row.details == 0)
        return;
    const Details& details = details_[row.details - 1];
    entry.has_details = true;
    entry.created = details.created;
    entry.other_time = details.last_write;
    entry.size = details.size;
    entry.read_only = details.read_only;
}

FilenameSet::FilenameSet(FolderEntries entries, bool tells_case_apart) : tells_case_apart_(tells_case_apart)
{
    const auto& rows = entries.rows_;
    entries_.reserve(rows.size());
    KeySorter sorter(rows, tells_case_apart);
    if (sorter.is_sorted()) {
        names_ = std::move(entries.names_);
        for (std::size_t i = 0; i < rows.size(); ++i)
            add(entries, rows[i], rows[i].name);
        return;
    }
    std::size_t units = 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        units += rows[i].name.size();
    names_ = TextStore(units);
    const LargeVector<SortItem> sorted = sorter.sorted();
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        if (i + 2 * names_ahead < sorted.size())
            __builtin_prefetch(&rows[sorted[i + 2 * names_ahead].row]);
        if (i + names_ahead < sorted.size())
            __builtin_prefetch(rows[sorted[i + names_ahead].row].name.data());
        const auto& row = rows[sorted[i].row];
        add(entries, row, names_.add(row.name));
    }
}

void FilenameSet::add(const FolderEntries& entries, const FolderEntries::Row& row, std::u16string_view name)
{
    if (!entries_.empty() && are_one_name(entries_.back().name, name))
        return;
    Filename& entry = entries_.emplace_back();
    entry.name = name;
    entries.fill(entry, row);
}

// Hashes are made some names ahead, so that the memory they lead to is there when it is needed.
const NameIndex& FilenameSet::index() const
{
    if (index_)
        return *index_;
    NameIndex& index = index_.emplace(entries_.size());
    const auto never = [](std::uint32_t) { return false; };
    std::array<std::uint64_t, names_at_once> hashes{};
    for (std::size_t first = 0; first < entries_.size(); first += hashes.size()) {
        const std::size_t count = std::min(hashes.size(), entries_.size() - first);
        for (std::size_t i = 0; i < count; ++i) {
            hashes[i] = identity_hash(entries_[first + i].name);
            index.prefetch(hashes[i]);
        }
        for (std::size_t i = 0; i < count; ++i)
            index.find_or_add(hashes[i], static_cast<std::uint32_t>(first + i), never);
    }
    return index;
}

int FilenameSet::compare(std::u16string_view a, std::u16string_view b) const noexcept
{
    return compare_names(a, b, tells_case_apart_);
}

std::uint64_t FilenameSet::identity_hash(std::u16string_view name) const noexcept
{
    return tells_case_apart_ ? name_hash(name) : key_hash(name);
}

bool FilenameSet::are_one_name(std::u16string_view a, std::u16string_view b) const noexcept
{
    return a == b || (!tells_case_apart_ && have_one_key(a, b));
}

Filename* FilenameSet::find(std::u16string_view name) const
{
    const auto is_same = [&](std::uint32_t place) { return are_one_name(entries_[place].name, name); };
    const std::uint32_t place = index().find(identity_hash(name), is_same);
    return place == NameIndex::none ? nullptr : &entries_[place];
}

void FilenameSet::find_each(const Filename* previous, std::span<const std::u16string_view> names,
                            std::span<Filename*> found) const
{
    Filename* next = begin() + (previous == nullptr ? 0 : previous - begin() + 1);
    for (std::size_t done = 0; done < names.size();) {
        if (next != end() && next->name == names[done]) {
            found[done++] = next++;
            continue;
        }
        const std::size_t count = std::min(names_at_once, names.size() - done);
        find_by_hash(names.subspan(done, count), found.subspan(done, count));
        done += count;
        next = found[done - 1] == nullptr ? end() : found[done - 1] + 1;
    }
}

// What a look-up needs is fetched for some names at once, step by step: a slot, a record, a name.
void FilenameSet::find_by_hash(std::span<const std::u16string_view> names, std::span<Filename*> found) const
{
    const NameIndex& places = index();
    const auto any = [](std::uint32_t) { return true; };
    std::array<std::uint64_t, names_at_once> hashes{};
    std::array<std::uint32_t, names_at_once> guesses{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        hashes[i] = identity_hash(names[i]);
        places.prefetch(hashes[i]);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        guesses[i] = places.find(hashes[i], any);
        if (guesses[i] != NameIndex::none)
            __builtin_prefetch(&entries_[guesses[i]]);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (guesses[i] != NameIndex::none)
            __builtin_prefetch(entries_[guesses[i]].name.data());
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto is_same = [&](std::uint32_t at) { return are_one_name(entries_[at].name, names[i]); };
        const std::uint32_t place = places.find(hashes[i], is_same);
        found[i] = place == NameIndex::none ? nullptr : &entries_[place];
    }
}

} // namespace multirename
