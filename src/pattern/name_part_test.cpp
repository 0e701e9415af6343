#include "pattern/name_part.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(NamePart, ATextPartGivesItsTextBack)
{
    const NamePart part = NamePart::make_text(u"IMG_");
    EXPECT_EQ(part.kind, NamePartKind::Text);
    EXPECT_EQ(part.matchText, u"IMG_");
    EXPECT_EQ(part.text, u"IMG_");
    EXPECT_FALSE(part.keepMatched);
    EXPECT_FALSE(part.invalid);
}

TEST(NamePart, ATextPartKnowsWhetherItsTextIsValid) { EXPECT_TRUE(NamePart::make_text(u"a:b").invalid); }

TEST(NamePart, AnEmptyTextPartKeepsWhatItMatched)
{
    const NamePart part = NamePart::make_empty_text();
    EXPECT_EQ(part.kind, NamePartKind::Text);
    EXPECT_EQ(part.matchText, u"");
    EXPECT_EQ(part.text, u"");
    EXPECT_TRUE(part.keepMatched);
    EXPECT_FALSE(part.invalid);
}

TEST(NamePart, ANumberPartBeginsUntouched)
{
    const NamePart part = NamePart::make_number();
    EXPECT_EQ(part.kind, NamePartKind::Number);
    EXPECT_EQ(part.length, 4);
    EXPECT_FALSE(part.clearText);
    EXPECT_EQ(part.leadingZeros, LeadingZerosMode::Unchanged);
    EXPECT_FALSE(part.renumber);
    EXPECT_EQ(part.startNumber, -1);
    EXPECT_EQ(part.baseNumber, 0);
}

TEST(NamePart, AWildPartBeginsUntouched)
{
    const NamePart part = NamePart::make_wild();
    EXPECT_EQ(part.kind, NamePartKind::Wild);
    EXPECT_EQ(part.length, 8);
    EXPECT_FALSE(part.mustStartWithDot);
    EXPECT_EQ(part.minLength, 0);
    EXPECT_FALSE(part.fixedLength);
    EXPECT_FALSE(part.truncate);
    EXPECT_EQ(part.findText, u"");
    EXPECT_EQ(part.replaceText, u"");
    EXPECT_EQ(part.caseStyle, CaseStyle::Unchanged);
    EXPECT_EQ(part.startNumber, -1);
}

TEST(NamePart, SetTextChangesWhatNewNamesGetAndNotWhatOldNamesMatch)
{
    NamePart part = NamePart::make_text(u"IMG_");
    part.setText(u"Photo ");
    EXPECT_EQ(part.text, u"Photo ");
    EXPECT_EQ(part.matchText, u"IMG_");
}

TEST(NamePart, SetTextNoLongerKeepsWhatWasMatched)
{
    NamePart part = NamePart::make_empty_text();
    part.setText(u"");
    EXPECT_FALSE(part.keepMatched);
}

TEST(NamePart, SetTextJudgesTheTextAnew)
{
    NamePart part = NamePart::make_text(u"a");
    part.setText(u"a?");
    EXPECT_TRUE(part.invalid);
    part.setText(u"a!");
    EXPECT_FALSE(part.invalid);
}

class ValidPartText : public testing::TestWithParam<std::u16string_view> { };
TEST_P(ValidPartText, IsAccepted) { EXPECT_TRUE(isValidPartText(GetParam())); }
INSTANTIATE_TEST_SUITE_P(All, ValidPartText,
                         testing::Values(u"", u" ", u".", u"a b", u"a#b", u"'(){}[]!;,~%&$@^+-=_",
                                         u"\u00E9\u4E2D\xD83D\xDE00", u"<C>", u"<C:yyyy-mm-dd time>", u"<D:hour:min>",
                                         u"<C:a/b*?\"|\\>", u"a<S:6K>b", u"<1,2:3F>", u"<N:1><N:260>", u"x<F> (<1>)"));

class InvalidPartText : public testing::TestWithParam<std::u16string_view> { };
TEST_P(InvalidPartText, IsRefused) { EXPECT_FALSE(isValidPartText(GetParam())); }
INSTANTIATE_TEST_SUITE_P(Characters, InvalidPartText,
                         testing::Values(u"/", u"/a", u"a/b", u"a\"", u"a*b", u"a:b", u"a?", u"\\a", u"a\\", u"a|b"));
INSTANTIATE_TEST_SUITE_P(Tags, InvalidPartText,
                         testing::Values(u"<", u"a<", u"<>", u"<x>", u"a<b>c", u"<C", u"<C:>", u"<N:261>", u"<C><",
                                         u"<C<C>", u"<C>:", u"<C>/"));
INSTANTIATE_TEST_SUITE_P(ClosingBrackets, InvalidPartText, testing::Values(u">", u"a>b", u"<C>>", u">C<", u"<C>a>"));

} // namespace
} // namespace multirename
