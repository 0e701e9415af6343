#include "fileset/file_set.h"

#include <gtest/gtest.h>

#include "fileset/testing/test_files.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;

Names listed_names(const FileSet& files)
{
    Names names;
    for (const auto& entry : files.listed)
        names.emplace_back(entry->name);
    return names;
}

Names folder_paths(const FileSet& files)
{
    Names paths;
    for (const auto& folder : files.folders)
        paths.push_back(folder->path);
    return paths;
}

/// A path of exactly this length to a file x.txt, and the folder that holds it.
struct LongPath {
    explicit LongPath(std::size_t length) : folder(u"C:\\" + std::u16string(length - 9, u'd') + u"\\") { }

    std::u16string folder;
    std::u16string path = folder + u"x.txt";
};

class AddPaths : public testing::Test {
protected:
    bool add(const Names& paths) { return files_.add_paths(paths); }

    FakeDisk disk_;
    FileSet files_{disk_};
};

TEST_F(AddPaths, NoPathsListNothing)
{
    EXPECT_FALSE(add({}));
    EXPECT_TRUE(files_.listed.empty());
    EXPECT_TRUE(files_.folders.empty());
    EXPECT_FALSE(files_.has_plain_file);
}

TEST_F(AddPaths, ListedEntriesStandInTheHostsOrder)
{
    disk_.with(u"C:\\A\\", {u"x", u"y", u"z"}).with(u"C:\\B\\", {u"w"});
    EXPECT_TRUE(add({u"C:\\A\\z", u"C:\\B\\w", u"C:\\A\\x"}));
    EXPECT_EQ(listed_names(files_), (Names{u"z", u"w", u"x"}));
}

TEST_F(AddPaths, OnlyNamedEntriesAreListedButAllAreKnown)
{
    disk_.with(u"C:\\A\\", {u"x", u"y"});
    add({u"C:\\A\\x"});
    const auto folder = files_.find_or_add_folder(u"C:\\A\\");
    EXPECT_FALSE(folder->find(u"x")->not_listed);
    EXPECT_TRUE(folder->find(u"y")->not_listed);
}

TEST_F(AddPaths, APathOf259CharactersIsTaken)
{
    const LongPath longest(259);
    ASSERT_EQ(longest.path.size(), 259U);
    disk_.with(longest.folder, {u"x.txt"});
    EXPECT_TRUE(add({longest.path}));
    EXPECT_EQ(files_.listed.size(), 1U);
}

TEST_F(AddPaths, APathOf260CharactersIsSkipped)
{
    const LongPath too_long(260);
    ASSERT_EQ(too_long.path.size(), 260U);
    disk_.with(too_long.folder, {u"x.txt"});
    EXPECT_FALSE(add({too_long.path}));
    EXPECT_TRUE(files_.listed.empty());
    EXPECT_TRUE(files_.folders.empty());
}

TEST_F(AddPaths, ASkippedPathLeavesTheCurrentFolderAsItIs)
{
    const LongPath too_long(260);
    disk_.with(u"C:\\A\\", {u"x.txt", u"y.txt"}).with(too_long.folder, {u"x.txt", u"y.txt"});
    add({u"C:\\A\\x.txt", too_long.path, u"y.txt"});
    ASSERT_EQ(files_.listed.size(), 2U);
    EXPECT_EQ(files_.listed[1]->folder->path, u"C:\\A\\");
}

TEST_F(AddPaths, ABareNameIsLookedUpInTheFolderOfThePathBefore)
{
    disk_.with(u"C:\\A\\", {u"x.txt", u"y.txt"}).with(u"C:\\W\\", {u"y.txt"});
    disk_.directory = u"C:\\W";
    EXPECT_TRUE(add({u"C:\\A\\x.txt", u"y.txt"}));
    EXPECT_EQ(listed_names(files_), (Names{u"x.txt", u"y.txt"}));
    EXPECT_EQ(folder_paths(files_), (Names{u"C:\\A\\"}));
}

TEST_F(AddPaths, ABareNameFollowsThePathBeforeEvenWhenThatWasNotFound)
{
    disk_.with(u"C:\\A\\", {u"y.txt"});
    disk_.directory = u"C:\\W";
    EXPECT_TRUE(add({u"C:\\A\\gone.txt", u"y.txt"}));
    EXPECT_EQ(listed_names(files_), (Names{u"y.txt"}));
}

TEST_F(AddPaths, AFirstBareNameIsLookedUpInTheWorkingDirectoryWithABackslashAdded)
{
    disk_.with(u"C:\\Work\\", {u"x.txt"});
    disk_.directory = u"C:\\Work";
    EXPECT_TRUE(add({u"x.txt"}));
    EXPECT_EQ(folder_paths(files_), (Names{u"C:\\Work\\"}));
    EXPECT_EQ(disk_.listings, (Names{u"C:\\Work\\"}));
}

TEST_F(AddPaths, AWorkingDirectoryThatEndsInABackslashGetsNoSecondOne)
{
    disk_.with(u"C:\\", {u"x.txt"});
    disk_.directory = u"C:\\";
    EXPECT_TRUE(add({u"x.txt"}));
    EXPECT_EQ(folder_paths(files_), (Names{u"C:\\"}));
}

TEST_F(AddPaths, AnEmptyWorkingDirectoryGetsNoBackslash)
{
    disk_.with(u"", {u"x.txt"});
    disk_.directory = u"";
    EXPECT_TRUE(add({u"x.txt"}));
    EXPECT_EQ(folder_paths(files_), (Names{u""}));
}

TEST_F(AddPaths, BareNamesAreSkippedWhileTheWorkingDirectoryCannotBeTold)
{
    disk_.with(u"C:\\A\\", {u"x.txt", u"y.txt"});
    EXPECT_TRUE(add({u"y.txt", u"C:\\A\\x.txt", u"y.txt"}));
    EXPECT_EQ(listed_names(files_), (Names{u"x.txt", u"y.txt"}));
}

TEST_F(AddPaths, OneEntryNamedInTwoCasesIsOneRecordInOneFolder)
{
    disk_.with(u"C:\\A\\", {u"X.txt"});
    EXPECT_TRUE(add({u"C:\\A\\X.TXT", u"c:\\a\\x.txt"}));
    EXPECT_EQ(folder_paths(files_), (Names{u"C:\\A\\"}));
    ASSERT_EQ(files_.listed.size(), 2U);
    EXPECT_EQ(files_.listed[0], files_.listed[1]);
    EXPECT_EQ(files_.listed[0]->name, u"X.txt");
}

TEST_F(AddPaths, APathGivenTwiceStandsTwice)
{
    disk_.with(u"C:\\A\\", {u"x"});
    add({u"C:\\A\\x", u"C:\\A\\x"});
    ASSERT_EQ(files_.listed.size(), 2U);
    EXPECT_EQ(files_.listed[0], files_.listed[1]);
}

TEST_F(AddPaths, ANameThatIsNotOnDiskIsDropped)
{
    disk_.with(u"C:\\A\\", {u"x"});
    EXPECT_FALSE(add({u"C:\\A\\gone"}));
    EXPECT_TRUE(files_.listed.empty());
}

TEST_F(AddPaths, AFolderThatCannotBeReadListsNothing)
{
    EXPECT_FALSE(add({u"C:\\Secret\\x"}));
    EXPECT_TRUE(files_.listed.empty());
}

TEST_F(AddPaths, APathThatEndsInABackslashNamesNothing)
{
    disk_.with(u"C:\\", {u"A"}).with(u"C:\\A\\", {u"x"});
    EXPECT_FALSE(add({u"C:\\A\\"}));
    EXPECT_TRUE(files_.listed.empty());
}

TEST_F(AddPaths, AnEmptyPathNamesNothing)
{
    disk_.with(u"C:\\A\\", {u"x"});
    disk_.directory = u"C:\\A";
    EXPECT_FALSE(add({u""}));
}

TEST_F(AddPaths, EachFolderIsListedOnce)
{
    disk_.with(u"C:\\A\\", {u"x", u"y"}).with(u"C:\\B\\", {u"z"});
    add({u"C:\\A\\x", u"C:\\B\\z", u"c:\\a\\y", u"C:\\A\\gone", u"x"});
    EXPECT_EQ(disk_.listings, (Names{u"C:\\A\\", u"C:\\B\\"}));
}

TEST_F(AddPaths, ANetworkFolderKeepsItsOwnSpelling)
{
    disk_.with(u"\\\\server\\share\\", {u"f"});
    EXPECT_TRUE(add({u"\\\\server\\share\\f"}));
    EXPECT_EQ(folder_paths(files_), (Names{u"\\\\server\\share\\"}));
}

TEST_F(AddPaths, APlainFileIsNoticedAmongFolders)
{
    disk_.add(u"C:\\A\\", u"sub").is_folder = true;
    disk_.add(u"C:\\A\\", u"beside.txt");
    add({u"C:\\A\\sub"});
    EXPECT_FALSE(files_.has_plain_file);
    add({u"C:\\A\\beside.txt"});
    EXPECT_TRUE(files_.has_plain_file);
}

TEST_F(AddPaths, FoldersAreSortedByTheirKeys)
{
    disk_.with(u"C:\\b\\", {u"x"}).with(u"C:\\A\\", {u"x"}).with(u"C:\\a_\\", {u"x"}).with(u"C:\\AZ\\", {u"x"});
    add({u"C:\\b\\x", u"C:\\a_\\x", u"C:\\AZ\\x", u"C:\\A\\x"});
    EXPECT_EQ(folder_paths(files_), (Names{u"C:\\AZ\\", u"C:\\A\\", u"C:\\a_\\", u"C:\\b\\"}));
}

TEST(FindOrAddFolder, GivesOneRecordForAllSpellingsOfOnePath)
{
    FakeDisk disk;
    FileSet files(disk);
    const auto folder = files.find_or_add_folder(u"C:\\Some\\");
    EXPECT_EQ(files.find_or_add_folder(u"c:\\SOME\\"), folder);
    EXPECT_EQ(folder->path, u"C:\\Some\\");
    EXPECT_EQ(folder->entries, nullptr);
    EXPECT_NE(files.find_or_add_folder(u"C:\\Other\\"), folder);
    EXPECT_TRUE(disk.listings.empty());
}

TEST(MarkScope, AnEmptyFilterTakesEveryListedEntry)
{
    TestFiles test({u"a.txt", u"b.jpg"}, {u"c.txt"});
    EXPECT_TRUE(test.files.mark_scope({}));
    EXPECT_TRUE(test.entry(u"a.txt").in_scope);
    EXPECT_TRUE(test.entry(u"b.jpg").in_scope);
    EXPECT_FALSE(test.entry(u"c.txt").in_scope);
}

TEST(MarkScope, MatchesTheKeyWithItsExtensionWhenTheFilterHasIt)
{
    TestFiles test({u"a.txt", u"a.jpg"});
    test.files.mark_scope({u"a.txt", u"A.TXT", true});
    EXPECT_TRUE(test.entry(u"a.txt").in_scope);
    EXPECT_FALSE(test.entry(u"a.jpg").in_scope);
}

TEST(MarkScope, CutsTheKeyAtItsLastPeriodOtherwise)
{
    TestFiles test({u"a.b.txt", u"a.b", u"a", u".a"});
    test.files.mark_scope({u"a", u"A", false});
    EXPECT_FALSE(test.entry(u"a.b.txt").in_scope);
    EXPECT_TRUE(test.entry(u"a.b").in_scope);
    EXPECT_TRUE(test.entry(u"a").in_scope);
    EXPECT_FALSE(test.entry(u".a").in_scope);
}

TEST(MarkScope, EmptiesTheNewNamesOfThoseOutOfScope)
{
    TestFiles test({u"a", u"b"});
    test.entry(u"a").new_name = u"x";
    test.entry(u"b").new_name = u"y";
    test.files.mark_scope({u"a", u"A", true});
    EXPECT_EQ(test.entry(u"a").new_name, u"x");
    EXPECT_EQ(test.entry(u"b").new_name, u"");
}

TEST(MarkScope, LeavesUnlistedEntriesUntouched)
{
    TestFiles test({u"a"}, {u"b"});
    test.entry(u"b").in_scope = true;
    test.entry(u"b").new_name = u"y";
    test.files.mark_scope({u"a", u"A", true});
    EXPECT_TRUE(test.entry(u"b").in_scope);
    EXPECT_EQ(test.entry(u"b").new_name, u"y");
}

TEST(MarkScope, TellsWhetherAnythingChanged)
{
    TestFiles test({u"a", u"b"});
    EXPECT_TRUE(test.files.mark_scope({u"a", u"A", true}));
    EXPECT_FALSE(test.files.mark_scope({u"a", u"A", true}));
    EXPECT_TRUE(test.files.mark_scope({u"b", u"B", true}));
    EXPECT_TRUE(test.files.mark_scope({u"c", u"C", true}));
    EXPECT_FALSE(test.files.mark_scope({u"d", u"D", true}));
}

/// Two folders, one entry in each status that is asked for, all of them in scope.
class Summarise : public testing::Test {
protected:
    void give(const std::vector<Status>& first, const std::vector<Status>& second = {})
    {
        Names paths;
        for (std::size_t i = 0; i < first.size(); ++i)
            paths.push_back(u"C:\\A\\" + std::u16string(i + 1, u'a'));
        for (std::size_t i = 0; i < second.size(); ++i)
            paths.push_back(u"C:\\B\\" + std::u16string(i + 1, u'b'));
        test_ = std::make_unique<TestFiles>(paths);
        test_->files.mark_scope({});
        for (std::size_t i = 0; i < paths.size(); ++i)
            test_->files.listed[i]->status = i < first.size() ? first[i] : second[i - first.size()];
        test_->files.summarise();
    }

    [[nodiscard]] FileSet& files() { return test_->files; }

    std::unique_ptr<TestFiles> test_;
};

TEST_F(Summarise, ReadyWhenNothingForbidsIt)
{
    give({});
    EXPECT_EQ(files().summary_status, Status::Ready);
    give({Status::Ready, Status::Unchanged}, {Status::Unchanged});
    EXPECT_EQ(files().summary_status, Status::Ready);
}

TEST_F(Summarise, TheOneProblemWhenThereIsButOneKind)
{
    give({Status::Empty, Status::Ready, Status::Unchanged, Status::Empty});
    EXPECT_EQ(files().summary_status, Status::Empty);
    give({Status::Empty}, {Status::Ready, Status::Empty});
    EXPECT_EQ(files().summary_status, Status::Empty);
    give({Status::Ready}, {Status::TooLong});
    EXPECT_EQ(files().summary_status, Status::TooLong);
    give({Status::TooLong}, {Status::Ready});
    EXPECT_EQ(files().summary_status, Status::TooLong);
}

TEST_F(Summarise, PendingWhenProblemsDiffer)
{
    give({Status::Empty, Status::TooLong});
    EXPECT_EQ(files().summary_status, Status::Pending);
    give({Status::Empty}, {Status::TooLong});
    EXPECT_EQ(files().summary_status, Status::Pending);
    give({Status::Empty, Status::TooLong}, {Status::Empty});
    EXPECT_EQ(files().summary_status, Status::Pending);
}

TEST_F(Summarise, EntriesOutOfScopeCountForNothing)
{
    give({Status::Empty, Status::Ready});
    files().listed[0]->in_scope = false;
    files().listed[1]->in_scope = false;
    files().listed[1]->read_only = true;
    files().summarise();
    EXPECT_EQ(files().summary_status, Status::Ready);
    EXPECT_FALSE(files().any_change);
    EXPECT_FALSE(files().any_read_only_change);
}

TEST_F(Summarise, AnyStatusButUnchangedIsAChange)
{
    give({Status::Unchanged}, {Status::Unchanged});
    EXPECT_FALSE(files().any_change);
    give({Status::Unchanged}, {Status::Unchanged, Status::Ready});
    EXPECT_TRUE(files().any_change);
    give({Status::Empty});
    EXPECT_TRUE(files().any_change);
}

TEST_F(Summarise, AnyReadOnlyEntryInScopeIsNoticed)
{
    give({Status::Unchanged, Status::Ready});
    EXPECT_FALSE(files().any_read_only_change);
    files().listed[0]->read_only = true;
    files().summarise();
    EXPECT_TRUE(files().any_read_only_change);
}

TEST_F(Summarise, ANonEmptyOrderIsAPlan)
{
    give({Status::Ready}, {Status::Ready});
    EXPECT_FALSE(files().any_planned);
    files().folders[1]->rename_order.push_back(files().listed[1]);
    files().summarise();
    EXPECT_TRUE(files().any_planned);
}

TEST_F(Summarise, StartsAfreshEachTime)
{
    give({Status::Empty});
    files().listed[0]->read_only = true;
    files().folders[0]->rename_order.push_back(files().listed[0]);
    files().summarise();
    files().listed[0]->status = Status::Unchanged;
    files().listed[0]->read_only = false;
    files().folders[0]->rename_order.clear();
    files().summarise();
    EXPECT_EQ(files().summary_status, Status::Ready);
    EXPECT_FALSE(files().any_planned);
    EXPECT_FALSE(files().any_change);
    EXPECT_FALSE(files().any_read_only_change);
}

TEST(FileSet, AFolderThatWasNeverListedCountsForNothing)
{
    TestFiles test({u"C:\\A\\a"});
    test.files.mark_scope({});
    test.files.folders.push_back(std::make_shared<RenameFolder>(u"C:\\B\\"));
    test.files.listed[0]->status = Status::Empty;
    test.files.summarise();
    EXPECT_EQ(test.files.summary_status, Status::Empty);
    EXPECT_EQ(test.files.count_problems().empty, 1U);
    test.files.mark_all_invalid();
    EXPECT_EQ(test.files.listed[0]->status, Status::Forbidden);
}

TEST(CountProblems, CountsEachKindAmongTheEntriesInScope)
{
    TestFiles test({u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j"});
    test.files.mark_scope({});
    const std::vector<Status> statuses = {Status::SameName,  Status::SameName, Status::ExistingName,  Status::Empty,
                                          Status::Empty,     Status::Empty,    Status::SpaceOrPeriod, Status::TooLong,
                                          Status::Forbidden, Status::Forbidden};
    for (std::size_t i = 0; i < statuses.size(); ++i)
        test.files.listed[i]->status = statuses[i];
    test.files.listed[9]->in_scope = false;
    const ProblemCounts counts = test.files.count_problems();
    EXPECT_EQ(counts.same_name, 2U);
    EXPECT_EQ(counts.existing_name, 1U);
    EXPECT_EQ(counts.empty, 3U);
    EXPECT_EQ(counts.space_or_period, 1U);
    EXPECT_EQ(counts.too_long, 1U);
    EXPECT_EQ(counts.forbidden, 1U);
}

TEST(CountProblems, ReadyPendingAndUnchangedAreNoProblems)
{
    TestFiles test({u"a", u"b", u"c"});
    test.files.mark_scope({});
    test.files.listed[0]->status = Status::Ready;
    test.files.listed[1]->status = Status::Unchanged;
    test.files.listed[2]->status = Status::Pending;
    const ProblemCounts counts = test.files.count_problems();
    EXPECT_EQ(counts.same_name + counts.existing_name + counts.empty + counts.space_or_period + counts.too_long +
                  counts.forbidden,
              0U);
}

TEST(MarkAllInvalid, ReachesEveryEntryOfEveryFolder)
{
    TestFiles test({u"C:\\A\\a", u"C:\\B\\b"}, {u"C:\\A\\beside"});
    test.files.mark_all_invalid();
    EXPECT_EQ(test.entry(u"a", u"C:\\A\\").status, Status::Forbidden);
    EXPECT_EQ(test.entry(u"beside", u"C:\\A\\").status, Status::Forbidden);
    EXPECT_EQ(test.entry(u"b", u"C:\\B\\").status, Status::Forbidden);
}

TEST(ResetCounters, ZeroesTheFoldersCountersAndTheEntriesPositions)
{
    TestFiles test({u"C:\\A\\a", u"C:\\B\\b"}, {u"C:\\A\\beside"});
    for (const auto& folder : test.files.folders) {
        folder->next_sequence = 7;
        for (Filename& entry : *folder->entries) {
            entry.sequence = 3;
            entry.folder_sequence = 4;
        }
    }
    test.files.reset_counters();
    for (const auto& folder : test.files.folders) {
        EXPECT_EQ(folder->next_sequence, 0U);
        for (const Filename& entry : *folder->entries) {
            EXPECT_EQ(entry.sequence, 0U);
            EXPECT_EQ(entry.folder_sequence, 4U);
        }
    }
}

TEST(FileSet, FoldersOfManyEntriesFindEachOfThem)
{
    constexpr std::size_t count = 20000;
    Names names;
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(u"img_" + std::u16string(1, static_cast<char16_t>(u'\u4E00' + i % 5000)) +
                        std::u16string(i / 5000, u'x'));
    FakeDisk disk;
    disk.with(u"C:\\A\\", names);
    FileSet files(disk);
    Names paths;
    for (const std::u16string& name : names)
        paths.push_back(u"C:\\A\\" + name);
    EXPECT_TRUE(files.add_paths(paths));
    EXPECT_EQ(listed_names(files), names);
}

TEST(FileSet, AnEntryIsAddedHoweverLongItsPathIs)
{
    const std::u16string folder = u"C:\\" + std::u16string(300, u'd') + u"\\";
    const std::u16string name(255, u'n');
    FakeDisk disk;
    disk.with(folder, {name});
    FileSet files(disk);
    EXPECT_EQ(files.add_entry(folder, u"absent"), nullptr);
    EXPECT_TRUE(files.listed.empty());
    EXPECT_FALSE(files.has_plain_file);
    const auto entry = files.add_entry(folder, name);
    ASSERT_NE(entry, nullptr);
    EXPECT_FALSE(entry->not_listed);
    EXPECT_EQ(files.listed.front(), entry);
    EXPECT_TRUE(files.has_plain_file);
    EXPECT_EQ(disk.listings.size(), 1U);
}

TEST(FileSet, FoldersWhosePathsDifferOnlyInCaseAreTwoWhereTheDiskTellsThemApart)
{
    FakeDisk disk;
    disk.tells_case_apart = true;
    disk.with(u"C:\\a\\", {u"x"}).with(u"C:\\A\\", {u"x"});
    FileSet files(disk);
    ASSERT_TRUE(files.add_paths(Names{u"C:\\a\\x", u"C:\\A\\x", u"C:\\a\\x"}));
    ASSERT_EQ(files.folders.size(), 2U);
    EXPECT_EQ(files.folders[0]->path, u"C:\\A\\");
    EXPECT_EQ(files.folders[1]->path, u"C:\\a\\");
    EXPECT_NE(files.listed[0], files.listed[1]);
    EXPECT_EQ(files.listed[0], files.listed[2]);
}

TEST(FileSet, TheScopeIsMarkedWithoutRegardToCaseEverywhere)
{
    TestFiles test({u"IMG_1", u"img_2"}, {}, true);
    test.files.mark_scope({u"Img_#", u"IMG_#", true});
    EXPECT_TRUE(test.entry(u"IMG_1").in_scope);
    EXPECT_TRUE(test.entry(u"img_2").in_scope);
}

TEST(FileSet, AFolderIsOpenedOnceAndListsNothingByThat)
{
    FakeDisk disk;
    disk.with(u"C:\\A\\", {u"x"});
    FileSet files(disk);
    EXPECT_EQ(files.open_folder(u"C:\\A\\").entries->size(), 1U);
    EXPECT_EQ(&files.open_folder(u"c:\\a\\"), &files.open_folder(u"C:\\A\\"));
    EXPECT_EQ(disk.listings.size(), 1U);
    EXPECT_TRUE(files.listed.empty());
    EXPECT_TRUE(files.open_folder(u"C:\\Absent\\").listing_error);
}

} // namespace
} // namespace multirename
