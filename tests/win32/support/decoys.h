#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Libraries that do nothing but leave a trace when a program loads them, put where they would be found in place of
/// what the program means.
class Decoys {
public:
    /// A decoy of each name in the folder.
    Decoys(std::u16string folder, std::initializer_list<std::u16string_view> names);
    Decoys(const Decoys&) = delete;
    Decoys& operator=(const Decoys&) = delete;
    /// Removes the decoys and their traces.
    ~Decoys();

    /// The names of those that have been loaded, as bytes.
    [[nodiscard]] std::vector<std::string> loaded() const;

private:
    std::u16string folder_;
    std::vector<std::u16string> names_;
};

/// Names of libraries that Windows or Wine loads while a program runs, by their names alone. Those that a program needs
/// to start at all are left out: they are found before it can say where to look.
inline constexpr std::initializer_list<std::u16string_view> libraries_loaded_by_name = {
    u"bcrypt.dll", u"compstui.dll", u"cryptsp.dll",     u"dwmapi.dll", u"explorerframe.dll",
    u"oleacc.dll", u"propsys.dll",  u"textshaping.dll", u"uxtheme.dll"};
