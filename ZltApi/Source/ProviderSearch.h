// Where provider libraries are looked for.
#pragma once

#include <filesystem>
#include <vector>

namespace ZltApi
{

// The files ending in ".so" in the provider directories: the directories in their given order, the files of each sorted
// by name, and each file once however many names lead to it. Directories that cannot be read hold none.
std::vector<std::filesystem::path> FindProviderFiles();

} // namespace ZltApi
