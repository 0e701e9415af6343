// File systems that are full, that may not be written, or that take names without regard to case: real ones, mounted
// for the test where the machine lets it.

#include <sys/mount.h>
#include <sys/wait.h>

#include <cctype>
#include <fstream>

#include "story.h"
#include "support/file_content.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

bool runs(const std::string& command)
{
    const int status = std::system(("{ " + command + "; } > /dev/null 2>&1").c_str());
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A file system that lies in a folder for as long as this lives.
class Mounted {
public:
    /// Mounts with a command of the system's shell, in which "$folder" is the folder and "$image" an empty file of 16
    /// MiB that may become a disk.
    Mounted(std::string folder, const std::string& image, const std::string& command) : folder_(std::move(folder))
    {
        std::ofstream(image).put('\0');
        std::filesystem::resize_file(image, 16U << 20U);
        is_mounted_ = runs("folder='" + folder_ + "' image='" + image + "'; " + command);
    }
    Mounted(const Mounted&) = delete;
    Mounted& operator=(const Mounted&) = delete;
    ~Mounted()
    {
        if (is_mounted_)
            runs("umount '" + folder_ + "' || umount -l '" + folder_ + "'");
    }

    [[nodiscard]] bool is_mounted() const { return is_mounted_; }

private:
    std::string folder_;
    bool is_mounted_ = false;
};

class Disks : public Story {
protected:
    [[nodiscard]] Mounted mounted(const std::string& command) const
    {
        return {folder.make_folder("disk"), state.path_of("image"), command};
    }

    [[nodiscard]] Words names_on_disk() const { return names_in(folder.path_of("disk")); }

    // Leaves no room on it.
    void fill() const
    {
        std::ofstream filler(folder.path_of("disk/filler"), std::ios::binary);
        const std::string piece(4096, 'x');
        while (filler.write(piece.data(), static_cast<std::streamsize>(piece.size())).flush())
            ;
    }
};

constexpr const char* small_ext4 = "mkfs.ext4 -q -N 64 \"$image\" && mount -o loop \"$image\" \"$folder\"";
constexpr const char* small_tmpfs = "mount -t tmpfs -o size=256k none \"$folder\"";

TEST_F(Disks, ThatAreFullLetTheirFilesBeRenamedAllTheSame)
{
    for (const char* command : {small_tmpfs, small_ext4}) {
        const Mounted disk = mounted(command);
        if (!disk.is_mounted())
            GTEST_SKIP() << "nothing can be mounted here";
        write({"disk/a1", "disk/a2"});
        fill();
        const Snapshot before = tree();
        ASSERT_EQ(run({"rename", "disk/a1", "disk/a2", "--text", "1=b"}).exit_status, done);
        EXPECT_THAT(names_on_disk(), testing::IsSupersetOf({"b1", "b2"}));
        EXPECT_EQ(run({"undo"}).exit_status, done);
        EXPECT_EQ(difference(before, tree()), "");
    }
}

// Longer names need another block for the folder, which a full disk does not have.
TEST_F(Disks, ThatHaveNoRoomForLongerNamesKeepTheOldOnesAndSaySo)
{
    const Mounted disk = mounted(small_ext4);
    if (!disk.is_mounted())
        GTEST_SKIP() << "nothing can be mounted here";
    Words words = {"rename"};
    for (int file = 10; file < 50; ++file) {
        write({"disk/a" + std::to_string(file)});
        words.push_back("disk/a" + std::to_string(file));
    }
    fill();
    const Snapshot before = tree();
    words.insert(words.end(), {"--text", "1=" + std::string(240, 'b')});
    const ProgramResult result = run(words);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("No space left on device"));
    EXPECT_EQ(names_on_disk().size(), 42U); // with the filler and "lost+found"
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

TEST_F(Disks, AFullDiskForTheJournalKeepsEverythingAsItIs)
{
    const Mounted disk = mounted(small_tmpfs);
    if (!disk.is_mounted())
        GTEST_SKIP() << "nothing can be mounted here";
    write({"a1", "a2"});
    fill();
    ProgramRun rename = program({"rename", "a1", "a2", "--text", "1=b"});
    rename.environment["XDG_STATE_HOME"] = folder.path_of("disk");
    const ProgramResult result = run_program(rename);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("No space left on device"));
    EXPECT_THAT(result.errors, HasSubstr("othing was renamed"));
    EXPECT_THAT(names(), ElementsAre("a1", "a2", "disk"));
}

TEST_F(Disks, ThatMayNotBeWrittenAreKnownBeforehand)
{
    write({"disk/a1", "disk/a2"});
    const Mounted disk = mounted("mount --bind \"$folder\" \"$folder\" && mount -o remount,bind,ro \"$folder\"");
    if (!disk.is_mounted())
        GTEST_SKIP() << "nothing can be mounted here";
    const Snapshot before = tree();
    const ProgramResult result = run({"rename", "disk/a1", "disk/a2", "--text", "1=b"});
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("Read-only file system"));
    EXPECT_EQ(difference(before, tree()), "");
    EXPECT_THAT(journals(), IsEmpty());
}

TEST_F(Disks, ThatBecomeReadOnlyAmidABatchGiveBackWhatWasRenamed)
{
    write({"disk/a1", "disk/a2", "disk/a3"});
    const Mounted disk = mounted("mount --bind \"$folder\" \"$folder\"");
    if (!disk.is_mounted())
        GTEST_SKIP() << "nothing can be mounted here";
    const Snapshot before = tree();
    const auto make_read_only = [this](const MoveCall& call) {
        if (call.number == 2 && !call.is_done)
            runs("mount -o remount,bind,ro '" + folder.path_of("disk") + "'");
        return Action::Continue;
    };
    const ProgramResult result =
        run_watched(program({"rename", "disk/a1", "disk/a2", "disk/a3", "--text", "1=b"}), make_read_only);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_THAT(result.errors, HasSubstr("Read-only file system"));
    EXPECT_THAT(names_on_disk(), ElementsAre("a2", "a3", "b1"));
    EXPECT_EQ(run({"undo"}).exit_status, partly_done);
    EXPECT_EQ(journals().size(), 1U);
    runs("mount -o remount,bind,rw '" + folder.path_of("disk") + "'");
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_EQ(difference(before, tree()), "");
}

struct CaseDisk {
    const char* name;
    const char* command;
    bool lists_as_written = true; ///< otherwise every name in lower case
    bool renames_exclusively = true; ///< itself, or by links
};

// With programs that bring a file system to Linux without the kernel's help, or by the kernel where it can.
constexpr CaseDisk exfat = {"ExFat",
                            "mkfs.exfat \"$image\" && device=$(losetup -f --show \"$image\") && { mount.exfat-fuse "
                            "\"$device\" \"$folder\"; losetup -d \"$device\"; grep -q \"$folder\" /proc/mounts; }",
                            true, false};
constexpr CaseDisk ntfs = {"Ntfs",
                           "mkfs.ntfs -q -F \"$image\" && device=$(losetup -f --show \"$image\") && { lowntfs-3g -o "
                           "ignore_case \"$device\" \"$folder\"; losetup -d \"$device\"; grep -q \"$folder\" "
                           "/proc/mounts; }",
                           false};
constexpr CaseDisk fat = {"Fat", "mkfs.vfat \"$image\" && mount -t vfat -o loop \"$image\" \"$folder\""};
constexpr CaseDisk ext4 = {"Ext4",
                           "mkfs.ext4 -q -O casefold \"$image\" && mount -o loop \"$image\" \"$folder\" && "
                           "rmdir \"$folder/lost+found\" && chattr +F \"$folder\""};

class DisksThatIgnoreCase : public Disks, public testing::WithParamInterface<CaseDisk> {
protected:
    void SetUp() override
    {
        disk_.emplace(folder.make_folder("disk"), state.path_of("image"), GetParam().command);
        if (!disk_->is_mounted())
            GTEST_SKIP() << "this file system cannot be mounted here";
    }

    // The names as this file system lists them.
    [[nodiscard]] static auto names_are(Words names)
    {
        for (std::string& name : names) {
            if (!GetParam().lists_as_written)
                std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
        }
        return testing::UnorderedElementsAreArray(names);
    }

private:
    std::optional<Mounted> disk_;
};

TEST_P(DisksThatIgnoreCase, ChangeTheCaseOfNamesAndBack)
{
    write({"disk/img1.jpg", "disk/img2.jpg"});
    EXPECT_EQ(run({"rename", "disk/img1.jpg", "disk/img2.jpg", "--text", "1=IMG"}).exit_status, done);
    EXPECT_THAT(names_on_disk(), names_are({"IMG1.jpg", "IMG2.jpg"}));
    EXPECT_EQ(run({"undo"}).exit_status, done);
    EXPECT_THAT(names_on_disk(), names_are({"img1.jpg", "img2.jpg"}));
    EXPECT_EQ(content("disk/img1.jpg"), "content of disk/img1.jpg");
}

TEST_P(DisksThatIgnoreCase, RefuseANameThatIsThereInAnotherCase)
{
    write({"disk/img1.jpg", "disk/img2.jpg", "disk/X2.jpg"});
    const ProgramResult result = run({"rename", "disk/img1.jpg", "disk/img2.jpg", "--text", "1=x"});
    EXPECT_EQ(result.exit_status, refused);
    EXPECT_THAT(result.errors, HasSubstr("same name as an existing file"));
    EXPECT_THAT(names_on_disk(), names_are({"X2.jpg", "img1.jpg", "img2.jpg"}));
}

TEST_P(DisksThatIgnoreCase, NeverReplaceANameThatAppearsMeanwhileInAnotherCase)
{
    write({"disk/img1.jpg", "disk/img2.jpg"});
    const auto appear = [this](const MoveCall& call) {
        if (call.number == 1 && !call.is_done)
            folder.write("disk/X1.jpg", "somebody else's");
        return Action::Continue;
    };
    const ProgramResult result =
        run_watched(program({"rename", "disk/img1.jpg", "disk/img2.jpg", "--text", "1=x"}), appear);
    EXPECT_EQ(result.exit_status, partly_done);
    EXPECT_EQ(content_of(folder.path_of("disk/X1.jpg")), "somebody else's");
    const std::string second = GetParam().renames_exclusively ? "x2.jpg" : "img2.jpg";
    EXPECT_THAT(names_on_disk(), names_are({"X1.jpg", "img1.jpg", second}));
}

TEST_P(DisksThatIgnoreCase, ShiftNumbers)
{
    write({"disk/a1", "disk/a2", "disk/a3"});
    const ProgramResult result = run({"rename", "disk/a1", "disk/a2", "disk/a3", "--renumber", "2=2"});
    if (GetParam().renames_exclusively) {
        EXPECT_EQ(result.exit_status, done) << result.errors;
        EXPECT_THAT(names_on_disk(), names_are({"a2", "a3", "a4"}));
        EXPECT_EQ(run({"undo"}).exit_status, done);
    } else {
        EXPECT_EQ(result.exit_status, partly_done) << result.errors;
    }
    EXPECT_THAT(names_on_disk(), names_are({"a1", "a2", "a3"}));
}

INSTANTIATE_TEST_SUITE_P(All, DisksThatIgnoreCase, testing::Values(exfat, ntfs, fat, ext4),
                         [](const auto& disk) { return std::string(disk.param.name); });

} // namespace
} // namespace multirename
