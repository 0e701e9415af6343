// A line with captured texts between tabs, then text with tags.

#include "fileset/tags.h"

#include "fileset/testing/test_files.h"
#include "fuzz_input.h"

namespace multirename {

namespace {

std::vector<CapturedText> captured_texts(std::u16string_view line)
{
    std::vector<CapturedText> captures;
    for (bool is_numbered = true; !line.empty(); is_numbered = !is_numbered) {
        const std::size_t end = line.find(u'\t');
        captures.push_back({line.substr(0, end), is_numbered});
        line = end == std::u16string_view::npos ? std::u16string_view() : line.substr(end + 1);
    }
    return captures;
}

bool holds_forbidden(std::u16string_view text)
{
    return text.find_first_of(u"<>:\"/\\|?*\0") != std::u16string_view::npos;
}

} // namespace

void check_input(FuzzInput input)
{
    const std::u16string captured = input.next_text();
    const std::vector<CapturedText> captures = captured_texts(captured);
    const std::u16string text = input.rest_text();
    RenameFolder folder(u"C:\\Folder\\");
    Filename entry;
    entry.name = u"name.ext";
    entry.folder = &folder;
    entry.has_details = true;
    entry.size = 123'456'789;
    entry.created = 132'000'000'000'000'000;
    entry.other_time = 133'000'000'000'000'000;
    entry.sequence = 41;
    entry.folder_sequence = 7;
    for (std::size_t start = text.find(u'<'); start != std::u16string::npos; start = text.find(u'<', start + 1)) {
        BoundedText output;
        BoundedText nothing;
        std::size_t end = start + 1;
        std::size_t end_without_entry = start + 1;
        const bool is_valid = expand_tag(text, end, &entry, captures, output);
        require(expand_tag(text, end_without_entry, nullptr, captures, nothing) == is_valid,
                "Whether a tag is well formed does not depend on the entry.");
        require(end == end_without_entry, "Where a tag ends does not depend on the entry.");
        require(end > start && end <= text.size(), "A tag ends behind its start.");
        require(nothing.view().empty(), "Without an entry nothing comes out.");
        require(is_valid || output.view().empty(), "What is no tag gives nothing.");
        require(holds_forbidden(captured) || !holds_forbidden(output.view()),
                "No tag brings in a character that names may not hold.");
    }
    const std::string format = date_format(text);
    require(!holds_forbidden(std::u16string(format.begin(), format.end())),
            "A date's format holds nothing that names may not hold.");
}

} // namespace multirename
