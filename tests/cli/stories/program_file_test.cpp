// The program as a file: what it tells the system about its memory.

#include <elf.h>
#include <gmock/gmock.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/file_content.h"
#include "support/test_programs.h"

namespace multirename {
namespace {

template <class Record>
std::vector<Record> records(const std::string& bytes, std::size_t offset, std::size_t count)
{
    std::vector<Record> all(count);
    std::memcpy(all.data(), bytes.substr(offset, count * sizeof(Record)).data(), count * sizeof(Record));
    return all;
}

class ProgramFile : public testing::Test {
protected:
    /// The segments of that type.
    [[nodiscard]] std::vector<Elf64_Phdr> segments(Elf64_Word type) const
    {
        std::vector<Elf64_Phdr> found = records<Elf64_Phdr>(bytes, header.e_phoff, header.e_phnum);
        std::erase_if(found, [type](const Elf64_Phdr& segment) { return segment.p_type != type; });
        return found;
    }

    /// The value that the dynamic linker is given under that tag, or 0.
    [[nodiscard]] Elf64_Xword dynamic_value(Elf64_Sxword tag) const
    {
        for (const Elf64_Phdr& segment : segments(PT_DYNAMIC)) {
            for (const Elf64_Dyn& entry :
                 records<Elf64_Dyn>(bytes, segment.p_offset, segment.p_filesz / sizeof(Elf64_Dyn))) {
                if (entry.d_tag == tag)
                    return entry.d_un.d_val;
            }
        }
        return 0;
    }

    std::string bytes = content_of(build_folder() / "multirename");
    Elf64_Ehdr header = records<Elf64_Ehdr>(bytes, 0, 1).front();
};

TEST_F(ProgramFile, LiesAtAddressesThatNobodyCanForetell)
{
    EXPECT_EQ(header.e_type, ET_DYN);
    EXPECT_NE(dynamic_value(DT_FLAGS_1) & DF_1_PIE, 0U);
}

TEST_F(ProgramFile, HasItsTablesOfFunctionsFilledAndClosedBeforeItRuns)
{
    EXPECT_NE(dynamic_value(DT_FLAGS_1) & DF_1_NOW, 0U);
    EXPECT_EQ(segments(PT_GNU_RELRO).size(), 1U);
}

TEST_F(ProgramFile, HasNoMemoryThatCanBeBothWrittenAndRun)
{
    EXPECT_EQ(segments(PT_GNU_STACK).size(), 1U);
    for (const Elf64_Word type : {Elf64_Word{PT_LOAD}, Elf64_Word{PT_GNU_STACK}}) {
        for (const Elf64_Phdr& segment : segments(type))
            EXPECT_NE(segment.p_flags & (PF_W | PF_X), Elf64_Word{PF_W | PF_X}) << segment.p_offset;
    }
}

} // namespace
} // namespace multirename
