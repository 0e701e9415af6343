#include "cli/json_output.h"

#include <rapidjson/writer.h>

#include "cli/escapes.h"
#include "platform/native_text.h"

namespace multirename {

namespace {

char letter_for(char16_t unit)
{
    switch (unit) {
    case u'"': return '"';
    case u'\\': return '\\';
    case u'\b': return 'b';
    case u'\f': return 'f';
    case u'\n': return 'n';
    case u'\r': return 'r';
    case u'\t': return 't';
    default: return '\0';
    }
}

// JSON would let some controls through that terminals obey; no half of a pair and no stray byte is UTF-8.
void append_escaped(std::string& quoted, std::u16string_view text)
{
    const auto is_special = [](char16_t unit, bool is_lone_half) {
        return unit == u'"' || unit == u'\\' || is_lone_half;
    };
    const bool has_none = text.find_first_of(u"\"\\") == std::u16string_view::npos;
    if (!has_none || !append_printable_ascii(quoted, text))
        append_with_escapes(quoted, text, is_special, letter_for);
}

void append_quoted(std::string& quoted, std::u16string_view text)
{
    quoted.push_back('"');
    append_escaped(quoted, text);
    quoted.push_back('"');
}

std::string quoted(std::u16string_view text)
{
    std::string json;
    append_quoted(json, text);
    return json;
}

// Where the library's writer puts what it writes.
struct JsonStream {
    using Ch = char;
    std::string& text;
    void Put(char byte) { text.push_back(byte); }
    void Flush() { }
};

class Json {
public:
    explicit Json(TextOutput& output) : stream_{output.piece()} { }

    void begin_object() { writer_.StartObject(); }
    void end_object() { writer_.EndObject(); }
    void begin_array() { writer_.StartArray(); }
    void end_array() { writer_.EndArray(); }
    void key(const char* name) { writer_.Key(name); }

    void value(bool truth) { writer_.Bool(truth); }
    void value(std::int64_t number) { writer_.Int64(number); }
    void value(std::uint64_t number) { writer_.Uint64(number); }
    void value(std::uint32_t number) { writer_.Uint(number); }
    void value(std::string_view utf8) { value(from_bytes(utf8)); }
    void value(const char* ascii) { value(std::string_view(ascii)); }
    void value(const std::string& utf8) { value(std::string_view(utf8)); }
    void value(const std::u16string& text) { value(std::u16string_view(text)); }
    void value(std::u16string_view text)
    {
        quoted_.clear();
        append_quoted(quoted_, text);
        raw(quoted_);
    }
    /// A value that is JSON already.
    void raw(std::string_view json) { writer_.RawValue(json.data(), json.size(), rapidjson::kStringType); }
    void end_text() { stream_.Put('\n'); }

    template <class Value>
    void member(const char* name, const Value& content)
    {
        key(name);
        value(content);
    }

    void member_or_null(const char* name, const std::optional<std::string>& content)
    {
        key(name);
        if (content)
            value(*content);
        else
            writer_.Null();
    }

private:
    JsonStream stream_;
    rapidjson::Writer<JsonStream> writer_{stream_};
    std::string quoted_; // the memory is used again
};

std::string json_text(const std::function<void(Json&)>& write)
{
    return whole_text([&write](TextOutput& output) {
        Json json(output);
        write(json);
        json.end_text();
    });
}

void write_part(Json& json, const NamePart& part, std::size_t number, const NameBorder& border)
{
    json.begin_object();
    json.member("part", static_cast<std::uint64_t>(number));
    json.member("kind", kind_word(part.kind));
    if (part.kind == NamePartKind::Text)
        json.member("text", border.shown(part.text));
    if (part.kind == NamePartKind::Number)
        json.member("smallest", part.baseNumber);
    if (part.kind == NamePartKind::Wild && part.mustStartWithDot)
        json.member("mustStartWithDot", true);
    json.end_object();
}

void write_name(Json& json, const char* key, std::u16string_view name, const NameBorder& border)
{
    if (is_printable_ascii(name))
        json.member(key, name);
    else
        json.member(key, border.shown(name));
}

void write_file(Json& json, const FilesReport& report, std::size_t row, ShownFolder& folder)
{
    const Filename& entry = report.run.row_entry(row);
    json.begin_object();
    write_name(json, "old", entry.name, report.border);
    write_name(json, "new", entry.new_name, report.border);
    json.key("folder");
    json.raw(folder.of(entry));
    json.member("status", static_cast<std::uint32_t>(entry.status));
    json.member("inScope", entry.in_scope);
    json.member("matched", report.run.fits_pattern(row));
    json.end_object();
}

void write_problems(Json& json, const ProblemCounts& problems)
{
    json.begin_object();
    json.member("sameName", problems.same_name);
    json.member("existing", problems.existing_name);
    json.member("empty", problems.empty);
    json.member("spaceOrPeriod", problems.space_or_period);
    json.member("tooLong", problems.too_long);
    json.member("forbidden", problems.forbidden);
    json.end_object();
}

} // namespace

std::string pattern_as_json(const RenameRun& run, const NameBorder& border)
{
    return json_text([&](Json& json) {
        json.begin_object();
        json.member("pattern", border.shown(run.pattern().patternText));
        json.member("extension", border.shown(run.extension_text()));
        json.member("numbersAsText", run.numbers_as_text().checked);
        json.member("extensions", run.allow_extension_changes().checked);
        json.key("parts");
        json.begin_array();
        std::size_t number = 0;
        for (const NamePart& part : run.pattern().parts)
            write_part(json, part, ++number, border);
        json.end_array();
        json.end_object();
    });
}

void write_files_as_json(const FilesReport& report, TextOutput& output)
{
    Json json(output);
    ShownFolder folder(report, &quoted);
    json.begin_object();
    json.member("pattern", report.border.shown(report.run.pattern().patternText));
    json.key("files");
    json.begin_array();
    for (std::size_t row = 0; row < report.run.row_count(); ++row) {
        write_file(json, report, row, folder);
        output.pass_on_when_large();
    }
    json.end_array();
    json.key("problems");
    write_problems(json, report.problems);
    json.member("renamed", static_cast<std::uint64_t>(report.renamed.value_or(0)));
    json.member_or_null("batch", report.batch);
    json.end_object();
    json.end_text();
}

std::string batches_as_json(const std::vector<BatchSummary>& batches)
{
    return json_text([&](Json& json) {
        json.begin_object();
        json.key("batches");
        json.begin_array();
        for (const BatchSummary& batch : batches) {
            json.begin_object();
            json.member("batch", batch.id);
            json.member("time", utc_text(batch.created));
            json.member("names", static_cast<std::uint64_t>(batch.names));
            json.member("folder", shown_native_path(path_from_native(batch.folder)));
            json.end_object();
        }
        json.end_array();
        json.end_object();
    });
}

std::string undo_as_json(const UndoReport& report)
{
    return json_text([&](Json& json) {
        json.begin_object();
        json.member("batch", report.id);
        json.member("restored", static_cast<std::uint64_t>(report.restored));
        json.key("left");
        json.begin_array();
        for (const LeftEntry& left : report.left) {
            json.begin_object();
            json.member("folder", shown_native_path(path_from_native(left.entry.folder)));
            json.member("old", shown_native_name(name_from_native(left.entry.old_name)));
            json.member("new", shown_native_name(name_from_native(left.entry.new_name)));
            json.member("reason", left.reason);
            json.end_object();
        }
        json.end_array();
        json.end_object();
    });
}

} // namespace multirename
