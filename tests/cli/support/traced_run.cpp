#include "support/traced_run.h"

#include <linux/audit.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "support/descriptor.h"
#include "support/running_program.h"

// A traced program stops twice at each system call, and the kernel tells which of the two it is. The number and the
// arguments are told before the call only, so a move is remembered until it returns.

namespace multirename {

namespace {

using CallInfo = __ptrace_syscall_info;
using CallObserver = std::function<Action(const CallInfo&)>;

ProgramRun without_leak_search(ProgramRun run)
{
    const auto set = run.environment.find("ASAN_OPTIONS");
    const char* own = std::getenv("ASAN_OPTIONS");
    std::string options;
    if (set != run.environment.end())
        options = set->second.value_or("");
    else if (own != nullptr)
        options = own;
    // The last of several counts.
    options += options.empty() ? "detect_leaks=0" : ":detect_leaks=0";
    run.environment["ASAN_OPTIONS"] = options;
    return run;
}

struct MoveArguments {
    std::uint64_t from = 0;
    std::uint64_t to = 0;
};

// Where the two paths are, if this call is a move.
std::optional<MoveArguments> move_arguments(const CallInfo& call)
{
    if (call.arch != AUDIT_ARCH_X86_64)
        return {};
    const auto& arguments = call.entry.args;
    switch (call.entry.nr) {
    case SYS_rename:
    case SYS_link: return MoveArguments{arguments[0], arguments[1]};
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_linkat: return MoveArguments{arguments[1], arguments[3]};
    default: return {};
    }
}

// Reads page by page: the text may end right before memory that is not the program's.
std::string text_at(pid_t process, std::uint64_t address)
{
    constexpr std::size_t page = 4096;
    std::string text;
    while (text.size() < PATH_MAX) {
        std::array<char, page> block = {};
        const std::size_t wanted = page - address % page;
        const iovec here = {block.data(), wanted};
        const iovec there = {reinterpret_cast<void*>(address), wanted};
        if (process_vm_readv(process, &here, 1, &there, 1, 0) != static_cast<ssize_t>(wanted))
            return {};
        const auto* const end = std::find(block.data(), block.data() + wanted, '\0');
        text.append(static_cast<const char*>(block.data()), end);
        if (end != block.data() + wanted)
            break;
        address += wanted;
    }
    return text;
}

class MoveWatch {
public:
    MoveWatch(pid_t process, const Observer& observer) : process_(process), observer_(observer) { }

    Action operator()(const CallInfo& call)
    {
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY)
            return before(call);
        if (call.op == PTRACE_SYSCALL_INFO_EXIT && is_in_move_)
            return after(call);
        return Action::Continue;
    }

private:
    Action before(const CallInfo& call)
    {
        const auto arguments = move_arguments(call);
        is_in_move_ = arguments.has_value();
        if (!is_in_move_)
            return Action::Continue;
        move_ = {move_.number + 1, false, 0, text_at(process_, arguments->from), text_at(process_, arguments->to)};
        return observer_(move_);
    }

    Action after(const CallInfo& call)
    {
        is_in_move_ = false;
        move_.is_done = true;
        move_.result = call.exit.rval;
        return observer_(move_);
    }

    pid_t process_;
    const Observer& observer_;
    MoveCall move_;
    bool is_in_move_ = false;
};

CallInfo call_of(pid_t process)
{
    CallInfo call = {};
    checked(ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call), "PTRACE_GET_SYSCALL_INFO");
    return call;
}

bool is_at_call(int status)
{
    constexpr int call_mark = 0x80; // what PTRACE_O_TRACESYSGOOD adds
    return WSTOPSIG(status) == (SIGTRAP | call_mark);
}

// What a program that has stopped for another reason than a call is to go on with: the signal that it is to get, if
// that is why. The kernel has no details of the signal where the process as a whole was stopped by an earlier one, and
// an event stands above the signal's bits.
int signal_to_pass_on(pid_t process, int status)
{
    constexpr int event_shift = 16;
    siginfo_t details = {};
    if (status >> event_shift != 0 || ptrace(PTRACE_GETSIGINFO, process, nullptr, &details) == -1)
        return 0;
    return WSTOPSIG(status);
}

// Past a program that has been killed meanwhile by someone else; its end is seen by the next wait.
void go_on(pid_t process, int signal)
{
    const auto passed = static_cast<std::intptr_t>(signal);
    if (ptrace(PTRACE_SYSCALL, process, nullptr, passed) == -1 && errno != ESRCH)
        throw std::system_error(errno, std::system_category(), "PTRACE_SYSCALL");
}

void trace(ChildProcess& process, const CallObserver& observer)
{
    process.wait(); // for its stop right after exec
    if (process.has_ended())
        return;
    constexpr std::intptr_t options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACEEXEC;
    checked(ptrace(PTRACE_SETOPTIONS, process.id(), nullptr, options), "PTRACE_SETOPTIONS");
    go_on(process.id(), 0);
    for (int status = process.wait(); !process.has_ended(); status = process.wait()) {
        if (!is_at_call(status)) {
            go_on(process.id(), signal_to_pass_on(process.id(), status));
            continue;
        }
        const Action action = observer(call_of(process.id()));
        if (action == Action::Kill) {
            process.send(SIGKILL);
            return;
        }
        if (action == Action::Interrupt)
            process.send(SIGINT);
        go_on(process.id(), 0);
    }
}

} // namespace

ProgramResult run_traced(const ProgramRun& run, const Observer& observer)
{
    RunningProgram program(without_leak_search(run), Tracing::On);
    trace(program.process(), MoveWatch(program.process().id(), observer));
    return program.result();
}

KilledRun run_killed_at_syscall(const ProgramRun& run, std::size_t n)
{
    std::size_t calls = 0;
    const auto count = [&](const CallInfo& call) {
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY)
            ++calls;
        return calls < n ? Action::Continue : Action::Kill;
    };
    RunningProgram program(without_leak_search(run), Tracing::On);
    trace(program.process(), count);
    return {calls < n, program.result()};
}

} // namespace multirename
