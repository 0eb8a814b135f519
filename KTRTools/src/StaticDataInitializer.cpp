// Keeps the static data registry alive for as long as any file that may use it has static objects.
#include "StaticDataInitializer.h"

#include "StaticData.h"

namespace KTR::System
{

namespace
{
// Number of living initializers; touched only during static initialisation and shut-down, which have one thread.
unsigned g_nNiftyCounter = 0;
} // namespace

_StaticDataInitializer::_StaticDataInitializer()
{
    if (g_nNiftyCounter == 0)
    {
        StaticData::m_pInternalData = new (std::nothrow) StaticData::InternalData;
        if (StaticData::m_pInternalData == nullptr)
        {
            // Not logged: the logger itself lives in the registry.
            throw Exception("Could not allocate static data.", false);
        }
    }
    ++g_nNiftyCounter;
}

_StaticDataInitializer::~_StaticDataInitializer()
{
    --g_nNiftyCounter;
    if (g_nNiftyCounter == 0)
    {
        delete StaticData::m_pInternalData;
        StaticData::m_pInternalData = nullptr;
    }
}

} // namespace KTR::System
