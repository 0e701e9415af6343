#include "cli/journal.h"

#include <gmock/gmock.h>

#include "cli/testing/journals.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const std::vector<JournalEntry> some_entries = {
    {"/photos/", "IMG_1", "sea 1"},
    {"/photos/", "line\nbreak", "\xFF\xFE"},
    {"/else where/", "a", "b"},
    {"/photos/", "c", "d"},
};

std::string written(const std::vector<JournalEntry>& entries, std::int64_t created)
{
    return journal_bytes(ListedMoves(entries), created);
}

std::vector<JournalEntry> entries_of(const Journal& journal)
{
    std::vector<JournalEntry> entries(journal.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        journal.get(i, entries[i]);
    return entries;
}

TEST(Journal, GivesBackWhatWasWritten)
{
    const auto journal = Journal::read(written(some_entries, 1709647629));
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->created, 1709647629);
    EXPECT_EQ(entries_of(*journal), some_entries);
    EXPECT_EQ(journal->states, std::vector(some_entries.size(), EntryState::Planned));
    EXPECT_TRUE(journal->is_whole());
}

TEST(Journal, KnowsWhereTheStatesAreBeforeItIsRead)
{
    const auto read = Journal::read(written(some_entries, -77));
    const Journal begun = Journal::begun(some_entries.size(), -77);
    EXPECT_EQ(begun.states, read->states);
    EXPECT_EQ(begun.end_of_states(), read->end_of_states());
    for (std::size_t i = 0; i < some_entries.size(); ++i)
        EXPECT_EQ(begun.state_offset(i), read->state_offset(i));
    EXPECT_TRUE(begun.is_whole());
    EXPECT_EQ(begun.size(), 0U);
}

TEST(Journal, OfManyEntriesIsWrittenInPieces)
{
    std::vector<JournalEntry> many;
    many.reserve(300'000);
    for (int i = 0; i < 300'000; ++i)
        many.push_back({i % 1000 == 0 ? "/a/" : "/b/", std::to_string(i), std::to_string(i + 1)});
    const auto journal = Journal::read(written(many, 0));
    ASSERT_TRUE(journal);
    EXPECT_EQ(entries_of(*journal), many);
    std::size_t longest = 0;
    const auto look = [&longest](std::string_view piece) {
        longest = std::max(longest, piece.size());
        return std::error_code();
    };
    EXPECT_FALSE(write_journal(ListedMoves(many), 0, look));
    EXPECT_LE(longest, 1'000'000U);
}

TEST(Journal, IsNotWrittenOnBehindAnError)
{
    const std::vector<JournalEntry> many(100'000, some_entries.front());
    int calls = 0;
    const auto refuse = [&calls](std::string_view) {
        ++calls;
        return std::make_error_code(std::errc::no_space_on_device);
    };
    EXPECT_EQ(write_journal(ListedMoves(many), 0, refuse), std::errc::no_space_on_device);
    EXPECT_EQ(calls, 1);
}

// As the program wrote them before their states stood together.
TEST(Journal, OfTheFirstVersionIsReadAsWell)
{
    std::string bytes("multirename journal 1\0"
                      "1709647629\0"
                      "3\0"
                      "n/photos/\0IMG_1\0sea 1\0ef8a1d0162ebfa76\n"
                      "p\0line\nbreak\0\xFF\xFE\0"
                      "4d4662c86259b34e\n"
                      "f/else where/\0a\0b\0c04a3af65fa37999\n",
                      142);
    const std::vector<JournalEntry> entries = {
        {"/photos/", "IMG_1", "sea 1"}, {"/photos/", "line\nbreak", "\xFF\xFE"}, {"/else where/", "a", "b"}};
    const auto journal = Journal::read(bytes);
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->created, 1709647629);
    EXPECT_EQ(entries_of(*journal), entries);
    EXPECT_THAT(journal->states, ElementsAre(EntryState::Renamed, EntryState::Planned, EntryState::Failed));
    EXPECT_TRUE(journal->is_whole());
    bytes[journal->state_offset(1)] = static_cast<char>(EntryState::Restored);
    EXPECT_THAT(Journal::read(bytes)->states,
                ElementsAre(EntryState::Renamed, EntryState::Restored, EntryState::Failed));
    bytes[bytes.size() - 3] ^= 1;
    EXPECT_EQ(Journal::read(bytes)->size(), 2U);
}

TEST(Journal, MayBeEmptyAndBeforeItsTime)
{
    const auto journal = Journal::read(written({}, -5));
    ASSERT_TRUE(journal);
    EXPECT_EQ(journal->created, -5);
    EXPECT_TRUE(journal->is_whole());
}

TEST(Journal, ReadsStatesThatWereOverwritten)
{
    std::string bytes = written(some_entries, 0);
    const std::vector states = {EntryState::Renamed, EntryState::Failed, EntryState::Restored, EntryState::Planned};
    for (std::size_t i = 0; i < states.size(); ++i)
        bytes[Journal::begun(states.size(), 0).state_offset(i)] = static_cast<char>(states[i]);
    EXPECT_EQ(Journal::read(bytes)->states, states);
}

TEST(Journal, OneThatWasCutTellsItsFirstEntriesAndThatThereWereMore)
{
    const std::string whole = written(some_entries, 0);
    std::size_t most = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto journal = Journal::read(whole.substr(0, length));
        if (!journal)
            continue;
        EXPECT_FALSE(journal->is_whole()) << length;
        EXPECT_EQ(journal->size(), journal->states.size()) << length;
        EXPECT_GE(journal->size(), most) << length;
        most = journal->size();
        EXPECT_THAT(entries_of(*journal),
                    ElementsAreArray(some_entries.begin(), some_entries.begin() + static_cast<long>(most)));
    }
    EXPECT_EQ(most, some_entries.size() - 1);
}

TEST(Journal, OneThatWasChangedNeverTellsAnEntryThatWasNotWritten)
{
    const std::string bytes = written(some_entries, 0);
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        for (const int bit : {1, 2, 16, 128}) {
            std::string changed = bytes;
            changed[place] = static_cast<char>(changed[place] ^ bit);
            const auto journal = Journal::read(changed);
            if (!journal)
                continue;
            const std::vector<JournalEntry> entries = entries_of(*journal);
            ASSERT_LE(entries.size(), some_entries.size());
            for (std::size_t i = 0; i < entries.size(); ++i)
                ASSERT_EQ(entries[i], some_entries[i]) << place;
        }
    }
}

TEST(Journal, EntriesWithNamesThatLeadOutOfTheirFolderAreNotRead)
{
    for (const char* name : {"", ".", "..", "../a", "a/b", "/etc/passwd"}) {
        for (const JournalEntry& led_astray : {JournalEntry{"/photos/", name, "a"}, {"/photos/", "a", name}}) {
            const auto journal = Journal::read(written({some_entries[0], led_astray, some_entries[2]}, 0));
            ASSERT_TRUE(journal);
            EXPECT_THAT(entries_of(*journal), ElementsAre(some_entries[0])) << name;
            EXPECT_FALSE(journal->is_whole());
        }
    }
}

TEST(Journal, WhatIsNoneIsNotRead)
{
    EXPECT_FALSE(Journal::read(""));
    EXPECT_FALSE(Journal::read("multirename journal 1"));
    EXPECT_FALSE(Journal::read(std::string("multirename journal 3\0"
                                           "0\0"
                                           "0\0",
                                           26)));
    EXPECT_FALSE(Journal::read(std::string("multirename journal 1\0"
                                           "x\0"
                                           "0\0",
                                           26)));
    EXPECT_FALSE(Journal::read(std::string("multirename journal 1\0"
                                           "0\0"
                                           "-1\0",
                                           27)));
    for (const std::string version : {"1", "2"}) {
        const auto boasting = Journal::read("multirename journal " + version +
                                            std::string("\0"
                                                        "0\0"
                                                        "999999999999\0",
                                                        16));
        ASSERT_TRUE(boasting);
        EXPECT_EQ(boasting->size(), 0U);
        EXPECT_FALSE(boasting->is_whole());
    }
}

} // namespace
} // namespace multirename
