#include <cstdio>
#include <exception>

#include "cli/program.h"
#include "platform/console.h"
#include "platform/system_libraries.h"
#include "platform/user_folders.h"

int main(int argc, char** argv)
{
    using namespace multirename;
    find_only_system_libraries();
    try {
        use_locale_of_user();
        return static_cast<int>(
            run_program(command_line_words(argc, argv), system_console(), Batches(user_state_folder())));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "multirename: %s. Nothing more was done.\n", error.what());
        return static_cast<int>(ExitStatus::PartlyDone);
    }
}
