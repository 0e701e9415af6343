#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace multirename {

/// While it lives, tests may write to `system_user_values` under `product_key` without touching what a user has stored
/// there; all of it is gone afterwards. One at a time.
class UserValuesSandbox {
public:
    UserValuesSandbox();
    ~UserValuesSandbox();
    UserValuesSandbox(const UserValuesSandbox&) = delete;
    UserValuesSandbox& operator=(const UserValuesSandbox&) = delete;

    [[nodiscard]] std::u16string product_name() const;
    [[nodiscard]] std::u16string product_key() const { return u"SOFTWARE\\Velloria Labs\\" + product_name(); }

    /// Whether anything has been made under this key.
    [[nodiscard]] bool has_key(std::u16string_view key) const;

    /// Stores a value that is no number, past the store's own interface; the key holds nothing else afterwards.
    void store_text(std::u16string_view key, std::u16string_view value) const;

private:
    struct Body;
    std::unique_ptr<Body> body_;
};

} // namespace multirename
