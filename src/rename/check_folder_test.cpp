#include "rename/check_folder.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <span>

#include "fileset/testing/test_files.h"
#include "platform/name_key.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;
using Statuses = std::vector<Status>;

/// What one entry of a folder is called and what it is to be called; nothing when it takes no part.
struct Wish {
    std::u16string name;
    std::optional<std::u16string> new_name;
};

// A short path, so that names of 256 characters can be listed.
constexpr std::u16string_view root = u"C:\\";

std::unique_ptr<TestFiles> folder_with(const std::vector<Wish>& wishes)
{
    Names listed;
    Names beside;
    for (const Wish& wish : wishes)
        (wish.new_name ? listed : beside).push_back(std::u16string(root) + wish.name);
    if (listed.empty()) // the folder is read only for the sake of a listed entry
        listed.emplace_back(u"C:\\~");
    auto test = std::make_unique<TestFiles>(listed, beside);
    test->files.mark_scope({});
    for (const Wish& wish : wishes) {
        if (wish.new_name)
            test->entry(wish.name, root).new_name = test->files.pasted_names.add(*wish.new_name);
    }
    return test;
}

Names names_of(std::span<Filename* const> entries)
{
    Names names;
    for (const Filename* entry : entries)
        names.emplace_back(entry->name);
    return names;
}

struct CheckRow {
    const char* sentence;
    std::vector<Wish> wishes;
    Statuses statuses; ///< of the wishes, one by one
    Names order;
};
class CheckFolderRow : public testing::TestWithParam<CheckRow> {
protected:
    void SetUp() override
    {
        test_ = folder_with(GetParam().wishes);
        check_folder(*test_->files.folders.front());
    }

    std::unique_ptr<TestFiles> test_;
};
TEST_P(CheckFolderRow, Statuses)
{
    for (std::size_t i = 0; i < GetParam().wishes.size(); ++i)
        EXPECT_EQ(test_->entry(GetParam().wishes[i].name, root).status, GetParam().statuses[i]) << i;
}
TEST_P(CheckFolderRow, Order) { EXPECT_EQ(names_of(test_->files.folders.front()->rename_order), GetParam().order); }

constexpr auto stays = std::nullopt;
constexpr Status pending = Status::Pending;
constexpr Status ready = Status::Ready;
constexpr Status unchanged = Status::Unchanged;
constexpr Status same_name = Status::SameName;
constexpr Status existing = Status::ExistingName;
constexpr Status empty = Status::Empty;
constexpr Status space_or_period = Status::SpaceOrPeriod;
constexpr Status too_long = Status::TooLong;

std::string check_sentence(const testing::TestParamInfo<CheckRow>& row) { return row.param.sentence; }

const std::u16string name_of_255(255, u'n');
const std::u16string name_of_256(256, u'n');

INSTANTIATE_TEST_SUITE_P(
    OneEntry, CheckFolderRow,
    testing::Values(CheckRow{"WhatTakesNoPartIsReady", {{u"a", stays}}, {ready}, {}},
                    CheckRow{"AFreeNameIsReady", {{u"a", u"b"}}, {ready}, {u"a"}},
                    CheckRow{"TheSameNameIsUnchanged", {{u"a", u"a"}}, {unchanged}, {}},
                    CheckRow{"AChangeOfCaseIsReady", {{u"x.txt", u"X.TXT"}}, {ready}, {u"x.txt"}},
                    CheckRow{"AChangeOfCaseBeyondAsciiIsReady", {{u"\u00E9", u"\u00C9"}}, {ready}, {u"\u00E9"}},
                    CheckRow{"NoNameIsEmpty", {{u"a", u""}}, {empty}, {}},
                    CheckRow{"ANameOf255CharactersIsReady", {{u"a", name_of_255}}, {ready}, {u"a"}},
                    CheckRow{"ANameOf256CharactersIsTooLong", {{u"a", name_of_256}}, {too_long}, {}},
                    CheckRow{"ASpaceInFront", {{u"a", u" b"}}, {space_or_period}, {}},
                    CheckRow{"ASpaceAtTheEnd", {{u"a", u"b "}}, {space_or_period}, {}},
                    CheckRow{"APeriodAtTheEnd", {{u"a", u"b."}}, {space_or_period}, {}},
                    CheckRow{"ASpaceAlone", {{u"a", u" "}}, {space_or_period}, {}},
                    CheckRow{"APeriodAlone", {{u"a", u"."}}, {space_or_period}, {}},
                    CheckRow{"APeriodInFrontIsReady", {{u"a", u".b"}}, {ready}, {u"a"}},
                    CheckRow{"ASpaceInsideIsReady", {{u"a", u"b c"}}, {ready}, {u"a"}}),
    check_sentence);

INSTANTIATE_TEST_SUITE_P(
    Precedence, CheckFolderRow,
    testing::Values(
        CheckRow{"UnchangedComesBeforeASpace", {{u" a", u" a"}}, {unchanged}, {}},
        CheckRow{"UnchangedComesBeforeAPeriod", {{u"a.", u"a."}}, {unchanged}, {}},
        CheckRow{"UnchangedComesBeforeTooLong", {{name_of_256, name_of_256}}, {unchanged}, {}},
        CheckRow{"AChangeOfCaseIsStillTooLong", {{name_of_256, std::u16string(256, u'N')}}, {too_long}, {}},
        CheckRow{"AChangeOfCaseStillHasItsSpace", {{u"a ", u"A "}}, {space_or_period}, {}},
        CheckRow{"TooLongComesBeforeASpace", {{u"a", u" " + name_of_255}}, {too_long}, {}},
        CheckRow{"ASpaceComesBeforeAnExistingName", {{u"a", u" b"}, {u" b", stays}}, {space_or_period, ready}, {}},
        CheckRow{
            "TooLongComesBeforeAnExistingName", {{u"a", name_of_256}, {name_of_256, stays}}, {too_long, ready}, {}}),
    check_sentence);

INSTANTIATE_TEST_SUITE_P(
    ExistingNames, CheckFolderRow,
    testing::Values(
        CheckRow{"ANameThatSomethingElseHas", {{u"A.txt", u"B.txt"}, {u"B.txt", stays}}, {existing, ready}, {}},
        CheckRow{"InAnyCase", {{u"a", u"b"}, {u"B", stays}}, {existing, ready}, {}},
        CheckRow{"InAnyCaseBeyondAscii", {{u"a", u"\u00C9"}, {u"\u00E9", stays}}, {existing, ready}, {}},
        CheckRow{"ANameThatAnUnchangedEntryHas", {{u"a", u"b"}, {u"b", u"b"}}, {existing, unchanged}, {}},
        CheckRow{"ANameThatAnUnchangedEntryHasInAnotherCase", {{u"a", u"B"}, {u"b", u"b"}}, {existing, unchanged}, {}},
        CheckRow{"TwoEntriesOntoOneThatStays",
                 {{u"a", u"c"}, {u"b", u"C"}, {u"c", stays}},
                 {existing, existing, ready},
                 {}}),
    check_sentence);

INSTANTIATE_TEST_SUITE_P(
    SameNames, CheckFolderRow,
    testing::Values(
        CheckRow{"TwoThatDifferInCase", {{u"a", u"NEW.txt"}, {u"b", u"new.TXT"}}, {same_name, same_name}, {}},
        CheckRow{"Three", {{u"a", u"x"}, {u"b", u"x"}, {u"c", u"x"}}, {same_name, same_name, same_name}, {}},
        CheckRow{"TwoPairs",
                 {{u"a", u"x"}, {u"b", u"y"}, {u"c", u"x"}, {u"d", u"y"}},
                 {same_name, same_name, same_name, same_name},
                 {}},
        CheckRow{"AnEntryThatOnlyChangesCaseToo", {{u"a", u"A"}, {u"b", u"a"}}, {same_name, same_name}, {}},
        CheckRow{"EmptyNamesStayEmpty", {{u"a", u""}, {u"b", u""}}, {empty, empty}, {}},
        CheckRow{"NamesWithSpacesStayThat", {{u"a", u"x "}, {u"b", u"X "}}, {space_or_period, space_or_period}, {}},
        CheckRow{"LongNamesStayLong", {{u"a", name_of_256}, {u"b", name_of_256}}, {too_long, too_long}, {}},
        CheckRow{"OthersGoOn", {{u"a", u"x"}, {u"b", u"x"}, {u"c", u"y"}}, {same_name, same_name, ready}, {u"c"}},
        CheckRow{"OntoANameThatIsMovedAway",
                 {{u"a", u"c"}, {u"b", u"c"}, {u"c", u"d"}},
                 {same_name, same_name, ready},
                 {u"c"}}),
    check_sentence);

INSTANTIATE_TEST_SUITE_P(
    Orders, CheckFolderRow,
    testing::Values(CheckRow{"AChainMovesItsEndFirst",
                             {{u"A.txt", u"B.txt"}, {u"B.txt", u"C.txt"}},
                             {ready, ready},
                             {u"B.txt", u"A.txt"}},
                    CheckRow{"ALongChainMovesItsEndFirst",
                             {{u"a", u"b"}, {u"b", u"c"}, {u"c", u"d"}, {u"d", u"e"}},
                             {ready, ready, ready, ready},
                             {u"d", u"c", u"b", u"a"}},
                    CheckRow{"AChainThatRunsForward",
                             {{u"b", u"a"}, {u"c", u"b"}, {u"d", u"c"}},
                             {ready, ready, ready},
                             {u"b", u"c", u"d"}},
                    CheckRow{"AChainInOtherCases", {{u"a", u"B"}, {u"b", u"C"}}, {ready, ready}, {u"b", u"a"}},
                    CheckRow{"AChangeOfCaseBesideOthers", {{u"a", u"c"}, {u"b", u"B"}}, {ready, ready}, {u"a", u"b"}},
                    CheckRow{"AChainThatEndsInANameThatStays",
                             {{u"a", u"b"}, {u"b", u"c"}, {u"c", stays}},
                             {ready, existing, ready},
                             {u"a"}},
                    CheckRow{"ASwapIsRefused", {{u"A.txt", u"B.txt"}, {u"B.txt", u"A.txt"}}, {existing, existing}, {}},
                    CheckRow{"ALongerCycleIsRefused",
                             {{u"a", u"b"}, {u"b", u"c"}, {u"c", u"a"}},
                             {existing, existing, existing},
                             {}},
                    CheckRow{"ACycleBesideOthersIsRefusedAlone",
                             {{u"a", u"b"}, {u"b", u"a"}, {u"c", u"d"}, {u"e", u"e"}},
                             {existing, existing, ready, unchanged},
                             {u"c"}},
                    CheckRow{"AHolderWithAFaultCountsAsMovedAway", {{u"a", u"b"}, {u"b", u""}}, {ready, empty}, {u"a"}},
                    CheckRow{"AHolderWithADuplicateCountsAsMovedAway",
                             {{u"a", u"b"}, {u"b", u"x"}, {u"c", u"x"}},
                             {ready, same_name, same_name},
                             {u"a"}}),
    check_sentence);

TEST(CheckFolder, IsRepeatable)
{
    const auto test = folder_with({{u"a", u"b"}, {u"b", u"c"}});
    RenameFolder& folder = *test->files.folders.front();
    check_folder(folder);
    check_folder(folder);
    EXPECT_EQ(names_of(folder.rename_order), (Names{u"b", u"a"}));
    test->entry(u"b", root).new_name = u"b";
    check_folder(folder);
    EXPECT_EQ(names_of(folder.rename_order), Names{});
    EXPECT_EQ(test->entry(u"a", root).status, Status::ExistingName);
}

TEST(CheckFolder, JudgesNothingByFormerStatuses)
{
    const auto test = folder_with({{u"a", u"b"}, {u"c", stays}});
    test->files.mark_all_invalid();
    check_folder(*test->files.folders.front());
    EXPECT_EQ(test->entry(u"a", root).status, Status::Ready);
    EXPECT_EQ(test->entry(u"c", root).status, Status::Ready);
}

TEST(CheckFolder, AListedEntryOutOfScopeStandsInTheWay)
{
    const auto test = folder_with({{u"a", u"b"}, {u"b", u"c"}});
    test->entry(u"b", root).in_scope = false;
    check_folder(*test->files.folders.front());
    EXPECT_EQ(test->entry(u"a", root).status, Status::ExistingName);
    EXPECT_EQ(test->entry(u"b", root).status, Status::Ready);
    EXPECT_TRUE(test->files.folders.front()->rename_order.empty());
}

TEST(CheckAll, ChecksEachFolderByItself)
{
    TestFiles test({u"C:\\A\\a", u"C:\\A\\b", u"C:\\B\\a"}, {u"C:\\B\\x"});
    test.files.mark_scope({});
    test.entry(u"a", u"C:\\A\\").new_name = u"x";
    test.entry(u"b", u"C:\\A\\").new_name = u"";
    test.entry(u"a", u"C:\\B\\").new_name = u"x";
    check_all(test.files);
    EXPECT_EQ(test.entry(u"a", u"C:\\A\\").status, Status::Ready);
    EXPECT_EQ(test.entry(u"b", u"C:\\A\\").status, Status::Empty);
    EXPECT_EQ(test.entry(u"a", u"C:\\B\\").status, Status::ExistingName);
}

// The checks step by step, with passes over the whole folder as long as one finds anything.
struct PlainEntry {
    std::u16string name;
    std::u16string new_name;
    bool in_scope = false;
    Status status = Status::Pending;
};

using PlainEntries = std::vector<PlainEntry>;

std::optional<std::size_t> find_plainly(const PlainEntries& entries, const std::u16string& name)
{
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (name_key(entries[i].name) == name_key(name))
            return i;
    }
    return std::nullopt;
}

Status judge_plainly(const PlainEntries& entries, std::size_t index)
{
    const std::u16string& wanted = entries[index].new_name;
    if (!entries[index].in_scope)
        return ready;
    if (wanted.empty())
        return empty;
    if (wanted == entries[index].name)
        return unchanged;
    if (wanted.size() >= 256)
        return too_long;
    if (wanted.front() == u' ' || wanted.back() == u' ' || wanted.back() == u'.')
        return space_or_period;
    const auto holder = find_plainly(entries, wanted);
    const bool is_taken = holder && *holder != index &&
        (!entries[*holder].in_scope || entries[*holder].new_name == entries[*holder].name);
    return is_taken ? existing : pending;
}

void refuse_same_names_plainly(PlainEntries& entries)
{
    std::map<std::u16string, std::size_t> first_with;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!entries[i].in_scope)
            continue;
        const auto [first, is_new] = first_with.emplace(name_key(entries[i].new_name), i);
        if (is_new)
            continue;
        for (const std::size_t one : {first->second, i}) {
            if (entries[one].status == pending)
                entries[one].status = same_name;
        }
    }
}

std::vector<std::size_t> order_plainly(PlainEntries& entries)
{
    std::vector<std::size_t> order;
    for (bool appended = true; appended;) {
        appended = false;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (entries[i].status != pending)
                continue;
            const auto holder = find_plainly(entries, entries[i].new_name);
            if (!holder || *holder == i || entries[*holder].status != pending) {
                entries[i].status = ready;
                order.push_back(i);
                appended = true;
            }
        }
    }
    return order;
}

std::vector<std::size_t> check_plainly(PlainEntries& entries)
{
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].status = judge_plainly(entries, i);
    refuse_same_names_plainly(entries);
    const std::vector<std::size_t> order = order_plainly(entries);
    for (PlainEntry& entry : entries) {
        if (entry.status == pending)
            entry.status = existing;
    }
    return order;
}

std::vector<Wish> random_wishes(std::mt19937& random)
{
    const Names names = {u"a", u"B", u"c", u"D", u"e", u"F", u"g"};
    const Names strange = {u"", u" x", u"y.", name_of_256, u"free", u"FREE", u"b ", u"other"};
    std::vector<Wish> wishes;
    const auto strangeness = random() % 3;
    for (const std::u16string& name : names) {
        if (random() % 4 == 0)
            continue;
        if (random() % 6 == 0) {
            wishes.push_back({name, std::nullopt});
            continue;
        }
        std::u16string wanted =
            random() % 10 < strangeness ? strange[random() % strange.size()] : names[random() % names.size()];
        if (random() % 4 == 0)
            wanted += u"2";
        if (random() % 3 == 0)
            wanted = name_key(wanted);
        wishes.push_back({name, wanted});
    }
    return wishes;
}

TEST(CheckFolder, AgreesWithTheStepsTakenOneByOne)
{
    std::mt19937 random(1);
    for (int round = 0; round < 5000; ++round) {
        const auto test = folder_with(random_wishes(random));
        RenameFolder& folder = *test->files.folders.front();
        PlainEntries plain;
        for (const Filename& entry : *folder.entries)
            plain.push_back({std::u16string(entry.name), std::u16string(entry.new_name), entry.in_scope});
        Names order;
        for (const std::size_t index : check_plainly(plain))
            order.push_back(plain[index].name);
        check_folder(folder);
        for (const PlainEntry& entry : plain)
            ASSERT_EQ(test->entry(entry.name, root).status, entry.status) << round;
        ASSERT_EQ(names_of(folder.rename_order), order) << round;
    }
}

TEST(CheckFolder, AnOrderThatNothingForbidsNeverLandsOnANameInUse)
{
    std::mt19937 random(2);
    int carried_out = 0;
    for (int round = 0; round < 20000; ++round) {
        const auto test = folder_with(random_wishes(random));
        RenameFolder& folder = *test->files.folders.front();
        check_folder(folder);
        test->files.summarise();
        if (test->files.summary_status != Status::Ready)
            continue;
        std::set<std::u16string> in_use;
        for (const Filename& entry : *folder.entries)
            in_use.insert(entry.key());
        for (const Filename* entry : folder.rename_order) {
            ASSERT_EQ(in_use.erase(entry->key()), 1U) << round;
            ASSERT_TRUE(in_use.insert(name_key(entry->new_name)).second) << round;
        }
        std::size_t changed = 0;
        for (const Filename& entry : *folder.entries)
            changed += entry.in_scope && entry.new_name != entry.name ? 1U : 0U;
        ASSERT_EQ(folder.rename_order.size(), changed) << round;
        carried_out += changed > 1 ? 1 : 0;
    }
    EXPECT_GT(carried_out, 100);
}

TEST(CheckFolder, WhereCaseIsToldApartNamesThatDifferOnlyInItDoNotClash)
{
    TestFiles test({u"a", u"b", u"c", u"d"}, {u"x"}, true);
    test.files.mark_scope({});
    const auto wish = [&test](std::u16string_view name, std::u16string_view new_name) {
        test.entry(name).new_name = new_name;
    };
    wish(u"a", u"NEW");
    wish(u"b", u"new");
    wish(u"c", u"X");
    wish(u"d", u"x");
    check_all(test.files);
    EXPECT_EQ(test.entry(u"a").status, Status::Ready);
    EXPECT_EQ(test.entry(u"b").status, Status::Ready);
    EXPECT_EQ(test.entry(u"c").status, Status::Ready);
    EXPECT_EQ(test.entry(u"d").status, Status::ExistingName);
}

TEST(CheckFolder, WhereCaseIsToldApartAChangeOfCaseMayMeetAnotherEntry)
{
    TestFiles test({u"a", u"b"}, {u"A"}, true);
    test.files.mark_scope({});
    test.entry(u"a").new_name = u"A";
    test.entry(u"b").new_name = u"B";
    check_all(test.files);
    EXPECT_EQ(test.entry(u"a").status, Status::ExistingName);
    EXPECT_EQ(test.entry(u"b").status, Status::Ready);
}

} // namespace
} // namespace multirename
