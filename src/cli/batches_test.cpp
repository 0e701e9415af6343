#include "cli/batches.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/testing/journals.h"
#include "platform/testing/temporary_folder.h"

namespace multirename {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;

const ListedMoves two_moves({{"/photos/", "a", "b"}, {"/letters/", "c", "d"}});

// 2024-03-05 14:07:09
constexpr Moment afternoon{seconds(1'709'647'629)};
// 2023-12-31 23:59:59
constexpr Moment end_of_year{seconds(1'704'067'199)};

class BatchesTest : public testing::Test {
protected:
    std::string begin(Moment now)
    {
        Batch batch;
        EXPECT_FALSE(batches_.begin(two_moves, now, batch));
        return batch.id();
    }

    TemporaryFolder folder_;
    Batches batches_{folder_.path()};
};

TEST(BatchId, HasDigitsAndHyphensInTheirPlaces)
{
    EXPECT_TRUE(is_batch_id("20240305-140709-001"));
    EXPECT_TRUE(is_batch_id("99999999-999999-999"));
    for (const char* word : {"", "20240305-140709-01", "20240305-140709-0011", "20240305-140709_001",
                             "20240305-1407a9-001", "2024030/-140709-001", "2024030:-140709-001"})
        EXPECT_FALSE(is_batch_id(word)) << word;
}

TEST(MomentText, IsInUtcWithAllItsFigures)
{
    EXPECT_EQ(utc_text(afternoon), "2024-03-05T14:07:09Z");
    EXPECT_EQ(utc_text(end_of_year), "2023-12-31T23:59:59Z");
    EXPECT_EQ(utc_text(Moment(seconds(-1))), "1969-12-31T23:59:59Z");
}

TEST_F(BatchesTest, AnIdIsTheMomentAndANumber)
{
    EXPECT_EQ(begin(afternoon), "20240305-140709-001");
    EXPECT_EQ(begin(afternoon), "20240305-140709-002");
    EXPECT_EQ(begin(afternoon + seconds(1)), "20240305-140710-001");
    EXPECT_THAT(batches_.ids(), ElementsAre("20240305-140710-001", "20240305-140709-002", "20240305-140709-001"));
}

TEST_F(BatchesTest, ANewBatchIsTheLastOneThoughTheClockWasSetBack)
{
    begin(afternoon);
    EXPECT_EQ(begin(afternoon - seconds(60)), "20240305-140709-002");
}

TEST_F(BatchesTest, AfterTheLastNumberOfASecondComesTheNextSecond)
{
    folder_.write("20231231-235959-999.journal", "");
    EXPECT_EQ(begin(end_of_year), "20240101-000000-001");
}

TEST_F(BatchesTest, OtherFilesInTheFolderAreNoBatches)
{
    folder_.write("notes.txt", "");
    folder_.write("20240305-140709-001.damaged", "");
    folder_.write("20240305-140709-001.journal.txt", "");
    EXPECT_THAT(batches_.ids(), IsEmpty());
}

TEST_F(BatchesTest, ThoseOfMoreThanNinetyDaysBeforeAreForgotten)
{
    folder_.write("notes.txt", "");
    folder_.write("20231231-000000-001.damaged", "");
    begin(afternoon);
    begin(afternoon + seconds(1));
    const std::string now = begin(afternoon + seconds(1) + days(90));
    EXPECT_THAT(folder_.names(), ElementsAre("20240305-140710-001.journal", now + ".journal", "notes.txt"));
}

TEST_F(BatchesTest, WithoutAFolderNoneBegins)
{
    Batch batch;
    EXPECT_EQ(Batches({}).begin(two_moves, afternoon, batch), std::errc::no_such_file_or_directory);
}

TEST_F(BatchesTest, WhatWasMarkedIsReadAgain)
{
    Batch batch;
    ASSERT_FALSE(batches_.begin(two_moves, afternoon, batch));
    batch.mark(1, EntryState::Renamed);
    batch.mark(0, EntryState::Failed);
    batch.close();
    batch.close();
    Batch read;
    ASSERT_FALSE(batches_.open("20240305-140709-001", read));
    EXPECT_EQ(read.id(), "20240305-140709-001");
    EXPECT_EQ(read.moves().size(), 2U);
    EXPECT_EQ(read.state(0), EntryState::Failed);
    EXPECT_EQ(read.state(1), EntryState::Renamed);
    EXPECT_EQ(read.unknown(), 0U);
}

TEST_F(BatchesTest, OneThatHoldsNothingToTakeBackIsGoneWhenItIsClosed)
{
    Batch batch;
    ASSERT_FALSE(batches_.begin(two_moves, afternoon, batch));
    batch.mark(0, EntryState::Failed);
    batch.mark(1, EntryState::Restored);
    batch.close();
    EXPECT_THAT(folder_.names(), IsEmpty());
}

TEST_F(BatchesTest, OneOfWhichOnlyTheUnreadableRestIsLeftIsSetAside)
{
    const std::string id = begin(afternoon);
    std::filesystem::path path = folder_.path() / (id + ".journal");
    const std::string whole = folder_.content(path.filename().string());
    std::string damaged = whole;
    damaged.replace(damaged.rfind("/letters/"), 1, "?");
    folder_.write(path.filename().string(), damaged);
    Batch batch;
    ASSERT_FALSE(batches_.open(id, batch));
    ASSERT_EQ(batch.moves().size(), 1U);
    EXPECT_EQ(batch.unknown(), 1U);
    batch.mark(0, EntryState::Restored);
    batch.close();
    EXPECT_THAT(folder_.names(), ElementsAre(id + ".damaged"));
}

TEST_F(BatchesTest, WhatCannotBeOpenedSaysWhy)
{
    Batch batch;
    EXPECT_EQ(batches_.open("../../secret", batch), std::errc::no_such_file_or_directory);
    EXPECT_EQ(batches_.open("20240305-140709-001", batch), std::errc::no_such_file_or_directory);
    folder_.write("20240305-140709-001.journal", "no journal");
    EXPECT_EQ(batches_.open("20240305-140709-001", batch), std::errc::bad_message);
    EXPECT_THAT(folder_.names(), ElementsAre("20240305-140709-001.damaged"));
}

TEST_F(BatchesTest, OnlyThoseWithSomethingToTakeBackAreSummedUp)
{
    begin(afternoon);
    Batch half;
    ASSERT_FALSE(batches_.begin(two_moves, afternoon, half));
    half.mark(0, EntryState::Restored);
    half.close();
    Batch undone;
    ASSERT_FALSE(batches_.begin(two_moves, afternoon, undone));
    undone.mark(0, EntryState::Restored);
    undone.mark(1, EntryState::Failed);
    folder_.write("20240305-140709-500.journal", "no journal");
    std::filesystem::create_directory(folder_.path() / "20240305-140709-501.journal");
    const std::vector<BatchSummary> summaries = batches_.summaries();
    ASSERT_EQ(summaries.size(), 2U);
    EXPECT_EQ(summaries[0].id, "20240305-140709-002");
    EXPECT_EQ(summaries[0].names, 1U);
    EXPECT_EQ(summaries[0].folder, "/photos/");
    EXPECT_EQ(summaries[0].created, afternoon);
    EXPECT_EQ(summaries[1].id, "20240305-140709-001");
    EXPECT_EQ(summaries[1].names, 2U);
}

} // namespace
} // namespace multirename
