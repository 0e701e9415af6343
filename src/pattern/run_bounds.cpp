#include "pattern/run_bounds.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace multirename {

namespace {

constexpr std::uint8_t saturated = 255;

} // namespace

RunBounds::RunBounds(Classes reference) :
    reference_(std::move(reference)),
    bounds_(reference_.size()),
    run_(reference_.size() + 1),
    longest_(reference_.size())
{
    std::uint32_t length = 0;
    for (std::size_t place = reference_.size(); place-- > 0;) {
        length = reference_[place] == 0 ? 0 : length + 1;
        bounds_[place] = length;
    }
}

void RunBounds::lower(std::span<const std::uint8_t> text)
{
    std::fill(run_.begin(), run_.end(), std::uint8_t{0});
    std::fill(longest_.begin(), longest_.end(), std::uint8_t{0});
    for (std::size_t left = text.size(); left > 0; --left)
        extend_runs(text[left - 1]);
    for (std::size_t place = 0; place < bounds_.size(); ++place) {
        if (longest_[place] != saturated)
            lower(place, longest_[place]);
    }
}

// One step of the text towards its front: where its character stands in the reference, the run from there is longer by
// one than the run from the next place was. Plain steps over bytes, which the compiler takes many at a time.
void RunBounds::extend_runs(std::uint8_t unit) noexcept
{
    const std::uint8_t* const reference = reference_.data();
    std::uint8_t* const run = run_.data();
    std::uint8_t* const longest = longest_.data();
    const std::size_t size = reference_.size();
    for (std::size_t place = 0; place < size; ++place) {
        const auto longer = static_cast<std::uint8_t>(std::min<std::uint8_t>(run[place + 1], saturated - 1) + 1);
        const std::uint8_t length = reference[place] == unit ? longer : std::uint8_t{0};
        run[place] = length;
        longest[place] = std::max(longest[place], length);
    }
}

std::size_t RunBounds::highest() const noexcept
{
    return static_cast<std::size_t>(std::max_element(bounds_.begin(), bounds_.end()) - bounds_.begin());
}

// Steps of the golden section leave gaps of nearly equal size at any time.
SpreadOrder::SpreadOrder(std::size_t count) noexcept :
    count_(count), left_(count), step_(static_cast<std::size_t>(static_cast<double>(count) * 0.6180339887) + 1)
{
    while (std::gcd(step_, count_) > 1)
        ++step_;
}

std::size_t SpreadOrder::next() noexcept
{
    const std::size_t index = index_;
    index_ = (index_ + step_) % count_;
    --left_;
    return index;
}

} // namespace multirename
