// The search for cameras on networks and USB.
#include "Discovery/DeviceSearch.h"

#include "Aravis/Ask.h"
#include "Aravis/ObjectPtr.h"
#include "Discovery/NetworkInterfaces.h"
#include "Discovery/UsbHolder.h"

#include <mutex>

namespace GenICam
{

namespace
{

// Aravis keeps one list of USB devices; it is looked through and changed under this lock.
std::mutex g_usbMutex;

std::string Text(const char* text)
{
    return text != nullptr ? text : "";
}

void Search(ArvInterface* interface, Technology technology, std::vector<FoundDevice>& devices)
{
    arv_interface_update_device_list(interface);
    const unsigned int count = arv_interface_get_n_devices(interface);
    for (unsigned int i = 0; i < count; ++i)
    {
        FoundDevice device;
        device.technology = technology;
        device.id = Text(arv_interface_get_device_id(interface, i));
        device.physicalId = Text(arv_interface_get_device_physical_id(interface, i));
        device.address = Text(arv_interface_get_device_address(interface, i));
        device.model = Text(arv_interface_get_device_model(interface, i));
        device.serialNumber = Text(arv_interface_get_device_serial_nbr(interface, i));
        if (!device.id.empty())
        {
            devices.push_back(std::move(device));
        }
    }
}

DevicePtr OpenGigEVision(const FoundDevice& found)
{
    const ObjectPtr<GInetAddress> camera(g_inet_address_new_from_string(found.address.c_str()));
    const ObjectPtr<GInetAddress> computer(
        g_inet_address_new_from_string(InterfaceTowards(found.address).address.c_str()));
    if (!camera || !computer)
    {
        throw AravisError(ZltErrorNotFound);
    }
    DevicePtr device(Ask(arv_gv_device_new, computer.get(), camera.get()));
    // Somebody else may have been faster. Then Aravis opens the camera all the same, for reading only.
    if (device && arv_gv_device_is_controller(ARV_GV_DEVICE(device.get())) == FALSE)
    {
        throw AravisError(ZltErrorInvalidAccess);
    }
    return device;
}

DevicePtr OpenUsb3Vision(const FoundDevice& found)
{
    const std::lock_guard lock(g_usbMutex);
    GError* error = nullptr;
    DevicePtr device(arv_interface_open_device(arv_uv_interface_get_instance(), found.id.c_str(), &error));
    // So Aravis calls an interface that cannot be claimed, and a camera that answers nonsense.
    if (error != nullptr && g_error_matches(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR) != FALSE)
    {
        g_error_free(error);
        throw AravisError(ZltErrorInvalidAccess);
    }
    ThrowOn(error);
    return device;
}

} // namespace

std::vector<FoundDevice> SearchDevices()
{
    std::vector<FoundDevice> devices;
    Search(arv_gv_interface_get_instance(), Technology::GigEVision, devices);
    const std::lock_guard lock(g_usbMutex);
    Search(arv_uv_interface_get_instance(), Technology::Usb3Vision, devices);
    return devices;
}

ControlState ReadControlState(const FoundDevice& device)
{
    if (device.technology == Technology::GigEVision)
    {
        return ControlPort(device.address).ReadControlState();
    }
    return ReadUsbControlState(device.serialNumber);
}

DevicePtr OpenDevice(const FoundDevice& found)
{
    // Aravis would try for seconds to get what another program does not give.
    const ControlState state = ReadControlState(found);
    if (state != ControlState::Free)
    {
        throw AravisError(state == ControlState::Held ? ZltErrorInvalidAccess : ZltErrorNotFound);
    }
    DevicePtr device = found.technology == Technology::GigEVision ? OpenGigEVision(found) : OpenUsb3Vision(found);
    if (!device)
    {
        throw AravisError(ZltErrorNotFound);
    }
    return device;
}

} // namespace GenICam
