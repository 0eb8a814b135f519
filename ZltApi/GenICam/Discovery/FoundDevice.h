// A camera as a search has found it.
#pragma once

#include <string>

namespace GenICam
{

enum class Technology
{
    GigEVision,
    Usb3Vision
};

struct FoundDevice
{
    Technology technology = Technology::GigEVision;
    std::string id;         // vendor, model and serial number, as Aravis writes them
    std::string physicalId; // hardware address, or the GUID of a USB camera
    std::string address;    // dotted IPv4 address; not used for a USB camera
    std::string model;
    std::string serialNumber;
};

} // namespace GenICam
