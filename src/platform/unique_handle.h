#pragma once

#include <utility>

namespace multirename {

/// Sole owner of a system handle. Traits has `none()`, the value that means no handle, and `close(handle)`.
template <class Traits>
class UniqueHandle {
public:
    using Handle = decltype(Traits::none());

    explicit UniqueHandle(Handle handle = Traits::none()) noexcept : handle_(handle) { }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Traits::none())) { }
    UniqueHandle& operator=(UniqueHandle other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~UniqueHandle()
    {
        if (handle_ != Traits::none())
            Traits::close(handle_);
    }

    [[nodiscard]] Handle get() const noexcept { return handle_; }
    [[nodiscard]] explicit operator bool() const noexcept { return handle_ != Traits::none(); }

    /// Gives the handle up to the caller, who closes it from now on.
    [[nodiscard]] Handle release() noexcept { return std::exchange(handle_, Traits::none()); }

private:
    Handle handle_;
};

} // namespace multirename
