#include "cli/printable.h"

#include <array>
#include <cstdio>

#include "cli/escapes.h"
#include "platform/console.h"
#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

namespace {

Glyph escape(const char* format, unsigned value)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, value);
    Glyph glyph{text.data(), 0};
    glyph.columns = glyph.bytes.size();
    return glyph;
}

Glyph escaped(char32_t character)
{
    switch (character) {
    case U'\n': return {"\\n", 2};
    case U'\r': return {"\\r", 2};
    case U'\t': return {"\\t", 2};
    default: return escape(character < 0x100 ? "\\x%02x" : "\\u{%x}", character);
    }
}

// Characters that a terminal or a reader of the text obeys instead of showing them: controls, and the marks that turn
// the direction of writing, by which one name could pass for another.
bool is_obeyed(char32_t character)
{
    return is_control(character) || character == 0x200E || character == 0x200F ||
        (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069) ||
        character == 0xFEFF;
}

template <class Visit>
void visit_glyphs(std::u16string_view text, Visit visit)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool is_pair = is_pair_at(text, i);
        if (!is_pair && is_half(unit)) {
            visit(stands_for_byte(unit) ? escape("\\x%02x", unit & 0xFFU) : escape("\\u%04x", unit));
            continue;
        }
        const std::u16string_view units = text.substr(i, is_pair ? 2 : 1);
        const char32_t character = is_pair ? joined_halves(unit, text[++i]) : char32_t{unit};
        const auto columns = columns_of(character);
        visit(!columns || is_obeyed(character) ? escaped(character) : Glyph{to_bytes(units), *columns});
    }
}

} // namespace

std::vector<Glyph> glyphs(std::u16string_view text)
{
    std::vector<Glyph> all;
    visit_glyphs(text, [&all](Glyph glyph) { all.push_back(std::move(glyph)); });
    return all;
}

std::size_t append_printable(std::string& bytes, std::u16string_view text)
{
    if (append_printable_ascii(bytes, text))
        return text.size();
    std::size_t columns = 0;
    visit_glyphs(text, [&bytes, &columns](const Glyph& glyph) {
        bytes += glyph.bytes;
        columns += glyph.columns;
    });
    return columns;
}

std::size_t printable_columns(std::u16string_view text)
{
    if (is_printable_ascii(text))
        return text.size();
    std::size_t columns = 0;
    visit_glyphs(text, [&columns](const Glyph& glyph) { columns += glyph.columns; });
    return columns;
}

std::string printable(std::u16string_view text)
{
    std::string bytes;
    append_printable(bytes, text);
    return bytes;
}

std::string printable(std::string_view bytes) { return printable(from_bytes(bytes)); }

} // namespace multirename
