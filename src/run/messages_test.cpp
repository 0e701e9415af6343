#include "run/messages.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

struct TextRow {
    std::uint32_t number;
    std::u16string_view text;
};
class MessageText : public testing::TestWithParam<TextRow> { };
TEST_P(MessageText, IsBuiltIn) { EXPECT_EQ(built_in_text(static_cast<MessageId>(GetParam().number)), GetParam().text); }
INSTANTIATE_TEST_SUITE_P(
    All, MessageText,
    testing::Values(
        TextRow{2501, u"Unable to rename files:"},
        TextRow{2502, u"No changes have been made, so no files have been renamed."},
        TextRow{2503, u"Filenames cannot contain any of these characters: \\ / : * ? \" < > |"},
        TextRow{2504, u"Filenames must not start or end with a space, and must not end with a period."},
        TextRow{2505, u"file is being renamed to the same name."},
        TextRow{2506, u"files are being renamed to the same name."},
        TextRow{2507, u"file is being renamed to the same name as an existing file."},
        TextRow{2508, u"files are being renamed to the same name as existing files."},
        TextRow{2509, u"file is being renamed to empty name."},
        TextRow{2510, u"files are being renamed to empty names."},
        TextRow{2511, u"file is being renamed to an invalid name."},
        TextRow{2512, u"files are being renamed to an invalid name."},
        TextRow{2513, u"file is being renamed to a name that is too long (> 255 characters)."},
        TextRow{2514, u"files are being renamed to a name that is too long (> 255 characters)."},
        TextRow{2515, u"file is being renamed to an invalid name."},
        TextRow{2516, u"files are being renamed to an invalid name."},
        TextRow{2518, u"The filenames have been copied to the clipboard."},
        TextRow{
            2519,
            u"The text on the clipboard cannot be used to name the files, since it contains one of these characters "
            u"which are not allowed in filenames:\n\\ / : * ? \" < > |"},
        TextRow{2520,
                u"The text on the clipboard must contain one line for each filename.\n\nNumber of files to rename: "
                u"%1!d!\nNumber of lines on clipboard: %2!d!"},
        TextRow{2521, u"You cannot remove all the files from the list."},
        TextRow{2522,
                u"The text on the clipboard cannot be used to name the files, since at least one line is longer than "
                u"the maximum filename length allowed by Windows (255 characters)."},
        TextRow{2523, u"Velloria - Multi Rename"}, TextRow{2524, u"Reset"}, TextRow{2525, u"Clear Text"},
        TextRow{2526, u"Renumber from %1!I64d!"}, TextRow{2527, u"Renumber from %1!I64d! (make %2!d! digits)"}),
    [](const auto& row) { return "Number" + std::to_string(row.param.number); });

TEST(WithInserts, PutsEachValueInItsPlace)
{
    EXPECT_EQ(with_inserts(u"%1!d! of %2!d!", {3, 12}), u"3 of 12");
    EXPECT_EQ(with_inserts(u"%2!d! before %1!d!", {3, 12}), u"12 before 3");
    EXPECT_EQ(with_inserts(u"Renumber from %1!I64d! (make %2!d! digits)", {7, 3}), u"Renumber from 7 (make 3 digits)");
}

TEST(WithInserts, TakesTheWholeRangeOfNumbers)
{
    EXPECT_EQ(with_inserts(u"<%1!I64d!>", {INT64_MAX}), u"<9223372036854775807>");
    EXPECT_EQ(with_inserts(u"<%1!I64d!>", {-5}), u"<-5>");
}

TEST(WithInserts, AnInsertWithoutAValueStands)
{
    EXPECT_EQ(with_inserts(u"%1!d! %2!d!", {3}), u"3 %2!d!");
    EXPECT_EQ(with_inserts(u"%1!d!", {}), u"%1!d!");
    EXPECT_EQ(with_inserts(u"%0!d!", {3}), u"%0!d!");
}

TEST(WithInserts, OtherTextStands)
{
    EXPECT_EQ(with_inserts(u"100 % of all!", {3}), u"100 % of all!");
    EXPECT_EQ(with_inserts(u"%1 %1!x! %1!d %1", {3}), u"%1 %1!x! %1!d %1");
    EXPECT_EQ(with_inserts(u"% 1!d! %-1!d! %!d! 100 %", {3}), u"% 1!d! %-1!d! %!d! 100 %");
    EXPECT_EQ(with_inserts(u"", {3}), u"");
}

} // namespace
} // namespace multirename
