#include "platform/interruption.h"

#include <array>
#include <csignal>

namespace multirename {

namespace {

constexpr std::array polite_signals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t wanted = 0;
std::array<struct sigaction, polite_signals.size()> former{};

void note(int) { wanted = 1; }

} // namespace

Interruption::Interruption()
{
    wanted = 0;
    struct sigaction action { };
    action.sa_handler = note;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < polite_signals.size(); ++i) {
        sigaction(polite_signals[i], nullptr, &former[i]);
        // Who started the program with a signal ignored, as nohup does, wants it to go on.
        if (former[i].sa_handler != SIG_IGN)
            sigaction(polite_signals[i], &action, nullptr);
    }
}

Interruption::~Interruption()
{
    for (std::size_t i = 0; i < polite_signals.size(); ++i)
        sigaction(polite_signals[i], &former[i], nullptr);
}

bool Interruption::is_wanted() const noexcept { return wanted != 0; }

} // namespace multirename
