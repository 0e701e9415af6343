#include "fileset/tags.h"

#include <gtest/gtest.h>

#include "fileset/rename_folder.h"
#include "platform/testing/moment_at.h"

namespace multirename {
namespace {

/// The text after the first "<" is a tag; what came of reading it.
struct Expansion {
    bool valid = false;
    std::u16string text;
    std::size_t end = 0;
};

Expansion expand(std::u16string_view text, const Filename* entry, std::span<const CapturedText> captures = {})
{
    BoundedText output;
    std::size_t position = text.find(u'<') + 1;
    const bool valid = expand_tag(text, position, entry, captures, output);
    return {valid, std::u16string(output.view()), position};
}

/// An entry with everything that tags tell of.
class TaggedEntry {
public:
    TaggedEntry()
    {
        entry.created = moment_at(2024, 3, 5, 14, 7, 9);
        entry.other_time = moment_at(1999, 12, 31, 23, 59, 58);
        entry.size = 2048;
        entry.sequence = 2;
        entry.folder_sequence = 1;
        entry.folder = &folder;
    }

    RenameFolder folder{u"C:\\Photos\\Summer 24\\"};
    Filename entry;
};

std::u16string expansion_of(std::u16string_view tag)
{
    const TaggedEntry tagged;
    const Expansion expansion = expand(tag, &tagged.entry);
    EXPECT_TRUE(expansion.valid);
    return expansion.text;
}

struct TagRow {
    const char* sentence;
    std::u16string_view tag;
    std::u16string_view expected;
};
std::string tag_sentence(const testing::TestParamInfo<TagRow>& row) { return row.param.sentence; }

class TagText : public testing::TestWithParam<TagRow> { };
TEST_P(TagText, IsAppended) { EXPECT_EQ(expansion_of(GetParam().tag), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Dates, TagText,
                         testing::Values(TagRow{"CreationByDefault", u"<C>", u"20240305"},
                                         TagRow{"CreationInLowerCase", u"<c>", u"20240305"},
                                         TagRow{"CreationInAFormat", u"<C:yyyy-mm-dd time>", u"2024-03-05 1407"},
                                         TagRow{"CreationInALowerCaseTag", u"<c:yy>", u"24"},
                                         TagRow{"WithoutLeadingZeros", u"<C:d.m.y>", u"5.3.2024"},
                                         TagRow{"APercentSignIsDropped", u"<C:%Y>", u"Y"},
                                         TagRow{"LastWriteByDefault", u"<D>", u"19991231"},
                                         TagRow{"LastWriteInLowerCase", u"<d>", u"19991231"},
                                         TagRow{"LastWriteInAFormat", u"<D:timehms>", u"235958"},
                                         TagRow{"LettersBeyondAsciiAreCopied", u"<C:yy\u00E9>", u"24\u00E9"},
                                         TagRow{"AColonInTheFormatIsDropped", u"<C:hour:min>", u"1407"}),
                         tag_sentence);

INSTANTIATE_TEST_SUITE_P(DateKeywords, TagText,
                         testing::Values(TagRow{"TimeHms", u"<C:timehms>", u"140709"},
                                         TagRow{"Time", u"<C:time>", u"1407"}, TagRow{"Hour", u"<C:hour>", u"14"},
                                         TagRow{"Min", u"<C:min>", u"07"}, TagRow{"Sec", u"<C:sec>", u"09"},
                                         TagRow{"Yyyy", u"<C:yyyy>", u"2024"}, TagRow{"Month", u"<C:month>", u"March"},
                                         TagRow{"Day", u"<C:day>", u"Tuesday"}, TagRow{"Mmm", u"<C:mmm>", u"Mar"},
                                         TagRow{"Ddd", u"<C:ddd>", u"Tue"}, TagRow{"Yy", u"<C:yy>", u"24"},
                                         TagRow{"Mm", u"<C:mm>", u"03"}, TagRow{"Dd", u"<C:dd>", u"05"},
                                         TagRow{"Y", u"<C:y>", u"2024"}, TagRow{"M", u"<C:m>", u"3"},
                                         TagRow{"D", u"<C:d>", u"5"},
                                         TagRow{"TwoLettersWithAnotherAfterThem", u"<C:yyy>", u"242024"},
                                         TagRow{"ThreeLettersWithAnotherAfterThem", u"<C:mmmm>", u"Mar3"},
                                         TagRow{"FourLettersAreThreeAndOne", u"<C:dddd>", u"Tue5"},
                                         TagRow{"TheFirstThatFitsIsTakenAtEachPlace", u"<C:mmin>", u"03in"},
                                         TagRow{"TimeWithoutTheRestOfTimeHms", u"<C:timehm>", u"1407h3"},
                                         TagRow{"UpperCaseIsNoKeyword", u"<C:YYYYMMDD>", u"YYYYMMDD"},
                                         TagRow{"KeywordsInsideWordsCount", u"<C:today>", u"toTuesday"}),
                         tag_sentence);

INSTANTIATE_TEST_SUITE_P(Folders, TagText,
                         testing::Values(TagRow{"TheFoldersName", u"<F>", u"Summer 24"},
                                         TagRow{"InLowerCase", u"<f>", u"Summer 24"}),
                         tag_sentence);

INSTANTIATE_TEST_SUITE_P(
    RunningNumbers, TagText,
    testing::Values(TagRow{"StartAlone", u"<7>", u"9"}, TagRow{"StartAtZero", u"<0>", u"2"},
                    TagRow{"StepAndDigits", u"<10,5:3>", u"020"}, TagRow{"Step", u"<10,5>", u"20"},
                    TagRow{"StepZero", u"<10,0>", u"10"}, TagRow{"Digits", u"<1:4>", u"0003"},
                    TagRow{"NoDigitsWanted", u"<1:0>", u"3"}, TagRow{"FewerDigitsThanTheNumberHas", u"<100:2>", u"102"},
                    TagRow{"WithinTheFolder", u"<1F>", u"2"}, TagRow{"WithinTheFolderInLowerCase", u"<1f>", u"2"},
                    TagRow{"DigitsWithinTheFolder", u"<1:2F>", u"02"}, TagRow{"StepWithinTheFolder", u"<1,10F>", u"11"},
                    TagRow{"EverythingWithinTheFolder", u"<10,5:3F>", u"015"},
                    TagRow{"LeadingZerosOfTheStartCountForNothing", u"<007>", u"9"},
                    TagRow{"AStartThatDoesNotFitSaturates", u"<99999999999999999999>", u"9223372036854775807"},
                    TagRow{"AStepThatDoesNotFitSaturates", u"<0,99999999999999999999>", u"9223372036854775807"},
                    TagRow{"AValueThatDoesNotFitSaturates", u"<9223372036854775807,1>", u"9223372036854775807"}),
    tag_sentence);

INSTANTIATE_TEST_SUITE_P(
    Sizes, TagText,
    testing::Values(TagRow{"Bytes", u"<S>", u"2048"}, TagRow{"InLowerCase", u"<s>", u"2048"},
                    TagRow{"NothingAfterTheColonIsBytes", u"<S:>", u"2048"},
                    TagRow{"BytesWithDigits", u"<S:6>", u"002048"}, TagRow{"Kilobytes", u"<S:K>", u"2"},
                    TagRow{"KilobytesInLowerCase", u"<S:k>", u"2"}, TagRow{"KilobytesWithDigits", u"<S:6K>", u"000002"},
                    TagRow{"BAlsoMeansKilobytes", u"<S:B>", u"2"}, TagRow{"BInLowerCaseToo", u"<S:b>", u"2"},
                    TagRow{"Megabytes", u"<S:M>", u"1"}, TagRow{"MegabytesInLowerCase", u"<S:3m>", u"001"},
                    TagRow{"Gigabytes", u"<S:G>", u"1"}, TagRow{"GigabytesInLowerCase", u"<S:g>", u"1"},
                    TagRow{"Automatic", u"<S:A>", u"2K"}, TagRow{"AutomaticInLowerCase", u"<S:a>", u"2K"},
                    TagRow{"AutomaticWithDigits", u"<S:4A>", u"0002K"},
                    TagRow{"NoDigitsWantedForTheSize", u"<S:0K>", u"2"}),
    tag_sentence);

struct SizeRow {
    const char* sentence;
    std::uint64_t size;
    std::u16string_view tag;
    std::u16string_view expected;
};
class TagSize : public testing::TestWithParam<SizeRow> { };
TEST_P(TagSize, IsRounded)
{
    Filename entry;
    entry.size = GetParam().size;
    EXPECT_EQ(expand(GetParam().tag, &entry).text, GetParam().expected);
}
constexpr std::uint64_t mebibyte = 1ULL << 20;
constexpr std::uint64_t gibibyte = 1ULL << 30;
INSTANTIATE_TEST_SUITE_P(
    All, TagSize,
    testing::Values(
        SizeRow{"NothingIsZeroBytes", 0, u"<S:A>", u"0B"}, SizeRow{"BelowAKilobyte", 1023, u"<S:A>", u"1023B"},
        SizeRow{"AKilobyte", 1024, u"<S:A>", u"1K"}, SizeRow{"AByteMoreIsTheNextKilobyte", 1025, u"<S:A>", u"2K"},
        SizeRow{"BelowAMegabyte", mebibyte - 1, u"<S:A>", u"1024K"}, SizeRow{"AMegabyte", mebibyte, u"<S:A>", u"1M"},
        SizeRow{"AByteMoreIsTheNextMegabyte", mebibyte + 1, u"<S:A>", u"2M"},
        SizeRow{"BelowAGigabyte", gibibyte - 1, u"<S:A>", u"1024M"}, SizeRow{"AGigabyte", gibibyte, u"<S:A>", u"1G"},
        SizeRow{"AByteMoreIsTheNextGigabyte", gibibyte + 1, u"<S:A>", u"2G"},
        SizeRow{"Beyond32Bits", 5 * gibibyte + 1, u"<S>", u"5368709121"},
        SizeRow{"GigabytesBeyond32Bits", 5 * gibibyte + 1, u"<S:G>", u"6"}, SizeRow{"ZeroKilobytes", 0, u"<S:K>", u"0"},
        SizeRow{"OneByteIsAKilobyte", 1, u"<S:K>", u"1"}, SizeRow{"OneByteIsAMegabyte", 1, u"<S:M>", u"1"},
        SizeRow{"OneByteIsAGigabyte", 1, u"<S:G>", u"1"}, SizeRow{"ZeroGigabytes", 0, u"<S:G>", u"0"},
        SizeRow{"ExactMegabytes", 3 * mebibyte, u"<S:M>", u"3"}),
    [](const auto& row) { return std::string(row.param.sentence); });

class ValidTag : public testing::TestWithParam<std::u16string_view> { };
TEST_P(ValidTag, IsTakenWithAnEntryAndWithout)
{
    const TaggedEntry tagged;
    EXPECT_TRUE(expand(GetParam(), &tagged.entry).valid);
    const Expansion checked = expand(GetParam(), nullptr);
    EXPECT_TRUE(checked.valid);
    EXPECT_EQ(checked.text, u"");
    EXPECT_EQ(checked.end, GetParam().size());
}
INSTANTIATE_TEST_SUITE_P(All, ValidTag,
                         testing::Values(u"<D>", u"<d:y>", u"<C>", u"<C: >", u"<C:xyz>", u"<C:%>", u"<C:a/b:c*?\"|\\>",
                                         u"<S>", u"<S:>", u"<S:3>", u"<S:A>", u"<S:3g>", u"<F>", u"<N:0>", u"<N:1>",
                                         u"<n:260>", u"<N:00000000260>", u"<0>", u"<1,2>", u"<1:3>", u"<1F>",
                                         u"<1,2:3>", u"<1,2F>", u"<1:3F>", u"<1,2:3f>", u"<1:99999999999999999999>"));

class InvalidTag : public testing::TestWithParam<std::u16string_view> { };
TEST_P(InvalidTag, IsRefusedAndAddsNothing)
{
    const TaggedEntry tagged;
    const Expansion expansion = expand(GetParam(), &tagged.entry);
    EXPECT_FALSE(expansion.valid);
    EXPECT_EQ(expansion.text, u"");
    EXPECT_FALSE(expand(GetParam(), nullptr).valid);
}
INSTANTIATE_TEST_SUITE_P(Dates, InvalidTag,
                         testing::Values(u"<D:>", u"<C:>", u"<D", u"<C", u"<C:", u"<C:yyyy", u"<Cx>", u"<C >", u"<DD>",
                                         u"<C;yyyy>", u"<Cyyyy>"));
INSTANTIATE_TEST_SUITE_P(Sizes, InvalidTag,
                         testing::Values(u"<S", u"<S:", u"<S:3", u"<S:3K", u"<S:KB>", u"<S:K6>", u"<S6>", u"<SK>",
                                         u"<S:-1>", u"<S: 6>", u"<S:6 K>", u"<S:T>", u"<S:3,2>"));
INSTANTIATE_TEST_SUITE_P(Folders, InvalidTag, testing::Values(u"<F", u"<F:>", u"<F1>", u"<FF>", u"<F >"));
INSTANTIATE_TEST_SUITE_P(Captures, InvalidTag,
                         testing::Values(u"<N>", u"<N", u"<N:", u"<N:>", u"<N:1", u"<N1>", u"<N:261>",
                                         u"<N:99999999999999999999>", u"<N:-1>", u"<N:x>", u"<N:1x>", u"<N: 1>"));
INSTANTIATE_TEST_SUITE_P(RunningNumbers, InvalidTag,
                         testing::Values(u"<", u"<>", u"< >", u"<1", u"< 1>", u"<1 >", u"<-1>", u"<+1>", u"<1,>",
                                         u"<1,-1>", u"<1:>", u"<1,:3>", u"<1,2:>", u"<,1>", u"<:3>", u"<1:3,2>",
                                         u"<1F:3>", u"<1FF>", u"<1F2>", u"<1x>", u"<1,2x>", u"<1:2x>", u"<\u0663>"));
INSTANTIATE_TEST_SUITE_P(Others, InvalidTag,
                         testing::Values(u"<x>", u"<year>", u"<date>", u"<*>", u"<G>", u"<A>", u"<K>"));

struct EndRow {
    const char* sentence;
    std::u16string_view text;
    std::size_t end;
};
class TagEnd : public testing::TestWithParam<EndRow> { };
TEST_P(TagEnd, WithoutAnEntry) { EXPECT_EQ(expand(GetParam().text, nullptr).end, GetParam().end); }
TEST_P(TagEnd, WithAnEntry)
{
    const TaggedEntry tagged;
    EXPECT_EQ(expand(GetParam().text, &tagged.entry).end, GetParam().end);
}
INSTANTIATE_TEST_SUITE_P(All, TagEnd,
                         testing::Values(EndRow{"JustPastTheClosingBracketOfAValidTag", u"a<C:yy>b>", 7},
                                         EndRow{"JustPastTheClosingBracketOfAnInvalidTag", u"a<xyz>b>", 6},
                                         EndRow{"AtTheNextOpeningBracket", u"a<xyz<C>", 5},
                                         EndRow{"AtTheNextOpeningBracketInAFormat", u"<C:yy<mm>", 5},
                                         EndRow{"AtAnOpeningBracketThatFollowsAtOnce", u"<<C>", 1},
                                         EndRow{"AtTheEndOfTheText", u"a<xyz", 5},
                                         EndRow{"AtTheEndOfATextThatEndsInABracket", u"a<", 2},
                                         EndRow{"PastABracketPairWithNothingInIt", u"<>a", 2},
                                         EndRow{"JustPastATagThatBreaksOffWithinANumber", u"<1,2:3", 6}),
                         [](const auto& row) { return std::string(row.param.sentence); });

TEST(Tag, AddsToWhatTheOutputHolds)
{
    const TaggedEntry tagged;
    BoundedText output;
    output.append(u"img ");
    std::size_t position = 1;
    EXPECT_TRUE(expand_tag(u"<C>", position, &tagged.entry, {}, output));
    EXPECT_EQ(output.view(), u"img 20240305");
}

TEST(Tag, IsCutAt260CharactersOfTheOutput)
{
    const TaggedEntry tagged;
    BoundedText output;
    output.append(std::u16string(255, u'x'));
    std::size_t position = 1;
    EXPECT_TRUE(expand_tag(u"<C>", position, &tagged.entry, {}, output));
    EXPECT_EQ(output.view(), std::u16string(255, u'x') + u"20240");
    position = 1;
    EXPECT_TRUE(expand_tag(u"<F>", position, &tagged.entry, {}, output));
    EXPECT_EQ(output.view(), std::u16string(255, u'x') + u"20240");
}

TEST(Tag, ANumberHasAtMost255DigitsInFront)
{
    EXPECT_EQ(expansion_of(u"<1:400>"), std::u16string(254, u'0') + u"3");
    EXPECT_EQ(expansion_of(u"<1:255>").size(), 255U);
    EXPECT_EQ(expansion_of(u"<S:99999999999999999999K>").size(), 255U);
}

TEST(Tag, ADateBefore1900IsEmptyAndStillValid)
{
    Filename entry;
    entry.created = moment_at(1899, 12, 31, 23, 59, 59);
    EXPECT_TRUE(expand(u"<C>", &entry).valid);
    EXPECT_EQ(expand(u"<C>", &entry).text, u"");
    entry.created = moment_at(1900, 1, 2);
    EXPECT_EQ(expand(u"<C>", &entry).text, u"19000102");
}

TEST(Tag, AnUnknownDateIsEmptyAndStillValid)
{
    const Filename entry;
    EXPECT_TRUE(expand(u"<D>", &entry).valid);
    EXPECT_EQ(expand(u"<D>", &entry).text, u"");
    EXPECT_EQ(expand(u"<C:xyz>", &entry).text, u"");
}

TEST(Tag, ADateThatCannotBeConvertedIsEmptyAndStillValid)
{
    Filename entry;
    entry.created = ~FileTime{0};
    EXPECT_TRUE(expand(u"<C>", &entry).valid);
    EXPECT_EQ(expand(u"<C>", &entry).text, u"");
}

struct FolderRow {
    const char* sentence;
    std::u16string_view path;
    std::u16string_view expected;
};
class TagFolder : public testing::TestWithParam<FolderRow> { };
TEST_P(TagFolder, IsTheLastPartOfThePath)
{
    RenameFolder folder(GetParam().path);
    Filename entry;
    entry.folder = &folder;
    EXPECT_TRUE(expand(u"<F>", &entry).valid);
    EXPECT_EQ(expand(u"<F>", &entry).text, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(All, TagFolder,
                         testing::Values(FolderRow{"OfAFolderInAFolder", u"C:\\A\\B c\\", u"B c"},
                                         FolderRow{"OfAFolderInTheRoot", u"C:\\A\\", u"A"},
                                         FolderRow{"OfTheRootItIsNothing", u"C:\\", u""},
                                         FolderRow{"OfANetworkShare", u"\\\\server\\share\\", u"share"},
                                         FolderRow{"OfABackslashAloneItIsNothing", u"\\", u""},
                                         FolderRow{"OfTwoBackslashesItIsNothing", u"\\\\", u""},
                                         FolderRow{"OfNoPathItIsNothing", u"", u""}),
                         [](const auto& row) { return std::string(row.param.sentence); });

TEST(TagFolder, OfAnEntryWithoutAFolderIsNothing)
{
    const Filename entry;
    EXPECT_TRUE(expand(u"<F>", &entry).valid);
    EXPECT_EQ(expand(u"<F>", &entry).text, u"");
}

class TagCapture : public testing::Test {
protected:
    std::u16string captured(std::u16string_view tag)
    {
        const Filename entry;
        const Expansion expansion = expand(tag, &entry, captures_);
        EXPECT_TRUE(expansion.valid);
        return expansion.text;
    }

    std::vector<CapturedText> captures_ = {
        {u"", false}, {u"wild", true}, {u"", false}, {u"007", true}, {u".jpg", true}};
};

TEST_F(TagCapture, CountsOnlyTheNumberedOnes)
{
    EXPECT_EQ(captured(u"<N:1>"), u"wild");
    EXPECT_EQ(captured(u"<N:2>"), u"007");
    EXPECT_EQ(captured(u"<n:3>"), u".jpg");
}

TEST_F(TagCapture, IsNothingBeforeTheFirstAndBeyondTheLast)
{
    EXPECT_EQ(captured(u"<N:0>"), u"");
    EXPECT_EQ(captured(u"<N:4>"), u"");
    EXPECT_EQ(captured(u"<N:260>"), u"");
}

TEST_F(TagCapture, IsNothingWhenNothingWasCaptured)
{
    captures_.clear();
    EXPECT_EQ(captured(u"<N:1>"), u"");
}

TEST(TagsReadDetails, WhenTheyTellOfTimesOrOfTheSize)
{
    for (const std::u16string_view text : {u"<D>", u"<d>", u"<C>", u"<c:yyyy>", u"<S:6K>", u"<s", u"a <1><F> <S>"})
        EXPECT_TRUE(tags_read_details(text)) << testing::PrintToString(text);
    for (const std::u16string_view text : {u"", u"<", u"a<", u"<F>", u"<f>", u"<N:1>", u"<1,2:3F>", u"D<1>S", u"< D>"})
        EXPECT_FALSE(tags_read_details(text)) << testing::PrintToString(text);
}

TEST(NumberText, PadsWithZerosUpToTheDigits)
{
    EXPECT_EQ(number_text(0, 0), u"0");
    EXPECT_EQ(number_text(5, 1), u"5");
    EXPECT_EQ(number_text(5, 3), u"005");
    EXPECT_EQ(number_text(0, 2), u"00");
    EXPECT_EQ(number_text(1234, 2), u"1234");
    EXPECT_EQ(number_text(5, -3), u"5");
}

TEST(NumberText, PadsToNoMoreThan255Digits)
{
    EXPECT_EQ(number_text(5, 255).size(), 255U);
    EXPECT_EQ(number_text(5, 256).size(), 255U);
    EXPECT_EQ(number_text(5, INT64_MAX).size(), 255U);
}

TEST(NumberText, DropsTheSignOfANegativeNumber)
{
    EXPECT_EQ(number_text(-7, 0), u"7");
    EXPECT_EQ(number_text(-7, 3), u"007");
    EXPECT_EQ(number_text(INT64_MIN, 0), u"9223372036854775808");
}

struct DateFormatRow {
    const char* sentence;
    std::u16string_view format;
    std::string_view expected;
};
class DateFormatTest : public testing::TestWithParam<DateFormatRow> { };
TEST_P(DateFormatTest, IsTranslated) { EXPECT_EQ(date_format(GetParam().format), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    All, DateFormatTest,
    testing::Values(DateFormatRow{"NothingIsNothing", u"", ""}, DateFormatRow{"TheDefault", u"yyyymmdd", "%Y%m%d"},
                    DateFormatRow{"TimeHms", u"timehms", "%H%M%S"}, DateFormatRow{"Time", u"time", "%H%M"},
                    DateFormatRow{"Hour", u"hour", "%H"}, DateFormatRow{"Min", u"min", "%M"},
                    DateFormatRow{"Sec", u"sec", "%S"}, DateFormatRow{"Month", u"month", "%B"},
                    DateFormatRow{"Day", u"day", "%A"}, DateFormatRow{"Mmm", u"mmm", "%b"},
                    DateFormatRow{"Ddd", u"ddd", "%a"}, DateFormatRow{"Yy", u"yy", "%y"},
                    DateFormatRow{"Y", u"y", "%#Y"}, DateFormatRow{"M", u"m", "%#m"}, DateFormatRow{"D", u"d", "%#d"},
                    DateFormatRow{"OtherCharactersAreCopied", u"Y-M_D h.s#", "Y-M_D h.s#"},
                    DateFormatRow{"WhatNamesMayNotHoldIsDropped", u"a\\b\"c%e*f/g:h<i>j?k|l", "abcefghijkl"},
                    DateFormatRow{"UnitsAreCutToTheirLow8Bits", u"\u0141\u4E58", "AX"},
                    DateFormatRow{"NoPercentSignComesOutOfTheCut", u"\u0125Y\u2025B", "YB"},
                    DateFormatRow{"NothingThatNamesMayNotHoldComesOutOfTheCut", u"\u013A\u012A\u013C\u017Cx", "x"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(DateFormat, PercentSignsOnlyEverStartTheCodesOfKeywords)
{
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        if (std::u16string_view(u"ymd").find(static_cast<char16_t>(unit)) != std::u16string_view::npos)
            continue;
        const std::string format = date_format(std::u16string(1, static_cast<char16_t>(unit)));
        EXPECT_EQ(format.find_first_of(std::string_view("\\\"%*/:<>?|\0", 11)), std::string::npos) << unit;
        EXPECT_LE(format.size(), 1U);
    }
}

} // namespace
} // namespace multirename
