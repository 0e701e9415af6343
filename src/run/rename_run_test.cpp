#include "run/rename_run.h"

#include <gtest/gtest.h>

#include <random>

#include "pattern/new_name.h"
#include "run/testing/test_run.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;
using Rows = std::vector<std::size_t>;
using Statuses = std::vector<Status>;

const Names photos = {u"IMG_0001.jpg", u"IMG_0002.jpg", u"IMG_0010.jpg"};

std::u16string problem_of(const std::optional<Message>& message)
{
    EXPECT_TRUE(message.has_value());
    if (!message)
        return {};
    EXPECT_EQ(message->icon, MessageIcon::Exclamation);
    return message->text;
}

// The four patterns and the check boxes that select one

struct ModeRow {
    const char* sentence;
    bool numbers_as_text;
    bool allow_extension_changes;
    std::u16string_view pattern;
};
class RunMode : public testing::TestWithParam<ModeRow> { };
TEST_P(RunMode, IsSelectedByTheBoxes)
{
    TestRun test(photos);
    EXPECT_TRUE(test.run.set_numbers_as_text(GetParam().numbers_as_text));
    EXPECT_TRUE(test.run.set_allow_extension_changes(GetParam().allow_extension_changes));
    EXPECT_EQ(test.run.pattern().patternText, GetParam().pattern);
    EXPECT_EQ(test.run.pattern().includesExtension, GetParam().allow_extension_changes);
}
TEST_P(RunMode, IsOpenedWithTheRememberedBoxes)
{
    const TestRun test(photos, {}, {GetParam().allow_extension_changes, GetParam().numbers_as_text});
    EXPECT_EQ(test.run.pattern().patternText, GetParam().pattern);
    EXPECT_EQ(test.run.allow_extension_changes().checked, GetParam().allow_extension_changes);
    EXPECT_EQ(test.run.numbers_as_text().checked, GetParam().numbers_as_text);
}
TEST_P(RunMode, GivesEveryOldNameBackAtFirst)
{
    const TestRun test(photos, {}, {GetParam().allow_extension_changes, GetParam().numbers_as_text});
    EXPECT_EQ(test.new_names(), photos);
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Unchanged));
}
INSTANTIATE_TEST_SUITE_P(All, RunMode,
                         testing::Values(ModeRow{"Numbers", false, false, u"IMG_#"},
                                         ModeRow{"NumbersWithExtension", false, true, u"IMG_#.jpg"},
                                         ModeRow{"Texts", true, false, u"IMG_00*0*"},
                                         ModeRow{"TextsWithExtension", true, true, u"IMG_00*0*.jpg"}),
                         [](const auto& row) { return std::string(row.param.sentence); });

TEST(RunParts, AreDescribedByTheirKindAndPlace)
{
    const TestRun test({u"a 1 six.txt", u"a 2 ten.txt"});
    ASSERT_EQ(test.run.pattern().patternText, u"a # *");
    Names descriptions;
    for (std::size_t part = 0; part < test.run.pattern().parts.size(); ++part)
        descriptions.push_back(test.run.part_description(part));
    EXPECT_EQ(descriptions, (Names{u"Text part 1", u"Number part 1", u"Text part 2", u"Wild part 1", u"Text part 3"}));
}

TEST(RunBoxes, StartEnabledAndUnchecked)
{
    const TestRun test(photos);
    EXPECT_TRUE(test.run.allow_extension_changes().enabled);
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
    EXPECT_TRUE(test.run.numbers_as_text().enabled);
    EXPECT_FALSE(test.run.numbers_as_text().checked);
    EXPECT_TRUE(test.run.pattern_controls_enabled());
}

TEST(RunBoxes, WithoutAnyExtensionThereIsNoneToChange)
{
    TestRun test({u"a1", u"a2"}, {}, {true, false});
    EXPECT_FALSE(test.run.allow_extension_changes().enabled);
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
    EXPECT_FALSE(test.run.pattern().includesExtension);
    EXPECT_EQ(test.run.extension_text(), u"");
}

TEST(RunBoxes, OneExtensionIsEnoughToChange)
{
    const TestRun test({u"a1.txt", u"a2"});
    EXPECT_TRUE(test.run.allow_extension_changes().enabled);
    EXPECT_EQ(test.run.extension_text(), u".*");
}

TEST(RunBoxes, WithoutANumberThereIsNoneToTakeAsText)
{
    const TestRun test({u"apple.txt", u"pear.txt"}, {}, {false, true});
    EXPECT_FALSE(test.run.numbers_as_text().enabled);
    EXPECT_FALSE(test.run.numbers_as_text().checked);
}

TEST(RunBoxes, AHashInTheNamesIsNoNumber)
{
    const TestRun test({u"x#a.txt", u"x#b.txt"}, {}, {false, true});
    EXPECT_EQ(test.run.pattern().patternText, u"x\\#*");
    EXPECT_FALSE(test.run.numbers_as_text().enabled);
    EXPECT_FALSE(test.run.numbers_as_text().checked);
}

TEST(RunBoxes, ANumberBesideAHashIsOne)
{
    const TestRun test({u"x#1.txt", u"x#2.txt"});
    EXPECT_EQ(test.run.pattern().patternText, u"x\\##");
    EXPECT_TRUE(test.run.numbers_as_text().enabled);
}

TEST(RunBoxes, ADisabledBoxTakesNoClickAndRemembersNone)
{
    TestRun test({u"a", u"b"});
    EXPECT_FALSE(test.run.set_allow_extension_changes(true));
    EXPECT_FALSE(test.run.set_numbers_as_text(true));
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
    EXPECT_FALSE(test.run.numbers_as_text().checked);
    EXPECT_FALSE(test.remembered.allow_extension_changes);
    EXPECT_FALSE(test.remembered.numbers_as_text);
}

TEST(RunBoxes, WhatIsRememberedOutlivesARunThatCannotUseIt)
{
    const TestRun test({u"a", u"b"}, {}, {true, true});
    EXPECT_FALSE(test.run.numbers_as_text().checked);
    EXPECT_TRUE(test.remembered.allow_extension_changes);
    EXPECT_TRUE(test.remembered.numbers_as_text);
}

TEST(RunBoxes, AClickIsRememberedAtOnce)
{
    TestRun test(photos);
    test.run.set_allow_extension_changes(true);
    EXPECT_TRUE(test.remembered.allow_extension_changes);
    EXPECT_FALSE(test.remembered.numbers_as_text);
    test.run.set_numbers_as_text(true);
    EXPECT_TRUE(test.remembered.numbers_as_text);
    test.run.set_allow_extension_changes(false);
    EXPECT_FALSE(test.remembered.allow_extension_changes);
}

TEST(RunWholeNames, FoldersAloneAreNeverSplit)
{
    const TestRun test({u"v1.2\\", u"v1.3\\"});
    EXPECT_TRUE(test.run.is_whole_name_mode());
    EXPECT_TRUE(test.run.allow_extension_changes().checked);
    EXPECT_TRUE(test.run.allow_extension_changes().enabled);
    EXPECT_FALSE(test.remembered.allow_extension_changes);
    EXPECT_EQ(test.run.pattern().patternText, u"v1.#");
    EXPECT_TRUE(test.run.pattern().includesExtension);
    EXPECT_EQ(test.new_names(), (Names{u"v1.2", u"v1.3"}));
}

TEST(RunWholeNames, NumbersAreTextThereToo)
{
    TestRun test({u"v1.x\\", u"v2.x\\"});
    EXPECT_EQ(test.run.pattern().patternText, u"v#.x");
    EXPECT_TRUE(test.run.set_numbers_as_text(true));
    EXPECT_EQ(test.run.pattern().patternText, u"v*.x");
    EXPECT_TRUE(test.run.pattern().includesExtension);
}

TEST(RunWholeNames, ANumberThatOnlyTheExtensionHasCannotBeTakenAsText)
{
    TestRun test({u"v1.2\\", u"v1.3\\"});
    EXPECT_EQ(test.run.pattern().patternText, u"v1.#");
    EXPECT_FALSE(test.run.numbers_as_text().enabled);
}

TEST(RunWholeNames, TheBoxStillSelectsThePatternWithoutExtensions)
{
    TestRun test({u"v1.2\\", u"v1.3\\"});
    EXPECT_TRUE(test.run.set_allow_extension_changes(false));
    EXPECT_EQ(test.run.pattern().patternText, u"v1");
    EXPECT_FALSE(test.run.pattern().includesExtension);
    EXPECT_EQ(test.new_names(), (Names{u"v1.2", u"v1.3"}));
}

TEST(RunWholeNames, WithoutAPeriodTheBoxIsUncheckedAndDisabled)
{
    const TestRun test({u"Summer 1\\", u"Summer 2\\"});
    EXPECT_TRUE(test.run.is_whole_name_mode());
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
    EXPECT_FALSE(test.run.allow_extension_changes().enabled);
    EXPECT_EQ(test.run.pattern().patternText, u"Summer #");
}

TEST(RunWholeNames, OnePlainFileAmongFoldersEndsIt)
{
    const TestRun test({u"v1.2\\", u"v1.3"});
    EXPECT_FALSE(test.run.is_whole_name_mode());
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
}

TEST(RunScope, EntriesThatThePatternDoesNotCoverTakeNoPart)
{
    // The letter before the number is shared by chance of the first name alone: *a# does not cover yb22.
    TestRun test({u"xa1", u"yb22"});
    ASSERT_EQ(test.run.pattern().patternText, u"*a#");
    EXPECT_TRUE(test.entry(u"xa1").in_scope);
    EXPECT_FALSE(test.entry(u"yb22").in_scope);
    EXPECT_EQ(test.new_names(), (Names{u"xa1", u""}));
    EXPECT_EQ(test.statuses(), (Statuses{Status::Unchanged, Status::Ready}));
    EXPECT_EQ(test.run.judge().kind, Verdict::Kind::NothingToDo);
}

TEST(RunScope, AnExtensionWithAHashStaysCovered)
{
    const TestRun test({u"notes.c#"}, {}, {true, false});
    EXPECT_EQ(test.run.pattern().patternText, u"notes.c\\#");
    EXPECT_TRUE(test.run.row_entry(0).in_scope);
    EXPECT_EQ(test.new_names(), (Names{u"notes.c#"}));
}

TEST(RunScope, NamesAreCoveredInAnyCase)
{
    const TestRun test({u"\u00E9t\u00E9 1.txt", u"\u00E9t\u00E9 2.txt"});
    EXPECT_TRUE(test.run.row_entry(0).in_scope);
    EXPECT_TRUE(test.run.row_entry(1).in_scope);
}

TEST(RunScope, EntriesBesideTheListedOnesGetNoNewName)
{
    TestRun test({u"a1.txt"}, {u"a2.txt"});
    EXPECT_EQ(test.entry(u"a2.txt").new_name, u"");
    EXPECT_EQ(test.entry(u"a2.txt").status, Status::Ready);
}

TEST(EmptyRun, HasAnEmptyPatternAndNothingToDo)
{
    TestRun test({});
    EXPECT_EQ(test.run.pattern().patternText, u"");
    EXPECT_EQ(test.run.row_count(), 0U);
    EXPECT_EQ(test.run.copied_names(), u"");
    EXPECT_EQ(test.run.judge().kind, Verdict::Kind::NothingToDo);
}

TEST(SingleFileRun, HasItsOwnNameForAPattern)
{
    TestRun test({u"notes.txt"});
    EXPECT_EQ(test.run.pattern().patternText, u"notes");
    EXPECT_TRUE(test.run.set_part_text(0, u"memo"));
    EXPECT_EQ(test.new_names(), (Names{u"memo.txt"}));
}

// Editing a part

TEST(RunPart, EachShowsItsLabel)
{
    const TestRun test(photos);
    ASSERT_EQ(test.run.pattern().parts.size(), 3U);
    EXPECT_EQ(test.run.part_label(0), u"IMG_");
    EXPECT_EQ(test.run.part_label(1), u"#");
    EXPECT_EQ(test.run.part_label(2), u"");
}

TEST(RunPart, AWildShowsAStarAndAnEditedTextItsText)
{
    TestRun test({u"a.txt", u"b.txt"});
    test.run.set_part_text(0, u"x ");
    EXPECT_EQ(test.run.part_label(0), u"x ");
    EXPECT_EQ(test.run.part_label(1), u"*");
}

TEST(RunEdit, ATextMakesAllNewNamesAgainAndJudgesThem)
{
    TestRun test(photos, {u"Photo 0010.jpg"});
    EXPECT_TRUE(test.run.set_part_text(0, u"Photo "));
    EXPECT_EQ(test.new_names(), (Names{u"Photo 0001.jpg", u"Photo 0002.jpg", u"Photo 0010.jpg"}));
    EXPECT_EQ(test.statuses(), (Statuses{Status::Ready, Status::Ready, Status::ExistingName}));
}

TEST(RunEdit, TheSameTextAgainDoesNothing)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    test.entry(u"IMG_0001.jpg").new_name = u"a mark that a refresh would wipe out";
    EXPECT_FALSE(test.run.set_part_text(0, u"Photo "));
    EXPECT_EQ(test.new_names()[0], u"a mark that a refresh would wipe out");
}

TEST(RunEdit, NoTextInAPartThatHasNoneDoesNothing)
{
    TestRun test(photos);
    EXPECT_FALSE(test.run.set_part_text(2, u""));
    EXPECT_TRUE(test.run.pattern().parts[2].keepMatched);
}

TEST(RunEdit, OfATextTheFirst260CharactersCount)
{
    TestRun test(photos);
    EXPECT_TRUE(test.run.set_part_text(0, std::u16string(300, u'x')));
    EXPECT_EQ(test.run.part_label(0), std::u16string(260, u'x'));
    EXPECT_FALSE(test.run.set_part_text(0, std::u16string(300, u'x')));
    EXPECT_FALSE(test.run.set_part_text(0, std::u16string(260, u'x')));
    EXPECT_EQ(test.statuses(), Statuses(3, Status::TooLong));
}

TEST(RunEdit, AnInvalidTextMarksEveryEntry)
{
    TestRun test(photos, {u"beside.txt"});
    test.run.set_part_text(0, u"a?b");
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Forbidden));
    EXPECT_EQ(test.entry(u"beside.txt").status, Status::Forbidden);
    EXPECT_EQ(test.run.judge().kind, Verdict::Kind::Refuse);
}

TEST(RunEdit, AnInvalidTagMarksEveryEntry)
{
    TestRun test(photos);
    test.run.set_part_text(2, u" <2024>");
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Ready));
    test.run.set_part_text(2, u" <year>");
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Forbidden));
}

TEST(RunEdit, AMendedTextIsJudgedAfresh)
{
    TestRun test(photos, {u"beside.txt"});
    test.run.set_part_text(0, u"a?b");
    test.run.set_part_text(0, u"ab");
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Ready));
    EXPECT_EQ(test.entry(u"beside.txt").status, Status::Ready);
}

TEST(RunEdit, SettingsOfAPartCountWithTheNextRefresh)
{
    TestRun test(photos);
    test.run.part(1).leadingZeros = LeadingZerosMode::RemoveZeros;
    test.run.refresh_names();
    EXPECT_EQ(test.new_names(), (Names{u"IMG_1.jpg", u"IMG_2.jpg", u"IMG_10.jpg"}));
}

TEST(RunEdit, NumbersAreRenumberedFromTheSmallest)
{
    TestRun test({u"a12.txt", u"a7.txt", u"a9.txt"}, {u"a1.txt"});
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 100;
    test.run.refresh_names();
    EXPECT_EQ(test.new_names(), (Names{u"a105.txt", u"a100.txt", u"a102.txt"}));
}

TEST(RunEdit, BothPatternsWithNumbersKnowTheSmallest)
{
    TestRun test({u"a12.txt", u"a7.txt"});
    EXPECT_EQ(test.run.pattern().parts[1].baseNumber, 7);
    test.run.set_allow_extension_changes(true);
    EXPECT_EQ(test.run.pattern().parts[1].baseNumber, 7);
}

// Changing the mode

TEST(RunModeChange, CarriesTheEditsOver)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 5;
    EXPECT_TRUE(test.run.set_allow_extension_changes(true));
    EXPECT_EQ(test.run.part_label(0), u"Photo ");
    EXPECT_EQ(test.run.part_label(2), u".jpg");
    EXPECT_EQ(test.new_names(), (Names{u"Photo 0005.jpg", u"Photo 0006.jpg", u"Photo 0014.jpg"}));
}

TEST(RunModeChange, CarriesTheEditsBackToo)
{
    TestRun test(photos);
    test.run.set_allow_extension_changes(true);
    test.run.set_part_text(0, u"Photo ");
    test.run.set_allow_extension_changes(false);
    EXPECT_EQ(test.run.part_label(0), u"Photo ");
    EXPECT_EQ(test.new_names()[0], u"Photo 0001.jpg");
}

TEST(RunModeChange, WithoutAChangeNothingIsCarried)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    EXPECT_TRUE(test.run.set_allow_extension_changes(false));
    EXPECT_EQ(test.run.part_label(0), u"Photo ");
    EXPECT_EQ(test.new_names()[0], u"Photo 0001.jpg");
}

TEST(RunModeChange, EditsOfAPatternThatHasNothingInCommonStayThere)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    test.run.set_numbers_as_text(true);
    EXPECT_EQ(test.run.part_label(0), u"IMG_00");
    EXPECT_EQ(test.new_names()[0], u"IMG_0001.jpg");
    test.run.set_numbers_as_text(false);
    EXPECT_EQ(test.run.part_label(0), u"Photo ");
}

TEST(RunModeChange, AnInvalidTextStaysInvalid)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"a?b");
    test.run.set_allow_extension_changes(true);
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Forbidden));
}

TEST(RunModeChange, PastedNamesStay)
{
    TestRun test(photos);
    test.run.paste_names(u"x", Rows{0});
    test.run.set_allow_extension_changes(true);
    EXPECT_EQ(test.new_names()[0], u"x.jpg");
}

// What the rows show

TEST(RunRow, ShowsTheNamesAndTheFolder)
{
    TestRun test({u"C:\\Photos\\a1.txt"});
    test.run.set_part_text(0, u"b");
    EXPECT_EQ(test.run.row(0).old_name, u"a1.txt");
    EXPECT_EQ(test.run.row(0).new_name, u"b.txt");
    EXPECT_EQ(test.run.row(0).folder, u"C:\\Photos\\");
    EXPECT_FALSE(test.run.row(0).is_pasted);
}

TEST(RunRow, StandsInTheHostsOrder)
{
    const TestRun test({u"b.txt", u"C:\\A\\c.txt", u"a.txt", u"b.txt"});
    ASSERT_EQ(test.run.row_count(), 4U);
    EXPECT_EQ(test.run.row(0).old_name, u"b.txt");
    EXPECT_EQ(test.run.row(1).old_name, u"c.txt");
    EXPECT_EQ(test.run.row(2).old_name, u"a.txt");
    EXPECT_EQ(test.run.row(3).old_name, u"b.txt");
}

TEST(RunRow, FoldersAreShownWhenThereAreSeveral)
{
    EXPECT_FALSE(TestRun({u"C:\\A\\a", u"C:\\A\\b"}).run.shows_folders());
    EXPECT_FALSE(TestRun({u"C:\\A\\a", u"c:\\a\\b"}).run.shows_folders());
    EXPECT_TRUE(TestRun({u"C:\\A\\a", u"C:\\B\\b"}).run.shows_folders());
}

struct ImageRow {
    Status status;
    StatusImage image;
    std::uint32_t number;
};
class RunRowImage : public testing::TestWithParam<ImageRow> { };
TEST_P(RunRowImage, FollowsTheStatus)
{
    TestRun test({u"a"});
    test.entry(u"a").status = GetParam().status;
    EXPECT_EQ(test.run.row(0).image, GetParam().image);
    EXPECT_EQ(static_cast<std::uint32_t>(test.run.row(0).image), GetParam().number);
}
INSTANTIATE_TEST_SUITE_P(All, RunRowImage,
                         testing::Values(ImageRow{Status::Pending, StatusImage::Pending, 3},
                                         ImageRow{Status::NotMade, StatusImage::Pending, 3},
                                         ImageRow{Status::Ready, StatusImage::Ready, 1},
                                         ImageRow{Status::Unchanged, StatusImage::Unchanged, 2},
                                         ImageRow{Status::SameName, StatusImage::SameName, 5},
                                         ImageRow{Status::ExistingName, StatusImage::ExistingName, 6},
                                         ImageRow{Status::Empty, StatusImage::Empty, 4},
                                         ImageRow{Status::SpaceOrPeriod, StatusImage::Invalid, 7},
                                         ImageRow{Status::TooLong, StatusImage::Invalid, 7},
                                         ImageRow{Status::Forbidden, StatusImage::Invalid, 7}));

TEST(RunNumbering, CountsTheRowsFromZeroAndAnewInEachFolder)
{
    const TestRun test({u"C:\\B\\a1", u"C:\\A\\a2", u"C:\\B\\a3", u"C:\\A\\a4", u"C:\\B\\a5"});
    const std::vector<std::uint32_t> in_folder = {0, 0, 1, 1, 2};
    for (std::uint32_t row = 0; row < 5; ++row) {
        EXPECT_EQ(test.run.row_entry(row).sequence, row);
        EXPECT_EQ(test.run.row_entry(row).folder_sequence, in_folder[row]);
    }
}

TEST(RunNumbering, RunningNumbersFollowTheRows)
{
    TestRun test({u"C:\\B\\a1", u"C:\\A\\a2", u"C:\\B\\a3"});
    test.run.set_part_text(0, u"<10,5:3> ");
    EXPECT_EQ(test.new_names(), (Names{u"010 1", u"015 2", u"020 3"}));
    test.run.set_part_text(0, u"<1:2F> ");
    EXPECT_EQ(test.new_names(), (Names{u"01 1", u"01 2", u"02 3"}));
}

// Removing rows

TEST(RunRemoval, TheOtherRowsStay)
{
    TestRun test({u"a1", u"a2", u"a3", u"a4"});
    EXPECT_EQ(test.run.remove_rows(Rows{0, 2}), std::nullopt);
    ASSERT_EQ(test.run.row_count(), 2U);
    EXPECT_EQ(test.run.row(0).old_name, u"a2");
    EXPECT_EQ(test.run.row(1).old_name, u"a4");
}

TEST(RunRemoval, TheOrderOfTheRowsToRemoveDoesNotMatter)
{
    TestRun test({u"a1", u"a2", u"a3"});
    EXPECT_EQ(test.run.remove_rows(Rows{2, 0}), std::nullopt);
    ASSERT_EQ(test.run.row_count(), 1U);
    EXPECT_EQ(test.run.row(0).old_name, u"a2");
}

TEST(RunRemoval, NotAllRowsCanGo)
{
    TestRun test({u"a1", u"a2"});
    const auto message = test.run.remove_rows(Rows{0, 1});
    EXPECT_EQ(problem_of(message), u"You cannot remove all the files from the list.");
    EXPECT_EQ(test.run.row_count(), 2U);
    EXPECT_FALSE(test.entry(u"a1").not_listed);
    EXPECT_TRUE(test.entry(u"a1").in_scope);
}

TEST(RunRemoval, AnEntryListedTwiceGoesFromBothRows)
{
    TestRun test({u"a1", u"a2", u"a1"});
    EXPECT_EQ(test.run.remove_rows(Rows{0}), std::nullopt);
    ASSERT_EQ(test.run.row_count(), 1U);
    EXPECT_EQ(test.run.row(0).old_name, u"a2");
}

TEST(RunRemoval, OfAllEntriesThroughSomeOfTheirRowsIsRefused)
{
    TestRun test({u"a1", u"a1"});
    EXPECT_TRUE(test.run.remove_rows(Rows{0}).has_value());
    EXPECT_EQ(test.run.row_count(), 2U);
}

/// Takes the entries that a run hands over.
class CollectingProgress final : public RenameProgress {
public:
    void announce() override { }
    bool is_cancelled() override { return false; }
    void rename(OwnerWindow, std::span<const Filename* const> entries) override
    {
        for (const Filename* entry : entries)
            renames.push_back(std::u16string(entry->name) + u" > " + std::u16string(entry->new_name));
    }

    Names renames;
};

Names renames_of(RenameRun& run)
{
    EXPECT_EQ(run.judge().kind, Verdict::Kind::Rename);
    CollectingProgress progress;
    run.rename(OwnerWindow::none, progress);
    return progress.renames;
}

TEST(RunRemoval, ARemovedEntryIsNeverRenamed)
{
    TestRun test({u"a1", u"a2", u"a3"});
    test.run.set_part_text(0, u"b");
    test.run.remove_rows(Rows{1});
    EXPECT_EQ(renames_of(test.run), (Names{u"a1 > b1", u"a3 > b3"}));
    test.run.set_part_text(0, u"c");
    EXPECT_EQ(renames_of(test.run), (Names{u"a1 > c1", u"a3 > c3"}));
    EXPECT_EQ(test.entry(u"a2").status, Status::Ready);
}

TEST(RunRemoval, ARemovedEntryIsNotRenamedAfterAResetEither)
{
    TestRun test({u"a1", u"a2", u"a3"});
    test.run.remove_rows(Rows{1});
    test.run.reset();
    test.run.set_part_text(0, u"b");
    EXPECT_EQ(renames_of(test.run), (Names{u"a1 > b1", u"a3 > b3"}));
}

TEST(RunRemoval, ARemovedEntryWithAPastedNameIsNotRenamedEither)
{
    TestRun test({u"a1", u"a2", u"a3"});
    test.run.paste_names(u"x\ny\nz");
    test.run.remove_rows(Rows{1});
    EXPECT_EQ(renames_of(test.run), (Names{u"a1 > x", u"a3 > z"}));
}

TEST(RunRemoval, ItsNameThenStandsInTheWay)
{
    TestRun test({u"a1", u"a2"});
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 2;
    test.run.refresh_names();
    EXPECT_EQ(test.statuses(), (Statuses{Status::Ready, Status::Ready}));
    test.run.remove_rows(Rows{1});
    EXPECT_EQ(test.new_names(), (Names{u"a2"}));
    EXPECT_EQ(test.statuses(), (Statuses{Status::ExistingName}));
}

TEST(RunRemoval, NumbersAreThenCountedFromTheSmallestThatIsLeft)
{
    TestRun test({u"a5.txt", u"a7.txt", u"a9.txt"});
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 1;
    test.run.refresh_names();
    EXPECT_EQ(test.new_names(), (Names{u"a1.txt", u"a3.txt", u"a5.txt"}));
    test.run.remove_rows(Rows{0});
    EXPECT_EQ(test.new_names(), (Names{u"a1.txt", u"a3.txt"}));
    test.run.set_allow_extension_changes(true);
    EXPECT_EQ(test.new_names(), (Names{u"a1.txt", u"a3.txt"}));
}

TEST(RunRemoval, TheRowsThatAreLeftAreNumberedAgain)
{
    TestRun test({u"C:\\A\\a1", u"C:\\A\\a2", u"C:\\B\\a3", u"C:\\A\\a4"});
    test.run.set_part_text(0, u"<0>-<0F>-");
    test.run.remove_rows(Rows{0});
    EXPECT_EQ(test.new_names(), (Names{u"0-0-2", u"1-0-3", u"2-1-4"}));
}

TEST(RunRemoval, ThePatternIsNotComputedAgain)
{
    TestRun test({u"IMG_1", u"IMG_2", u"notes"});
    ASSERT_EQ(test.run.pattern().patternText, u"*");
    test.run.remove_rows(Rows{2});
    EXPECT_EQ(test.run.pattern().patternText, u"*");
}

TEST(RunRemoval, OfTheLastRowThatThePatternGovernsDisablesTheControls)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny", Rows{0, 1});
    test.run.remove_rows(Rows{0});
    EXPECT_TRUE(test.run.pattern_controls_enabled());
    test.run.remove_rows(Rows{1});
    EXPECT_FALSE(test.run.pattern_controls_enabled());
}

// Reset

TEST(RunReset, ForgetsTheEdits)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    test.run.part(1).clearText = true;
    test.run.reset();
    EXPECT_EQ(test.run.part_label(0), u"IMG_");
    EXPECT_FALSE(test.run.pattern().parts[1].clearText);
    EXPECT_EQ(test.new_names(), photos);
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Unchanged));
}

TEST(RunReset, ForgetsTheEditsOfTheOtherPatternsToo)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    test.run.set_allow_extension_changes(true);
    test.run.reset();
    EXPECT_EQ(test.run.part_label(0), u"IMG_");
    test.run.set_allow_extension_changes(false);
    EXPECT_EQ(test.run.part_label(0), u"IMG_");
}

TEST(RunReset, ForgetsThePastedNamesAndEnablesTheControls)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny\nz");
    ASSERT_FALSE(test.run.pattern_controls_enabled());
    test.run.reset();
    EXPECT_TRUE(test.run.pattern_controls_enabled());
    EXPECT_EQ(test.new_names(), photos);
    for (std::size_t row = 0; row < 3; ++row)
        EXPECT_FALSE(test.run.row(row).is_pasted);
    EXPECT_TRUE(test.run.set_numbers_as_text(true));
}

TEST(RunReset, KeepsTheBoxesAsTheyAre)
{
    TestRun test(photos);
    test.run.set_allow_extension_changes(true);
    test.run.set_numbers_as_text(true);
    test.run.reset();
    EXPECT_TRUE(test.run.allow_extension_changes().checked);
    EXPECT_TRUE(test.run.numbers_as_text().checked);
    EXPECT_EQ(test.run.pattern().patternText, u"IMG_00*0*.jpg");
}

TEST(RunReset, AfterARemovalThePatternIsThatOfTheRowsThatAreLeft)
{
    TestRun test({u"IMG_1", u"IMG_2", u"notes"});
    test.run.remove_rows(Rows{2});
    test.run.reset();
    EXPECT_EQ(test.run.pattern().patternText, u"IMG_#");
    EXPECT_EQ(test.new_names(), (Names{u"IMG_1", u"IMG_2"}));
}

TEST(RunReset, AfterARemovalABoxWithNothingToChangeIsUncheckedAndDisabled)
{
    TestRun test({u"a1.txt", u"a2.txt", u"b"});
    ASSERT_TRUE(test.run.set_allow_extension_changes(true));
    test.run.remove_rows(Rows{0, 1});
    test.run.reset();
    EXPECT_FALSE(test.run.allow_extension_changes().checked);
    EXPECT_FALSE(test.run.allow_extension_changes().enabled);
    EXPECT_EQ(test.new_names(), (Names{u"b"}));
}

TEST(RunReset, AfterARemovalABoxMayHaveSomethingToChangeAgain)
{
    TestRun test({u"a1.x", u"a2.y", u"b"});
    EXPECT_FALSE(test.run.numbers_as_text().enabled);
    ASSERT_EQ(test.run.remove_rows(Rows{2}), std::nullopt);
    test.run.reset();
    EXPECT_TRUE(test.run.numbers_as_text().enabled);
    EXPECT_TRUE(test.run.allow_extension_changes().enabled);
}

TEST(RunReset, NumbersAreStillCountedFromTheSmallest)
{
    TestRun test({u"a5", u"a7", u"a9"});
    test.run.remove_rows(Rows{0});
    test.run.reset();
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 1;
    test.run.refresh_names();
    EXPECT_EQ(test.new_names(), (Names{u"a1", u"a3"}));
}

// Copying and pasting names

TEST(RunCopy, EachNewNameIsFollowedByALineFeed)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    EXPECT_EQ(test.run.copied_names(), u"Photo 0001.jpg\nPhoto 0002.jpg\nPhoto 0010.jpg\n");
    EXPECT_EQ(test.run.copied_names(Rows{0, 2}), u"Photo 0001.jpg\nPhoto 0010.jpg\n");
    EXPECT_EQ(test.run.copied_names(Rows{}), u"");
}

TEST(RunCopy, SaysThatTheNamesWereCopied)
{
    const TestRun test(photos);
    EXPECT_EQ(test.run.copied_message().text, u"The filenames have been copied to the clipboard.");
    EXPECT_EQ(test.run.copied_message().icon, MessageIcon::Information);
}

TEST(RunPaste, WhatWasCopiedChangesNoNameButAllAreNowPasted)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    const Names before = test.new_names();
    EXPECT_EQ(test.run.paste_names(test.run.copied_names()), std::nullopt);
    EXPECT_EQ(test.new_names(), before);
    for (std::size_t row = 0; row < 3; ++row)
        EXPECT_TRUE(test.run.row(row).is_pasted);
}

TEST(RunPaste, LinesGoToTheRowsInOrder)
{
    TestRun test(photos);
    EXPECT_EQ(test.run.paste_names(u"one\r\n\r\ntwo.png\r\nthree"), std::nullopt);
    EXPECT_EQ(test.new_names(), (Names{u"one.jpg", u"two.jpg", u"three.jpg"}));
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Ready));
}

TEST(RunPaste, WithExtensionChangesTheLineStands)
{
    TestRun test(photos);
    test.run.set_allow_extension_changes(true);
    test.run.paste_names(u"one\ntwo.png\nthree.jpg");
    EXPECT_EQ(test.new_names(), (Names{u"one", u"two.png", u"three.jpg"}));
}

TEST(RunPaste, PastedNamesAreJudged)
{
    TestRun test(photos, {u"taken.jpg"});
    test.run.paste_names(u"taken\nx\nX");
    EXPECT_EQ(test.statuses(), (Statuses{Status::ExistingName, Status::SameName, Status::SameName}));
}

TEST(RunPaste, ThePatternLeavesPastedNamesAlone)
{
    TestRun test(photos);
    test.run.paste_names(u"x", Rows{1});
    test.run.set_part_text(0, u"Photo ");
    EXPECT_EQ(test.new_names(), (Names{u"Photo 0001.jpg", u"x.jpg", u"Photo 0010.jpg"}));
    EXPECT_FALSE(test.run.row(0).is_pasted);
    EXPECT_TRUE(test.run.row(1).is_pasted);
}

TEST(RunPaste, ForAllRowsDisablesTheControls)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny\nz");
    EXPECT_FALSE(test.run.pattern_controls_enabled());
    EXPECT_FALSE(test.run.set_allow_extension_changes(true));
    EXPECT_FALSE(test.run.set_numbers_as_text(true));
    EXPECT_FALSE(test.remembered.allow_extension_changes);
}

TEST(RunPaste, ForSomeRowsLeavesTheControls)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny", Rows{0, 1});
    EXPECT_TRUE(test.run.pattern_controls_enabled());
    test.run.paste_names(u"z", Rows{2});
    EXPECT_FALSE(test.run.pattern_controls_enabled());
}

TEST(RunPaste, ALastPieceOfWhiteSpaceLeavesItsFileAlone)
{
    TestRun test(photos);
    EXPECT_EQ(test.run.paste_names(u"x\ny\n "), std::nullopt);
    EXPECT_EQ(test.new_names(), (Names{u"x.jpg", u"y.jpg", u"IMG_0010.jpg"}));
    EXPECT_FALSE(test.run.row(2).is_pasted);
    EXPECT_FALSE(test.run.pattern_controls_enabled());
}

TEST(RunPaste, AnEmptyNameCanComeOfALine)
{
    TestRun test({u"README", u"a.txt"});
    EXPECT_EQ(test.run.paste_names(u".hidden\nx"), std::nullopt);
    EXPECT_EQ(test.new_names(), (Names{u"", u"x.txt"}));
    EXPECT_EQ(test.statuses(), (Statuses{Status::Empty, Status::Ready}));
    EXPECT_TRUE(test.run.row(0).is_pasted);
}

constexpr std::u16string_view forbidden_text = u"The text on the clipboard cannot be used to name the files, since it "
                                               u"contains one of these characters which are not "
                                               u"allowed in filenames:\n\\ / : * ? \" < > |";
constexpr std::u16string_view too_long_text =
    u"The text on the clipboard cannot be used to name the files, since at least one line is longer than the maximum "
    u"filename length allowed by Windows (255 characters).";

std::u16string count_text(std::u16string_view files, std::u16string_view lines)
{
    return u"The text on the clipboard must contain one line for each filename.\n\nNumber of files to rename: " +
        std::u16string(files) + u"\nNumber of lines on clipboard: " + std::u16string(lines);
}

class RefusedPaste : public testing::Test {
protected:
    void TearDown() override
    {
        EXPECT_EQ(test_.new_names(), photos);
        for (std::size_t row = 0; row < 3; ++row)
            EXPECT_FALSE(test_.run.row(row).is_pasted);
        EXPECT_TRUE(test_.run.pattern_controls_enabled());
    }

    TestRun test_{photos};
};

TEST_F(RefusedPaste, ForbiddenCharactersAreRefusedWhereverTheyStand)
{
    for (const char16_t unit : std::u16string_view(u"<>:\"/\\|?*")) {
        EXPECT_EQ(problem_of(test_.run.paste_names(u"x\ny\nz" + std::u16string(1, unit))), forbidden_text);
        EXPECT_EQ(problem_of(test_.run.paste_names(std::u16string(1, unit) + u"x\ny\nz")), forbidden_text);
    }
}

TEST_F(RefusedPaste, ALongFirstLineIsRefused)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(std::u16string(256, u'x') + u"\ny\nz")), too_long_text);
}

TEST_F(RefusedPaste, ALongFirstLineAfterBlankOnesIsRefused)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(u"\n \n" + std::u16string(256, u'x') + u"\ny\nz")), too_long_text);
}

TEST_F(RefusedPaste, AnotherNumberOfLinesIsRefused)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(u"x\ny")), count_text(u"3", u"2"));
    EXPECT_EQ(problem_of(test_.run.paste_names(u"x\ny\nz\nw")), count_text(u"3", u"4"));
    EXPECT_EQ(problem_of(test_.run.paste_names(u"\n")), count_text(u"3", u"0"));
    EXPECT_EQ(problem_of(test_.run.paste_names(u"x\ny\nz", Rows{0, 2})), count_text(u"2", u"3"));
}

TEST_F(RefusedPaste, ForbiddenCharactersComeBeforeALongLine)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(std::u16string(256, u'x') + u"\ny?\nz")), forbidden_text);
}

TEST_F(RefusedPaste, ALongLineComesBeforeTheNumberOfLines)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(std::u16string(256, u'x'))), too_long_text);
}

TEST_F(RefusedPaste, ForbiddenCharactersComeBeforeTheNumberOfLines)
{
    EXPECT_EQ(problem_of(test_.run.paste_names(u"x?")), forbidden_text);
}

TEST(RunPaste, AFirstLineOf255CharactersIsTaken)
{
    TestRun test(photos);
    test.run.set_allow_extension_changes(true);
    EXPECT_EQ(test.run.paste_names(std::u16string(255, u'x') + u"\ny\nz"), std::nullopt);
    EXPECT_EQ(test.statuses(), Statuses(3, Status::Ready));
}

TEST(RunPaste, AFirstLineIsMeasuredWithoutItsWhiteSpace)
{
    TestRun test(photos);
    EXPECT_EQ(test.run.paste_names(std::u16string(300, u' ') + u"x\ny\nz"), std::nullopt);
}

TEST(RunPaste, LaterLinesOfAnyLengthAreTakenAndJudgedTooLong)
{
    TestRun test(photos);
    EXPECT_EQ(test.run.paste_names(u"x\n" + std::u16string(400, u'y') + u"\nz"), std::nullopt);
    EXPECT_EQ(test.statuses(), (Statuses{Status::Ready, Status::TooLong, Status::Ready}));
}

TEST(RunResetNames, ThePatternMakesThemAgain)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny\nz");
    test.run.reset_names(Rows{1});
    EXPECT_EQ(test.new_names(), (Names{u"x.jpg", u"IMG_0002.jpg", u"z.jpg"}));
    EXPECT_FALSE(test.run.row(1).is_pasted);
    EXPECT_TRUE(test.run.row(2).is_pasted);
}

TEST(RunResetNames, WithoutPastedNamesNothingChanges)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"Photo ");
    const Names before = test.new_names();
    test.run.reset_names(Rows{0, 1, 2});
    EXPECT_EQ(test.new_names(), before);
    test.run.reset_names(Rows{});
    EXPECT_EQ(test.new_names(), before);
}

TEST(RunResetNames, OneNameGivenBackEnablesTheControls)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny\nz");
    test.run.reset_names(Rows{});
    EXPECT_FALSE(test.run.pattern_controls_enabled());
    test.run.reset_names(Rows{1});
    EXPECT_TRUE(test.run.pattern_controls_enabled());
    test.run.paste_names(u"y", Rows{1});
    EXPECT_FALSE(test.run.pattern_controls_enabled());
}

TEST(RunResetNames, ANameThatWasNotPastedEnablesNothing)
{
    TestRun test(photos);
    test.run.paste_names(u"x\ny\n ");
    test.run.reset_names(Rows{2});
    EXPECT_FALSE(test.run.pattern_controls_enabled());
    test.run.reset_names(Rows{0});
    EXPECT_TRUE(test.run.pattern_controls_enabled());
}

// The verdict

TEST(RunVerdict, WithoutAnyChangeThereIsNothingToDo)
{
    TestRun test(photos);
    const Verdict verdict = test.run.judge();
    EXPECT_EQ(verdict.kind, Verdict::Kind::NothingToDo);
    EXPECT_EQ(verdict.message.text, u"No changes have been made, so no files have been renamed.");
    EXPECT_EQ(verdict.message.icon, MessageIcon::Information);
}

TEST(RunVerdict, OneChangeIsEnoughToRename)
{
    TestRun test(photos);
    test.run.paste_names(u"x", Rows{1});
    EXPECT_EQ(test.run.judge().kind, Verdict::Kind::Rename);
    EXPECT_EQ(renames_of(test.run), (Names{u"IMG_0002.jpg > x.jpg"}));
}

TEST(RunVerdict, AChainIsRenamedFromItsFreeEnd)
{
    TestRun test({u"a1", u"a2", u"a3"});
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 2;
    test.run.refresh_names();
    EXPECT_EQ(renames_of(test.run), (Names{u"a3 > a4", u"a2 > a3", u"a1 > a2"}));
}

TEST(RunVerdict, AChangeOfCaseAloneIsRenamed)
{
    TestRun test({u"img_1.jpg", u"img_2.jpg"});
    test.run.set_part_text(0, u"IMG_");
    EXPECT_EQ(renames_of(test.run), (Names{u"img_1.jpg > IMG_1.jpg", u"img_2.jpg > IMG_2.jpg"}));
}

std::u16string refusal(RenameRun& run)
{
    const Verdict verdict = run.judge();
    EXPECT_EQ(verdict.kind, Verdict::Kind::Refuse);
    EXPECT_EQ(verdict.message.icon, MessageIcon::Exclamation);
    return verdict.message.text;
}

TEST(RunVerdict, ANameThatHasAppearedSinceIsAnExistingName)
{
    TestRun test({u"a1", u"a2"});
    test.run.set_part_text(0, u"b");
    test.disk_files.disk.add(std::u16string(test_folder), u"B2");
    EXPECT_EQ(test.run.judge().kind, Verdict::Kind::Rename);
    const Verdict verdict = test.run.judge_for_rename();
    EXPECT_EQ(verdict.kind, Verdict::Kind::Refuse);
    EXPECT_EQ(verdict.message.text,
              u"Unable to rename files:\r\n1 file is being renamed to the same name as an existing file.");
    EXPECT_EQ(test.statuses(), (Statuses{Status::Ready, Status::ExistingName}));
    EXPECT_EQ(test.run.row(1).image, StatusImage::ExistingName);
}

TEST(RunVerdict, ANameThatHasAppearedAndGoneAgainIsFree)
{
    TestRun test({u"a1", u"a2"});
    test.run.set_part_text(0, u"b");
    test.disk_files.disk.add(std::u16string(test_folder), u"b2");
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Refuse);
    test.disk_files.disk.folders[std::u16string(test_folder)].pop_back();
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Rename);
    EXPECT_EQ(renames_of(test.run), (Names{u"a1 > b1", u"a2 > b2"}));
}

TEST(RunVerdict, ANameThatHasAppearedInNobodysWayIsNoProblem)
{
    TestRun test({u"a1", u"a2"});
    test.run.set_part_text(0, u"b");
    test.disk_files.disk.add(std::u16string(test_folder), u"b3");
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Rename);
}

TEST(RunVerdict, NamesThatAreMovedAwayHaveNotAppeared)
{
    TestRun test({u"a1", u"a2", u"a3"});
    test.run.part(1).renumber = true;
    test.run.part(1).startNumber = 2;
    test.run.refresh_names();
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Rename);
}

TEST(RunVerdict, TheLastLookAtTheDiskForgivesNothing)
{
    TestRun test({u"a1", u"a2"}, {u"b2"});
    test.run.set_part_text(0, u"b");
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Refuse);
    test.run.set_part_text(0, u"c?");
    EXPECT_EQ(test.run.judge_for_rename().kind, Verdict::Kind::Refuse);
    EXPECT_EQ(test.statuses(), (Statuses{Status::Forbidden, Status::Forbidden}));
}

TEST(RunVerdict, ASwapIsRefusedAsTwoExistingNames)
{
    TestRun test({u"A.txt", u"B.txt"});
    test.run.paste_names(u"B\nA");
    EXPECT_EQ(refusal(test.run),
              u"Unable to rename files:\r\n2 files are being renamed to the same name as existing files.");
}

TEST(RunVerdict, OneBadNameRefusesAll)
{
    TestRun test(photos, {u"x.jpg"});
    test.run.paste_names(u"x\ny\nz");
    EXPECT_EQ(refusal(test.run),
              u"Unable to rename files:\r\n1 file is being renamed to the same name as an existing file.");
}

TEST(RunVerdict, InvalidTextIsExplained)
{
    TestRun test(photos);
    test.run.set_part_text(0, u"a|b");
    EXPECT_EQ(refusal(test.run),
              u"Unable to rename files:\r\n3 files are being renamed to an invalid name. Filenames cannot "
              u"contain any of these characters: \\ / : * ? \" < > |");
}

struct RefusalRow {
    const char* sentence;
    Statuses statuses;
    std::u16string_view expected;
};
class RunRefusal : public testing::TestWithParam<RefusalRow> { };
TEST_P(RunRefusal, CountsTheProblems)
{
    Names names;
    for (std::size_t i = 0; i < GetParam().statuses.size(); ++i)
        names.push_back(std::u16string(i + 1, u'a'));
    TestRun test(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        test.entry(names[i]).in_scope = true;
        test.entry(names[i]).status = GetParam().statuses[i];
    }
    EXPECT_EQ(refusal(test.run), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(
    All, RunRefusal,
    testing::Values(
        RefusalRow{
            "OneSameName", {Status::SameName}, u"Unable to rename files:\r\n1 file is being renamed to the same name."},
        RefusalRow{"TwoSameNames",
                   {Status::SameName, Status::SameName},
                   u"Unable to rename files:\r\n2 files are being renamed to the same name."},
        RefusalRow{
            "OneEmptyName", {Status::Empty}, u"Unable to rename files:\r\n1 file is being renamed to empty name."},
        RefusalRow{
            "TwoEmptyNamesAndAForbiddenOne",
            {Status::Forbidden, Status::Empty, Status::Empty},
            u"Unable to rename files:\r\n2 files are being renamed to empty names.\r\n1 file is being renamed to an "
            u"invalid name. Filenames cannot contain any of these characters: \\ / : * ? \" < > |"},
        RefusalRow{
            "OneSpace",
            {Status::SpaceOrPeriod, Status::Ready},
            u"Unable to rename files:\r\n1 file is being renamed to an invalid name. Filenames must not start or end "
            u"with a space, and must not end with a period."},
        RefusalRow{
            "TwoSpaces",
            {Status::SpaceOrPeriod, Status::Unchanged, Status::SpaceOrPeriod},
            u"Unable to rename files:\r\n2 files are being renamed to an invalid name. Filenames must not start or end "
            u"with a space, and must not end with a period."},
        RefusalRow{
            "OneLongName",
            {Status::TooLong},
            u"Unable to rename files:\r\n1 file is being renamed to a name that is too long (> 255 characters)."},
        RefusalRow{
            "TwoLongNames",
            {Status::TooLong, Status::TooLong},
            u"Unable to rename files:\r\n2 files are being renamed to a name that is too long (> 255 characters)."},
        RefusalRow{
            "EveryKindInItsOrder",
            {Status::Forbidden, Status::TooLong, Status::SpaceOrPeriod, Status::Empty, Status::ExistingName,
             Status::SameName, Status::Ready, Status::Unchanged},
            u"Unable to rename files:\r\n1 file is being renamed to the same name.\r\n"
            u"1 file is being renamed to the same name as an existing file.\r\n"
            u"1 file is being renamed to empty name.\r\n"
            u"1 file is being renamed to an invalid name. Filenames must not start or end with a space, and must not "
            u"end with a period.\r\n"
            u"1 file is being renamed to a name that is too long (> 255 characters).\r\n"
            u"1 file is being renamed to an invalid name. Filenames cannot contain any of these characters: "
            u"\\ / : * ? \" < > |"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(RunTexts, ComeFromTheGivenSource)
{
    TestFiles files({u"a"});
    RememberedBoxes remembered;
    RenameRun run(files.files, remembered,
                  [](MessageId id) { return id == MessageId::NoChanges ? u"nichts" : std::u16string(); });
    EXPECT_EQ(run.judge().message.text, u"nichts");
}

TEST(RenameRun, TextsOfManyPartsAreChangedBeforeTheNamesAreMadeOnce)
{
    TestRun test({u"IMG_1", u"IMG_2"});
    EXPECT_TRUE(test.run.change_part_text(0, u"sea "));
    EXPECT_TRUE(test.run.change_part_text(2, u" b"));
    EXPECT_FALSE(test.run.change_part_text(2, u" b"));
    EXPECT_EQ(test.run.row(0).new_name, u"IMG_1");
    test.run.refresh_names();
    EXPECT_EQ(test.run.row(0).new_name, u"sea 1 b");
}

TEST(RenameRun, TellsWhichNamesDoNotFitThePattern)
{
    TestRun test(
        {u"xa1", u"yA22"}); // the pattern is *a#, for the search does not look at the character before a number
    EXPECT_EQ(test.run.pattern().patternText, u"*a#");
    EXPECT_TRUE(test.run.fits_pattern(0));
    EXPECT_FALSE(test.run.fits_pattern(1));
}

// What one edit after the other leaves is what the same pattern gives names that were never touched before.
TEST(RenameRun, RoundAfterRoundOfEditsGivesWhatThePatternGivesAtOnce)
{
    std::mt19937 random(1);
    const Names texts = {u"Trip ", u"", u"<1:3>", u"<N:1>-", u"x"};
    for (int round = 0; round < 200; ++round) {
        Names names;
        for (int i = 0; i < 6; ++i) {
            names.push_back(u"IMG_" + std::u16string(1, static_cast<char16_t>(u'0' + i)) +
                            (random() % 3 == 0 ? u"0-ab" : u"-c") + (random() % 4 == 0 ? u".png" : u".jpg"));
        }
        TestRun test(names, {u"beside"});
        for (int edit = 0; edit < 8; ++edit) {
            const std::size_t part = random() % test.run.pattern().parts.size();
            switch (random() % 6) {
            case 0: test.run.set_allow_extension_changes(random() % 2 == 0); break;
            case 1: test.run.set_numbers_as_text(random() % 2 == 0); break;
            case 2: test.run.reset(); break;
            case 3:
                if (test.run.row_count() > 2)
                    test.run.remove_rows(std::vector<std::size_t>{random() % test.run.row_count()});
                break;
            default:
                if (test.run.pattern().parts[part].kind == NamePartKind::Text)
                    test.run.set_part_text(part, texts[random() % texts.size()]);
                test.run.part(part).renumber = random() % 2 == 0;
                test.run.refresh_names();
            }
            TextStore made;
            for (std::size_t row = 0; row < test.run.row_count(); ++row) {
                Filename fresh = test.run.row_entry(row);
                if (!fresh.in_scope)
                    continue;
                makeNewName(test.run.pattern(), fresh, made);
                ASSERT_EQ(test.run.row(row).new_name, fresh.new_name) << round;
            }
        }
    }
}

} // namespace
} // namespace multirename
