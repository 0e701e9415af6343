#include "cli/edits.h"

#include <gmock/gmock.h>

#include "cli/failure.h"
#include "run/testing/test_run.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class EditsTest : public testing::Test {
protected:
    std::vector<std::u16string> edited(const std::vector<std::u16string>& names, const std::vector<Edit>& edits)
    {
        TestRun test(names);
        apply_edits(test.run, edits, NameBorder(NameBorder::Kind::List));
        std::vector<std::u16string> new_names;
        for (std::size_t row = 0; row < test.run.row_count(); ++row)
            new_names.emplace_back(test.run.row(row).new_name);
        return new_names;
    }

    static std::string refusal_of(const Edit& edit)
    {
        TestRun test({u"IMG_7 sea", u"IMG_8 hill"});
        try {
            apply_edits(test.run, std::vector{edit}, NameBorder(NameBorder::Kind::List));
        } catch (const WrongCommandLine& wrong) {
            return wrong.what();
        }
        return {};
    }

    const std::vector<std::u16string> photos = {u"IMG_0007 sea", u"IMG_0010 hill"};
};

TEST_F(EditsTest, ATextTakesTagsAndCanBeEmpty)
{
    EXPECT_THAT(edited(photos, {{OptionId::Text, "1=<1:2>-"}}), ElementsAre(u"01-0007 sea", u"02-0010 hill"));
    EXPECT_THAT(edited(photos, {{OptionId::Text, "1="}}), ElementsAre(u"0007 sea", u"0010 hill"));
}

TEST_F(EditsTest, StylesHaveTheirNames)
{
    struct Style {
        const char* name;
        std::u16string_view result;
    };
    for (const Style& style :
         {Style{"unchanged", u"Ab cd"}, Style{"upper", u"AB CD"}, Style{"lower", u"ab cd"}, Style{"title", u"Ab Cd"},
          Style{"sentence", u"Ab cd"}, Style{"camel", u"abCd"}, Style{"pascal", u"AbCd"}, Style{"snake", u"ab_cd"},
          Style{"snake-upper", u"AB_CD"}, Style{"kebab", u"ab-cd"}, Style{"kebab-upper", u"AB-CD"}}) {
        EXPECT_EQ(edited({u"Ab cd", u"xyz"}, {{OptionId::Case, std::string("2=") + style.name}}).front(), style.result)
            << style.name;
    }
}

TEST_F(EditsTest, OfTwoReplacementsOfAPartTheLaterCounts)
{
    EXPECT_THAT(edited({u"xaax", u"xbbx"}, {{OptionId::Replace, "2=/a/1/"}, {OptionId::Replace, "2=/b/2/"}}),
                ElementsAre(u"xaax", u"x22x"));
}

TEST_F(EditsTest, AClearedNumberStaysClearedWhateverFollows)
{
    EXPECT_THAT(edited(photos, {{OptionId::Clear, "2"}, {OptionId::Renumber, "2=1"}, {OptionId::StripZeros, "2"}}),
                ElementsAre(u"IMG_ sea", u"IMG_ hill"));
}

TEST_F(EditsTest, AClearedWildPartComesBackWhenItIsTruncatedLater)
{
    EXPECT_THAT(edited(photos, {{OptionId::Clear, "4"}, {OptionId::Truncate, "4=2"}}),
                ElementsAre(u"IMG_0007 se", u"IMG_0010 hi"));
    EXPECT_THAT(edited(photos, {{OptionId::Truncate, "4=2"}, {OptionId::Clear, "4"}}),
                ElementsAre(u"IMG_0007 ", u"IMG_0010 "));
}

TEST_F(EditsTest, NumbersSaturate)
{
    EXPECT_THAT(edited({u"a1", u"a2"}, {{OptionId::Renumber, "2=18446744073709551616"}}),
                ElementsAre(u"a9223372036854775807", u"a9223372036854775807"));
}

TEST_F(EditsTest, WhatIsWrongIsSaidOfTheOptionAsItWasTyped)
{
    EXPECT_THAT(refusal_of({OptionId::Text, "2=x"}),
                HasSubstr("--text 2=x: part 2 is a number, and this option is for text parts."));
    EXPECT_THAT(refusal_of({OptionId::Digits, "1=3"}),
                HasSubstr("part 1 is text, and this option is for number parts."));
    EXPECT_THAT(refusal_of({OptionId::Clear, "1"}), HasSubstr("for wild and number parts."));
    EXPECT_THAT(refusal_of({OptionId::Clear, ""}), HasSubstr("\"\" is not the number of a part."));
    EXPECT_THAT(refusal_of({OptionId::Text, "99999999999999999999=x"}), HasSubstr("the pattern has 5 parts"));
    EXPECT_THAT(refusal_of({OptionId::Truncate, "4="}), HasSubstr("\"\" is not a number."));
    EXPECT_THAT(refusal_of({OptionId::Replace, "4="}), HasSubstr("K=/FIND/WITH/"));
    EXPECT_THAT(refusal_of({OptionId::Replace, "4=/"}), HasSubstr("K=/FIND/WITH/"));
}

} // namespace
} // namespace multirename
