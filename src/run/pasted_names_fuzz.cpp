// A line that says which boxes are checked, names up to an empty line, then what is on the clipboard.

#include "run/pasted_names.h"

#include <set>

#include "fuzz_input.h"
#include "run/testing/test_run.h"

namespace multirename {

namespace {

constexpr std::size_t most_names = 12;

// What a folder can hold.
std::vector<std::u16string> distinct_names(FuzzInput& input)
{
    std::vector<std::u16string> names;
    std::set<std::u16string> keys;
    for (const std::u16string& name : input.next_texts(most_names)) {
        const bool can_be = !holds_forbidden_character(name) && name.size() < 256;
        if (can_be && keys.insert(name_key(name)).second)
            names.push_back(name);
    }
    return names;
}

} // namespace

void check_input(FuzzInput input)
{
    const std::size_t boxes = input.next_choice(4);
    const std::vector<std::u16string> names = distinct_names(input);
    if (names.empty())
        return;
    const std::u16string clipboard = input.rest_text();
    for (const std::u16string_view line : pasted_lines(clipboard))
        require(line.find(u'\n') == std::u16string_view::npos, "A line is one line.");

    TestRun test(names, {}, {(boxes & 1U) != 0, (boxes & 2U) != 0});
    const std::vector<std::u16string> before = test.new_names();
    const bool is_refused = test.run.paste_names(clipboard).has_value();
    require(!is_refused || test.new_names() == before, "What cannot be used changes no name.");
    require(is_refused || pasted_lines(clipboard).size() == names.size(), "Each row gets a line.");
    static_cast<void>(test.run.judge());
    for (std::size_t row = 0; row < test.run.row_count(); ++row) {
        const Filename& entry = test.run.row_entry(row);
        require(entry.status != Status::Ready || !entry.in_scope || !holds_forbidden_character(entry.new_name),
                "No pasted name brings in a character that names may not hold.");
    }
    if (is_refused)
        return;
    const std::vector<std::u16string> pasted = test.new_names();
    const bool is_plain = std::ranges::none_of(pasted, [](const std::u16string& name) {
        return name.empty() || name.front() == u' ' || name.back() == u' ' ||
            name.find_first_of(u"\t\n\v\f\r\x85\xA0") != std::u16string::npos;
    });
    if (is_plain && test.run.allow_extension_changes().checked) {
        require(!test.run.paste_names(test.run.copied_names()).has_value(), "What was copied can be pasted.");
        require(test.new_names() == pasted, "What was copied and pasted is what it was.");
    }
}

} // namespace multirename
