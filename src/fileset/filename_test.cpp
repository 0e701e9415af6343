#include "fileset/filename.h"

#include <gtest/gtest.h>

#include "platform/name_key.h"

namespace multirename {
namespace {

std::shared_ptr<Filename> entry_named(std::u16string_view name)
{
    auto entry = std::make_shared<Filename>();
    entry->name = name;
    entry->key = name_key(name);
    return entry;
}

std::vector<std::u16string> names_of(const FilenameSet& set)
{
    std::vector<std::u16string> names;
    for (const auto& entry : set)
        names.push_back(entry->name);
    return names;
}

FilenameSet set_of(const std::vector<std::u16string>& names, bool tells_case_apart = false)
{
    std::vector<std::shared_ptr<Filename>> entries;
    entries.reserve(names.size());
    for (const std::u16string& name : names)
        entries.push_back(entry_named(name));
    return FilenameSet(std::move(entries), tells_case_apart);
}

using Names = std::vector<std::u16string>;

TEST(Filename, BeginsUnlistedAndOutOfScope)
{
    const Filename entry;
    EXPECT_FALSE(entry.is_folder);
    EXPECT_FALSE(entry.read_only);
    EXPECT_FALSE(entry.in_scope);
    EXPECT_TRUE(entry.not_listed);
    EXPECT_FALSE(entry.manual_name);
    EXPECT_EQ(entry.status, Status::Pending);
    EXPECT_EQ(entry.sequence, 0U);
    EXPECT_EQ(entry.folder_sequence, 0U);
    EXPECT_EQ(entry.other_time, 0U);
    EXPECT_EQ(entry.created, 0U);
    EXPECT_EQ(entry.new_name, u"");
    EXPECT_EQ(entry.folder, nullptr);
}

TEST(Status, HasTheNumbersThatScriptsSee)
{
    EXPECT_EQ(static_cast<int>(Status::Pending), 0);
    EXPECT_EQ(static_cast<int>(Status::Ready), 2);
    EXPECT_EQ(static_cast<int>(Status::Unchanged), 3);
    EXPECT_EQ(static_cast<int>(Status::SameName), 4);
    EXPECT_EQ(static_cast<int>(Status::ExistingName), 5);
    EXPECT_EQ(static_cast<int>(Status::Empty), 6);
    EXPECT_EQ(static_cast<int>(Status::SpaceOrPeriod), 7);
    EXPECT_EQ(static_cast<int>(Status::TooLong), 8);
    EXPECT_EQ(static_cast<int>(Status::Forbidden), 9);
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
    EXPECT_EQ(names_of(set_of({u"ab", u"x", u"AB", u"Ab"})), (Names{u"ab", u"x"}));
    EXPECT_EQ(names_of(set_of({u"AB", u"ab"})), (Names{u"AB"}));
}

TEST(FilenameSet, FindsByKey)
{
    const FilenameSet set = set_of({u"Beta", u"alpha"});
    ASSERT_NE(set.find(u"BETA", u"beta"), nullptr);
    EXPECT_EQ(set.find(u"BETA", u"beta")->name, u"Beta");
    EXPECT_EQ(set.find(u"BET", u"bet"), nullptr);
    EXPECT_EQ(set.find(u"BETAX", u"betax"), nullptr);
    EXPECT_EQ(FilenameSet().find(u"BETA", u"beta"), nullptr);
}

TEST(FilenameSet, WhereCaseIsToldApartNamesThatDifferOnlyInItStandSideBySide)
{
    const FilenameSet set = set_of({u"ab", u"x", u"AB", u"Ab", u"ab", u"AA"}, true);
    EXPECT_EQ(names_of(set), (Names{u"AA", u"AB", u"Ab", u"ab", u"x"}));
    ASSERT_NE(set.find(u"AB", u"Ab"), nullptr);
    EXPECT_EQ(set.find(u"AB", u"Ab")->name, u"Ab");
    EXPECT_EQ(set.find(u"AB", u"aB"), nullptr);
    EXPECT_EQ(set.find(u"X", u"X"), nullptr);
}

TEST(NameSplit, IsAtTheLastPeriod)
{
    EXPECT_EQ(base_name(u"photo.2020.jpg"), u"photo.2020");
    EXPECT_EQ(extension_of(u"photo.2020.jpg"), u".jpg");
    EXPECT_EQ(base_name(u"x."), u"x");
    EXPECT_EQ(extension_of(u"x."), u".");
}

TEST(NameSplit, ANameWithoutAPeriodHasNoExtension)
{
    EXPECT_EQ(base_name(u"README"), u"README");
    EXPECT_EQ(extension_of(u"README"), u"");
}

TEST(NameSplit, AFirstPeriodCountsToo)
{
    EXPECT_EQ(base_name(u".bashrc"), u"");
    EXPECT_EQ(extension_of(u".bashrc"), u".bashrc");
}

} // namespace
} // namespace multirename
