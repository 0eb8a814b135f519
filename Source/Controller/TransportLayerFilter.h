// Which transport layers the program may use.
#pragma once

#include <map>
#include <string>

class TransportLayerFilter
{
public:
    // Vendor of a transport layer, and a fragment that its name must contain. An empty fragment takes any name.
    static const std::map<std::string, std::string> SUPPORTED_VENDORS;

    static bool TLisSupported(const std::string& vendor, const std::string& name);
};
