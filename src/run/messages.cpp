#include "run/messages.h"

#include "text/decimal.h"

namespace multirename {

namespace {

// The length of the insert that starts the text, 0 when none does. `position` receives its number.
std::size_t insert_length(std::u16string_view text, std::size_t& position)
{
    const std::size_t digits_end = end_of_digits(text, 1);
    position = static_cast<std::size_t>(read_decimal(text.substr(1, digits_end - 1)));
    for (const std::u16string_view format : {u"!d!", u"!I64d!"}) {
        if (text.substr(digits_end).starts_with(format))
            return digits_end + format.size();
    }
    return 0;
}

} // namespace

std::u16string built_in_text(MessageId id)
{
    switch (id) {
#define MESSAGE(number, name, text)                                                                                    \
    case MessageId::name:                                                                                              \
        return u##text;
#include "run/messages.def"
#undef MESSAGE
    }
    return {};
}

std::u16string with_inserts(std::u16string_view text, std::initializer_list<std::int64_t> values)
{
    std::u16string result;
    while (!text.empty()) {
        std::size_t position = 0;
        const std::size_t length = text.front() == u'%' ? insert_length(text, position) : 0;
        if (length > 0 && position >= 1 && position <= values.size()) {
            result += decimal_text(values.begin()[position - 1]);
            text.remove_prefix(length);
        } else {
            result.push_back(text.front());
            text.remove_prefix(1);
        }
    }
    return result;
}

} // namespace multirename
