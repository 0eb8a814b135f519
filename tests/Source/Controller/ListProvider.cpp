// The library with the provider whose cameras a test decides.
#include "ListProvider.h"

ZLT_PROVIDER_EXPORT std::uint32_t ZltProviderVersion()
{
    return ZltApi::ProviderInterfaceVersion;
}

ZLT_PROVIDER_EXPORT ZltApi::Provider* ZltProviderInstance()
{
    static ListProvider provider;
    return &provider;
}
