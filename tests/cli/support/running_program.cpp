#include "support/running_program.h"

#include <grp.h>
#include <linux/close_range.h>
#include <sys/ptrace.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <limits>
#include <string_view>

// Between fork and exec only calls are made that need no memory and no locks: another thread of the tests may have held
// one. So whatever takes memory is made before. A pipe that exec closes tells the parent what went wrong in the child,
// or by its end that nothing did.

namespace multirename {

namespace {

std::vector<std::string> environment_of(const ProgramRun& run)
{
    std::vector<std::string> lines;
    for (char** line = environ; *line != nullptr; ++line) {
        const std::string_view own = *line;
        if (!run.environment.contains(std::string(own.substr(0, own.find('=')))))
            lines.emplace_back(own);
    }
    for (const auto& [name, value] : run.environment) {
        if (value)
            lines.push_back(name + '=' + *value);
    }
    return lines;
}

// What exec takes; good for as long as the texts are.
std::vector<char*> pointers_to(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// Tests that run in the background of a shell ignore SIGINT, and a program would inherit that.
void reset_signals() noexcept
{
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGCHLD})
        std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Whatever the tests have open themselves; closed by exec, not here, so that a failure can still be told.
bool keep_only_standard_streams() noexcept
{
    return close_range(STDERR_FILENO + 1, std::numeric_limits<unsigned>::max(), CLOSE_RANGE_CLOEXEC) == 0;
}

bool become_user(unsigned user) noexcept
{
    return setgroups(0, nullptr) == 0 && setresgid(user, user, user) == 0 && setresuid(user, user, user) == 0;
}

class Launch {
public:
    Launch(const ProgramRun& run, const ProgramStreams& streams, Tracing tracing) :
        run_(run),
        streams_(streams),
        tracing_(tracing),
        arguments_(run.arguments),
        environment_(environment_of(run)),
        argument_pointers_(pointers_to(arguments_)),
        environment_pointers_(pointers_to(environment_)),
        filter_(filter_of(run.refused))
    {
    }

    pid_t start();

private:
    // Returns only when something fails, with errno.
    void become_program() const noexcept;

    const ProgramRun& run_;
    const ProgramStreams& streams_;
    Tracing tracing_;
    std::vector<std::string> arguments_;
    std::vector<std::string> environment_;
    std::vector<char*> argument_pointers_;
    std::vector<char*> environment_pointers_;
    std::vector<sock_filter> filter_;
};

void Launch::become_program() const noexcept
{
    reset_signals();
    if (!streams_.become_standard() || !keep_only_standard_streams())
        return;
    if (!run_.folder.empty() && chdir(run_.folder.c_str()) != 0)
        return;
    if (run_.user && !become_user(*run_.user))
        return;
    if (!filter_.empty() && !install_filter(filter_))
        return;
    if (tracing_ == Tracing::On && ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == -1)
        return;
    execvpe(argument_pointers_.front(), argument_pointers_.data(), environment_pointers_.data());
}

pid_t Launch::start()
{
    if (run_.arguments.empty())
        throw std::system_error(EINVAL, std::system_category(), "no program");
    Pipe failure;
    const pid_t id = checked(fork(), "fork");
    if (id == 0) {
        become_program();
        const int error = errno;
        constexpr int could_not_start = 127;
        _exit(write(failure.writing.get(), &error, sizeof error) == sizeof error ? could_not_start : EXIT_FAILURE);
    }
    failure.writing = Descriptor();
    int error = 0;
    ssize_t length = 0;
    do
        length = read(failure.reading.get(), &error, sizeof error);
    while (length == -1 && errno == EINTR);
    if (length == 0)
        return id;
    ChildProcess(id).exit_status();
    throw std::system_error(error, std::system_category(), run_.arguments.front());
}

} // namespace

ChildProcess::~ChildProcess()
{
    send(SIGKILL);
    try {
        exit_status();
    } catch (const std::system_error&) {
        // Someone else has waited for it; there is nothing left to do.
    }
}

void ChildProcess::send(int signal) const noexcept
{
    if (!has_ended_)
        kill(id_, signal);
}

int ChildProcess::wait()
{
    pid_t found = -1;
    do
        found = waitpid(id_, &status_, 0);
    while (found == -1 && errno == EINTR);
    has_ended_ = found == -1 || WIFEXITED(status_) || WIFSIGNALED(status_);
    checked(found, "waitpid");
    return status_;
}

int ChildProcess::exit_status()
{
    while (!has_ended_)
        wait();
    constexpr int shells_offset = 128;
    return WIFSIGNALED(status_) ? shells_offset + WTERMSIG(status_) : WEXITSTATUS(status_);
}

RunningProgram::RunningProgram(const ProgramRun& run, Tracing tracing) :
    streams_(run), process_(Launch(run, streams_, tracing).start())
{
    streams_.begin();
}

ProgramResult RunningProgram::result()
{
    const int status = process_.exit_status();
    streams_.finish();
    return {status, streams_.output(), streams_.errors()};
}

} // namespace multirename
