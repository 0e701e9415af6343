#include "fileset/filename_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/name_key.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;

Names names_of(const FilenameSet& set)
{
    Names names;
    for (const Filename& entry : set)
        names.emplace_back(entry.name);
    return names;
}

FilenameSet set_of(const Names& names, bool tells_case_apart = false)
{
    FolderEntries entries;
    DirectoryEntry entry;
    for (const std::u16string& name : names) {
        entry.name = name;
        entries.add(entry);
    }
    return FilenameSet(std::move(entries), tells_case_apart);
}

TEST(FilenameSet, HasNoNaturalOrderOfNumbers)
{
    EXPECT_EQ(names_of(set_of({u"FILE9", u"FILE10"})), (Names{u"FILE10", u"FILE9"}));
}

TEST(FilenameSet, SortsWithoutRegardToCase)
{
    EXPECT_EQ(names_of(set_of({u"b", u"C", u"a"})), (Names{u"a", u"b", u"C"}));
}

TEST(FilenameSet, SortsTheUnderscoreAfterAllLetters)
{
    EXPECT_EQ(names_of(set_of({u"a_", u"az", u"aA"})), (Names{u"aA", u"az", u"a_"}));
}

TEST(FilenameSet, SortsByTheValueOfUnits)
{
    // As a character the emoji comes last, yet the first unit of its pair lies below U+FF5E.
    EXPECT_EQ(names_of(set_of({u"\uFF5E", u"\xD83D\xDE00", u"\u20AC"})),
              (Names{u"\u20AC", u"\xD83D\xDE00", u"\uFF5E"}));
}

TEST(FilenameSet, TheFirstOfEntriesWithOneKeyStays)
{
    EXPECT_EQ(names_of(set_of({u"ab", u"x", u"Ab"})), (Names{u"ab", u"x"}));
    EXPECT_EQ(names_of(set_of({u"AB", u"ab"})), (Names{u"AB"}));
}

TEST(FilenameSet, FindsANameInAnyCase)
{
    const FilenameSet set = set_of({u"Beta", u"alpha"});
    ASSERT_NE(set.find(u"beta"), nullptr);
    EXPECT_EQ(set.find(u"beta")->name, u"Beta");
    EXPECT_EQ(set.find(u"bet"), nullptr);
    EXPECT_EQ(set.find(u"betax"), nullptr);
    EXPECT_EQ(FilenameSet().find(u"beta"), nullptr);
}

TEST(FilenameSet, WhereCaseIsToldApartNamesThatDifferOnlyInItStandSideBySide)
{
    const FilenameSet set = set_of({u"ab", u"x", u"Ab", u"ab", u"AA"}, true);
    EXPECT_EQ(names_of(set), (Names{u"AA", u"Ab", u"ab", u"x"}));
    ASSERT_NE(set.find(u"Ab"), nullptr);
    EXPECT_EQ(set.find(u"Ab")->name, u"Ab");
    EXPECT_EQ(set.find(u"aB"), nullptr);
    EXPECT_EQ(set.find(u"X"), nullptr);
}

// The order and the first of equals, found in the plainest way.
Names sorted_plainly(const Names& names, bool tells_case_apart)
{
    Names sorted = names;
    const auto sorts_before = [tells_case_apart](const std::u16string& a, const std::u16string& b) {
        const int order = name_key(a).compare(name_key(b));
        return order < 0 || (order == 0 && tells_case_apart && a < b);
    };
    const auto is_same = [tells_case_apart](const std::u16string& a, const std::u16string& b) {
        return tells_case_apart ? a == b : name_key(a) == name_key(b);
    };
    std::stable_sort(sorted.begin(), sorted.end(), sorts_before);
    sorted.erase(std::unique(sorted.begin(), sorted.end(), is_same), sorted.end());
    return sorted;
}

struct RandomNames {
    const char* sentence;
    std::size_t count;
    std::u16string_view alphabet;
    std::u16string_view front;
    std::size_t longest;
};
class RandomNamesInOrder : public testing::TestWithParam<RandomNames> { };
TEST_P(RandomNamesInOrder, AreSortedAndFound)
{
    const RandomNames& row = GetParam();
    std::mt19937 random(1);
    for (const bool tells_case_apart : {false, true}) {
        Names names(row.count);
        for (std::u16string& name : names) {
            name = random() % 50 == 0 ? u"" : row.front;
            for (std::size_t length = random() % (row.longest + 1); length > 0; --length)
                name.push_back(row.alphabet[random() % row.alphabet.size()]);
        }
        const FilenameSet set = set_of(names, tells_case_apart);
        const Names expected = sorted_plainly(names, tells_case_apart);
        ASSERT_EQ(names_of(set), expected);
        std::vector<std::u16string_view> asked;
        std::vector<Filename*> answers;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::size_t place = i % 7 == 0 ? random() % expected.size() : i;
            asked.emplace_back(i % 31 == 0 ? std::u16string_view(u"~~") : expected[place]);
            answers.push_back(i % 31 == 0 ? nullptr : &set[place]);
        }
        std::vector<Filename*> found(asked.size());
        set.find_each(nullptr, asked, found);
        ASSERT_EQ(found, answers);
        set.find_each(&set[set.size() - 1], asked, found);
        ASSERT_EQ(found, answers);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(set.find(expected[i]), &set[i]);
            ASSERT_EQ(set.find(expected[i] + u"~"), nullptr);
        }
    }
}
INSTANTIATE_TEST_SUITE_P(
    All, RandomNamesInOrder,
    testing::Values(RandomNames{"OfFewLetters", 300, u"aAbB_", u"", 4},
                    RandomNames{"WithMuchInFrontThatIsTheSame", 3000, u"aA0123456789", u"IMG_20240305_", 6},
                    RandomNames{"OfAllKindsOfUnits", 3000, u"a\u00E9\u00C9\u4E00\uFF5E\xD83D\xDE00\x01", u"\u00E9t", 9},
                    RandomNames{"ThatAreLong", 1500, u"aB", u"", 255},
                    RandomNames{"ThatDifferInEveryBit", 2000, u"\u5555\uAAAA", u"", 24},
                    RandomNames{"ManyOfFewBits", 1500, u"ab", u"x", 3},
                    RandomNames{"ManyOfMoreBits", 1500, u"ab", u"x", 8}, RandomNames{"ThatAreFew", 17, u"ab", u"x", 9},
                    RandomNames{"WithNulInThem", 500, {u"a\0", 2}, u"a", 6}),
    [](const auto& row) { return std::string(row.param.sentence); });

// One name takes up all the bits that are looked at first, and the others differ behind it, before what all share.
TEST(FilenameSet, ANameUnlikeTheOthersHidesNotWhereTheyDiffer)
{
    for (const std::size_t same_behind : {0U, 4U, 8U, 40U}) {
        Names names;
        for (std::size_t i = 0; i < 40; ++i) {
            const auto differing = static_cast<char16_t>(u'a' + (i * 7) % 26);
            const auto second = static_cast<char16_t>(u'a' + (i * 7) % 40 / 26);
            names.push_back(std::u16string(4, u'\u5555') + second + differing + u"__" +
                            std::u16string(same_behind, u'z'));
        }
        names.push_back(std::u16string(4, u'\uAAAA') + names.front().substr(4));
        EXPECT_EQ(names_of(set_of(names)), sorted_plainly(names, false)) << same_behind;
    }
}

TEST(FilenameSet, KeepsWhatTheListingTellsOfEachEntry)
{
    FolderEntries entries;
    DirectoryEntry entry;
    entry.name = u"b";
    entry.has_details = true;
    entry.size = 7;
    entries.add(entry);
    entry.name = u"a";
    entry.size = 5;
    entry.is_folder = true;
    entries.add(entry);
    const FilenameSet set(std::move(entries));
    EXPECT_EQ(set[0].size, 5U);
    EXPECT_TRUE(set[0].is_folder);
    EXPECT_EQ(set[1].size, 7U);
    EXPECT_FALSE(set[1].is_folder);
}

} // namespace
} // namespace multirename
