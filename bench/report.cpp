#include "report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace multirename {

namespace {

constexpr std::size_t judged_size = 100'000;
constexpr double bytes_goal = 400;
constexpr double growth_goal = 1.5;
constexpr double hostile_goal = 20;

// What an operation is compared with: the sum of these.
struct Comparison {
    std::string_view operation;
    std::vector<std::string_view> baselines;
    std::optional<double> goal;
};

const std::vector<Comparison>& comparisons()
{
    static const std::vector<Comparison> all = {
        {"file set", {"sort"}, 2.0},
        {"analysis", {"sort"}, 1.0},
        {"opening", {"sort"}, std::nullopt},
        {"keystroke", {"copy", "hash"}, 1.5},
        {"keystroke with chains", {"copy", "hash"}, 1.5},
        {"mode change", {"copy", "hash"}, std::nullopt},
        {"plan", {"copy", "hash"}, std::nullopt},
    };
    return all;
}

// The others are what it is compared with.
bool is_of_product(const Measurement& measurement)
{
    return std::ranges::any_of(comparisons(), [&measurement](const Comparison& comparison) {
        return comparison.operation == measurement.operation;
    });
}

std::string named(const Comparison& comparison)
{
    std::string text = std::string(comparison.operation) + " / ";
    if (comparison.baselines.size() == 1)
        return text.append(comparison.baselines.front());
    text += "(";
    for (const std::string_view baseline : comparison.baselines)
        text.append(baseline == comparison.baselines.front() ? "" : " + ").append(baseline);
    return text + ")";
}

template <class... Values>
std::string formatted(const char* format, Values... values)
{
    std::array<char, 200> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

} // namespace

std::optional<double> Report::seconds(const std::string& family, std::size_t names, std::string_view operation) const
{
    for (const Measurement& one : measurements) {
        if (one.family == family && one.names == names && one.operation == operation && one.seconds > 0)
            return one.seconds;
    }
    return std::nullopt;
}

void Report::add_ratios(std::vector<Row>& rows) const
{
    for (const Measurement& one : measurements) {
        for (const Comparison& comparison : comparisons()) {
            if (comparison.operation != one.operation || one.seconds == 0)
                continue;
            double baseline = 0;
            for (const std::string_view part : comparison.baselines)
                baseline += seconds(one.family, one.names, part).value_or(0);
            if (baseline == 0)
                continue;
            const bool is_judged = one.names == judged_size && !one.is_hostile;
            rows.push_back({one.family, one.names, named(comparison), one.seconds / baseline,
                            is_judged ? comparison.goal : std::nullopt});
        }
    }
}

void Report::add_growth(std::vector<Row>& rows) const
{
    constexpr std::size_t few = 10'000;
    constexpr std::size_t many = 1'000'000;
    for (const Measurement& one : measurements) {
        const auto at_few = seconds(one.family, few, one.operation);
        if (one.names != many || !at_few || one.seconds == 0)
            continue;
        rows.push_back({one.family, many, one.operation + ", per name / at 10,000",
                        one.seconds / double(many) / (*at_few / double(few)),
                        is_of_product(one) ? std::optional(growth_goal) : std::nullopt});
    }
}

// What a code unit of a hostile name costs, as times what one of a realistic name does on average.
void Report::add_hostile(std::vector<Row>& rows) const
{
    for (const Measurement& one : measurements) {
        if (!one.is_hostile || !is_of_product(one) || one.seconds == 0)
            continue;
        double realistic = 0;
        std::size_t families = 0;
        for (const Measurement& other : measurements) {
            if (other.is_hostile || other.operation != one.operation || other.names != one.names || other.seconds == 0)
                continue;
            realistic += other.seconds / double(other.units);
            ++families;
        }
        if (families > 0)
            rows.push_back({one.family, one.names, one.operation + ", per unit / realistic",
                            one.seconds / double(one.units) / (realistic / double(families)), hostile_goal});
    }
}

std::vector<Report::Row> Report::rows() const
{
    std::vector<Row> all;
    add_ratios(all);
    add_growth(all);
    add_hostile(all);
    for (const MemoryUse& use : memory)
        all.push_back({use.family, use.names, "peak memory, bytes per entry", use.bytes_per_entry, bytes_goal});
    return all;
}

std::string Report::table() const
{
    std::string text = formatted("%-26s %9s  %-42s %9s %7s\n", "names", "count", "measured", "ratio", "goal");
    std::size_t goals = 0;
    std::size_t missed = 0;
    for (const Row& row : rows()) {
        text += formatted("%-26s %9zu  %-42s %9.2f ", row.family.c_str(), row.names, row.what.c_str(), row.ratio);
        if (row.goal) {
            const bool is_met = row.ratio <= *row.goal;
            ++goals;
            missed += is_met ? 0U : 1U;
            text += formatted("%7.1f%s", *row.goal, is_met ? "" : "  MISSED");
        }
        text += "\n";
    }
    return text + formatted("%zu of %zu goals met\n", goals - missed, goals);
}

std::string Report::json() const
{
    nlohmann::ordered_json document;
    for (const Measurement& one : measurements) {
        document["measurements"].push_back({{"family", one.family},
                                            {"hostile", one.is_hostile},
                                            {"names", one.names},
                                            {"units", one.units},
                                            {"operation", one.operation},
                                            {"seconds", one.seconds},
                                            {"nanoseconds_per_name", one.seconds * 1e9 / double(one.names)}});
    }
    for (const Row& row : rows()) {
        nlohmann::ordered_json entry{
            {"family", row.family}, {"names", row.names}, {"what", row.what}, {"ratio", row.ratio}};
        if (row.goal)
            entry.update({{"goal", *row.goal}, {"met", row.ratio <= *row.goal}});
        document["rows"].push_back(entry);
    }
    return document.dump(1) + "\n";
}

} // namespace multirename
