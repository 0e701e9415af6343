#pragma once

#include <string>
#include <variant>

namespace multirename {

/// Why the launcher cannot do what it was asked for, and what the user can do about it: whole sentences to be shown.
struct Problem {
    std::u16string text;
    bool operator==(const Problem&) const = default;
};

template <class Value>
using OrProblem = std::variant<Value, Problem>;

} // namespace multirename
