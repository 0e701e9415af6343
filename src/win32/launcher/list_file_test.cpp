#include "win32/launcher/list_file.h"

#include <gmock/gmock.h>

namespace multirename {
namespace {

using namespace std::string_view_literals;
using Paths = std::vector<std::u16string>;

struct PathsRow {
    const char* sentence;
    std::string_view bytes;
    Paths paths;
};
class ListFilePaths : public testing::TestWithParam<PathsRow> { };
TEST_P(ListFilePaths, AreTaken)
{
    const auto listed = listed_paths(GetParam().bytes);
    ASSERT_TRUE(std::holds_alternative<Paths>(listed));
    EXPECT_EQ(std::get<Paths>(listed), GetParam().paths);
}
INSTANTIATE_TEST_SUITE_P(All, ListFilePaths,
                         testing::Values(PathsRow{"NothingHoldsNone", "", {}},
                                         PathsRow{"AByteOrderMarkAloneHoldsNone", "\xEF\xBB\xBF", {}},
                                         PathsRow{"OnePathALineInOrder", "b\na\n", {u"b", u"a"}},
                                         PathsRow{"CarriageReturnsBelongToLineEnds", "b\r\na\r\n", {u"b", u"a"}},
                                         PathsRow{"BothLineEndsMayMix", "b\r\na\nc", {u"b", u"a", u"c"}},
                                         PathsRow{"TheLastLineMayLackItsEnd", "b\na", {u"b", u"a"}},
                                         PathsRow{"TheLastLineMayEndInACarriageReturn", "b\na\r", {u"b", u"a"}},
                                         PathsRow{"AByteOrderMarkBelongsToNoPath",
                                                  "\xEF\xBB\xBF"
                                                  "a\nb\n",
                                                  {u"a", u"b"}},
                                         PathsRow{"OnlyTheMarkInFrontIsOne",
                                                  "a\n\xEF\xBB\xBF"
                                                  "b\n",
                                                  {u"a", u"\uFEFFb"}},
                                         PathsRow{"BlankLinesArePassedOver", "\n\r\na\n \t\r\n\nb\n\n", {u"a", u"b"}},
                                         PathsRow{"SpacesAroundAPathStay", " a b \n", {u" a b "}},
                                         PathsRow{"LettersOfEveryScript",
                                                  "f\xC3\xB6hn\n\xE6\x97\xA5\xE6\x9C\xAC\n\xF0\x9F\x98\x80\n",
                                                  {u"föhn", u"日本", u"😀"}},
                                         PathsRow{"SignsAreOrdinaryLetters", "@a\n--\n#b\n", {u"@a", u"--", u"#b"}}),
                         [](const auto& row) { return std::string(row.param.sentence); });

struct MistakeRow {
    const char* sentence;
    std::string_view bytes;
    std::size_t line;
};
class ListFileMistake : public testing::TestWithParam<MistakeRow> { };
TEST_P(ListFileMistake, IsToldWithItsLine)
{
    const auto listed = listed_paths(GetParam().bytes);
    ASSERT_TRUE(std::holds_alternative<NotUtf8>(listed));
    EXPECT_EQ(std::get<NotUtf8>(listed).line, GetParam().line);
}
INSTANTIATE_TEST_SUITE_P(All, ListFileMistake,
                         testing::Values(MistakeRow{"AnotherEncodingOnTheFirstLine", "f\xF6hn\nb\n", 1},
                                         MistakeRow{"BlankLinesCountToo", "a\n\n\r\nf\xF6hn\n", 4},
                                         MistakeRow{"TheFirstOfSeveralLines", "a\n\xFF\n\xFF\n", 2},
                                         MistakeRow{"ASequenceThatTheLineEndBreaksOff", "a\n\xE2\x82\n", 2},
                                         MistakeRow{"AStrayByteBehindACharacterOfTwoUnits", "\xF0\x9F\x98\x80\x80", 1},
                                         MistakeRow{"AnEncodedHalfOfAPair", "\xED\xB2\x80", 1},
                                         MistakeRow{"TheMarkOfUtf16",
                                                    "\xFF\xFE"
                                                    "a\0\n\0"sv,
                                                    1},
                                         MistakeRow{"Utf16WithoutAMark", "a\0\n\0"sv, 1},
                                         MistakeRow{"AZeroAtTheEnd", "a\nb\0"sv, 2}),
                         [](const auto& row) { return std::string(row.param.sentence); });

} // namespace
} // namespace multirename
