#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <span>

#include "fileset/testing/all_texts.h"
#include "pattern/name_pattern.h"

namespace multirename {
namespace {

using Texts = std::vector<std::u16string>;

NamePattern parsed(std::u16string_view text) { return parsePattern(text, u"", NameMode::WholeName); }

/// A pattern with one text part for each text and a wild part between neighbours.
NamePattern of_texts(const Texts& texts)
{
    NamePattern pattern;
    for (const std::u16string& text : texts) {
        if (!pattern.parts.empty())
            pattern.parts.push_back(NamePart::make_wild());
        pattern.parts.push_back(NamePart::make_text(text));
    }
    return pattern;
}

/// For each text of the new pattern the place of the old text that it was paired with, from 0; -1 when with none.
std::vector<int> pairing(const Texts& new_texts, const Texts& old_texts)
{
    NamePattern old_pattern = of_texts(old_texts);
    std::map<std::u16string, int> places;
    for (std::size_t i = 0; i < old_texts.size(); ++i) {
        const std::u16string edited = u"edit " + std::u16string(i + 1, u'x');
        old_pattern.parts[2 * i].setText(edited);
        places[edited] = static_cast<int>(i);
    }
    NamePattern new_pattern = of_texts(new_texts);
    carryPartSettings(new_pattern, old_pattern);
    std::vector<int> result;
    for (std::size_t i = 0; i < new_texts.size(); ++i) {
        const auto place = places.find(new_pattern.parts[2 * i].text);
        result.push_back(place == places.end() ? -1 : place->second);
    }
    return result;
}

struct PairingRow {
    const char* sentence;
    Texts new_texts;
    Texts old_texts;
    std::vector<int> expected;
};
class CarryPairing : public testing::TestWithParam<PairingRow> { };
TEST_P(CarryPairing, Holds) { EXPECT_EQ(pairing(GetParam().new_texts, GetParam().old_texts), GetParam().expected); }
INSTANTIATE_TEST_SUITE_P(
    All, CarryPairing,
    testing::Values(
        PairingRow{"EqualListsPairFromTheFront", {u"A", u"B", u"C"}, {u"A", u"B", u"C"}, {0, 1, 2}},
        PairingRow{"NothingPairsWithOtherText", {u"A"}, {u"B"}, {-1}},
        PairingRow{"CaseCounts", {u"a", u"B"}, {u"A", u"B"}, {-1, -1}},
        PairingRow{"AnInsertedTextIsPassedOver", {u"A", u"X", u"B"}, {u"A", u"B"}, {0, -1, 1}},
        PairingRow{"ARemovedTextIsPassedOver", {u"A", u"B"}, {u"A", u"X", u"B"}, {0, 2}},
        PairingRow{"TwoInsertedTextsArePassedOver", {u"A", u"X", u"Y", u"B"}, {u"A", u"B"}, {0, -1, -1, 1}},
        PairingRow{"TextsAtTheFrontArePassedOver", {u"X", u"A"}, {u"A"}, {-1, 0}},
        PairingRow{"AReplacedTextEndsThePairing", {u"A", u"Y", u"B"}, {u"A", u"X", u"B"}, {0, -1, -1}},
        PairingRow{"TwoReplacedTextsEndItToo", {u"A", u"Y", u"Z", u"B"}, {u"A", u"X", u"W", u"B"}, {0, -1, -1, -1}},
        PairingRow{"OneTextForTwoMeetsAgain", {u"A", u"Y", u"B"}, {u"A", u"X", u"W", u"B"}, {0, -1, 3}},
        PairingRow{"TwoTextsForOneMeetAgain", {u"A", u"Y", u"Z", u"B"}, {u"A", u"X", u"B"}, {0, -1, -1, 2}},
        PairingRow{"ATextMovedToTheEndIsLeftOut", {u"Q", u"R", u"P"}, {u"P", u"Q", u"R"}, {1, 2, -1}},
        PairingRow{"ATextMovedToTheFrontIsLeftOut", {u"P", u"Q", u"R"}, {u"Q", u"R", u"P"}, {-1, 0, 1}},
        PairingRow{"MorePairsWinAtOneDistance", {u"Q", u"P", u"R"}, {u"P", u"Q", u"P", u"R"}, {1, 2, 3}},
        PairingRow{"MorePairsWinOnTheOtherSideToo", {u"P", u"Q", u"P", u"R"}, {u"Q", u"P", u"R"}, {-1, 0, 1, 2}},
        PairingRow{"TheNearestMeetingPointWinsOverMorePairsFurtherOff",
                   {u"B", u"X", u"A", u"B", u"C", u"D"},
                   {u"A", u"B", u"C", u"D"},
                   {1, -1, -1, -1, 2, 3}},
        PairingRow{
            "TheSearchGoesOnAfterEachMeetingPoint", {u"A", u"X", u"B", u"C"}, {u"A", u"B", u"Y", u"C"}, {0, -1, 1, 3}},
        PairingRow{"EqualTextsPairInOrder", {u"", u"A", u""}, {u"", u"A", u""}, {0, 1, 2}}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(CarrySettings, AtATieOneOfTwoPairsIsMade)
{
    const std::vector<int> paired = pairing({u"Q", u"P"}, {u"P", u"Q"});
    EXPECT_TRUE(paired == (std::vector<int>{1, -1}) || paired == (std::vector<int>{-1, 0}))
        << testing::PrintToString(paired);
}

// How many texts the rule pairs, with every choice followed to its end.
std::size_t pairs_plainly(std::span<const std::u16string> new_texts, std::span<const std::u16string> old_texts)
{
    std::optional<std::size_t> most;
    const auto try_pair = [&](std::size_t new_place, std::size_t old_place) {
        if (new_place >= new_texts.size() || old_place >= old_texts.size() ||
            new_texts[new_place] != old_texts[old_place])
            return;
        const std::size_t behind = pairs_plainly(new_texts.subspan(new_place + 1), old_texts.subspan(old_place + 1));
        most = std::max(most.value_or(0), 1 + behind);
    };
    try_pair(0, 0);
    for (std::size_t distance = 1; distance < std::max(new_texts.size(), old_texts.size()) && !most; ++distance) {
        for (std::size_t nearer = 0; nearer < distance; ++nearer) {
            try_pair(distance, nearer);
            try_pair(nearer, distance);
        }
    }
    return most.value_or(0);
}

TEST(CarrySettings, AsManyPairsAreMadeAsTheMeetingPointsAtTheNearestDistancesAllow)
{
    std::vector<Texts> lists;
    for (const std::u16string& letters : all_texts(u"ABC", 4)) {
        Texts& texts = lists.emplace_back();
        for (const char16_t letter : letters)
            texts.emplace_back(1, letter);
    }
    for (const Texts& new_texts : lists) {
        for (const Texts& old_texts : lists) {
            const std::vector<int> paired = pairing(new_texts, old_texts);
            const auto pairs =
                static_cast<std::size_t>(std::ranges::count_if(paired, [](int place) { return place >= 0; }));
            ASSERT_EQ(pairs, pairs_plainly(new_texts, old_texts))
                << testing::PrintToString(new_texts) << " after " << testing::PrintToString(old_texts);
        }
    }
}

TEST(CarrySettings, TextPartsTakeTheEditedText)
{
    NamePattern old_pattern = parsed(u"IMG_#b");
    old_pattern.parts[0].setText(u"Photo ");
    old_pattern.parts[2].setText(u"?");
    NamePattern new_pattern = parsed(u"IMG_#b");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_EQ(new_pattern.parts[0].text, u"Photo ");
    EXPECT_EQ(new_pattern.parts[0].matchText, u"IMG_");
    EXPECT_FALSE(new_pattern.parts[0].invalid);
    EXPECT_EQ(new_pattern.parts[2].text, u"?");
    EXPECT_TRUE(new_pattern.parts[2].invalid);
}

TEST(CarrySettings, AnEditedEmptyTextNoLongerKeepsWhatWasMatched)
{
    NamePattern old_pattern = parsed(u"#");
    old_pattern.parts[2].setText(u" end");
    NamePattern new_pattern = parsed(u"#");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_TRUE(new_pattern.parts[0].keepMatched);
    EXPECT_FALSE(new_pattern.parts[2].keepMatched);
    EXPECT_EQ(new_pattern.parts[2].text, u" end");
}

TEST(CarrySettings, ATextThatKeepsWhatWasMatchedHandsOnNoText)
{
    NamePattern old_pattern = parsed(u"a#");
    old_pattern.parts[0].keepMatched = true;
    old_pattern.parts[0].text = u"not taken";
    NamePattern new_pattern = parsed(u"a#");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_TRUE(new_pattern.parts[0].keepMatched);
    EXPECT_EQ(new_pattern.parts[0].text, u"a");
}

NamePattern with_number_settings(std::u16string_view text, std::size_t part)
{
    NamePattern pattern = parsed(text);
    NamePart& number = pattern.parts[part];
    number.length = 7;
    number.clearText = true;
    number.leadingZeros = LeadingZerosMode::RemoveZeros;
    number.renumber = true;
    number.startNumber = 50;
    number.baseNumber = 9;
    return pattern;
}

bool has_number_settings(const NamePart& number)
{
    return number.length == 7 && number.clearText && number.leadingZeros == LeadingZerosMode::RemoveZeros &&
        number.renumber && number.startNumber == 50;
}

bool is_untouched_number(const NamePart& number)
{
    return number.length == 4 && !number.clearText && number.leadingZeros == LeadingZerosMode::Unchanged &&
        !number.renumber && number.startNumber == -1;
}

TEST(CarrySettings, ANumberTakesEverythingButTheBaseNumber)
{
    NamePattern new_pattern = parsed(u"a#");
    new_pattern.parts[1].baseNumber = 3;
    carryPartSettings(new_pattern, with_number_settings(u"a#", 1));
    EXPECT_TRUE(has_number_settings(new_pattern.parts[1]));
    EXPECT_EQ(new_pattern.parts[1].baseNumber, 3);
}

TEST(CarrySettings, ANumberTakesNothingThatIsForWildsAlone)
{
    NamePattern old_pattern = with_number_settings(u"a#", 1);
    old_pattern.parts[1].truncate = true;
    old_pattern.parts[1].findText = u"find";
    old_pattern.parts[1].caseStyle = CaseStyle::Snake;
    NamePattern new_pattern = parsed(u"a#");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_TRUE(has_number_settings(new_pattern.parts[1]));
    EXPECT_FALSE(new_pattern.parts[1].truncate);
    EXPECT_EQ(new_pattern.parts[1].findText, u"");
    EXPECT_EQ(new_pattern.parts[1].caseStyle, CaseStyle::Unchanged);
}

TEST(CarrySettings, ANumberFollowsTheTextBeforeIt)
{
    NamePattern new_pattern = parsed(u"x*a#b");
    carryPartSettings(new_pattern, with_number_settings(u"a#c", 1));
    EXPECT_TRUE(has_number_settings(new_pattern.parts[3]));
}

TEST(CarrySettings, ANumberDoesNotFollowTheTextAfterIt)
{
    NamePattern new_pattern = parsed(u"x#b");
    carryPartSettings(new_pattern, with_number_settings(u"a#y*b", 1));
    EXPECT_TRUE(is_untouched_number(new_pattern.parts[1]));
}

TEST(CarrySettings, ANumberTakesNothingFromAWild)
{
    NamePattern old_pattern = parsed(u"a*b");
    old_pattern.parts[1].length = 2;
    NamePattern new_pattern = parsed(u"a#b");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_TRUE(is_untouched_number(new_pattern.parts[1]));
}

TEST(CarrySettings, ANumberBehindAReplacedTextIsUntouched)
{
    NamePattern new_pattern = parsed(u"a#y#b");
    carryPartSettings(new_pattern, with_number_settings(u"a#x#b", 3));
    EXPECT_TRUE(is_untouched_number(new_pattern.parts[1]));
    EXPECT_TRUE(is_untouched_number(new_pattern.parts[3]));
}

TEST(CarrySettings, ANumberIsUntouchedWhereTheOldPatternEnds)
{
    NamePattern new_pattern = parsed(u"a#");
    carryPartSettings(new_pattern, parsed(u"a"));
    EXPECT_TRUE(is_untouched_number(new_pattern.parts[1]));
}

NamePattern with_wild_settings(NamePattern pattern, std::size_t part)
{
    NamePart& wild = pattern.parts[part];
    wild.length = 3;
    wild.truncate = true;
    wild.findText = u"find";
    wild.replaceText = u"replace";
    wild.caseStyle = CaseStyle::Snake;
    return pattern;
}

bool has_wild_settings(const NamePart& wild)
{
    return wild.length == 3 && wild.truncate && wild.findText == u"find" && wild.replaceText == u"replace" &&
        wild.caseStyle == CaseStyle::Snake;
}

bool is_untouched_wild(const NamePart& wild)
{
    return wild.length == 8 && !wild.truncate && wild.findText.empty() && wild.replaceText.empty() &&
        wild.caseStyle == CaseStyle::Unchanged;
}

TEST(CarrySettings, AWildBetweenPairedNeighboursTakesItsSettings)
{
    NamePattern new_pattern = parsed(u"a*b");
    carryPartSettings(new_pattern, with_wild_settings(parsed(u"a*b"), 1));
    EXPECT_TRUE(has_wild_settings(new_pattern.parts[1]));
}

TEST(CarrySettings, AWildDoesNotTakeWhatItMustMatch)
{
    NamePattern old_pattern = with_wild_settings(parsed(u"a*b"), 1);
    old_pattern.parts[1].minLength = 2;
    old_pattern.parts[1].fixedLength = true;
    old_pattern.parts[1].mustStartWithDot = true;
    NamePattern new_pattern = parsed(u"a*b");
    carryPartSettings(new_pattern, old_pattern);
    EXPECT_EQ(new_pattern.parts[1].minLength, 0);
    EXPECT_FALSE(new_pattern.parts[1].fixedLength);
    EXPECT_FALSE(new_pattern.parts[1].mustStartWithDot);
}

TEST(CarrySettings, AWildWhoseNeighboursWereFurtherApartIsUntouched)
{
    NamePattern new_pattern = parsed(u"a*b");
    carryPartSettings(new_pattern, with_wild_settings(parsed(u"a*x*b"), 1));
    EXPECT_TRUE(is_untouched_wild(new_pattern.parts[1]));
}

TEST(CarrySettings, AWildWithAnUnpairedNeighbourIsUntouched)
{
    NamePattern new_pattern = parsed(u"a*y");
    carryPartSettings(new_pattern, with_wild_settings(parsed(u"a*x"), 1));
    EXPECT_TRUE(is_untouched_wild(new_pattern.parts[1]));
}

TEST(CarrySettings, AWildTakesNothingFromANumber)
{
    NamePattern new_pattern = parsed(u"a*b");
    carryPartSettings(new_pattern, with_number_settings(u"a#b", 1));
    EXPECT_TRUE(is_untouched_wild(new_pattern.parts[1]));
}

TEST(CarrySettings, AnExtensionWildHasNoNeighbourAfterItAndIsUntouched)
{
    const NamePattern plain = parsePattern(u"a*b", u".*", NameMode::BaseWithExtensionPart);
    NamePattern new_pattern = plain;
    carryPartSettings(new_pattern, with_wild_settings(with_wild_settings(plain, 1), 3));
    EXPECT_TRUE(has_wild_settings(new_pattern.parts[1]));
    EXPECT_TRUE(is_untouched_wild(new_pattern.parts[3]));
}

TEST(CarrySettings, WildsBetweenEmptyTextsFollowThem)
{
    NamePattern new_pattern = parsed(u"**");
    carryPartSettings(new_pattern, with_wild_settings(parsed(u"**"), 3));
    EXPECT_TRUE(is_untouched_wild(new_pattern.parts[1]));
    EXPECT_TRUE(has_wild_settings(new_pattern.parts[3]));
}

TEST(CarrySettings, LeavesWhatIsShownAlone)
{
    NamePattern new_pattern = parsePattern(u"a*", u".x", NameMode::BaseWithExtensionPart);
    carryPartSettings(new_pattern, parsed(u"a#"));
    EXPECT_EQ(new_pattern.patternText, u"a*.x");
    EXPECT_TRUE(new_pattern.includesExtension);
    EXPECT_EQ(new_pattern.parts.size(), 3U);
}

TEST(CarrySettings, LongPatternsWithNothingAndEverythingInCommonAnswer)
{
    Texts many_a(60, u"A");
    Texts mixed;
    for (int i = 0; i < 60; ++i)
        mixed.emplace_back(i % 2 == 0 ? u"A" : u"B");
    EXPECT_EQ(pairing(many_a, many_a).back(), 59);
    EXPECT_EQ(pairing(mixed, many_a).front(), 0);
    EXPECT_EQ(pairing(Texts(60, u"X"), many_a), std::vector<int>(60, -1));
}

} // namespace
} // namespace multirename
