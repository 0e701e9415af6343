#include "pattern/mode_patterns.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "fileset/testing/test_files.h"
#include "pattern/number_part.h"
#include "pattern/pattern_analyser.h"

namespace multirename {
namespace {

using Names = std::vector<std::u16string>;

std::vector<std::int64_t> base_numbers(const NamePattern& pattern)
{
    std::vector<std::int64_t> numbers;
    for (const NamePart& part : pattern.parts) {
        if (part.kind == NamePartKind::Number)
            numbers.push_back(part.baseNumber);
    }
    return numbers;
}

// Each pattern found and given its numbers by itself.
NamePattern found_alone(const FileSet& files, bool as_text, NameMode mode)
{
    const NameMode analysed = mode == NameMode::WholeName ? mode : NameMode::BaseOnly;
    const ExtractedPattern extracted = computeNamePattern(files, !as_text, analysed);
    NamePattern pattern = parsePattern(extracted.pattern, extracted.extensionText, mode);
    computeBaseNumbers(files, pattern);
    return pattern;
}

void expect_same(const ModePatterns& modes, const FileSet& files, NameMode with_extension)
{
    for (const bool as_text : {false, true}) {
        for (const bool extension : {false, true}) {
            const NamePattern expected = found_alone(files, as_text, extension ? with_extension : NameMode::BaseOnly);
            const NamePattern& pattern = modes.patterns[ModePatterns::index(as_text, extension)];
            EXPECT_EQ(pattern.patternText, expected.patternText);
            EXPECT_EQ(pattern.includesExtension, expected.includesExtension);
            EXPECT_EQ(base_numbers(pattern), base_numbers(expected)) << testing::PrintToString(pattern.patternText);
        }
    }
}

TEST(ModePatterns, AreThoseThatEachModeGivesByItself)
{
    TestFiles test({u"IMG_7.jpg", u"IMG_12.jpg"});
    const ModePatterns modes = computeModePatterns(test.files, false);
    EXPECT_EQ(modes.extension_text, u".jpg");
    EXPECT_EQ(modes.patterns[0].patternText, u"IMG_#");
    EXPECT_EQ(modes.patterns[1].patternText, u"IMG_#.jpg");
    EXPECT_EQ(modes.patterns[2].patternText, u"IMG_*");
    EXPECT_EQ(modes.patterns[3].patternText, u"IMG_*.jpg");
    EXPECT_EQ(base_numbers(modes.patterns[0]), (std::vector<std::int64_t>{7}));
    EXPECT_EQ(base_numbers(modes.patterns[1]), (std::vector<std::int64_t>{7}));
}

TEST(ModePatterns, ANumberThatOnlyWholeNamesShareHasItsSmallestValue)
{
    TestFiles test({u"a.b7", u"a.b8.b7"});
    const ModePatterns modes = computeModePatterns(test.files, true);
    EXPECT_EQ(modes.extension_text, u".b7");
    EXPECT_EQ(modes.patterns[0].patternText, u"a*");
    EXPECT_EQ(modes.patterns[1].patternText, u"a.b#*");
    EXPECT_EQ(base_numbers(modes.patterns[1]), (std::vector<std::int64_t>{7}));
}

TEST(ModePatterns, OfRandomNamesAreThoseThatEachModeGivesByItself)
{
    std::mt19937 random(1);
    const Names fronts = {u"a", u"a1", u"b.mp", u"1-", u""};
    const Names backs = {u"", u"x", u"-2", u".b"};
    const Names extensions = {u".mp3", u".jpg", u"", u".7z"};
    for (int round = 0; round < 3000; ++round) {
        const std::u16string& front = fronts[random() % fronts.size()];
        const std::u16string& extension = extensions[random() % extensions.size()];
        std::set<std::u16string> names;
        for (std::size_t count = 1 + random() % 5; names.size() < count;) {
            std::u16string name = random() % 6 == 0 ? fronts[random() % fronts.size()] : front;
            name += std::u16string(random() % 3, static_cast<char16_t>(u'0' + random() % 10));
            name += backs[random() % backs.size()];
            name += random() % 5 == 0 ? extensions[random() % extensions.size()] : extension;
            names.insert(name.empty() ? u"e" : name);
        }
        TestFiles test(Names(names.begin(), names.end()));
        expect_same(computeModePatterns(test.files, false), test.files, NameMode::BaseWithExtensionPart);
        expect_same(computeModePatterns(test.files, true), test.files, NameMode::WholeName);
        if (HasFailure()) {
            ADD_FAILURE() << testing::PrintToString(names);
            return;
        }
    }
}

} // namespace
} // namespace multirename
