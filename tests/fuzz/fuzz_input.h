#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "text/wtf8.h"

namespace multirename {

/// What a fuzzer makes up, taken as lines of text, so that people can read and write its seeds. Halves of surrogate
/// pairs come in as WTF-8 has them.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) :
        rest_(size == 0 ? "" : reinterpret_cast<const char*>(data), size)
    {
    }

    /// The next line without its end; empty when there is none.
    [[nodiscard]] std::string_view next_bytes()
    {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end);
        rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
        return line;
    }
    [[nodiscard]] std::u16string next_text() { return from_wtf8(next_bytes()); }

    /// The first character of the next line as a choice among so many.
    [[nodiscard]] std::size_t next_choice(std::size_t count)
    {
        const std::string_view line = next_bytes();
        return line.empty() ? 0 : static_cast<unsigned char>(line.front()) % count;
    }

    /// Whatever is left.
    [[nodiscard]] std::string_view rest_bytes() const noexcept { return rest_; }
    [[nodiscard]] std::u16string rest_text() const { return from_wtf8(rest_); }

    /// At most `most` of the lines that are left, up to an empty one.
    [[nodiscard]] std::vector<std::u16string> next_texts(std::size_t most)
    {
        std::vector<std::u16string> texts;
        while (texts.size() < most && !rest_.empty()) {
            std::u16string text = next_text();
            if (text.empty())
                break;
            texts.push_back(std::move(text));
        }
        return texts;
    }

private:
    std::string_view rest_;
};

/// Ends the process with a sentence about what does not hold; the fuzzer keeps the input.
inline void require(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN: %s\n", sentence);
    std::abort();
}

/// What a fuzzer does with each input; each fuzzer has its own.
void check_input(FuzzInput input);

} // namespace multirename
