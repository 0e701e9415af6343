#pragma once

namespace multirename {

/// From here on this process finds libraries that it, or the system on its behalf, asks for by name alone in the
/// system's own folder, and neither beside the program nor in the working folder nor along PATH. A library that is
/// loaded by its path is found where that leads; the libraries that it needs are the system's again. Windows before 8
/// leaves out the working folder alone where it has never been updated.
/// For programs to call before anything else; a library has no right to decide this for its host. Elsewhere than on
/// Windows libraries are never looked for in such places, and nothing is done.
void find_only_system_libraries() noexcept;

} // namespace multirename
