#pragma once

#include <cstdint>
#include <random>
#include <span>

namespace multirename {

/// Where what happens by chance in a test comes from: a random generator, or the bytes that a fuzzer makes up.
class Choices {
public:
    virtual ~Choices() = default;
    Choices() = default;
    Choices(const Choices&) = delete;
    Choices& operator=(const Choices&) = delete;

    /// A number below `bound`, which is 1 to 65,536.
    [[nodiscard]] virtual std::uint32_t below(std::uint32_t bound) = 0;

    [[nodiscard]] bool one_in(std::uint32_t bound) { return below(bound) == 0; }

    template <class Items>
    [[nodiscard]] const auto& one_of(const Items& items)
    {
        return items[below(static_cast<std::uint32_t>(std::size(items)))];
    }
};

class RandomChoices final : public Choices {
public:
    explicit RandomChoices(std::uint32_t seed) : random_(seed) { }
    std::uint32_t below(std::uint32_t bound) override { return static_cast<std::uint32_t>(random_() % bound); }

private:
    std::mt19937 random_;
};

/// Takes a byte for each small choice and two for others; always the first choice once the bytes are used up.
class ByteChoices final : public Choices {
public:
    explicit ByteChoices(std::span<const std::uint8_t> bytes) : bytes_(bytes) { }

    std::uint32_t below(std::uint32_t bound) override
    {
        constexpr std::uint32_t values_of_byte = 256;
        const std::uint32_t value = next() + (bound > values_of_byte ? values_of_byte * next() : 0);
        return value % bound;
    }

    [[nodiscard]] bool are_used_up() const noexcept { return bytes_.empty(); }

private:
    std::uint32_t next()
    {
        if (bytes_.empty())
            return 0;
        const std::uint32_t byte = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return byte;
    }

    std::span<const std::uint8_t> bytes_;
};

} // namespace multirename
