#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace multirename {

/// For each place of a reference text, how long a run from there can be at most that all texts hold. Texts are given as
/// classes of their characters: equal characters are of one class, and different ones may be.
class RunBounds {
public:
    using Classes = std::vector<std::uint8_t>;

    /// A run ends before a place of class 0.
    explicit RunBounds(Classes reference);

    /// Takes a text into account, in time for each pair of a place and a character of the text, many pairs at a time.
    void lower(std::span<const std::uint8_t> text);
    /// The run from `place` is not longer than `length`.
    void lower(std::size_t place, std::uint32_t length) { bounds_[place] = std::min(bounds_[place], length); }

    [[nodiscard]] std::size_t size() const noexcept { return bounds_.size(); }
    [[nodiscard]] std::uint32_t operator[](std::size_t place) const noexcept { return bounds_[place]; }
    /// The first place with the highest bound; there is one.
    [[nodiscard]] std::size_t highest() const noexcept;

private:
    void extend_runs(std::uint8_t unit) noexcept;

    Classes reference_;
    std::vector<std::uint32_t> bounds_;
    // Both saturate, and a saturated length bounds nothing.
    std::vector<std::uint8_t> run_; // for each place, how much of it stands where the text is being read
    std::vector<std::uint8_t> longest_;
};

/// The indices below `count`, once each, in an order whose beginnings are spread evenly.
class SpreadOrder {
public:
    explicit SpreadOrder(std::size_t count) noexcept;

    [[nodiscard]] bool is_done() const noexcept { return left_ == 0; }
    /// Not to be called when it is done.
    [[nodiscard]] std::size_t next() noexcept;

private:
    std::size_t count_;
    std::size_t left_;
    std::size_t step_;
    std::size_t index_ = 0;
};

/// Decides which texts lower bounds. A few do so at once; more of them do as texts are found to have been read in vain,
/// so that the one costs about as much as the other.
class BoundingBudget {
public:
    BoundingBudget(std::size_t texts, std::size_t places) noexcept :
        order_(texts), cost_(1 + places / places_for_the_time_of_a_reading)
    {
    }

    /// Calls `lower(text)`, which tells whether it lowered the highest bound, for a few texts, fewer when it does not.
    template <class Lower>
    void begin(Lower lower)
    {
        for (std::size_t in_vain = 0; in_vain < most_in_vain && !order_.is_done() && begun_ < first_texts; ++begun_)
            in_vain = lower(order_.next()) ? 0 : in_vain + 1;
    }

    /// Calls `lower(text)` for as many texts as the ones read are worth.
    template <class Lower>
    void spend(std::size_t texts_read, Lower lower)
    {
        for (saved_ += texts_read; saved_ >= cost_ && !order_.is_done(); saved_ -= cost_)
            lower(order_.next());
    }

private:
    static constexpr std::size_t first_texts = 32;
    static constexpr std::size_t most_in_vain = 8;
    static constexpr std::size_t places_for_the_time_of_a_reading = 8;

    SpreadOrder order_;
    std::size_t cost_; // in readings
    std::size_t saved_ = 0;
    std::size_t begun_ = 0;
};

} // namespace multirename
