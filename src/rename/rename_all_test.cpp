#include "rename/rename_all.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "fileset/testing/test_files.h"
#include "rename/check_folder.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;

/// Remembers what it was asked, and answers "cancelled" from the given question on.
class FakeProgress final : public RenameProgress {
public:
    static constexpr int never = -1;

    explicit FakeProgress(int cancelled_from = never) : cancelled_from_(cancelled_from) { }

    void announce() override { ++announcements; }
    bool is_cancelled() override { return ++questions == cancelled_from_; }
    void rename(OwnerWindow window, std::span<const Filename* const> entries) override
    {
        ++renames;
        owner = window;
        for (const Filename* entry : entries)
            names.push_back(entry->folder->path + std::u16string(entry->name));
        lists = move_lists(entries);
    }

    int announcements = 0;
    int questions = 0;
    int renames = 0;
    OwnerWindow owner = OwnerWindow::none;
    Names names;
    MoveLists lists;

private:
    int cancelled_from_;
};

Names paths_of(const std::vector<std::shared_ptr<RenameFolder>>& folders)
{
    Names paths;
    for (const auto& folder : folders)
        paths.push_back(folder->path);
    return paths;
}

Names order_of(const Names& folders)
{
    FakeDisk disk;
    FileSet files(disk);
    for (const std::u16string& folder : folders)
        files.find_or_add_folder(folder);
    return paths_of(folder_order(files));
}

TEST(FolderOrder, UnrelatedFoldersAreInTheOrderOfTheirKeys)
{
    EXPECT_EQ(order_of({u"C:\\b\\", u"C:\\A\\", u"D:\\"}), (Names{u"C:\\A\\", u"C:\\b\\", u"D:\\"}));
}

TEST(FolderOrder, AFolderComesBeforeTheOneThatContainsIt)
{
    EXPECT_EQ(order_of({u"C:\\A\\", u"C:\\A\\B\\"}), (Names{u"C:\\A\\B\\", u"C:\\A\\"}));
    EXPECT_EQ(order_of({u"C:\\A\\", u"C:\\A\\B\\", u"C:\\A\\B\\C\\"}),
              (Names{u"C:\\A\\B\\C\\", u"C:\\A\\B\\", u"C:\\A\\"}));
}

TEST(FolderOrder, SubfoldersGoJustBeforeTheFirstThatContainsThem)
{
    EXPECT_EQ(order_of({u"C:\\A\\", u"C:\\A\\B\\", u"C:\\A\\D\\", u"C:\\Z\\"}),
              (Names{u"C:\\A\\B\\", u"C:\\A\\D\\", u"C:\\A\\", u"C:\\Z\\"}));
    EXPECT_EQ(order_of({u"C:\\", u"C:\\A\\", u"C:\\A\\B\\", u"C:\\D\\"}),
              (Names{u"C:\\A\\B\\", u"C:\\A\\", u"C:\\D\\", u"C:\\"}));
}

TEST(FolderOrder, IsFoundInAnyCase)
{
    EXPECT_EQ(order_of({u"c:\\a\\", u"C:\\A\\b\\"}), (Names{u"C:\\A\\b\\", u"c:\\a\\"}));
}

TEST(FolderOrder, AFolderWithTheSameBeginningContainsNothingOfTheOther)
{
    EXPECT_EQ(order_of({u"C:\\A\\", u"C:\\AB\\", u"C:\\A B\\"}), (Names{u"C:\\A B\\", u"C:\\AB\\", u"C:\\A\\"}));
    EXPECT_EQ(order_of({u"C:\\A\\", u"C:\\A_\\"}), (Names{u"C:\\A\\", u"C:\\A_\\"}));
}

// Each folder in turn goes before the first that contains it, or to the end.
Names order_plainly(const Names& sorted_keys)
{
    Names order;
    for (const std::u16string& key : sorted_keys) {
        const auto contains = [&key](const std::u16string& other) {
            return other.size() < key.size() && key.starts_with(other);
        };
        order.insert(std::ranges::find_if(order, contains), key);
    }
    return order;
}

TEST(FolderOrder, AgreesWithTheStepsTakenOneByOne)
{
    std::mt19937 random(1);
    const Names parts = {u"A\\", u"AB\\", u"B\\", u"A B\\", u"_\\"};
    for (int round = 0; round < 2000; ++round) {
        FakeDisk disk;
        FileSet files(disk);
        for (std::size_t count = random() % 9; count > 0; --count) {
            std::u16string path = u"C:\\";
            for (std::size_t depth = random() % 4; depth > 0; --depth)
                path += parts[random() % parts.size()];
            files.find_or_add_folder(path);
        }
        Names keys;
        for (const auto& folder : files.folders)
            keys.push_back(folder->key);
        ASSERT_EQ(paths_of(folder_order(files)), order_plainly(keys));
    }
}

/// Folders A and B; a new name for each entry that is renamed.
class RenameAll : public testing::Test {
protected:
    void plan(const std::vector<std::pair<std::u16string, std::u16string>>& renames, const Names& beside = {})
    {
        Names paths;
        for (const auto& [path, new_name] : renames)
            paths.push_back(path);
        test_ = std::make_unique<TestFiles>(paths, beside);
        test_->files.mark_scope({});
        for (std::size_t i = 0; i < renames.size(); ++i)
            test_->files.listed[i]->new_name = test_->files.pasted_names.add(renames[i].second);
        check_all(test_->files);
    }

    Names renamed(FakeProgress& progress)
    {
        rename_all(OwnerWindow{7}, test_->files, progress);
        EXPECT_EQ(progress.renames, 1);
        EXPECT_EQ(progress.announcements, 0);
        EXPECT_EQ(progress.owner, OwnerWindow{7});
        return progress.names;
    }

    Names renamed()
    {
        FakeProgress progress;
        return renamed(progress);
    }

    std::unique_ptr<TestFiles> test_;
};

TEST_F(RenameAll, GoesThroughTheFoldersInTheirOrders)
{
    plan({{u"C:\\B\\x", u"y"}, {u"C:\\A\\a", u"b"}, {u"C:\\A\\b", u"c"}});
    EXPECT_EQ(renamed(), (Names{u"C:\\A\\b", u"C:\\A\\a", u"C:\\B\\x"}));
}

TEST_F(RenameAll, TheContentsOfAFolderComeBeforeTheFolder)
{
    plan({{u"C:\\D\\", u"E"}, {u"C:\\D\\f", u"g"}});
    FakeProgress progress;
    EXPECT_EQ(renamed(progress), (Names{u"C:\\D\\f", u"C:\\D"}));
    EXPECT_EQ(progress.lists.sources, (std::u16string(u"C:\\D\\f\0C:\\D\0\0", 13)));
    EXPECT_EQ(progress.lists.targets, (std::u16string(u"C:\\D\\g\0C:\\E\0\0", 13)));
}

TEST_F(RenameAll, UnchangedEntriesAreNeverPassedOn)
{
    plan({{u"C:\\A\\a", u"a"}, {u"C:\\A\\b", u"c"}});
    EXPECT_EQ(renamed(), (Names{u"C:\\A\\b"}));
}

TEST_F(RenameAll, EvenWhenTheyStandInAnOrder)
{
    plan({{u"C:\\A\\a", u"b"}});
    test_->files.listed[0]->new_name = u"a";
    EXPECT_EQ(renamed(), Names{});
}

TEST_F(RenameAll, AChangeOfCaseAloneIsPassedOn)
{
    plan({{u"C:\\A\\x.txt", u"X.TXT"}});
    FakeProgress progress;
    EXPECT_EQ(renamed(progress), (Names{u"C:\\A\\x.txt"}));
    EXPECT_EQ(progress.lists.targets, (std::u16string(u"C:\\A\\X.TXT\0\0", 12)));
}

TEST_F(RenameAll, AnEmptyListIsPassedOnToo)
{
    plan({{u"C:\\A\\a", u"a"}});
    FakeProgress progress;
    EXPECT_EQ(renamed(progress), Names{});
    EXPECT_EQ(progress.lists.sources, u"");
}

TEST_F(RenameAll, ChangesNoRecord)
{
    plan({{u"C:\\A\\a", u"b"}});
    renamed();
    const Filename& entry = *test_->files.listed[0];
    EXPECT_EQ(entry.name, u"a");
    EXPECT_EQ(entry.new_name, u"b");
    EXPECT_EQ(entry.status, Status::Ready);
    EXPECT_EQ(test_->files.folders[0]->rename_order.size(), 1U);
}

TEST_F(RenameAll, AsksWhetherToStopBeforeAndAfterEachEntryAndFolder)
{
    plan({{u"C:\\A\\a", u"x"}, {u"C:\\A\\b", u"y"}, {u"C:\\B\\c", u"z"}});
    FakeProgress progress;
    renamed(progress);
    EXPECT_EQ(progress.questions, 1 + 3 + 2);
}

struct CancelRow {
    int question;
    Names expected;
};

TEST_F(RenameAll, StopsCollectingAtOnceAndRenamesWhatItHas)
{
    const std::vector<CancelRow> rows = {{1, {}},
                                         {2, {u"C:\\A\\a"}},
                                         {3, {u"C:\\A\\a", u"C:\\A\\b"}},
                                         {4, {u"C:\\A\\a", u"C:\\A\\b"}},
                                         {5, {u"C:\\A\\a", u"C:\\A\\b", u"C:\\B\\c"}},
                                         {6, {u"C:\\A\\a", u"C:\\A\\b", u"C:\\B\\c"}}};
    for (const CancelRow& row : rows) {
        plan({{u"C:\\A\\a", u"x"}, {u"C:\\A\\b", u"y"}, {u"C:\\B\\c", u"z"}});
        FakeProgress progress(row.question);
        EXPECT_EQ(renamed(progress), row.expected) << row.question;
        EXPECT_EQ(progress.questions, row.question);
    }
}

std::vector<const Filename*> entries_of(TestFiles& test)
{
    return {test.files.listed.begin(), test.files.listed.end()};
}

TEST(MoveLists, OfNothingAreEmpty)
{
    EXPECT_EQ(move_lists({}).sources, u"");
    EXPECT_EQ(move_lists({}).targets, u"");
}

TEST(MoveLists, EndEachPathInNulAndTheListInOneMore)
{
    TestFiles test({u"C:\\A\\a.txt", u"\\\\server\\share\\b"});
    test.files.listed[0]->new_name = u"long name.txt";
    test.files.listed[1]->new_name = u"c";
    const MoveLists lists = move_lists(entries_of(test));
    EXPECT_EQ(lists.sources, (std::u16string(u"C:\\A\\a.txt\0\\\\server\\share\\b\0\0", 29)));
    EXPECT_EQ(lists.targets, (std::u16string(u"C:\\A\\long name.txt\0\\\\server\\share\\c\0\0", 37)));
}

TEST(MoveLists, TakeTheFolderAsItWasSpelled)
{
    TestFiles test({u"c:\\some FOLDER\\a"});
    test.files.listed[0]->new_name = u"b";
    EXPECT_EQ(move_lists(entries_of(test)).sources, (std::u16string(u"c:\\some FOLDER\\a\0\0", 18)));
}

TEST(MoveLists, TakeUnitsAsTheyAre)
{
    TestFiles test({u"C:\\A\\\u00E9"});
    test.files.listed[0]->new_name = u"\xD83D\xDE00 \xD800";
    EXPECT_EQ(move_lists(entries_of(test)).targets, (std::u16string(u"C:\\A\\\xD83D\xDE00 \xD800\0\0", 11)));
}

} // namespace
} // namespace multirename
