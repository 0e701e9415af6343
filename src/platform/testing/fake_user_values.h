#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/user_values.h"

namespace multirename {

/// A store in memory, for tests. Like the real ones it makes a key with the first value that is written to it.
class FakeUserValues final : public UserValues {
public:
    std::map<std::pair<std::u16string, std::u16string>, std::uint32_t> values;
    bool refuses = false; ///< nothing can be read or written
    int writes = 0; ///< how often a write was asked for

    std::optional<std::uint32_t> read(std::u16string_view key, std::u16string_view value) override
    {
        const auto found = values.find({std::u16string(key), std::u16string(value)});
        if (refuses || found == values.end())
            return std::nullopt;
        return found->second;
    }

    bool write(std::u16string_view key, std::u16string_view value, std::uint32_t number) override
    {
        ++writes;
        if (!refuses)
            values[{std::u16string(key), std::u16string(value)}] = number;
        return !refuses;
    }
};

} // namespace multirename
