#include "pattern/pattern_analyser.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "pattern/pattern_analyser_reference.h"
#include "platform/testing/fake_disk.h"

namespace multirename {

namespace {

using Names = std::vector<std::u16string>;

std::vector<std::u16string_view> views_of(const Names& names) { return {names.begin(), names.end()}; }

std::u16string pattern_of(const Names& names, bool numberMode) { return pattern_of_names(views_of(names), numberMode); }

// --- the pattern of a list of names, from the fast form and from its plain twin

constexpr bool numbers = true;
constexpr bool text = false;

struct PatternRow {
    const char* sentence;
    Names names;
    bool numberMode;
    std::u16string expected;
};

void PrintTo(const PatternRow& row, std::ostream* out) { *out << row.sentence; }

class PatternOfNames : public testing::TestWithParam<PatternRow> { };

TEST_P(PatternOfNames, ComesOut)
{
    const PatternRow& row = GetParam();
    EXPECT_EQ(pattern_of(row.names, row.numberMode), row.expected);
}

TEST_P(PatternOfNames, ComesOutOfThePlainTwin)
{
    const PatternRow& row = GetParam();
    EXPECT_EQ(reference_pattern_of_names(views_of(row.names), row.numberMode), row.expected);
}

std::string sentence_of(const testing::TestParamInfo<PatternRow>& row) { return row.param.sentence; }

INSTANTIATE_TEST_SUITE_P(
    Everyday, PatternOfNames,
    testing::Values(
        PatternRow{"NoNamesGiveNothing", {}, numbers, u""},
        PatternRow{"ASingleNameIsItsOwnPattern", {u"holiday 1"}, numbers, u"holiday 1"},
        PatternRow{"IdenticalNamesAreTheirOwnPattern", {u"a1", u"a1", u"a1"}, numbers, u"a1"},
        PatternRow{"CameraNamesDifferInOneNumber", {u"IMG_0001", u"IMG_0002", u"IMG_0010"}, numbers, u"IMG_#"},
        PatternRow{"CameraNamesAsTextShareDigits", {u"IMG_0001", u"IMG_0002", u"IMG_0010"}, text, u"IMG_00*0*"},
        PatternRow{"NumberedNamesAsTextEndInAWild", {u"photo1", u"photo2"}, text, u"photo*"},
        PatternRow{"NumbersOfDifferentWidthAreOneNumber", {u"a9", u"a10"}, numbers, u"a#"},
        PatternRow{"NothingInCommonIsAWild", {u"one", u"3"}, numbers, u"*"},
        PatternRow{"UpperAndLowerCaseDiffer", {u"ABC", u"abd"}, text, u"*"},
        PatternRow{"NumberedCopies", {u"report", u"report (2)", u"report (13)"}, numbers, u"report*"},
        PatternRow{"OnlyTheDigitsOfASeasonStayInTheMiddle", {u"S01E01", u"S01E02", u"S02E01"}, numbers, u"S*#*E#"}),
    sentence_of);

INSTANTIATE_TEST_SUITE_P(Hashes, PatternOfNames,
                         testing::Values(PatternRow{"AHashBeforeANumberIsEscaped", {u"x#1", u"x#2"}, numbers, u"x\\##"},
                                         PatternRow{"AHashBeforeAWildIsEscaped", {u"x#1", u"x#2"}, text, u"x\\#*"},
                                         PatternRow{"AHashInTheMiddleIsEscaped", {u"a#b", u"c#d"}, text, u"*\\#*"},
                                         PatternRow{"AHashAtTheEndIsEscaped", {u"a#", u"b#"}, numbers, u"*\\#"},
                                         PatternRow{"AHashAloneIsEscaped", {u"#"}, numbers, u"\\#"},
                                         PatternRow{"EveryHashIsEscaped", {u"##", u"##"}, text, u"\\#\\#"}),
                         sentence_of);

INSTANTIATE_TEST_SUITE_P(
    Prefix, PatternOfNames,
    testing::Values(
        PatternRow{"ANumberThatGrewAtItsEndIsANumber", {u"a1", u"a10"}, numbers, u"a#"},
        PatternRow{"ANumberThatShrankAtItsEndIsANumber", {u"a10", u"a1"}, numbers, u"a#"},
        PatternRow{"ANumberThatGrewBeforeTextIsANumber", {u"a1x", u"a12x"}, numbers, u"a#x"},
        PatternRow{"ANumberFollowedByTextInOneNameStaysText", {u"a1", u"a1b"}, numbers, u"a1*"},
        PatternRow{"NamesMayBeNumbersAlone", {u"1", u"2", u"30"}, numbers, u"#"},
        PatternRow{"AnEmptyNameLeavesNoNumber", {u"1", u""}, numbers, u"*"},
        PatternRow{"ADigitThatDiffersInsideARunTakesTheWholeRun", {u"a123b", u"a153b"}, numbers, u"a#b"},
        PatternRow{"DigitsAndLettersInOnePlaceAreText", {u"a1", u"ab"}, numbers, u"a*"},
        PatternRow{"DigitsOfOtherScriptsAreLetters", {u"a\u0661", u"a\u0662"}, numbers, u"a*"},
        PatternRow{"NumbersThatAllNamesShareStayText", {u"2021 a1", u"2021 a2"}, numbers, u"2021 a#"},
        PatternRow{"OnlyTheFirstNumberThatDiffersStaysInThePrefix", {u"a1b2", u"a3b4"}, numbers, u"a#b*#"},
        PatternRow{
            "ALaterNumberOfAnotherWidthEndsThePrefixBeforeIt", {u"a1b22", u"a2b22", u"a3b222"}, numbers, u"a#b*#"},
        PatternRow{"ALaterNumberThatDiffersInItsLastDigitEndsThePrefixBeforeIt",
                   {u"a1b22-", u"a2b22-", u"a3b23-"},
                   numbers,
                   u"a#b*#-"},
        PatternRow{"ANameThatGoesOnAfterTheNumberLeavesAWild", {u"a1", u"a22", u"a3b"}, numbers, u"a#*"},
        PatternRow{"ANameThatEndsBeforeTheNumberTakesItFromThePrefix", {u"a1", u"a2", u"a"}, numbers, u"a*"},
        PatternRow{"AFirstNameThatIsEmptyDoesNotEndTheSearch", {u"", u"", u"notes"}, text, u"*"},
        PatternRow{"AFirstNameThatIsEmptyDoesNotEndTheSearchForNumbers", {u"", u"", u"notes"}, numbers, u"*"},
        PatternRow{"EmptyNamesAloneAreIdentical", {u"", u""}, numbers, u""}),
    sentence_of);

INSTANTIATE_TEST_SUITE_P(
    Suffix, PatternOfNames,
    testing::Values(
        PatternRow{"TextBehindIsKept", {u"me.tar", u"you.tar"}, text, u"*.tar"},
        PatternRow{"NothingIsLeftForASuffixWhereThePrefixTookAName", {u"aXa", u"a"}, text, u"a*"},
        PatternRow{"NorWhenNumbersCount", {u"aXa", u"a"}, numbers, u"a*"},
        PatternRow{"PrefixAndSuffixDoNotShareACharacter", {u"aa", u"aaa"}, text, u"aa*"},
        PatternRow{"ASuffixThatReachesIntoTheNumberOfThePrefixIsDropped", {u"a22", u"a3b4"}, numbers, u"a#*"},
        PatternRow{"NothingThatThePrefixTookIsComparedAgain", {u"aab", u"ab"}, text, u"a*b"},
        PatternRow{"EqualDigitsBehindAreText", {u"xa7.b", u"ya7.b"}, numbers, u"*a7.b"},
        PatternRow{"AsTextRunsOfDigitsBehindMayDifferInLength", {u"x1a", u"y11a"}, text, u"*1a"},
        PatternRow{"WithNumbersRunsOfDigitsBehindMayNot", {u"x1a", u"y11a"}, numbers, u"*x#a"},
        PatternRow{"TheCharacterBeforeANumberBehindIsKeptUnseen", {u"xa1", u"yb22"}, numbers, u"*a#"},
        PatternRow{"ItIsKeptThoughTheNameHasNothingThere", {u"xa1", u"22"}, numbers, u"*a#"},
        PatternRow{"BehindItsPlaceTheComparisonRunsOneCharacterAhead", {u"xab1", u"yab22"}, numbers, u"*a*b#"},
        PatternRow{"OneCharacterAheadEqualCharactersStillCount", {u"abb1", u"xbb22"}, numbers, u"*bb#"},
        PatternRow{"OneCharacterAheadASecondNumberMayBeMet", {u"p1--2", u"q3-44"}, numbers, u"*p#--#"},
        PatternRow{"AThirdNameTakesTheNumberBehindAsItIs", {u"xab1", u"yab22", u"zcb3"}, numbers, u"*b#"},
        PatternRow{"WithTheNumberInPlaceTheCharacterBeforeItIsSeen", {u"xab1", u"yab22", u"zc3"}, numbers, u"*#"},
        PatternRow{"ANumberBehindEqualDigitsStaysSingle", {u"x1-22", u"y3-22"}, numbers, u"*x#-22"},
        PatternRow{"ALetterInPlaceOfTheNumberBehindEndsTheSuffix", {u"xa1", u"ya2", u"zab"}, numbers, u"*a*"}),
    sentence_of);

INSTANTIATE_TEST_SUITE_P(
    Middle, PatternOfNames,
    testing::Values(
        PatternRow{"AMiddleThatIsEmptyInOneNameIsAWild", {u"ab", u"acb"}, text, u"a*b"},
        PatternRow{"BetweenPrefixAndSuffixStandsAWildThoughNothingIsLeft", {u"a1b2c", u"a3b4c"}, numbers, u"a#b*#c"},
        PatternRow{"AGroupWithNothingLeftIsAWild", {u"xay", u"yax"}, text, u"*x*"},
        PatternRow{"TheLongestRunSplits", {u"1ab-c2", u"3c+ab4"}, text, u"*ab*"},
        PatternRow{"TheFirstOfEquallyLongRunsSplits", {u"paqbr", u"sbtau"}, text, u"*a*"},
        PatternRow{"TheNameWithTheFewestCommonCharactersLeads", {u"pbqbra-", u"satbu"}, text, u"*a*"},
        PatternRow{"ACharacterThatOneLeftPartLacksSplitsNone", {u"b-a_XY;", u"a.b~XY:", u"a+a=XY!b"}, text, u"*a*XY*"},
        PatternRow{"OnlyTheFirstOccurrenceSplits", {u"1a-2a3", u"4a5-6"}, text, u"*a*-*"},
        PatternRow{"DigitsCountOnceEveryMiddleHasOne", {u"x1y", u"z2w"}, numbers, u"*#*"},
        PatternRow{"DigitsDoNotCountWhileAMiddleHasNone", {u"x1y", u"z2w", u"q"}, numbers, u"*"},
        PatternRow{"AMiddleWithoutDigitsMakesAllOfThemText", {u"p1a-", u"q2+a", u"ra~"}, numbers, u"*a*"},
        PatternRow{"NorDoDigitsThenCountTowardsTheLead", {u"ba1", u"ab"}, numbers, u"*b*"},
        PatternRow{"ANumberAndALetterApartAreFoundOneAfterTheOther", {u"p1a-", u"q2+a"}, numbers, u"*#*a*"},
        PatternRow{"EqualDigitsInTheMiddleAreText", {u"x7y", u"z7w"}, numbers, u"*7*"},
        PatternRow{"DigitsThatDifferInPartAreOneNumber", {u"x12y", u"z13w"}, numbers, u"*#*"},
        PatternRow{"AsTextTheyShareADigit", {u"x12y", u"z13w"}, text, u"*1*"},
        PatternRow{"ADigitThatAllMiddlesHoldIsTextThoughTheirNumbersDiffer", {u"x1y", u"z12w"}, numbers, u"*1*"},
        PatternRow{"ANumberStandsBetweenText", {u"xa1by", u"za22bw"}, numbers, u"*a#b*"},
        PatternRow{"NumbersMayStandAroundText", {u"x1-2y", u"z3-4+5w"}, numbers, u"*#-#*"},
        PatternRow{"ANumberWeighsAsMuchAsItsDigitsInTheLeadingName", {u"ab-123", u"456+ab"}, numbers, u"*#*"},
        PatternRow{"AfterAShorterNumberALongerOneIsFollowedToo", {u"2332", u".9#23c"}, numbers, u"*#*"},
        PatternRow{"ANumberOfNoMoreDigitsThanALaterTextLosesToTheFirst", {u"ab-12", u"45+ab"}, numbers, u"*ab*"},
        PatternRow{"APieceWithANumberIsFollowedFromTheNameThatShowedTheDifference",
                   {u"2a21a22aaa", u"a22a2aa2aa"},
                   numbers,
                   u"*a#a2*2*aa"}),
    sentence_of);

INSTANTIATE_TEST_SUITE_P(
    WideCharacters, PatternOfNames,
    testing::Values(
        PatternRow{"WideCharactersInFrontAreShared", {u"\u4e2dx", u"\u4e2dy"}, text, u"\u4e2d*"},
        PatternRow{"WideCharactersInTheMiddleAreShared", {u"a\u4e2db", u"c\u4e2dd"}, text, u"*\u4e2d*"},
        PatternRow{"ANarrowNameSharesNone", {u"a\u4e2db", u"c\u4e2dd", u"e"}, text, u"*"},
        PatternRow{"AfterAWideNameItsWideCharactersStillCountTowardsTheLead", {u"a\u4e2db", u"bXa"}, text, u"*b*"},
        PatternRow{"AfterANarrowNameAllWideCharactersCountTowardsTheLead", {u"bba", u"a\u4e2db"}, text, u"*b*"},
        PatternRow{"ANarrowCharacterThatIsNotSharedDoesNotCount", {u"bba", u"a-b"}, text, u"*a*"},
        PatternRow{
            "AmongWideNamesAWideCharacterThatIsNotSharedDoesNotCount", {u"bba\u4e2d", u"a\u4e00b"}, text, u"*a*"},
        PatternRow{"AnEmptyMiddleIsANarrowName", {u"\u4e2d", u"\u4e2d\u4e2d"}, text, u"\u4e2d*"},
        PatternRow{"ANameWithTheFirstWideCharacterIsNotNarrow", {u"\u4e8cb\u0100", u"a\u0100b"}, text, u"*b*"},
        PatternRow{"TheFirstWideCharacterIsWide", {u"a\u0100b", u"c\u0100d", u"\u0100-"}, text, u"*\u0100*"},
        PatternRow{"AccentedLettersAreNarrow", {u"a\u00e9b", u"c\u00e9d", u"\u00e9-"}, text, u"*\u00e9*"},
        PatternRow{"HalvesOfSurrogatePairsAreCharacters", {u"x\U0001F600y", u"z\U0001F601w"}, text, u"*\xD83D*"},
        PatternRow{"APrefixMayEndInsideASurrogatePair", {u"\U0001F600", u"\U0001F601"}, numbers, u"\xD83D*"}),
    sentence_of);

// --- which names are taken from a file set, and their extensions

class Listing {
public:
    /// Lists every file of the folder C:\A\.
    explicit Listing(const Names& names)
    {
        disk.with(u"C:\\A\\", names);
        add(u"C:\\A\\", names);
    }
    Listing() = default;

    void add(const std::u16string& folder, const Names& names)
    {
        Names paths;
        for (const std::u16string& name : names)
            paths.push_back(folder + name);
        files.add_paths(paths);
    }

    FakeDisk disk;
    FileSet files{disk};
};

struct ExtensionRow {
    const char* sentence;
    Names names;
    NameMode nameMode;
    std::u16string pattern;
    std::u16string extensionText;
};

void PrintTo(const ExtensionRow& row, std::ostream* out) { *out << row.sentence; }

class PatternOfFiles : public testing::TestWithParam<ExtensionRow> { };

TEST_P(PatternOfFiles, ComesOutWithItsExtension)
{
    const ExtensionRow& row = GetParam();
    const Listing listing(row.names);
    const ExtractedPattern extracted = computeNamePattern(listing.files, true, row.nameMode);
    EXPECT_EQ(extracted.pattern, row.pattern);
    EXPECT_EQ(extracted.extensionText, row.extensionText);
}

constexpr NameMode base_only = NameMode::BaseOnly;
constexpr NameMode with_extension = NameMode::BaseWithExtensionPart;
constexpr NameMode whole_name = NameMode::WholeName;

INSTANTIATE_TEST_SUITE_P(
    All, PatternOfFiles,
    testing::Values(
        ExtensionRow{"NothingListedGivesNothing", {}, with_extension, u"", u""},
        ExtensionRow{"ASharedExtensionIsKept", {u"a9.txt", u"a10.txt"}, base_only, u"a#", u".txt"},
        ExtensionRow{"AsAPartOfItsOwnToo", {u"a9.txt", u"a10.txt"}, with_extension, u"a#", u".txt"},
        ExtensionRow{"InWholeNamesItIsText", {u"a9.txt", u"a10.txt"}, whole_name, u"a#.txt", u""},
        ExtensionRow{"ASingleFileHasItsOwn", {u"b.c.jpg"}, base_only, u"b.c", u".jpg"},
        ExtensionRow{"DifferentExtensionsAreAWild", {u"a.jpg", u"b.png"}, with_extension, u"*", u".*"},
        ExtensionRow{"InWholeNamesDifferentOnesAreSearched", {u"a.jpg", u"b.png"}, whole_name, u"*.*p*g", u""},
        ExtensionRow{"ALaterNameWithoutAPointMakesAWild", {u"a.jpg", u"b"}, with_extension, u"*", u".*"},
        ExtensionRow{"AnEarlierNameWithoutAPointMakesAWild", {u"a", u"b.jpg"}, with_extension, u"*", u".*"},
        ExtensionRow{"NamesWithoutPointsHaveNone", {u"a", u"b"}, with_extension, u"*", u""},
        ExtensionRow{"ExtensionsOfDifferentCaseDiffer", {u"a.jpg", u"b.JPG"}, base_only, u"*", u".*"},
        ExtensionRow{"TheLastPointOpensTheExtension", {u"a.tar.gz", u"b.tar.gz"}, base_only, u"*.tar", u".gz"},
        ExtensionRow{"AnExtensionMayBeAPointAlone", {u"a.", u"b."}, with_extension, u"*", u"."},
        ExtensionRow{"AnExtensionIsNotEscaped", {u"a.c#", u"b.c#"}, with_extension, u"*", u".c#"},
        ExtensionRow{"NumbersInExtensionsAreNotAnalysed", {u"a1.mp3", u"a2.mp4"}, with_extension, u"a#", u".*"},
        ExtensionRow{
            "NamesOfAnExtensionAloneHaveAnEmptyBase", {u".bashrc", u".profile", u"notes.txt"}, base_only, u"*", u".*"},
        ExtensionRow{"OneExtensionAndNoBasesGiveAnEmptyPattern", {u".txt"}, with_extension, u"", u".txt"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(PatternOfListedFiles, VisitsEntriesByTheirKeysWhateverTheOrderOfThePaths)
{
    EXPECT_EQ(computeNamePattern(Listing({u"sbtau", u"paqbr"}).files, false, NameMode::WholeName).pattern, u"*a*");
    EXPECT_EQ(computeNamePattern(Listing({u"Sbtau", u"paqbr"}).files, false, NameMode::WholeName).pattern, u"*a*");
}

TEST(PatternOfListedFiles, VisitsFoldersOneAfterTheOtherByTheirKeys)
{
    Listing listing;
    listing.disk.with(u"C:\\b\\", {u"paqbr"}).with(u"C:\\A\\", {u"sbtau"});
    listing.add(u"C:\\b\\", {u"paqbr"});
    listing.add(u"C:\\A\\", {u"sbtau"});
    EXPECT_EQ(computeNamePattern(listing.files, false, NameMode::WholeName).pattern, u"*b*");
}

TEST(PatternOfListedFiles, LeavesOutEntriesThatWereNotListed)
{
    Listing listing;
    listing.disk.with(u"C:\\A\\", {u"IMG_1.jpg", u"IMG_2.jpg", u"notes", u"other.txt"});
    listing.add(u"C:\\A\\", {u"IMG_2.jpg", u"IMG_1.jpg"});
    const ExtractedPattern extracted = computeNamePattern(listing.files, true, NameMode::BaseOnly);
    EXPECT_EQ(extracted.pattern, u"IMG_#");
    EXPECT_EQ(extracted.extensionText, u".jpg");
}

TEST(PatternOfListedFiles, LeavesOutEntriesThatTheUserTookFromTheList)
{
    const Listing listing({u"IMG_1.jpg", u"IMG_2.jpg", u"notes.txt"});
    listing.files.listed.back()->not_listed = true;
    EXPECT_EQ(computeNamePattern(listing.files, true, NameMode::WholeName).pattern, u"IMG_#.jpg");
}

TEST(PatternOfListedFiles, CountsAPathGivenTwiceOnce)
{
    Listing listing({u"a1"});
    listing.add(u"c:\\a\\", {u"A1"});
    EXPECT_EQ(computeNamePattern(listing.files, true, NameMode::WholeName).pattern, u"a1");
}

// The piece of the reference with the shorter number promises most until one name breaks it off, and comes to the same
// marks as the one with the longer number, which weighs more than "abc".
TEST(PatternOfManyNames, APieceWithALongerNumberIsFollowedThoughOneOfTheSameMarksWas)
{
    Names names;
    for (int i = 0; i < 40; ++i)
        names.push_back((i % 2 == 0 ? u"p" : u"q") + std::u16string(u"x1aaaaaaa_abc_x123") +
                        (i % 2 == 0 ? u"z" : u"y"));
    names[20] = u"pabc-x9-a-a-a-a-a-a-a-a-a-a-a-a-a-az";
    EXPECT_EQ(pattern_of(names, numbers), u"*x#*a*a*a*a*a*a*a*a*");
    EXPECT_EQ(reference_pattern_of_names(views_of(names), numbers), u"*x#*a*a*a*a*a*a*a*a*");
}

// --- lists that a plain search would not come to the end of

std::u16string random_text(std::mt19937_64& random, std::u16string_view alphabet, std::size_t length)
{
    std::u16string name;
    while (name.size() < length)
        name += alphabet[static_cast<std::size_t>(random() % alphabet.size())];
    return name;
}

Names random_names(std::u16string_view alphabet, std::size_t count, std::size_t length)
{
    std::mt19937_64 random(1);
    Names names(count);
    for (std::u16string& name : names)
        name = random_text(random, alphabet, length);
    return names;
}

void expect_answers(const Names& names)
{
    for (const bool numberMode : {true, false}) {
        const std::u16string pattern = pattern_of(names, numberMode);
        EXPECT_NE(pattern.find_first_of(u"*#"), std::u16string::npos);
        EXPECT_EQ(pattern.find(u':'), std::u16string::npos);
        EXPECT_EQ(pattern_of(names, numberMode), pattern);
    }
}

TEST(PatternOfHostileNames, AnswersForNamesRichInShortRunsOfDigits) { expect_answers(random_names(u"01a", 8, 30)); }

// No disk gives such names, which are moved aside before.
TEST(PatternOfHostileNames, AnswersForNamesThatHoldTheSignForNumbers)
{
    for (const std::u16string_view alphabet : {u"a:", u"a1:", u"1:", u"ab12:-"}) {
        for (const std::size_t length : {1U, 3U, 6U, 12U}) {
            const Names names = random_names(alphabet, 4, length);
            const std::u16string pattern = pattern_of(names, numbers);
            EXPECT_EQ(pattern.find(u':'), std::u16string::npos);
            EXPECT_EQ(pattern_of(names, numbers), pattern);
        }
    }
}

TEST(PatternOfHostileNames, AnswersForAThousandHexadecimalNames)
{
    expect_answers(random_names(u"0123456789abcdef", 1'000, 64));
}

TEST(PatternOfHostileNames, AnswersForTheLongestNames)
{
    expect_answers(random_names(u"ab1", 3, 255));
    expect_answers(random_names(u"0123456789-", 5, 255));
    expect_answers({std::u16string(254, u'a') + u"b", u"b" + std::u16string(254, u'a')});
    expect_answers({u"x" + std::u16string(253, u'1') + u"y", u"z" + std::u16string(253, u'2') + u"w"});
}

TEST(PatternOfHostileNames, AnswersForTheLongestNamesOfAlternatingDigitsAndLetters)
{
    Names names;
    for (const char16_t digit : {u'1', u'2', u'3'}) {
        std::u16string name(1, static_cast<char16_t>(u'p' + digit - u'0'));
        while (name.size() < 254)
            name.append({digit, u'a'});
        names.push_back(name + static_cast<char16_t>(u'w' + digit - u'0'));
    }
    expect_answers(names);
}

TEST(PatternOfHostileNames, AnswersForAHundredThousandPhotos)
{
    Names names;
    for (std::size_t shot = 1; shot <= 100'000; ++shot) {
        std::u16string name = u"IMG_";
        for (std::size_t unit = 100'000; unit > 0; unit /= 10)
            name += static_cast<char16_t>(u'0' + shot / unit % 10);
        names.push_back(name + u".jpg");
    }
    EXPECT_EQ(pattern_of(names, true), u"IMG_#.jpg");
    EXPECT_EQ(pattern_of(names, false), u"IMG_*0*.jpg"); // not one of them without a zero
}

} // namespace

} // namespace multirename
