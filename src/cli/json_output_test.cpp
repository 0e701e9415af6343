#include "cli/json_output.h"

#include <gtest/gtest.h>

#include "cli/undo.h"

namespace multirename {
namespace {

std::string text_as_json(const std::string& text)
{
    UndoReport report;
    report.left.push_back({{}, text});
    const std::string json = undo_as_json(report);
    const std::string key = "\"reason\":";
    const std::size_t start = json.find(key) + key.size();
    return json.substr(start, json.find("}]", start) - start);
}

TEST(JsonOutput, ControlsAreEscapedByTheirLettersWhereJsonHasSome)
{
    EXPECT_EQ(text_as_json("a\b\f\n\r\t\"\\b"), R"("a\b\f\n\r\t\"\\b")");
    EXPECT_EQ(text_as_json("\x01\x1F\x7F"), R"("\u0001\u001f\u007f")");
}

TEST(JsonOutput, OtherTextStandsAsItIs)
{
    EXPECT_EQ(text_as_json("no such file"), R"("no such file")");
    EXPECT_EQ(text_as_json("\xC3\xA4"), "\"\xC3\xA4\"");
}

TEST(JsonOutput, AStrayByteIsTheEscapeOfItsUnit) { EXPECT_EQ(text_as_json("a\xFF"), R"("a\udcff")"); }

TEST(JsonOutput, ABatchIsToldWithItsTimeAndFolder)
{
    const Moment moment{std::chrono::seconds(1'709'647'629)};
    EXPECT_EQ(batches_as_json({{"20240305-140709-001", moment, 2, "photos"}}),
              "{\"batches\":[{\"batch\":\"20240305-140709-001\",\"time\":\"2024-03-05T14:07:09Z\",\"names\":2,"
              "\"folder\":\"photos\"}]}\n");
    EXPECT_EQ(batches_as_json({}), "{\"batches\":[]}\n");
}

} // namespace
} // namespace multirename
