#include "names.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <utility>

#include "platform/name_key.h"
#include "text/decimal.h"

namespace multirename {

namespace {

using Names = std::vector<std::u16string>;

std::u16string number(std::size_t value, std::size_t width)
{
    std::u16string digits = decimal_text(static_cast<std::int64_t>(value));
    return digits.size() < width ? std::u16string(width - digits.size(), u'0') + digits : digits;
}

class Random {
public:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }

    template <class Choices>
    auto one_of(const Choices& choices)
    {
        return choices[below(std::size(choices))];
    }

    std::u16string text(std::u16string_view alphabet, std::size_t length)
    {
        std::u16string made;
        while (made.size() < length)
            made.push_back(one_of(alphabet));
        return made;
    }

    void shuffle(Names& names) { std::shuffle(names.begin(), names.end(), engine_); }

private:
    std::mt19937_64 engine_{20'240'305};
};

Names shuffled(Names names)
{
    Random().shuffle(names);
    return names;
}

// Names made one by one until there are enough different ones.
template <class Make>
Names different(std::size_t count, Make make)
{
    Random random;
    Names names;
    std::set<std::u16string> keys;
    while (names.size() < count) {
        std::u16string name = make(random);
        if (keys.insert(name_key(name)).second)
            names.push_back(std::move(name));
    }
    return names;
}

Names camera(std::size_t count)
{
    Names names;
    for (std::size_t shot = 1; names.size() < count; ++shot) {
        if (shot % 7 != 0) // what was deleted at once
            names.push_back(u"IMG_" + number(shot, 7) + u".jpg"); // in order, however many
    }
    return names;
}

Names camera_by_time(std::size_t count)
{
    constexpr std::size_t days_of_month = 28;
    constexpr std::size_t days_of_year = 12 * days_of_month;
    Names names;
    for (std::size_t second = 0; names.size() < count; second += 37) {
        const std::size_t day = second / 86'400;
        const std::size_t of_day = second % 86'400;
        names.push_back(u"PXL_" + number(2020 + day / days_of_year, 4) +
                        number(day % days_of_year / days_of_month + 1, 2) + number(day % days_of_month + 1, 2) + u"_" +
                        number(of_day / 3'600, 2) + number(of_day / 60 % 60, 2) + number(of_day % 60, 2) +
                        number(second / 37 % 1'000, 3) + (second % 5 == 0 ? u".PORTRAIT.jpg" : u".jpg"));
    }
    return names;
}

constexpr std::array<std::u16string_view, 24> words{u"The",   u"Return", u"of",    u"Summer",   u"Last",   u"Night",
                                                    u"in",    u"Berlin", u"and",   u"a",        u"Second", u"Chance",
                                                    u"Lost",  u"Letter", u"River", u"Mountain", u"Winter", u"Garden",
                                                    u"Under", u"Stars",  u"Long",  u"Road",     u"Home",   u"Silence"};

Names episodes(std::size_t count)
{
    Random random;
    Names names;
    for (std::size_t episode = 0; names.size() < count; ++episode) {
        std::u16string name = u"Harbour Lights S" + number(episode / 24 + 1, count > 2'376 ? 5 : 2) + u"E" +
            number(episode % 24 + 1, 2) + u" -";
        for (std::size_t left = 2 + random.below(3); left > 0; --left)
            name.append(u" ").append(random.one_of(words));
        names.push_back(name + u" 1080p.mkv");
    }
    return names;
}

Names scans(std::size_t count)
{
    Names names;
    for (std::size_t scan = 1; names.size() < count; ++scan) {
        names.push_back(u"Scan " + decimal_text(static_cast<std::int64_t>(scan)) + u".pdf");
        for (std::size_t copy = 1; copy <= scan % 3 && names.size() < count; ++copy)
            names.push_back(u"Scan " + decimal_text(static_cast<std::int64_t>(scan)) + u" (" + number(copy, 1) +
                            u").pdf");
    }
    return names;
}

Names mixed_unicode(std::size_t count)
{
    static constexpr std::array<std::u16string_view, 8> places{u"M\u00FCnchen",
                                                               u"\u041C\u043E\u0441\u043A\u0432\u0430",
                                                               u"\u6771\u4EAC",
                                                               u"S\u00E3o Paulo",
                                                               u"\u0391\u03B8\u03AE\u03BD\u03B1",
                                                               u"\u05D9\u05E8\u05D5\u05E9\u05DC\u05D9\u05DD",
                                                               u"Reykjav\u00EDk",
                                                               u"\xD83D\xDDFC Paris"};
    Random random;
    Names names;
    for (std::size_t i = 1; names.size() < count; ++i)
        names.push_back(u"Reise " + std::u16string(random.one_of(places)) + u" \u2013 Foto " + number(i, 5) + u".jpeg");
    return names;
}

Names tiny_alphabet(std::size_t count)
{
    return different(count, [](Random& random) { return random.text(u"ab", 200 + random.below(55)); });
}

Names tiny_alphabet_with_digits(std::size_t count)
{
    return different(count, [](Random& random) { return random.text(u"01a", 200 + random.below(55)); });
}

Names long_runs(std::size_t count)
{
    return different(count, [](Random& random) {
        std::u16string name;
        while (name.size() < 190)
            name.append(1 + random.below(60), random.one_of(std::u16string_view(u"ab1")));
        return name;
    });
}

Names long_names(std::size_t count)
{
    return different(
        count, [](Random& random) { return random.text(u"abcdefghijklmnopqrstuvwxyz -_0123456789", 251) + u".txt"; });
}

Names many_numbers(std::size_t count)
{
    return different(count, [](Random& random) {
        std::u16string name = u"v";
        for (int run = 0; run < 24; ++run)
            name += number(random.below(1'000), 1 + random.below(3)) + u"-";
        return name + u".log";
    });
}

constexpr NameFamily families[] = {
    {"camera", false, camera},
    {"camera, shuffled", false, [](std::size_t count) { return shuffled(camera(count)); }},
    {"camera by time", false, camera_by_time},
    {"episodes", false, episodes},
    {"episodes, shuffled", false, [](std::size_t count) { return shuffled(episodes(count)); }},
    {"scans, shuffled", false, [](std::size_t count) { return shuffled(scans(count)); }},
    {"mixed unicode, shuffled", false, [](std::size_t count) { return shuffled(mixed_unicode(count)); }},
    {"tiny alphabet", true, tiny_alphabet},
    {"tiny alphabet with digits", true, tiny_alphabet_with_digits},
    {"long runs", true, long_runs},
    {"255 characters", true, long_names},
    {"many numbers", true, many_numbers},
};

} // namespace

std::span<const NameFamily> name_families() { return families; }

} // namespace multirename
