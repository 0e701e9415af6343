#include "cli/what_happened.h"

#include <gmock/gmock.h>

#include <map>

namespace multirename {
namespace {

using testing::ElementsAre;

// Folders as they are now, by their paths.
using Folders = std::map<std::string, std::set<std::string>>;

NamesOfFolder names_in(const Folders& folders)
{
    return [&folders](const std::string& folder) {
        const auto found = folders.find(folder);
        return found == folders.end() ? std::set<std::string>() : found->second;
    };
}

std::vector<bool> traced(const std::vector<JournalEntry>& moves, const Folders& folders)
{
    return what_happened(moves, names_in(folders));
}

TEST(WhatHappened, TellsMovesThatWereMadeFromThoseThatWereNot)
{
    EXPECT_THAT(traced({{"C:\\", "a", "x"}, {"C:\\", "b", "y"}}, {{"C:\\", {"x", "b"}}}), ElementsAre(true, false));
}

TEST(WhatHappened, FollowsAChainOfNamesHoweverFarItWent)
{
    const std::vector<JournalEntry> shift = {{"C:\\", "3", "4"}, {"C:\\", "2", "3"}, {"C:\\", "1", "2"}};
    EXPECT_THAT(traced(shift, {{"C:\\", {"1", "2", "3"}}}), ElementsAre(false, false, false));
    EXPECT_THAT(traced(shift, {{"C:\\", {"1", "2", "4"}}}), ElementsAre(true, false, false));
    EXPECT_THAT(traced(shift, {{"C:\\", {"1", "3", "4"}}}), ElementsAre(true, true, false));
    EXPECT_THAT(traced(shift, {{"C:\\", {"2", "3", "4"}}}), ElementsAre(true, true, true));
}

TEST(WhatHappened, LooksForTheContentsOfARenamedFolderWhereTheyAreNow)
{
    const std::vector<JournalEntry> moves = {{"C:\\d\\s\\", "a", "x"}, {"C:\\d\\", "s", "t"}, {"C:\\", "d", "e"}};
    EXPECT_THAT(traced(moves, {{"C:\\", {"e"}}, {"C:\\e\\", {"t"}}, {"C:\\e\\t\\", {"x"}}}),
                ElementsAre(true, true, true));
    EXPECT_THAT(traced(moves, {{"C:\\", {"d"}}, {"C:\\d\\", {"t"}}, {"C:\\d\\t\\", {"x"}}}),
                ElementsAre(true, true, false));
    EXPECT_THAT(traced(moves, {{"C:\\", {"d"}}, {"C:\\d\\", {"s"}}, {"C:\\d\\s\\", {"a"}}}),
                ElementsAre(false, false, false));
}

TEST(WhatHappened, SeesAChangeOfCaseThatWasNotMade)
{
    EXPECT_THAT(traced({{"C:\\", "a", "A"}}, {{"C:\\", {"a"}}}), ElementsAre(false));
    EXPECT_THAT(traced({{"C:\\", "a", "A"}}, {{"C:\\", {"A"}}}), ElementsAre(true));
}

std::vector<bool> free_moves(const std::vector<JournalEntry>& moves, const Folders& folders)
{
    return moves_to_free_names(moves, names_in(folders));
}

TEST(MovesToFreeNames, LeavesOutANameThatIsTaken)
{
    EXPECT_THAT(free_moves({{"C:\\", "a", "x"}, {"C:\\", "b", "y"}}, {{"C:\\", {"a", "b", "Y"}}}),
                ElementsAre(true, false));
}

TEST(MovesToFreeNames, LeavesOutWhatWaitsForANameThatIsNotGivenUp)
{
    const std::vector<JournalEntry> shift = {{"C:\\", "3", "4"}, {"C:\\", "2", "3"}, {"C:\\", "1", "2"}};
    EXPECT_THAT(free_moves(shift, {{"C:\\", {"1", "2", "3"}}}), ElementsAre(true, true, true));
    EXPECT_THAT(free_moves(shift, {{"C:\\", {"1", "2", "3", "4"}}}), ElementsAre(false, false, false));
}

TEST(MovesToFreeNames, ItsOwnNameIsInNobodysWay)
{
    EXPECT_THAT(free_moves({{"C:\\", "a", "A"}}, {{"C:\\", {"a"}}}), ElementsAre(true));
}

TEST(MovesToFreeNames, EachFolderHasItsOwnNames)
{
    EXPECT_THAT(free_moves({{"C:\\d\\", "a", "x"}, {"C:\\new\\", "a", "x"}}, {{"C:\\d\\", {"a", "x"}}}),
                ElementsAre(false, true));
}

} // namespace
} // namespace multirename
