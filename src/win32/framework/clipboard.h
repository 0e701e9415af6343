#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace multirename {

/// The clipboard, held open from construction until destruction; other programs cannot use it meanwhile. When another
/// program holds it, nothing comes of the operations below.
class Clipboard {
public:
    Clipboard() noexcept;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    ~Clipboard();

    /// The Unicode text on it, up to the first NUL; nothing when there is none.
    [[nodiscard]] std::optional<std::u16string> text() const;

    /// Empties it, and places the text on it unless that is empty. True when the text is there.
    bool set_text(std::u16string_view text) noexcept;

private:
    bool is_open_;
};

} // namespace multirename
