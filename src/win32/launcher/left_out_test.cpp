#include "win32/launcher/left_out.h"

#include <gmock/gmock.h>

#include <vector>

#include "text/utf8.h"

namespace multirename {
namespace {

using testing::HasSubstr;
using testing::Not;

std::vector<LeftOutPath> lost(std::size_t count)
{
    std::vector<LeftOutPath> paths;
    for (std::size_t i = 0; i < count; ++i)
        paths.push_back({std::u16string(u"C:\\lost ") + static_cast<char16_t>(u'a' + i), WhyLeftOut::NotFound});
    return paths;
}

TEST(LeftOut, ThePathsAreNamedAndTheUserIsAskedAboutTheOthers)
{
    EXPECT_EQ(left_out_message(lost(2), 5),
              u"2 of the 5 paths cannot be renamed:\n\n"
              u"C:\\lost a (not found)\n"
              u"C:\\lost b (not found)\n\n"
              u"Go on with the other 3?");
}

TEST(LeftOut, OneOtherIsNotCounted)
{
    EXPECT_EQ(left_out_message(lost(1), 2),
              u"1 of the 2 paths cannot be renamed:\n\nC:\\lost a (not found)\n\nGo on with the other one?");
}

TEST(LeftOut, WithoutOthersNothingIsAsked)
{
    EXPECT_EQ(left_out_message(lost(2), 2),
              u"None of the 2 paths can be renamed:\n\n"
              u"C:\\lost a (not found)\n"
              u"C:\\lost b (not found)\n\n"
              u"Check the spelling, and whether the drive is there.");
}

TEST(LeftOut, TheOnlyPathIsNotCounted)
{
    EXPECT_EQ(left_out_message(lost(1), 1),
              u"This path cannot be renamed:\n\nC:\\lost a (not found)\n\n"
              u"Check the spelling, and whether the drive is there.");
}

TEST(LeftOut, FivePathsAreAllNamed)
{
    EXPECT_THAT(to_bytes(left_out_message(lost(5), 9)), HasSubstr("C:\\lost e (not found)\n\nGo on with the other 4?"));
}

TEST(LeftOut, BeyondFiveTheRestIsCounted)
{
    const std::string message = to_bytes(left_out_message(lost(8), 9));
    EXPECT_THAT(message, HasSubstr("C:\\lost e (not found)\nand 3 more\n\nGo on with the other one?"));
    EXPECT_THAT(message, Not(HasSubstr("lost f")));
}

TEST(LeftOut, EveryReasonHasItsWords)
{
    const std::vector<LeftOutPath> paths = {{u"C:\\", WhyLeftOut::NoName}, {u"C:\\long", WhyLeftOut::TooLong}};
    EXPECT_THAT(to_bytes(left_out_message(paths, 3)),
                HasSubstr("C:\\ (not a file or folder)\nC:\\long (the path is too long)\n"));
}

TEST(LeftOut, ALongPathIsShortenedInItsMiddle)
{
    const std::u16string path = u"C:\\" + std::u16string(30000, u'x') + u".txt";
    const std::string message = to_bytes(left_out_message(std::vector<LeftOutPath>{{path, WhyLeftOut::TooLong}}, 1));
    EXPECT_LT(message.size(), 400U);
    EXPECT_THAT(message, HasSubstr("C:\\xxx"));
    EXPECT_THAT(message, HasSubstr("xxx ... xxx"));
    EXPECT_THAT(message, HasSubstr("xxx.txt (the path is too long)"));
}

} // namespace
} // namespace multirename
