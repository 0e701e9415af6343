#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace multirename {

/// The clipboard, held open from construction until destruction; other programs cannot use it meanwhile.
class Clipboard {
public:
    Clipboard() noexcept;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    ~Clipboard();

    /// False when another program holds it; then nothing comes of the operations below.
    [[nodiscard]] bool is_open() const noexcept { return is_open_; }

    /// The Unicode text on it, up to the first NUL; nothing when there is none.
    [[nodiscard]] std::optional<std::u16string> text() const;

    /// Empties it, and places the text on it unless that is empty. True when the text is there.
    bool set_text(std::u16string_view text) noexcept;

private:
    bool is_open_;
};

} // namespace multirename
