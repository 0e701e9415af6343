#pragma once

#include <cstdint>
#include <string_view>

#include "pattern/name_part.h"
#include "settings/registry.h"

namespace multirename {

/// The choices of the Change Number dialog that are remembered from one run to the next. Each is read when the object
/// is made and written by itself when it changes.
class ChangeNumberDlgSettings : public Registry {
public:
    /// Loads what is stored: by default mode Unchanged, start 1 and 4 digits. Throws std::invalid_argument when the
    /// product name is empty.
    ChangeNumberDlgSettings(UserValues& store, std::u16string_view product_name);

    LeadingZerosMode mode = LeadingZerosMode::Unchanged;
    std::int64_t start = 1;
    std::int32_t digits = 4;

    /// Remember a value here and in the store. A start that does not fit 32 bits with a sign is remembered only here;
    /// a negative one comes back as the unsigned number with the same bits. A store that refuses is passed over.
    void remember_mode(LeadingZerosMode new_mode);
    void remember_start(std::int64_t new_start);
    void remember_digits(std::int32_t new_digits);
};

} // namespace multirename
