#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Small files that two processes share: one replaces or extends them while the other reads.
namespace ts::standin
{

[[nodiscard]] std::string ToUtf8(std::wstring_view text);
[[nodiscard]] std::wstring FromUtf8(std::string_view text);

/// Nothing when there is no such file. Throws std::runtime_error when it cannot be read.
[[nodiscard]] std::optional<std::string> TryReadFile(const std::filesystem::path& file);

/// Whoever reads the file meanwhile, or after a crash, sees the old content or the new one as a whole.
/// Throws std::runtime_error.
void ReplaceWhole(const std::filesystem::path& file, std::string_view content);

/// Throws std::runtime_error.
void AppendToFile(const std::filesystem::path& file, std::string_view content);

} // namespace ts::standin
