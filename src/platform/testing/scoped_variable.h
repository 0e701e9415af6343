#pragma once

#include <optional>
#include <string>

namespace multirename {

/// Sets a variable of the environment, or takes it away, and puts it back at the end.
class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::optional<std::string>& value);
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable();

private:
    std::string name_;
    std::optional<std::string> before_;
};

} // namespace multirename
