#pragma once

#include <cstddef>

namespace multirename {

/// The most memory, in bytes, that was resident during one whole run over `count` names of 40 characters, beside what
/// the process held before: listing, analysis, edits of a text and of a number, and the plan. The names come from
/// nowhere but the listing. For a process that does nothing else, since only its highest mark is known.
[[nodiscard]] std::size_t peak_of_a_run(std::size_t count);

} // namespace multirename
