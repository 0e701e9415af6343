#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace multirename {

/// Lets the processor load the characters of a name that will be read soon, the ones at `index` being read now. Names
/// lie all over the memory, and going through them otherwise means waiting for it at each name.
inline void load_ahead(std::span<const std::u16string_view> names, std::size_t index) noexcept
{
    constexpr std::size_t distance = 12;
    if (index + distance >= names.size())
        return;
    const std::u16string_view name = names[index + distance];
    __builtin_prefetch(name.data());
    __builtin_prefetch(name.data() + name.size());
}

/// The part of a name from `begin` to before `end`.
struct Slice {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    std::uint32_t common_units = 0; ///< how many of its characters are common, once that was counted
};

/// One text of each name, in the order of the names. Slices are smaller than views, and there is one for every name and
/// level of the search.
class SlicedNames {
public:
    /// `slices[i]` lies within `names[i]`; both must outlive this.
    SlicedNames(std::span<const std::u16string_view> names, std::span<const Slice> slices) :
        names_(names), slices_(slices)
    {
    }

    [[nodiscard]] std::size_t size() const noexcept { return slices_.size(); }
    /// Texts are mostly read one after the other.
    void load_ahead(std::size_t index) const noexcept { multirename::load_ahead(names_, index); }
    [[nodiscard]] std::u16string_view operator[](std::size_t index) const noexcept
    {
        const Slice slice = slices_[index];
        return {names_[index].data() + slice.begin, slice.end - slice.begin};
    }

private:
    std::span<const std::u16string_view> names_;
    std::span<const Slice> slices_;
};

} // namespace multirename
