// Times what the engine does to lists of names, each operation beside plain work on the same names in the same run, and
// prints the ratios. `scripts/bench` runs it.
//
//     engine_bench [--quick] [--report=FILE] [options of Google Benchmark]
//     engine_bench --check                    each operation once on each family; only whether it does what it is to
//     engine_bench --memory=COUNT             one run in this process; prints how many bytes it needed at its peak

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "listing.h"
#include "memory.h"
#include "names.h"
#include "operations.h"
#include "report.h"

namespace multirename {

namespace {

constexpr int repetitions = 3;
constexpr double least_seconds = 0.02;

// One listing at a time: those of a million names are large.
Listing& listing_of(const NameFamily& family, std::size_t count)
{
    static const NameFamily* made = nullptr;
    static std::unique_ptr<Listing> listing;
    if (made != &family || listing->names().size() != count) {
        listing.reset();
        listing = std::make_unique<Listing>(family, count);
        made = &family;
    }
    return *listing;
}

struct Case {
    const NameFamily* family;
    const Operation* operation;
    std::size_t count;
    std::size_t units = 0;
};

std::map<std::string, Case>& cases()
{
    static std::map<std::string, Case> all;
    return all;
}

void time_case(Case& timed, benchmark::State& state)
{
    Listing& listing = listing_of(*timed.family, timed.count);
    timed.units = listing.units();
    for ([[maybe_unused]] const auto iteration : state) {
        const double seconds = timed.operation->run(listing);
        if (seconds == 0) {
            state.SkipWithError("does not apply to these names");
            break;
        }
        state.SetIterationTime(seconds);
    }
}

void register_case(const NameFamily& family, std::size_t count, const Operation& operation)
{
    const std::string name = std::string(operation.name) + "/" + std::string(family.name) + "/" + std::to_string(count);
    Case& registered = cases().insert({name, {&family, &operation, count}}).first->second;
    benchmark::RegisterBenchmark(name.c_str(), [&registered](benchmark::State& state) { time_case(registered, state); })
        ->UseManualTime()
        ->MinTime(least_seconds)
        ->Repetitions(repetitions)
        ->Unit(benchmark::kMillisecond);
}

void register_cases(bool is_quick)
{
    for (const NameFamily& family : name_families()) {
        for (const std::size_t count : {1'000U, 10'000U, 100'000U, 1'000'000U}) {
            if ((count == 1'000'000 && (is_quick || family.is_hostile)) || (count == 1'000 && is_quick))
                continue;
            for (const Operation& operation : operations())
                register_case(family, count, operation);
        }
    }
}

// Prints what Google Benchmark prints, and keeps the times.
class Keeper final : public benchmark::ConsoleReporter {
public:
    Keeper() : ConsoleReporter(OO_None) { }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                times_[run.run_name.function_name].push_back(run.real_accumulated_time / double(run.iterations));
        }
    }

    [[nodiscard]] Report report() const
    {
        Report report;
        for (const auto& [name, one] : cases()) {
            const auto times = times_.find(name);
            if (times == times_.end())
                continue;
            std::vector<double> sorted = times->second;
            std::ranges::sort(sorted);
            report.measurements.push_back({std::string(one.family->name), one.family->is_hostile, one.count, one.units,
                                           std::string(one.operation->name), sorted[sorted.size() / 2]});
        }
        std::ranges::stable_sort(report.measurements, {}, &Measurement::names);
        std::ranges::stable_sort(report.measurements, {}, &Measurement::family);
        std::ranges::stable_sort(report.measurements, {}, &Measurement::is_hostile);
        return report;
    }

private:
    std::map<std::string, std::vector<double>> times_;
};

int check()
{
    constexpr std::size_t count = 500;
    for (const NameFamily& family : name_families()) {
        Listing listing(family, count);
        for (const Operation& operation : operations())
            operation.run(listing);
    }
    static_cast<void>(peak_of_a_run(count)); // throws when the run does not do what it should
    return EXIT_SUCCESS;
}

// The highest mark of memory is a process's own, so each run is made in a new one.
MemoryUse memory_of(std::size_t count)
{
    const std::string command =
        "exec '" + std::filesystem::read_symlink("/proc/self/exe").string() + "' --memory=" + std::to_string(count);
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::array<char, 64> line{};
    if (output == nullptr || std::fgets(line.data(), line.size(), output.get()) == nullptr)
        throw std::runtime_error("The memory of a run could not be measured.");
    return {"40 characters", count, std::strtod(line.data(), nullptr) / double(count)};
}

} // namespace

} // namespace multirename

int main(int argc, char** argv)
{
    using namespace multirename;
    bool is_quick = false;
    std::string report_file;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--quick")
            is_quick = true;
        else if (argument.starts_with("--report="))
            report_file = argument.substr(argument.find('=') + 1);
        else if (argument == "--check")
            return check();
        else if (argument.starts_with("--memory="))
            return std::printf("%zu\n", peak_of_a_run(std::stoul(argv[i] + argument.find('=') + 1))) > 0 ? 0 : 1;
        else
            argv[kept++] = argv[i];
    }
    benchmark::Initialize(&kept, argv);
    if (benchmark::ReportUnrecognizedArguments(kept, argv))
        return EXIT_FAILURE;
    register_cases(is_quick);
    Keeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper);
    Report report = keeper.report();
    for (const std::size_t count : {100'000U, 1'000'000U})
        report.memory.push_back(memory_of(count));
    std::cout << "\n" << report.table();
    if (!report_file.empty() && !(std::ofstream(report_file) << report.json()))
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}
