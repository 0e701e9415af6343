#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace multirename {

/// What a test does in a process of its own, such as giving up rights or taking signals. Gives the exit status that
/// `act` returns, 0 to 199, and other numbers when the process ended in another way.
template <class Act>
[[nodiscard]] int status_in_child(Act act)
{
    constexpr int threw = 200;
    constexpr int was_killed = 256;
    const pid_t child = fork();
    if (child == 0) {
        try {
            _exit(act());
        } catch (...) {
            _exit(threw);
        }
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : was_killed + WTERMSIG(status);
}

/// The same by a user who has no rights of its own, where this process may become one; else by this one.
template <class Act>
[[nodiscard]] int status_as_nobody(Act act)
{
    constexpr uid_t root = 0;
    constexpr id_t nobody = 65534;
    constexpr int is_still_root = 201;
    return status_in_child([&act]() -> int {
        if (geteuid() == root && (setgid(nobody) != 0 || setuid(nobody) != 0))
            return is_still_root;
        return act();
    });
}

} // namespace multirename
