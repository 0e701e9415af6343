#include "text/bounded_text.h"

#include <gtest/gtest.h>

#include <string>

namespace multirename {
namespace {

TEST(BoundedText, BeginsEmpty) { EXPECT_EQ(BoundedText().view(), u""); }

TEST(BoundedText, KeepsWhatIsAppendedInOrder)
{
    BoundedText text;
    text.append(u'a');
    text.append(u"bc");
    text.append(u"");
    text.append(u'd');
    EXPECT_EQ(text.view(), u"abcd");
}

TEST(BoundedText, HoldsTwoHundredAndSixtyUnits)
{
    BoundedText text;
    text.append(std::u16string(259, u'a'));
    text.append(u'b');
    EXPECT_EQ(text.view(), std::u16string(259, u'a') + u"b");
}

TEST(BoundedText, DropsWhatNoLongerFits)
{
    BoundedText text;
    text.append(std::u16string(258, u'a'));
    text.append(u"bcd");
    EXPECT_EQ(text.view(), std::u16string(258, u'a') + u"bc");
    text.append(u'e');
    text.append(u"fg");
    EXPECT_EQ(text.view(), std::u16string(258, u'a') + u"bc");
}

} // namespace
} // namespace multirename
