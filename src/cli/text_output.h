#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace multirename {

/// Text on its way out while it is made. It goes on in large pieces, of which only one is held at a time.
class TextOutput {
public:
    using Pass = std::function<void(std::string_view)>;
    explicit TextOutput(Pass pass) : pass_(std::move(pass)) { }

    /// The end of what was made up to now; for appending.
    [[nodiscard]] std::string& piece() noexcept { return piece_; }

    /// To be called now and then, at least after each row.
    void pass_on_when_large()
    {
        if (piece_.size() >= large)
            pass_on();
    }

    /// The text is complete.
    void pass_on()
    {
        if (!piece_.empty())
            pass_(piece_);
        piece_.clear();
    }

private:
    static constexpr std::size_t large = 1U << 16U;

    Pass pass_;
    std::string piece_;
};

/// Makes a text.
using TextMaker = std::function<void(TextOutput&)>;

/// All of it at once.
[[nodiscard]] inline std::string whole_text(const TextMaker& make)
{
    std::string text;
    TextOutput output([&text](std::string_view piece) { text += piece; });
    make(output);
    output.pass_on();
    return text;
}

} // namespace multirename
