#include "platform/console.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <memory>

namespace multirename {

namespace {

constexpr std::size_t columns_of_old_terminals = 80;

bool write_to(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno == EPIPE;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

struct ClosePipe {
    void operator()(FILE* pipe) const noexcept { pclose(pipe); }
};

// While a command has the terminal, keys that end a program are not meant for this one.
class Patience {
public:
    Patience() : interrupt_(std::signal(SIGINT, SIG_IGN)), quit_(std::signal(SIGQUIT, SIG_IGN)) { }
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;
    ~Patience()
    {
        std::signal(SIGINT, interrupt_); // NOLINT(cert-err33-c)
        std::signal(SIGQUIT, quit_); // NOLINT(cert-err33-c)
    }

private:
    void (*interrupt_)(int);
    void (*quit_)(int);
};

class PosixConsole final : public Console {
public:
    PosixConsole() { std::signal(SIGPIPE, SIG_IGN); } // NOLINT(cert-err33-c): nothing can be done when it fails

    bool write(std::string_view text) override { return write_to(STDOUT_FILENO, text); }
    void write_error(std::string_view text) override { write_to(STDERR_FILENO, text); }

    std::string read_input() override
    {
        std::string input;
        std::array<char, 65536> piece{};
        while (true) {
            const ssize_t length = read(STDIN_FILENO, piece.data(), piece.size());
            if (length < 0 && errno == EINTR)
                continue;
            if (length <= 0)
                return input;
            input.append(piece.data(), static_cast<std::size_t>(length));
        }
    }

    bool output_is_terminal() override { return isatty(STDOUT_FILENO) != 0; }
    bool errors_are_terminal() override { return isatty(STDERR_FILENO) != 0; }

    std::size_t columns() override
    {
        winsize size{};
        if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
            return size.ws_col;
        return columns_of_old_terminals;
    }

    bool pipe_to(const std::string& command, std::string_view text) override
    {
        std::unique_ptr<FILE, ClosePipe> pipe(popen(command.c_str(), "w"));
        if (pipe == nullptr)
            return false;
        const Patience patience;
        std::fwrite(text.data(), 1, text.size(), pipe.get());
        pipe.reset(); // waits for the command, which still has the terminal
        return true;
    }

    std::optional<int> run_on_file(const std::string& command, const std::string& native_path) override
    {
        // The shell takes the command apart, for it may have options; the path goes by it untouched.
        const std::string script = command + " \"$1\"";
        const pid_t child = fork();
        if (child == 0) {
            std::signal(SIGPIPE, SIG_DFL); // NOLINT(cert-err33-c)
            execl("/bin/sh", "sh", "-c", script.c_str(), "sh", native_path.c_str(), nullptr);
            _exit(127);
        }
        const Patience patience; // Ctrl-C is the command's to answer
        int status = 0;
        pid_t ended = child;
        while (child > 0 && (ended = waitpid(child, &status, 0)) < 0 && errno == EINTR) { }
        if (child < 0 || ended != child)
            return std::nullopt;
        constexpr int killed = 128;
        return WIFEXITED(status) ? WEXITSTATUS(status) : killed + WTERMSIG(status);
    }

    std::optional<std::string> variable(const char* name) override
    {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
    }
};

} // namespace

Console& system_console()
{
    static PosixConsole console;
    return console;
}

std::optional<std::size_t> columns_of(char32_t character)
{
    const int columns = wcwidth(static_cast<wchar_t>(character));
    return columns < 0 ? std::nullopt : std::optional<std::size_t>(columns);
}

void use_locale_of_user()
{
    const bool is_known = std::setlocale(LC_ALL, "") != nullptr;
    if (!is_known || std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        std::setlocale(LC_ALL, "C.UTF-8");
}

std::vector<std::string> command_line_words(int argc, char** argv)
{
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

} // namespace multirename
