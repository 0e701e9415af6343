#include "support/program_streams.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <array>
#include <csignal>

namespace multirename {

namespace {

Descriptor above_standard(Descriptor descriptor)
{
    if (descriptor.get() > STDERR_FILENO)
        return descriptor;
    return Descriptor(checked(fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1), "fcntl"));
}

void do_not_block(const Descriptor& descriptor)
{
    checked(fcntl(descriptor.get(), F_SETFL, checked(fcntl(descriptor.get(), F_GETFL), "fcntl") | O_NONBLOCK), "fcntl");
}

void block_all_signals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

// Reads what is there, and closes the descriptor at the end. A terminal that every program has closed says EIO.
void read_some(Descriptor& from, std::string& into)
{
    std::array<char, 65536> block = {};
    const ssize_t length = read(from.get(), block.data(), block.size());
    if (length > 0)
        into.append(block.data(), static_cast<std::size_t>(length));
    else if (length == 0 || errno != EINTR)
        from = Descriptor();
}

// The streams are root's, but the program's user may open them once more, as /dev/stdout.
void give_to(unsigned user, const Descriptor& end)
{
    if (end)
        checked(fchown(end.get(), user, user), "fchown");
}

} // namespace

Pipe::Pipe()
{
    std::array<int, 2> ends = {};
    checked(pipe2(ends.data(), O_CLOEXEC), "pipe2");
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    reading = above_standard(std::move(reading));
    writing = above_standard(std::move(writing));
}

ProgramStreams::ProgramStreams(const ProgramRun& run) : has_terminal_(run.terminal), input_(run.input)
{
    Pipe input;
    program_.input = std::move(input.reading);
    here_.input = std::move(input.writing);
    do_not_block(here_.input);
    if (has_terminal_)
        open_terminal();
    else
        open_pipes();
    if (run.closed_output)
        program_.output = std::move(Pipe().writing);
    if (run.closed_output && !has_terminal_)
        here_.output = Descriptor();
    if (run.user) {
        for (const Descriptor* end : {&program_.input, &program_.output, &program_.errors})
            give_to(*run.user, *end);
    }
}

void ProgramStreams::open_terminal()
{
    constexpr int flags = O_RDWR | O_NOCTTY | O_CLOEXEC;
    here_.output = above_standard(Descriptor(checked(posix_openpt(flags), "posix_openpt")));
    checked(grantpt(here_.output.get()), "grantpt");
    checked(unlockpt(here_.output.get()), "unlockpt");
    program_.errors = above_standard(Descriptor(checked(ioctl(here_.output.get(), TIOCGPTPEER, flags), "TIOCGPTPEER")));
    program_.output = Descriptor(checked(fcntl(program_.errors.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1), "fcntl"));
    winsize size = {};
    size.ws_col = 80;
    size.ws_row = 24;
    checked(ioctl(program_.errors.get(), TIOCSWINSZ, &size), "TIOCSWINSZ");
    termios settings = {};
    checked(tcgetattr(program_.errors.get(), &settings), "tcgetattr");
    settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    checked(tcsetattr(program_.errors.get(), TCSANOW, &settings), "tcsetattr");
}

void ProgramStreams::open_pipes()
{
    Pipe output;
    program_.output = std::move(output.writing);
    here_.output = std::move(output.reading);
    Pipe errors;
    program_.errors = std::move(errors.writing);
    here_.errors = std::move(errors.reading);
}

bool ProgramStreams::become_standard() const noexcept
{
    if (has_terminal_ && (setsid() == -1 || ioctl(program_.errors.get(), TIOCSCTTY, 0) == -1))
        return false;
    return dup2(program_.input.get(), STDIN_FILENO) != -1 && dup2(program_.output.get(), STDOUT_FILENO) != -1 &&
        dup2(program_.errors.get(), STDERR_FILENO) != -1;
}

void ProgramStreams::begin()
{
    program_ = Ends();
    exchange_ = std::thread(&ProgramStreams::exchange, this);
}

void ProgramStreams::finish()
{
    if (exchange_.joinable())
        exchange_.join();
}

// All three at once: a program may fill both outputs before it has read its input. Descriptors that are closed by now
// are -1, which poll passes over.
void ProgramStreams::exchange()
{
    // Writing to a program that reads no more is an error here, not a signal; and no signal meant for the tests ends up
    // in this thread.
    block_all_signals();
    if (input_.empty())
        here_.input = Descriptor();
    while (here_.input || here_.output || here_.errors) {
        std::array<pollfd, 3> ends = {
            {{here_.input.get(), POLLOUT, 0}, {here_.output.get(), POLLIN, 0}, {here_.errors.get(), POLLIN, 0}}};
        poll(ends.data(), ends.size(), -1);
        if (ends[0].revents != 0)
            write_some();
        if (ends[1].revents != 0)
            read_some(here_.output, output_);
        if (ends[2].revents != 0)
            read_some(here_.errors, errors_);
    }
}

void ProgramStreams::write_some()
{
    const ssize_t length = write(here_.input.get(), input_.data() + written_, input_.size() - written_);
    if (length > 0)
        written_ += static_cast<std::size_t>(length);
    if (written_ == input_.size() || (length == -1 && errno != EAGAIN && errno != EINTR))
        here_.input = Descriptor();
}

} // namespace multirename
