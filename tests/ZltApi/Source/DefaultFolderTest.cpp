// Succeeds when the providers beside the library that it runs with bring two transport layers.
#include "ZltApi/ZltSystem.h"

int main()
{
    ZltApi::ZltSystem& system = ZltApi::ZltSystem::GetInstance();
    std::vector<ZltApi::TransportLayerPtr> layers;
    system.Startup();
    system.GetTransportLayers(layers);
    system.Shutdown();
    return layers.size() == 2 ? 0 : 1;
}
