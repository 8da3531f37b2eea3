#pragma once

// Who Quorvane is from. The addresses and the maintainer's details are placeholders: whoever
// packages Quorvane for release puts the real ones here, and nowhere else.
namespace quorvane::product {

inline constexpr const char* kName = "Quorvane";
inline constexpr const char* kVersion = QUORVANE_VERSION; // project(VERSION) in CMakeLists.txt
inline constexpr const char* kReleaseDate = "23 November 2026";
inline constexpr const char* kWebAddress = "www.quorvane.example";               // placeholder
inline constexpr const char* kMaintainerName = "the Quorvane maintainers";       // placeholder
inline constexpr const char* kMaintainerEmail = "maintainers@quorvane.example";  // placeholder
inline constexpr const char* kMaintainerTelephone = "+1 555 0100 (placeholder)"; // placeholder

} // namespace quorvane::product
