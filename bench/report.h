#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// What one operation took on one listing.
struct Measurement {
    std::string family;
    bool is_hostile = false;
    std::size_t names = 0;
    std::size_t units = 0; ///< of all names together
    std::string operation;
    double seconds = 0; ///< the median of the repetitions
};

/// What one family's run needed at its peak, for each entry.
struct MemoryUse {
    std::string family;
    std::size_t names = 0;
    double bytes_per_entry = 0;
};

/// The measurements of one run of the benchmarks, and what is to be said of them.
class Report {
public:
    std::vector<Measurement> measurements;
    std::vector<MemoryUse> memory;

    /// One table of ratios with the goal beside each; ends with how many goals were missed.
    [[nodiscard]] std::string table() const;

    /// Everything that was measured, and the table's rows.
    [[nodiscard]] std::string json() const;

private:
    struct Row {
        std::string family;
        std::size_t names = 0;
        std::string what; ///< as "analysis / sort"
        double ratio = 0;
        std::optional<double> goal; ///< at most
    };

    [[nodiscard]] std::vector<Row> rows() const;
    [[nodiscard]] std::optional<double> seconds(const std::string& family, std::size_t names,
                                                std::string_view operation) const;
    void add_ratios(std::vector<Row>& rows) const;
    void add_growth(std::vector<Row>& rows) const;
    void add_hostile(std::vector<Row>& rows) const;
};

} // namespace multirename
