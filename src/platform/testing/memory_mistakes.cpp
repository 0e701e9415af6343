#include "platform/testing/memory_mistakes.h"

#include <cstring>
#include <string>
#include <vector>

namespace multirename {

namespace {

// Sizes that the compiler does not know.
volatile std::size_t eight = 8;
volatile std::size_t thirty_two = 32;

char too_small[8];

} // namespace

std::size_t fill_too_far()
{
    char text[8] = {};
    for (std::size_t i = 0; i < thirty_two; ++i)
        static_cast<volatile char*>(text)[i] = 'x';
    return std::strlen(text);
}

char copy_too_much()
{
    const std::string source(thirty_two, 'x');
    std::memcpy(too_small, source.data(), source.size());
    return too_small[eight - 1];
}

int read_behind_the_last()
{
    std::vector<int> numbers(thirty_two);
    numbers.resize(eight);
    return numbers[thirty_two - 1];
}

} // namespace multirename
