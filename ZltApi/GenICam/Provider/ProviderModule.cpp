// The exported functions of the provider library.
#include "Provider/GenICamProvider.h"

ZLT_PROVIDER_EXPORT std::uint32_t ZltProviderVersion()
{
    return ZltApi::ProviderInterfaceVersion;
}

ZLT_PROVIDER_EXPORT ZltApi::Provider* ZltProviderInstance()
{
    static GenICam::GenICamProvider provider;
    return &provider;
}
