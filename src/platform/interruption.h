#pragma once

namespace multirename {

/// While it lives, the user's wish to end the program (Ctrl-C, and what else asks a program politely to end) is kept
/// instead of being fulfilled at once. One at a time.
class Interruption {
public:
    Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    ~Interruption();

    [[nodiscard]] bool is_wanted() const noexcept;
};

} // namespace multirename
