#include "settings/registry.h"

#include <stdexcept>

namespace multirename {

namespace {

constexpr std::u16string_view company_key = u"SOFTWARE\\Velloria Labs\\";

struct Place {
    std::u16string key;
    std::u16string_view value;
};

Place place_of(std::u16string_view product_name, std::u16string_view value_name)
{
    Place place{std::u16string(company_key).append(product_name), value_name};
    const std::size_t backslash = value_name.find(u'\\');
    if (backslash == std::u16string_view::npos)
        return place;
    if (backslash > 0)
        place.key.append(u"\\").append(value_name.substr(0, backslash));
    place.value.remove_prefix(backslash + 1);
    return place;
}

} // namespace

Registry::Registry(UserValues& store, std::u16string_view product_name) : store_(store), product_name_(product_name)
{
    if (product_name_.empty())
        throw std::invalid_argument("Registry::Registry(): Product name cannot be empty");
}

bool Registry::read(std::u16string_view value_name, std::uint32_t& value) const
{
    const Place place = place_of(product_name_, value_name);
    const auto stored = store_.read(place.key, place.value);
    if (!stored)
        return false;
    value = *stored;
    return true;
}

bool Registry::write(std::u16string_view value_name, std::uint32_t value)
{
    const Place place = place_of(product_name_, value_name);
    return store_.write(place.key, place.value, value);
}

} // namespace multirename
