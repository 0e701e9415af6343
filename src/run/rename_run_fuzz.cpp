// Each byte is a choice: which names there are, and what a user does to them. Whatever it is, the plan keeps what every
// plan promises.

#include "fuzz_input.h"
#include "run/testing/random_session.h"

namespace multirename {

void check_input(FuzzInput input)
{
    const std::string_view bytes = input.rest_bytes();
    ByteChoices choices({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    RandomSession session(choices);
    const auto require_kept = [](const std::optional<std::string>& broken) {
        require(!broken, broken ? broken->c_str() : "");
    };
    require_kept(session.changed_without_edit());
    require_kept(session.broken_promise());
    while (!choices.are_used_up()) {
        session.act();
        require_kept(session.broken_promise());
    }
}

} // namespace multirename
