// The network interfaces of this computer, as far as cameras can be reached through them.
#include "Discovery/NetworkInterfaces.h"

#include "Discovery/ControlPort.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <memory>

namespace GenICam
{

namespace
{

std::string AddressText(const sockaddr* address)
{
    char text[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in*>(address)->sin_addr, text, sizeof(text));
    return text;
}

} // namespace

std::vector<NetworkInterface> ListNetworkInterfaces()
{
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0)
    {
        return {};
    }
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(first, &freeifaddrs);
    std::vector<NetworkInterface> interfaces;
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next)
    {
        if (entry->ifa_addr != nullptr && entry->ifa_addr->sa_family == AF_INET && (entry->ifa_flags & IFF_UP) != 0)
        {
            interfaces.push_back({entry->ifa_name, AddressText(entry->ifa_addr)});
        }
    }
    return interfaces;
}

NetworkInterface InterfaceTowards(const std::string& address)
{
    sockaddr local{};
    socklen_t size = sizeof(local);
    const ControlPort port(address);
    if (!port.IsOpen() || getsockname(port.Socket(), &local, &size) != 0)
    {
        return {};
    }
    const std::string own = AddressText(&local);
    for (const NetworkInterface& interface : ListNetworkInterfaces())
    {
        if (interface.address == own)
        {
            return interface;
        }
    }
    return {};
}

} // namespace GenICam
