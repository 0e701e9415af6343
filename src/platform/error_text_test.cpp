#include "platform/error_text.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(ErrorText, SaysSomethingOfEveryErrorThatEndsLikeAWord)
{
    for (const int code : {1, 2, 3, 5, 13, 17, 28}) {
        for (const std::error_category* category : {&std::generic_category(), &std::system_category()}) {
            const std::string text = error_text({code, *category});
            ASSERT_FALSE(text.empty()) << code;
            EXPECT_EQ(text.find('\n'), std::string::npos) << text;
            EXPECT_NE(text.back(), '.') << text;
            EXPECT_NE(text.back(), ' ') << text;
        }
    }
}

TEST(ErrorText, HasTheNumberWhereThereAreNoWords)
{
    EXPECT_NE(error_text({123456789, std::system_category()}).find("123456789"), std::string::npos);
}

} // namespace
} // namespace multirename
