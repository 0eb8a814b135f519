// Small files that outlive the program, read whole and replaced whole.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Simulation
{

using FileBytes = std::vector<unsigned char>;

// Empty when the file cannot be read or is larger than the limit in bytes.
std::optional<FileBytes> ReadStateFile(const std::filesystem::path& path, std::uint64_t limit);

// Writes the bytes beside the file, makes them permanent and renames them over the file, so that a reader sees either
// the old content or the new one. Makes missing folders. Throws std::runtime_error with a full sentence on failure, and
// then leaves the old content in place.
void ReplaceStateFile(const std::filesystem::path& path, const FileBytes& bytes);
void ReplaceStateFile(const std::filesystem::path& path, const std::string& text);

} // namespace Simulation
