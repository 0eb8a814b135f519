// The exported functions of the provider library.
#include "Provider/SimulationProvider.h"

ZLT_PROVIDER_EXPORT std::uint32_t ZltProviderVersion()
{
    return ZltApi::ProviderInterfaceVersion;
}

ZLT_PROVIDER_EXPORT ZltApi::Provider* ZltProviderInstance()
{
    static Simulation::SimulationProvider provider;
    return &provider;
}
