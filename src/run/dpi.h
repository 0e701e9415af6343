#pragma once

namespace multirename {

/// Lengths are given at 96 dots per inch; these turn them into pixels at `dpi` and back, rounded.
[[nodiscard]] constexpr int scaled(int length, int dpi) noexcept { return (length * dpi + 48) / 96; }
[[nodiscard]] constexpr int unscaled(int pixels, int dpi) noexcept { return (pixels * 96 + dpi / 2) / dpi; }

} // namespace multirename
