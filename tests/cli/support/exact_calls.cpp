#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>
#include <thread>

// Makes the system calls that its arguments name, one after the other, and prints how each ended:
//     rename FROM TO, renameat FROM TO, renameat2 FROM TO FLAGS, link FROM TO, linkat FROM TO
//     in-thread            the calls from here on are made by another thread
//     catch, caught        handles SIGINT from here on; prints how many came
//     stop                 stops itself by SIGSTOP

namespace {

using Words = std::span<char*>;

volatile std::sig_atomic_t interrupts = 0;

extern "C" void count_interrupt(int) { interrupts = interrupts + 1; }

void report(const char* call, long result)
{
    std::printf("%s %s\n", call, result == 0 ? "0" : strerrorname_np(errno));
    std::fflush(stdout);
}

long move(std::string_view call, const char* from, const char* to, const char* flags)
{
    if (call == "rename")
        return syscall(SYS_rename, from, to);
    if (call == "renameat")
        return syscall(SYS_renameat, AT_FDCWD, from, AT_FDCWD, to);
    if (call == "renameat2")
        return syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, std::strtoul(flags, nullptr, 0));
    if (call == "link")
        return syscall(SYS_link, from, to);
    return syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0);
}

// Gives the words that are left.
Words run_move(Words words)
{
    const std::size_t length = std::string_view(words[0]) == "renameat2" ? 4 : 3;
    if (words.size() < length)
        std::exit(2);
    report(words[0], move(words[0], words[1], words[2], words[length - 1]));
    return words.subspan(length);
}

void run(Words words)
{
    while (!words.empty()) {
        const std::string_view word = words.front();
        if (word == "in-thread") {
            std::thread(run, words.subspan(1)).join();
            return;
        }
        if (word == "catch")
            std::signal(SIGINT, count_interrupt);
        else if (word == "caught")
            std::printf("caught %d\n", static_cast<int>(interrupts));
        else if (word == "stop")
            std::raise(SIGSTOP);
        else {
            words = run_move(words);
            continue;
        }
        words = words.subspan(1);
    }
}

} // namespace

int main(int argc, char** argv) { run(Words(argv, static_cast<std::size_t>(argc)).subspan(1)); }
