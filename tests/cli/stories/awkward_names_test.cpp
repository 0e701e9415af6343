#include "story.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class AwkwardNames : public Story { };

TEST_F(AwkwardNames, CharactersThatThePatternLanguageDoesNotHoldComeThroughUnharmed)
{
    const Words old_names = {"a\\:*?\"<>|1", "a\\:*?\"<>|2"};
    write(old_names);
    const Json told = json({"preview", "--in", ".", "--text", "3=!"});
    EXPECT_EQ(told["pattern"], "a\\:*?\"<>|#");
    EXPECT_EQ(told["files"][0]["new"], "a\\:*?\"<>|1!");
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "3=!"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre(old_names[0] + "!", old_names[1] + "!"));
}

TEST_F(AwkwardNames, BytesThatAreNotUtf8ComeThroughUnharmed)
{
    write({"caf\xE9 1", "caf\xE9 2", "\xFF\xFE"});
    EXPECT_THAT(run({"preview", "caf\xE9 1", "--format", "json"}).output, HasSubstr("\"caf\\udce9 1\""));
    EXPECT_EQ(run({"rename", "caf\xE9 1", "caf\xE9 2", "--text", "3=\xC3\xA9"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("caf\xE9 1\xC3\xA9", "caf\xE9 2\xC3\xA9", "\xFF\xFE"));
}

TEST_F(AwkwardNames, StrayBytesMayBeTyped)
{
    write({"caf\xE9 1", "caf\xE9 2"});
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "1=th\xE9 "}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("th\xE9 1", "th\xE9 2"));
}

TEST_F(AwkwardNames, ACharacterThatLooksMovedAsideStaysItself)
{
    const std::string private_use = "\xEF\x80\xBA"; // U+F03A, in whose place a colon would stand behind the border
    write({private_use + "1", private_use + "2"});
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "3=" + private_use}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre(private_use + "1" + private_use, private_use + "2" + private_use));
}

TEST_F(AwkwardNames, LineBreaksAndControlCharactersAreShownAsEscapesAndTakenWithNul)
{
    write({"a\n1", "a\n2"});
    ProgramRun preview = program({"preview", "--from", "-", "-0", "--text", "3=\x1b[2J"});
    preview.input = std::string("a\n1\0a\n2\0", 8);
    const ProgramResult result = run_program(preview);
    EXPECT_EQ(result.exit_status, done);
    EXPECT_THAT(result.output, HasSubstr("a\\n1      a\\n1\\x1b[2J  rename\n"));
    preview.arguments[1] = "rename";
    EXPECT_EQ(run_program(preview).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("a\n1\x1b[2J", "a\n2\x1b[2J"));
}

TEST_F(AwkwardNames, HalvesOfEmojiAreRefusedWhereTheyWouldStandAlone)
{
    const std::string laughing = "\xF0\x9F\x98\x80"; // U+1F600 and U+1F601 share their first half
    const std::string beaming = "\xF0\x9F\x98\x81";
    write({laughing, beaming});
    const ProgramResult shown = run({"pattern", "--in", ".", "--format", "json"});
    EXPECT_THAT(shown.output, HasSubstr("\"pattern\":\"\\ud83d*\""));
    const Snapshot before = tree();
    const ProgramResult result = run({"rename", "--in", ".", "--text", "1=x"});
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("cannot be written in the encoding of the file system"));
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "3=x"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre(laughing + "x", beaming + "x"));
}

TEST_F(AwkwardNames, WhatIsLeftOfAPairIsNoStrayByteEvenWhereItLooksLikeOne)
{
    // The second half of U+1F480 has the value that stands for the stray byte 0x80.
    write({"\xF0\x9F\x92\x80", "\xF0\x9F\x92\x81"});
    const Snapshot before = tree();
    EXPECT_EQ(run({"rename", "--in", ".", "--text", "1=x"}).exit_status, refused);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(AwkwardNames, NamesThatDifferOnlyInCaseAreTwoAndMayBecomeSo)
{
    write({"File 1", "file 1", "FILE 2"});
    EXPECT_EQ(run({"rename", "File 1", "file 1", "FILE 2", "--text", "5=x"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("FILE 2x", "File 1x", "file 1x"));
    EXPECT_EQ(run({"rename", "FILE 2x", "--text", "1=file 2x"}).exit_status, done);
    EXPECT_THAT(names(), ElementsAre("File 1x", "file 1x", "file 2x"));
    const ProgramResult clash = run({"rename", "File 1x", "--text", "1=file 1x"});
    EXPECT_EQ(clash.exit_status, refused);
    EXPECT_THAT(clash.errors, HasSubstr("the same name as an existing file"));
}

TEST_F(AwkwardNames, PathsMayBeLongerThanAnyBuffer)
{
    std::string deep;
    for (int i = 0; i < 12; ++i)
        deep += std::string(200, 'd') + "/";
    write({deep + "a1", deep + "a2"});
    EXPECT_EQ(run({"rename", "--in", deep, "--text", "1=b"}).exit_status, done);
    EXPECT_THAT(names_in(folder.path_of(deep)), ElementsAre("b1", "b2"));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names_in(folder.path_of(deep)), ElementsAre("a1", "a2"));
}

TEST_F(AwkwardNames, AllBytesInOneBatchAndBack)
{
    std::string every;
    for (int byte = 1; byte < 256; ++byte)
        every += byte == '/' ? "" : std::string(1, static_cast<char>(byte));
    write({every.substr(0, 120) + "1", every.substr(120) + "2", "plain 3"});
    const Snapshot before = tree();
    EXPECT_EQ(run({"rename", "--in", ".", "--hidden", "--text", "1=x"}).exit_status, done);
    EXPECT_NE(difference(before, tree()), "");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

} // namespace
} // namespace multirename
