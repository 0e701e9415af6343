#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// Renames IMG_000001.jpg and so on in a folder with nothing but the system's calls, none of which replaces a file:
//     bare_rename FOLDER COUNT prefix     to New_000001.jpg
//     bare_rename FOLDER COUNT shift      to IMG_000002.jpg, the last one first
// What it takes is what every tool takes at least that makes as sure that nothing is lost.

namespace {

using Name = std::array<char, 32>;

Name name_of(const char* form, int number)
{
    Name name{};
    std::snprintf(name.data(), name.size(), form, number);
    return name;
}

bool move(int folder, const Name& from, const Name& to)
{
    if (renameat2(folder, from.data(), folder, to.data(), RENAME_NOREPLACE) == 0)
        return true;
    std::perror(from.data());
    return false;
}

bool add_prefix(int folder, int count)
{
    for (int number = 1; number <= count; ++number) {
        if (!move(folder, name_of("IMG_%06d.jpg", number), name_of("New_%06d.jpg", number)))
            return false;
    }
    return true;
}

bool shift(int folder, int count)
{
    for (int number = count; number >= 1; --number) {
        if (!move(folder, name_of("IMG_%06d.jpg", number), name_of("IMG_%06d.jpg", number + 1)))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const int folder = open(argv[1], O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) {
        std::perror(argv[1]);
        return 1;
    }
    const int count = std::atoi(argv[2]); // NOLINT(cert-err34-c): its only caller writes a number
    const bool is_done = std::string_view(argv[3]) == "prefix" ? add_prefix(folder, count) : shift(folder, count);
    close(folder);
    return is_done ? 0 : 1;
}
