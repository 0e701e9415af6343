#include "text/shared_front.h"

#include <gtest/gtest.h>

#include <string>

namespace multirename {
namespace {

TEST(SharedFront, EndsWhereTheTextsDiffer)
{
    for (std::size_t length = 0; length < 20; ++length) {
        const std::u16string text(length, u'x');
        EXPECT_EQ(shared_front(text, text), length);
        EXPECT_EQ(shared_front(text, text + u"y"), length);
        EXPECT_EQ(shared_front(text + u"y", text), length);
        for (std::size_t place = 0; place < length; ++place) {
            std::u16string other = text;
            other[place] = u'\x7800'; // differs in the upper half alone from what follows
            EXPECT_EQ(shared_front(text, other), place);
            other[place] = u'y';
            EXPECT_EQ(shared_front(other, text), place);
        }
    }
}

} // namespace
} // namespace multirename
