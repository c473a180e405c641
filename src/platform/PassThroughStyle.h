#pragma once

#include <cstdint>
#include <optional>

// The rule for a window style word with the bits of the extended window style
// of Windows: transparent (the mouse falls through), layered and topmost.
// Kept apart from the Windows calls so that it is tested everywhere.
namespace PassThroughStyle {

inline constexpr uint32_t Transparent = 0x20;
inline constexpr uint32_t Layered = 0x80000;
inline constexpr uint32_t Topmost = 0x8;

// The style to write for the wanted pass-through, or nothing when the current
// style already says so and is layered and topmost.
std::optional<uint32_t> styleToWrite(uint32_t current, bool passThrough);

} // namespace PassThroughStyle
