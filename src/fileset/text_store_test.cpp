#include "fileset/text_store.h"

#include <gtest/gtest.h>

#include <string>

namespace multirename {
namespace {

TEST(TextStore, KeepsCopiesWhereTheyAreWhileMoreAreAdded)
{
    TextStore store;
    std::vector<std::u16string> texts;
    std::vector<std::u16string_view> kept;
    for (std::size_t i = 0; i < 5000; ++i) {
        texts.emplace_back(i % 37, static_cast<char16_t>(u'a' + i % 26));
        kept.push_back(store.add(texts.back()));
        EXPECT_NE(kept.back().data(), texts.back().data());
    }
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(kept[i], texts[i]);
}

TEST(TextStore, TakesTextsOfAnyLength)
{
    TextStore store(3);
    const std::u16string longest(200'000, u'x');
    EXPECT_EQ(store.add(u""), u"");
    EXPECT_EQ(store.add(u"abc"), u"abc");
    const std::u16string_view kept = store.add(longest);
    EXPECT_EQ(store.add(u"d"), u"d");
    EXPECT_EQ(kept, longest);
}

TEST(TextStore, UsesItsRoomAgainWhenCleared)
{
    TextStore store;
    const char16_t* const first = store.add(std::u16string(40'000, u'a')).data();
    const char16_t* const second = store.add(u"b").data();
    store.clear();
    EXPECT_EQ(store.add(std::u16string(40'000, u'c')).data(), first);
    EXPECT_EQ(store.add(u"d").data(), second);
}

} // namespace
} // namespace multirename
