#include "win32/launcher/left_out.h"

#include <algorithm>
#include <cassert>
#include <string_view>

#include "text/decimal.h"

namespace multirename {

namespace {

constexpr std::size_t most_named = 5;

std::u16string_view reason(WhyLeftOut why)
{
    switch (why) {
    case WhyLeftOut::TooLong: return u"the path is too long";
    case WhyLeftOut::NoName: return u"not a file or folder";
    case WhyLeftOut::NotFound: break;
    }
    return u"not found";
}

// A message box grows with its text, and its buttons have to stay on the screen.
std::u16string shortened(std::u16string_view path)
{
    constexpr std::size_t most = 200;
    constexpr std::size_t front = 60;
    if (path.size() <= most)
        return std::u16string(path);
    return std::u16string(path.substr(0, front)).append(u" ... ").append(path.substr(path.size() - (most - front)));
}

std::u16string number(std::size_t count) { return decimal_text(static_cast<std::int64_t>(count)); }

std::u16string named(std::span<const LeftOutPath> left_out)
{
    std::u16string lines;
    for (const LeftOutPath& each : left_out.first(std::min(left_out.size(), most_named)))
        lines.append(shortened(each.path)).append(u" (").append(reason(each.why)).append(u")\n");
    if (left_out.size() > most_named)
        lines.append(u"and ").append(number(left_out.size() - most_named)).append(u" more\n");
    return lines;
}

std::u16string opening(std::size_t left_out, std::size_t given)
{
    if (given == 1)
        return u"This path cannot be renamed:";
    if (left_out == given)
        return u"None of the " + number(given) + u" paths can be renamed:";
    return number(left_out) + u" of the " + number(given) + u" paths cannot be renamed:";
}

} // namespace

std::u16string left_out_message(std::span<const LeftOutPath> left_out, std::size_t given)
{
    assert(!left_out.empty() && left_out.size() <= given);
    std::u16string text = opening(left_out.size(), given) + u"\n\n" + named(left_out) + u"\n";
    const std::size_t others = given - left_out.size();
    if (others == 0)
        text += u"Check the spelling, and whether the drive is there.";
    else if (others == 1)
        text += u"Go on with the other one?";
    else
        text += u"Go on with the other " + number(others) + u"?";
    return text;
}

} // namespace multirename
