// The network interfaces of this computer, as far as cameras can be reached through them.
#pragma once

#include <string>
#include <vector>

namespace GenICam
{

struct NetworkInterface
{
    std::string name; // such as "eth0"
    std::string address;

    bool operator==(const NetworkInterface& other) const { return name == other.name && address == other.address; }
};

// Those that are up and have an IPv4 address.
std::vector<NetworkInterface> ListNetworkInterfaces();

// The interface through which the computer reaches an IPv4 address; empty when there is no way.
NetworkInterface InterfaceTowards(const std::string& address);

} // namespace GenICam
