#include "run/names_menu.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

struct MenuRow {
    const char* sentence;
    std::u16string_view text;
    std::size_t selected_rows;
    std::u16string_view expected;
};
class NamesMenuText : public testing::TestWithParam<MenuRow> { };
TEST_P(NamesMenuText, Holds)
{
    EXPECT_EQ(names_menu_text(GetParam().text, GetParam().selected_rows), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(All, NamesMenuText,
                         testing::Values(MenuRow{"IsSingularForOneRow", u"&Copy Name(s)", 1, u"&Copy Name"},
                                         MenuRow{"IsPluralForSeveralRows", u"&Copy Name(s)", 2, u"&Copy Names"},
                                         MenuRow{"IsPluralForNoRow", u"&Copy Name(s)", 0, u"&Copy Names"},
                                         MenuRow{"KeepsWhatStandsBehindTheEnding", u"Remove File(s) From List", 1,
                                                 u"Remove File From List"},
                                         MenuRow{"MayHaveSeveralEndings", u"Name(s) of File(s)", 3, u"Names of Files"},
                                         MenuRow{"StaysWithoutAnEnding", u"Select &All", 3, u"Select &All"},
                                         MenuRow{"MayBeEmpty", u"", 1, u""}),
                         [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
