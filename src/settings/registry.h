#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/user_values.h"

namespace multirename {

/// The per-user numbers of one product, in the key "SOFTWARE\Velloria Labs\" + product name. Nothing is cached.
/// A value name of the form "Sub\Name" stands for the value "Name" in the key's subkey "Sub".
class Registry {
public:
    /// The store must outlive the object. Throws std::invalid_argument when the product name is empty.
    Registry(UserValues& store, std::u16string_view product_name);

    /// Sets `value` to what is stored. When nothing is, or it is of another type, gives false and leaves `value` alone.
    bool read(std::u16string_view value_name, std::uint32_t& value) const;

    /// Stores the value; false when the store refuses.
    bool write(std::u16string_view value_name, std::uint32_t value);

private:
    UserValues& store_;
    std::u16string product_name_;
};

} // namespace multirename
