#pragma once

#include <cstdint>

namespace multirename {

/// How many steps a plain algorithm may still take before it gives up: where a clever one ends at once it may go on for
/// ever.
class StepBudget {
public:
    explicit StepBudget(std::uint64_t most_steps) noexcept : left_(most_steps) { }

    /// False when there is no step left, and ever after.
    [[nodiscard]] bool step() noexcept
    {
        gave_up_ = gave_up_ || left_ == 0;
        left_ -= gave_up_ ? 0 : 1;
        return !gave_up_;
    }
    [[nodiscard]] bool gave_up() const noexcept { return gave_up_; }

private:
    std::uint64_t left_;
    bool gave_up_ = false;
};

} // namespace multirename
