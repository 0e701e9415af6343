#include "platform/user_values.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include <unistd.h>

#include "text/utf8.h"

namespace multirename {

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

fs::path settings_file()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/')
        return fs::path(config) / "multirename" / "settings.json";
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/')
        return fs::path(home) / ".config" / "multirename" / "settings.json";
    return {};
}

// A file that is absent or is no JSON object counts as empty: a remembered number is never worth a message.
Json read_settings(const fs::path& file)
{
    std::ifstream stream(file);
    Json settings = Json::parse(stream, nullptr, false);
    return settings.is_object() ? settings : Json::object();
}

// Written beside the file and moved over it, so that a crash leaves the old settings or the new, never half.
bool replace_settings(const fs::path& file, const Json& settings)
{
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    const fs::path draft = file.string() + "." + std::to_string(getpid()) + ".new";
    std::ofstream stream(draft);
    stream << settings.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    stream.close();
    if (stream.good()) {
        fs::rename(draft, file, error);
        if (!error)
            return true;
    }
    fs::remove(draft, error);
    return false;
}

class FileValues final : public UserValues {
public:
    std::optional<std::uint32_t> read(std::u16string_view key, std::u16string_view value) override
    {
        const Json settings = read_settings(settings_file());
        const auto values = settings.find(to_bytes(key));
        if (values == settings.end() || !values->is_object())
            return std::nullopt;
        const auto number = values->find(to_bytes(value));
        if (number == values->end() || !number->is_number_unsigned() || number->get<std::uint64_t>() > UINT32_MAX)
            return std::nullopt;
        return number->get<std::uint32_t>();
    }

    bool write(std::u16string_view key, std::u16string_view value, std::uint32_t number) override
    {
        const fs::path file = settings_file();
        if (file.empty())
            return false;
        Json settings = read_settings(file);
        Json& values = settings[to_bytes(key)];
        if (!values.is_object())
            values = Json::object();
        values[to_bytes(value)] = number;
        return replace_settings(file, settings);
    }
};

} // namespace

UserValues& system_user_values()
{
    static FileValues values;
    return values;
}

} // namespace multirename
