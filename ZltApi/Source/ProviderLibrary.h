// One provider library and the way to its provider.
#pragma once

#include "ZltApi/Provider.h"

#include <boost/dll/shared_library.hpp>

#include <filesystem>

namespace ZltApi
{

class ProviderLibrary
{
public:
    // Loads the library, which then stays loaded as long as this object exists. Throws when it cannot be loaded.
    explicit ProviderLibrary(const std::filesystem::path& file);

    // The library's provider. Null when the library is no provider, or was compiled for another interface version.
    // What the library's own functions throw passes through.
    Provider* GetProvider() const;

private:
    boost::dll::shared_library m_library;
};

} // namespace ZltApi
