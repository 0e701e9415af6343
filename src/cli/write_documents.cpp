// Writes what is installed beside the program: its manual page and what shells need to complete its command lines.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "cli/completions.h"
#include "cli/manual.h"

namespace {

namespace fs = std::filesystem;

void write(const fs::path& path, const std::string& content)
{
    fs::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary);
    stream << content;
    stream.close();
    if (!stream)
        throw std::runtime_error(path.string() + " cannot be written");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("Usage: multirename_documents FOLDER\n", stderr);
        return 2;
    }
    try {
        const fs::path folder = argv[1];
        write(folder / "man" / "man1" / "multirename.1", multirename::manual_page());
        write(folder / "bash-completion" / "completions" / "multirename", multirename::bash_completion());
        write(folder / "zsh" / "site-functions" / "_multirename", multirename::zsh_completion());
        write(folder / "fish" / "vendor_completions.d" / "multirename.fish", multirename::fish_completion());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "multirename_documents: %s.\n", error.what());
        return 1;
    }
}
