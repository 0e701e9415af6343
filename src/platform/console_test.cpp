#include "platform/console.h"

#include <gtest/gtest.h>

#include "platform/testing/scoped_variable.h"

namespace multirename {
namespace {

struct WidthRow {
    const char* sentence;
    char32_t character;
    std::optional<std::size_t> columns;
};
class ColumnsOf : public testing::TestWithParam<WidthRow> { };

TEST_P(ColumnsOf, Holds) { EXPECT_EQ(columns_of(GetParam().character), GetParam().columns); }

INSTANTIATE_TEST_SUITE_P(
    All, ColumnsOf,
    testing::Values(
        WidthRow{"ALetterTakesOne", U'a', 1}, WidthRow{"ALetterWithItsAccentTakesOne", U'\u00E9', 1},
        WidthRow{"ASpaceTakesOne", U' ', 1}, WidthRow{"ASoftHyphenTakesOne", U'\u00AD', 1},
        WidthRow{"AnAccentAloneTakesNone", U'\u0301', 0}, WidthRow{"AVowelSignAboveTakesNone", U'\u0E31', 0},
        WidthRow{"AJoinerTakesNone", U'\u200D', 0}, WidthRow{"AnIdeographTakesTwo", U'\u5199', 2},
        WidthRow{"AKanaTakesTwo", U'\u3042', 2}, WidthRow{"AKanaOfHalfWidthTakesOne", U'\uFF71', 1},
        WidthRow{"ALetterOfFullWidthTakesTwo", U'\uFF21', 2}, WidthRow{"ASyllableOfKoreanTakesTwo", U'\uAC00', 2},
        WidthRow{"APictureTakesTwo", U'\U0001F4F7', 2}, WidthRow{"ARareIdeographTakesTwo", U'\U00020000', 2},
        WidthRow{"ARareLetterTakesOne", U'\U00010400', 1}, WidthRow{"ALineEndIsNotPrinted", U'\n', std::nullopt},
        WidthRow{"ATabIsNotPrinted", U'\t', std::nullopt}, WidthRow{"AnEscapeIsNotPrinted", U'\x1B', std::nullopt},
        WidthRow{"ADeleteIsNotPrinted", U'\x7F', std::nullopt},
        WidthRow{"ALineSeparatorIsNotPrinted", U'\u2028', std::nullopt},
        WidthRow{"HalfAPairIsNotPrinted", char32_t{0xDC80}, std::nullopt},
        WidthRow{"NoCharacterIsNotPrinted", char32_t{0x110000}, std::nullopt}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(SystemConsole, TellsVariablesOfTheEnvironment)
{
    constexpr const char* name = "MULTIRENAME_TEST";
    {
        const ScopedVariable set(name, "caf\xC3\xA9 \xF0\x9F\x93\xB7");
        EXPECT_EQ(system_console().variable(name), "caf\xC3\xA9 \xF0\x9F\x93\xB7");
    }
    {
        const ScopedVariable set(name, std::string(1000, 'x'));
        EXPECT_EQ(system_console().variable(name), std::string(1000, 'x'));
    }
    {
        const ScopedVariable set(name, "");
        EXPECT_EQ(system_console().variable(name), std::nullopt);
    }
    EXPECT_EQ(system_console().variable(name), std::nullopt);
}

} // namespace
} // namespace multirename
