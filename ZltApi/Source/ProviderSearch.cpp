// Where provider libraries are looked for.
#include "ProviderSearch.h"

#include <boost/dll/runtime_symbol_info.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>

namespace ZltApi
{

namespace
{

constexpr const char* PathVariable = "ZLT_PROVIDER_PATH";
constexpr const char* DefaultFolder = "zlt-providers";

std::vector<std::filesystem::path> ProviderDirectories()
{
    const char* const variable = std::getenv(PathVariable);
    if (variable == nullptr)
    {
        return {boost::dll::this_line_location().parent_path() / DefaultFolder};
    }
    std::vector<std::filesystem::path> directories;
    std::istringstream parts(variable);
    for (std::string part; std::getline(parts, part, ':');)
    {
        directories.emplace_back(part); // an empty one names no directory, and is passed over like a missing one
    }
    return directories;
}

std::vector<std::filesystem::path> LibrariesIn(const std::filesystem::path& directory)
{
    std::vector<std::filesystem::path> libraries;
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator entry(directory, error); !error && entry != end; entry.increment(error))
    {
        std::error_code unreadable;
        if (entry->path().extension() == ".so" && entry->is_regular_file(unreadable))
        {
            libraries.push_back(entry->path());
        }
    }
    std::sort(libraries.begin(), libraries.end());
    return libraries;
}

} // namespace

std::vector<std::filesystem::path> FindProviderFiles()
{
    std::vector<std::filesystem::path> files;
    for (const std::filesystem::path& directory : ProviderDirectories())
    {
        for (const std::filesystem::path& library : LibrariesIn(directory))
        {
            std::error_code error;
            std::filesystem::path file = std::filesystem::canonical(library, error);
            if (!error && std::find(files.begin(), files.end(), file) == files.end())
            {
                files.push_back(std::move(file));
            }
        }
    }
    return files;
}

} // namespace ZltApi
