#include "TransportLayerFilter.h"

const std::map<std::string, std::string> TransportLayerFilter::SUPPORTED_VENDORS = {{"Korvath", "KTR"}};

bool TransportLayerFilter::TLisSupported(const std::string& vendor, const std::string& name)
{
    const auto row = SUPPORTED_VENDORS.find(vendor);
    return row != SUPPORTED_VENDORS.end() && name.find(row->second) != std::string::npos;
}
