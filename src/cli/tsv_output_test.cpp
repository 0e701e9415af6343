#include "cli/tsv_output.h"

#include <gtest/gtest.h>

#include "cli/undo.h"

namespace multirename {
namespace {

// The last field of the only line.
std::string text_as_tsv(const std::string& text)
{
    UndoReport report;
    report.left.push_back({{}, text});
    const std::string lines = undo_as_tsv(report);
    const std::size_t tab = lines.rfind('\t');
    return lines.substr(tab + 1, lines.size() - tab - 2);
}

TEST(TsvOutput, WhatWouldBreakALineOrAFieldIsEscaped)
{
    EXPECT_EQ(text_as_tsv("a\tb\nc\rd\\e"), R"(a\tb\nc\rd\\e)");
    EXPECT_EQ(text_as_tsv("\x01"), R"(\u0001)");
}

TEST(TsvOutput, OtherTextStandsAsItIsStrayBytesToo) { EXPECT_EQ(text_as_tsv("a \"\xFF\xC3\xA4"), "a \"\xFF\xC3\xA4"); }

TEST(TsvOutput, ABatchIsALine)
{
    const Moment moment{std::chrono::seconds(1'709'647'629)};
    EXPECT_EQ(batches_as_tsv({{"20240305-140709-001", moment, 2, "photos"}}),
              "batch\ttime\tnames\tfolder\n20240305-140709-001\t2024-03-05T14:07:09Z\t2\tphotos\n");
}

} // namespace
} // namespace multirename
