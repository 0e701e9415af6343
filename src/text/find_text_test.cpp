#include "text/find_text.h"

#include <gtest/gtest.h>

#include <string>

namespace multirename {
namespace {

TEST(FindText, FindsWhatTheLibraryFinds)
{
    const std::u16string letters = u"ab";
    for (std::uint32_t bits = 0; bits < 1U << 9U; ++bits) {
        std::u16string text;
        for (std::uint32_t place = 0; place < 9; ++place)
            text.push_back(letters[bits >> place & 1U]);
        for (std::size_t start = 0; start < text.size(); ++start) {
            for (std::size_t length = 1; length <= 6; ++length) {
                const std::u16string wanted = (text + u"abba").substr(start, length);
                for (std::size_t from = 0; from <= text.size(); ++from)
                    ASSERT_EQ(find_text(wanted, text, from), text.find(wanted, from));
            }
        }
    }
}

TEST(FindText, WhatIsLongerThanTheTextIsNowhere)
{
    EXPECT_EQ(find_text(u"a", u""), std::u16string_view::npos);
    EXPECT_EQ(find_text(u"abcde", u"abcd"), std::u16string_view::npos);
}

} // namespace
} // namespace multirename
