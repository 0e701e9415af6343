#pragma once

#include <string>

#include "win32/launcher/problem.h"

namespace multirename {

/// What has been done, as a sentence.
struct Report {
    std::u16string text;
};

/// Puts a link to this program into the user's "Send to" menu, in place of one of the same name that is there already.
[[nodiscard]] OrProblem<Report> install_send_to();

/// Takes the link out of the menu again; that it is not there is fine.
[[nodiscard]] OrProblem<Report> uninstall_send_to();

} // namespace multirename
