// One provider library and the way to its provider.
#include "ProviderLibrary.h"

namespace ZltApi
{

namespace
{

constexpr const char* VersionFunction = "ZltProviderVersion";
constexpr const char* InstanceFunction = "ZltProviderInstance";

} // namespace

// Symbols are bound at once: a library that lacks one fails here, and not in the middle of a callback.
ProviderLibrary::ProviderLibrary(const std::filesystem::path& file)
    : m_library(file, boost::dll::load_mode::rtld_now | boost::dll::load_mode::rtld_local)
{
}

Provider* ProviderLibrary::GetProvider() const
{
    if (!m_library.has(VersionFunction) || !m_library.has(InstanceFunction) ||
        m_library.get<std::uint32_t()>(VersionFunction)() != ProviderInterfaceVersion)
    {
        return nullptr;
    }
    return m_library.get<Provider*()>(InstanceFunction)();
}

} // namespace ZltApi
