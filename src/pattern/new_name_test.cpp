#include "pattern/new_name.h"

#include <gtest/gtest.h>

#include "fileset/rename_folder.h"
#include "platform/testing/fake_disk.h"
#include "platform/testing/moment_at.h"

namespace multirename {
namespace {

NamePattern base_only(std::u16string_view text) { return parsePattern(text, u"", NameMode::BaseOnly); }
NamePattern whole_name(std::u16string_view text) { return parsePattern(text, u"", NameMode::WholeName); }
NamePattern with_extension(std::u16string_view text, std::u16string_view extension)
{
    return parsePattern(text, extension, NameMode::BaseWithExtensionPart);
}

std::u16string new_name(const NamePattern& pattern, std::u16string_view old_name)
{
    Filename entry;
    entry.name = old_name;
    entry.new_name = u"left from before";
    TextStore texts;
    makeNewName(pattern, entry, texts);
    return std::u16string(entry.new_name);
}

NamePattern with_text(NamePattern pattern, std::size_t part, std::u16string_view text)
{
    pattern.parts[part].setText(text);
    return pattern;
}

struct KeptRow {
    const char* sentence;
    NamePattern pattern;
    std::u16string_view name;
};
class UntouchedPattern : public testing::TestWithParam<KeptRow> { };
TEST_P(UntouchedPattern, GivesTheOldNameBack)
{
    EXPECT_EQ(new_name(GetParam().pattern, GetParam().name), GetParam().name);
}
INSTANTIATE_TEST_SUITE_P(
    All, UntouchedPattern,
    testing::Values(KeptRow{"OfANumber", base_only(u"IMG_#"), u"IMG_0042"},
                    KeptRow{"OfANumberAndAnExtension", base_only(u"IMG_#"), u"IMG_0042.jpg"},
                    KeptRow{"OfWilds", base_only(u"*-*"), u"a-b-c.txt"},
                    KeptRow{"OfAnExtensionPart", with_extension(u"IMG_#", u".jpg"), u"IMG_0042.jpg"},
                    KeptRow{"OfAnExtensionWild", with_extension(u"IMG_#", u".*"), u"IMG_0042.jpg"},
                    KeptRow{"OfWholeNames", whole_name(u"*.*"), u"a.b.c"},
                    KeptRow{"OfALiteralHash", base_only(u"a\\##"), u"a#12.x"},
                    KeptRow{"OfAnExtensionWithAHash", with_extension(u"notes", u".c#"), u"notes.c#"},
                    KeptRow{"OfANameThatIsAllExtension", base_only(u"*"), u".bashrc"}),
    [](const auto& row) { return std::string(row.param.sentence); });

TEST(NewName, TheExtensionIsKeptFromTheLastPeriodOn)
{
    EXPECT_EQ(new_name(with_text(base_only(u"photo.2020"), 0, u"picture"), u"photo.2020.jpg"), u"picture.jpg");
}

TEST(NewName, ANameWithoutAPeriodKeepsNoExtension)
{
    EXPECT_EQ(new_name(with_text(base_only(u"READ*"), 0, u"WRITE"), u"README"), u"WRITEME");
}

TEST(NewName, AnEditedExtensionPartChangesTheExtension)
{
    EXPECT_EQ(new_name(with_text(with_extension(u"IMG_#", u".jpg"), 2, u".jpeg"), u"IMG_1.jpg"), u"IMG_1.jpeg");
}

TEST(NewName, AnEmptiedTextGivesNothing)
{
    EXPECT_EQ(new_name(with_text(base_only(u"IMG_#"), 0, u""), u"IMG_0042.jpg"), u"0042.jpg");
}

TEST(NewName, AnEditedEmptyTextGivesItsText)
{
    EXPECT_EQ(new_name(with_text(base_only(u"IMG_#"), 2, u" b"), u"IMG_7.jpg"), u"IMG_7 b.jpg");
}

TEST(NewName, ATextThatKeepsWhatWasMatchedIgnoresItsText)
{
    NamePattern pattern = base_only(u"IMG_#");
    pattern.parts[0].text = u"unused";
    pattern.parts[0].keepMatched = true;
    EXPECT_EQ(new_name(pattern, u"IMG_7"), u"IMG_7");
}

TEST(NewName, ANumberIsFormattedByItsSettings)
{
    NamePattern pattern = base_only(u"IMG_#");
    pattern.parts[1].leadingZeros = LeadingZerosMode::RemoveZeros;
    EXPECT_EQ(new_name(pattern, u"IMG_0042.jpg"), u"IMG_42.jpg");
}

TEST(NewName, ANameThatDoesNotMatchKeepsWhatWasTakenBefore)
{
    EXPECT_EQ(new_name(with_extension(u"IMG_#", u".*"), u"IMG_5"), u"IMG_5");
    EXPECT_EQ(new_name(with_text(with_extension(u"IMG_#", u".*"), 0, u"Photo "), u"IMG_5"), u"Photo 5");
    EXPECT_EQ(new_name(base_only(u"a#b#"), u"a1c.txt"), u"a1.txt");
}

TEST(NewName, ANameThatDoesNotMatchKeepsNothingOfAFailedWild)
{
    EXPECT_EQ(new_name(with_extension(u"*", u".*"), u"README"), u"");
    EXPECT_EQ(new_name(base_only(u"a*b"), u"axc.txt"), u"a.txt");
}

TEST(NewName, ATextGivesNoMoreThan260Characters)
{
    NamePattern pattern = with_text(base_only(u"a*"), 0, std::u16string(300, u'x'));
    EXPECT_EQ(new_name(pattern, u"abc.txt"), std::u16string(260, u'x') + u"bc.txt");
}

TEST(NewName, ATagWithinATextIsCutAt260CharactersToo)
{
    RenameFolder folder(u"C:\\Folder\\");
    Filename entry;
    entry.name = u"a";
    entry.folder = &folder;
    TextStore texts;
    makeNewName(with_text(base_only(u"a"), 0, std::u16string(257, u'x') + u"<F>"), entry, texts);
    EXPECT_EQ(entry.new_name, std::u16string(257, u'x') + u"Fol");
}

TEST(NewName, TagsAreExpandedForEachFile)
{
    RenameFolder folder(u"C:\\Summer\\");
    Filename entry;
    entry.name = u"IMG_0042.jpg";
    entry.folder = &folder;
    entry.created = moment_at(2024, 3, 5, 14, 7, 9);
    entry.size = 1025;
    entry.sequence = 2;
    TextStore texts;
    makeNewName(with_text(base_only(u"IMG_#"), 0, u"<F> <C:yyyy-mm-dd time> <S:A> <10,5:3> "), entry, texts);
    EXPECT_EQ(entry.new_name, u"Summer 2024-03-05 1407 2K 020 0042.jpg");
}

struct DetailRow {
    std::u16string_view text;
    std::size_t times_asked;
};

TEST(NewName, DetailsAreAskedForOnlyByTagsThatNeedThem)
{
    for (const DetailRow& row : {DetailRow{u"x", 0}, DetailRow{u"C<F><1:2><N:1>", 0}, DetailRow{u"<C>", 1},
                                 DetailRow{u"<d:yyyy>", 1}, DetailRow{u"<1><S:A>", 1}}) {
        FakeDisk disk;
        disk.gives_details = false;
        disk.with(u"C:\\A\\", {u"a"});
        RenameFolder folder(u"C:\\A\\");
        folder.load(disk);
        TextStore texts;
        for (int times = 0; times < 2; ++times)
            makeNewName(with_text(base_only(u"a"), 0, row.text), *folder.find(u"a"), texts);
        EXPECT_EQ(disk.details_read.size(), row.times_asked) << testing::PrintToString(row.text);
    }
}

TEST(NewName, AnInvalidTagGivesNothingAndEndsAsItShould)
{
    EXPECT_EQ(new_name(with_text(base_only(u"a"), 0, u"1<x>2"), u"a"), u"12");
    EXPECT_EQ(new_name(with_text(base_only(u"a"), 0, u"1<x<S>2"), u"a"), u"102");
    EXPECT_EQ(new_name(with_text(base_only(u"a"), 0, u"1<x"), u"a"), u"1");
}

TEST(NewName, AClosingBracketOutsideATagIsCopied)
{
    EXPECT_EQ(new_name(with_text(base_only(u"a"), 0, u"1>2"), u"a"), u"1>2");
}

/// The text part at the end of IMG_#-* holds the tag; the old name is IMG_007-Sea.
std::u16string captured(std::u16string_view tag)
{
    return new_name(with_text(base_only(u"IMG_#-*"), 4, tag), u"IMG_007-Sea").substr(11);
}

TEST(CapturedPartTag, CountsTextsNumbersAndWilds)
{
    EXPECT_EQ(captured(u"<N:1>"), u"IMG_");
    EXPECT_EQ(captured(u"<N:2>"), u"007");
    EXPECT_EQ(captured(u"<N:3>"), u"-");
    EXPECT_EQ(captured(u"<N:4>"), u"Sea");
}

TEST(CapturedPartTag, GivesTheOldTextOfAnEditedPart)
{
    NamePattern pattern = with_text(base_only(u"IMG_#"), 0, u"Photo ");
    pattern = with_text(std::move(pattern), 2, u" <N:1>");
    EXPECT_EQ(new_name(pattern, u"IMG_7"), u"Photo 7 IMG_");
}

TEST(CapturedPartTag, DoesNotCountATextThatWasEmptied)
{
    NamePattern pattern = with_text(base_only(u"IMG_#-*"), 0, u"");
    pattern = with_text(std::move(pattern), 4, u" <N:1> <N:2> <N:3>");
    EXPECT_EQ(new_name(pattern, u"IMG_007-Sea"), u"007-Sea 007 - Sea");
}

TEST(CapturedPartTag, CountsATextThatWasFilledThoughItTookNothing)
{
    NamePattern pattern = with_text(base_only(u"#"), 0, u"x<N:1>-<N:2>-");
    EXPECT_EQ(new_name(pattern, u"42"), u"x-42-42");
}

TEST(CapturedPartTag, DoesNotCountATextThatStandsEmptyInThePattern)
{
    EXPECT_EQ(new_name(with_text(base_only(u"*#"), 4, u"<N:2>"), u"a42"), u"a4242");
}

TEST(CapturedPartTag, HasOnlyWhatWasTakenBeforeAMatchFailed)
{
    EXPECT_EQ(new_name(with_text(base_only(u"a#b*c"), 0, u"<N:1><N:2><N:3><N:4>"), u"a1bxd"), u"a1b1b");
}

NamePart wild_with(std::u16string_view find, std::u16string_view replace)
{
    NamePart part = NamePart::make_wild();
    part.findText = find;
    part.replaceText = replace;
    return part;
}

/// The name has the extension .txt, which is kept.
std::u16string wild_text(const NamePart& wild, std::u16string_view text)
{
    NamePattern pattern = base_only(u"*");
    pattern.parts[1] = wild;
    const std::u16string made = new_name(pattern, std::u16string(text) + u".txt");
    EXPECT_TRUE(made.ends_with(u".txt"));
    return made.substr(0, made.size() - 4);
}

TEST(WildPart, WithoutSettingsGivesTheTextBack) { EXPECT_EQ(wild_text(NamePart::make_wild(), u"aB c"), u"aB c"); }

TEST(WildPart, ReplacesEveryOccurrence)
{
    EXPECT_EQ(wild_text(wild_with(u"ab", u"X"), u"abcababc"), u"XcXXc");
    EXPECT_EQ(wild_text(wild_with(u"a", u"bb"), u"aca"), u"bbcbb");
    EXPECT_EQ(wild_text(wild_with(u"-", u""), u"a-b-c"), u"abc");
}

TEST(WildPart, ReplacesFromTheLeftAndNeverInWhatItReplaced)
{
    EXPECT_EQ(wild_text(wild_with(u"aa", u"a"), u"aaaaa"), u"aaa");
    EXPECT_EQ(wild_text(wild_with(u"a", u"aa"), u"aa"), u"aaaa");
}

TEST(WildPart, ReplacesWithRegardToCase) { EXPECT_EQ(wild_text(wild_with(u"A", u"x"), u"aA"), u"ax"); }

TEST(WildPart, AReplacedTextHasNoMoreThan260Characters)
{
    EXPECT_EQ(wild_text(wild_with(u"a", u"123"), std::u16string(100, u'a')).size(), 260U);
    EXPECT_EQ(wild_text(wild_with(u"z", u"y"), std::u16string(300, u'a')).size(), 260U);
}

TEST(WildPart, WithNothingToFindALongTextStaysWhole)
{
    EXPECT_EQ(wild_text(NamePart::make_wild(), std::u16string(300, u'a')).size(), 300U);
}

TEST(WildPart, TruncatesToItsLength)
{
    NamePart wild = NamePart::make_wild();
    wild.truncate = true;
    EXPECT_EQ(wild_text(wild, u"123456789"), u"12345678");
    wild.length = 3;
    EXPECT_EQ(wild_text(wild, u"abcd"), u"abc");
    EXPECT_EQ(wild_text(wild, u"ab"), u"ab");
    wild.length = 0;
    EXPECT_EQ(wild_text(wild, u"abcd"), u"");
}

TEST(WildPart, ItsLengthCountsOnlyWhenItTruncates)
{
    NamePart wild = NamePart::make_wild();
    wild.length = 1;
    EXPECT_EQ(wild_text(wild, u"abcd"), u"abcd");
}

TEST(WildPart, AppliesItsCaseStyle)
{
    NamePart wild = NamePart::make_wild();
    wild.caseStyle = CaseStyle::SnakeUpper;
    EXPECT_EQ(wild_text(wild, u"myHoliday photos"), u"MY_HOLIDAY_PHOTOS");
    wild.caseStyle = static_cast<CaseStyle>(case_style_labels.size()); // none of them
    EXPECT_EQ(wild_text(wild, u"myHoliday photos"), u"myHoliday photos");
}

TEST(WildPart, ReplacesThenTruncatesThenAppliesTheCase)
{
    NamePart wild = wild_with(u"x", u"long");
    wild.truncate = true;
    wild.length = 3;
    wild.caseStyle = CaseStyle::Upper;
    EXPECT_EQ(wild_text(wild, u"axb"), u"ALO");
}

TEST(WildPart, DoesNotFindWhatOnlyTheCaseStyleMakes)
{
    NamePart wild = wild_with(u"A", u"x");
    wild.caseStyle = CaseStyle::Upper;
    EXPECT_EQ(wild_text(wild, u"a"), u"A");
}

} // namespace
} // namespace multirename
