#include "cli/journal.h"

#include <gmock/gmock.h>

namespace multirename {
namespace {

using testing::Each;
using testing::ElementsAreArray;
using testing::IsEmpty;

const std::vector<JournalEntry> some_entries = {
    {"/photos/", "IMG_1", "sea 1"},
    {"/photos/", "line\nbreak", "\xFF\xFE"},
    {"/else where/", "a", "b"},
    {"/photos/", "c", "d"},
};

TEST(Journal, GivesBackWhatWasWritten)
{
    const JournalText text = journal_text(some_entries, 1709647629);
    const auto journal = read_journal(text.bytes);
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->created, 1709647629);
    EXPECT_EQ(journal->entries, some_entries);
    EXPECT_THAT(journal->states, Each(EntryState::Planned));
    EXPECT_EQ(journal->state_offsets, text.state_offsets);
    EXPECT_TRUE(journal->is_whole());
}

TEST(Journal, MayBeEmptyAndBeforeItsTime)
{
    const auto journal = read_journal(journal_text({}, -5).bytes);
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->created, -5);
    EXPECT_TRUE(journal->is_whole());
}

TEST(Journal, ReadsStatesThatWereOverwritten)
{
    JournalText text = journal_text(some_entries, 0);
    const std::vector states = {EntryState::Renamed, EntryState::Failed, EntryState::Restored, EntryState::Planned};
    for (std::size_t i = 0; i < states.size(); ++i)
        text.bytes[text.state_offsets[i]] = static_cast<char>(states[i]);
    EXPECT_EQ(read_journal(text.bytes)->states, states);
}

TEST(Journal, OneThatWasCutTellsItsFirstEntriesAndThatThereWereMore)
{
    const std::string whole = journal_text(some_entries, 0).bytes;
    std::size_t most = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto journal = read_journal(whole.substr(0, length));
        if (!journal)
            continue;
        EXPECT_FALSE(journal->is_whole()) << length;
        EXPECT_GE(journal->entries.size(), most) << length;
        most = journal->entries.size();
        EXPECT_THAT(journal->entries,
                    ElementsAreArray(some_entries.begin(), some_entries.begin() + static_cast<long>(most)));
    }
    EXPECT_EQ(most, some_entries.size() - 1);
}

TEST(Journal, OneThatWasChangedNeverTellsAnEntryThatWasNotWritten)
{
    const JournalText text = journal_text(some_entries, 0);
    for (std::size_t place = 0; place < text.bytes.size(); ++place) {
        for (const int bit : {1, 2, 16, 128}) {
            std::string changed = text.bytes;
            changed[place] = static_cast<char>(changed[place] ^ bit);
            const auto journal = read_journal(changed);
            if (!journal)
                continue;
            ASSERT_LE(journal->entries.size(), some_entries.size());
            for (std::size_t i = 0; i < journal->entries.size(); ++i)
                ASSERT_EQ(journal->entries[i], some_entries[i]) << place;
        }
    }
}

TEST(Journal, WhatIsNoneIsNotRead)
{
    EXPECT_FALSE(read_journal(""));
    EXPECT_FALSE(read_journal("multirename journal 1"));
    EXPECT_FALSE(read_journal(std::string("multirename journal 2\0"
                                          "0\0"
                                          "0\0",
                                          26)));
    EXPECT_FALSE(read_journal(std::string("multirename journal 1\0"
                                          "x\0"
                                          "0\0",
                                          26)));
    EXPECT_FALSE(read_journal(std::string("multirename journal 1\0"
                                          "0\0"
                                          "-1\0",
                                          27)));
    const auto boasting = read_journal(std::string("multirename journal 1\0"
                                                   "0\0"
                                                   "999999999999\0",
                                                   37));
    ASSERT_TRUE(boasting);
    EXPECT_THAT(boasting->entries, IsEmpty());
    EXPECT_FALSE(boasting->is_whole());
}

} // namespace
} // namespace multirename
