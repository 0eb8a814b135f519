// Those functions of libusb that Aravis calls. They are this program's, and so they come before the library's own: the
// bus has one place, for a camera in software.
#include "UsbCamera.h"

#include <libusb.h>

#include <chrono>
#include <cstring>
#include <map>
#include <thread>

// What the library leaves to whoever implements it.
struct libusb_context
{
};
struct libusb_device
{
};
struct libusb_device_handle
{
};

namespace GenICam
{

namespace
{

constexpr unsigned char ControlEndpoint = 1;
constexpr unsigned char StreamEndpoint = 2;
constexpr unsigned char MiscellaneousClass = 0xEF;
constexpr unsigned char GuidPlace = 11; // in the camera's information about itself
constexpr unsigned char GuidText = 4;

std::mutex g_mutex;
std::shared_ptr<UsbCamera> g_camera;
std::map<libusb_hotplug_callback_handle, std::function<void()>> g_farewells;
libusb_hotplug_callback_handle g_lastFarewell = 0;
libusb_context g_context;
libusb_device g_device;
libusb_device_handle g_handle;

// Two interfaces, for control and for the stream, with one endpoint each.
struct Configuration : libusb_config_descriptor
{
    Configuration() : libusb_config_descriptor()
    {
        information[GuidPlace] = GuidText;
        descriptors[0].extra = information;
        descriptors[0].extra_length = sizeof(information);
        for (unsigned char i = 0; i < 2; ++i)
        {
            endpoints[i].bEndpointAddress = LIBUSB_ENDPOINT_IN | (i == 0 ? ControlEndpoint : StreamEndpoint);
            descriptors[i].bInterfaceNumber = i;
            descriptors[i].bNumEndpoints = 1;
            descriptors[i].bInterfaceClass = MiscellaneousClass;
            descriptors[i].bInterfaceSubClass = 5;
            descriptors[i].bInterfaceProtocol = i == 0 ? 0 : 2;
            descriptors[i].endpoint = &endpoints[i];
            interfaces[i] = {&descriptors[i], 1};
        }
        bNumInterfaces = 2;
        interface = interfaces;
    }

    unsigned char information[20] = {};
    libusb_endpoint_descriptor endpoints[2] = {};
    libusb_interface_descriptor descriptors[2] = {};
    libusb_interface interfaces[2] = {};
};

Configuration g_configuration;

} // namespace

void Plug(std::shared_ptr<UsbCamera> camera)
{
    const std::lock_guard lock(g_mutex);
    g_camera = std::move(camera);
}

std::shared_ptr<UsbCamera> Plugged()
{
    const std::lock_guard lock(g_mutex);
    return g_camera;
}

} // namespace GenICam

using namespace GenICam;

void libusb_exit(libusb_context*) {}
void libusb_free_device_list(libusb_device**, int) {}
void libusb_free_config_descriptor(libusb_config_descriptor*) {}
void libusb_close(libusb_device_handle*) {}

int libusb_init(libusb_context** context)
{
    *context = &g_context;
    return LIBUSB_SUCCESS;
}

ssize_t libusb_get_device_list(libusb_context*, libusb_device*** list)
{
    static libusb_device* devices[] = {&g_device, nullptr};
    *list = devices;
    return Plugged() ? 1 : 0;
}

int libusb_get_device_descriptor(libusb_device*, libusb_device_descriptor* descriptor)
{
    *descriptor = {};
    descriptor->bDeviceClass = MiscellaneousClass;
    descriptor->bDeviceSubClass = 2;
    descriptor->bDeviceProtocol = 1;
    descriptor->iManufacturer = 1;
    descriptor->iProduct = 2;
    descriptor->iSerialNumber = 3;
    return LIBUSB_SUCCESS;
}

int libusb_get_config_descriptor(libusb_device*, std::uint8_t, libusb_config_descriptor** configuration)
{
    *configuration = &g_configuration;
    return LIBUSB_SUCCESS;
}

int libusb_open(libusb_device*, libusb_device_handle** handle)
{
    *handle = &g_handle;
    return Plugged() ? LIBUSB_SUCCESS : LIBUSB_ERROR_NO_DEVICE;
}

libusb_device* libusb_get_device(libusb_device_handle*)
{
    return &g_device;
}

int libusb_get_string_descriptor_ascii(libusb_device_handle*, std::uint8_t index, unsigned char* data, int length)
{
    const std::shared_ptr<UsbCamera> camera = Plugged();
    if (!camera || index == 0 || index > GuidText)
    {
        return camera ? LIBUSB_ERROR_INVALID_PARAM : LIBUSB_ERROR_NO_DEVICE;
    }
    const std::string texts[] = {UsbManufacturer, UsbModel, camera->Behaviour().serialNumber, UsbGuid};
    const std::string text = texts[index - 1].substr(0, static_cast<std::size_t>(length) - 1);
    std::memcpy(data, text.c_str(), text.size() + 1);
    return static_cast<int>(text.size());
}

int libusb_set_auto_detach_kernel_driver(libusb_device_handle*, int)
{
    return LIBUSB_SUCCESS;
}

int libusb_claim_interface(libusb_device_handle*, int)
{
    const std::shared_ptr<UsbCamera> camera = Plugged();
    return !camera ? LIBUSB_ERROR_NO_DEVICE : camera->Behaviour().isBusy ? LIBUSB_ERROR_BUSY : LIBUSB_SUCCESS;
}

int libusb_release_interface(libusb_device_handle*, int)
{
    return LIBUSB_SUCCESS;
}

// By these two Aravis resets the stream's endpoint.
int libusb_control_transfer(libusb_device_handle*, std::uint8_t, std::uint8_t, std::uint16_t, std::uint16_t,
                            unsigned char*, std::uint16_t, unsigned int)
{
    return 0;
}

int libusb_clear_halt(libusb_device_handle*, unsigned char)
{
    return LIBUSB_SUCCESS;
}

int libusb_bulk_transfer(libusb_device_handle*, unsigned char endpoint, unsigned char* data, int length,
                         int* transferred, unsigned int)
{
    const std::shared_ptr<UsbCamera> camera = Plugged();
    if (!camera)
    {
        return LIBUSB_ERROR_NO_DEVICE;
    }
    *transferred = length;
    if (endpoint == ControlEndpoint)
    {
        camera->Command(Bytes(data, data + length));
        return LIBUSB_SUCCESS;
    }
    const auto room = static_cast<std::size_t>(length);
    const bool isControl = endpoint == (ControlEndpoint | LIBUSB_ENDPOINT_IN);
    const Bytes packet = isControl ? camera->Acknowledge() : camera->StreamData(room);
    *transferred = static_cast<int>(std::min(room, packet.size()));
    std::copy_n(packet.begin(), *transferred, data);
    return packet.empty() ? LIBUSB_ERROR_TIMEOUT : packet.size() > room ? LIBUSB_ERROR_OVERFLOW : LIBUSB_SUCCESS;
}

int libusb_hotplug_register_callback(libusb_context* context, int, int, int, int, int,
                                     libusb_hotplug_callback_fn callback, void* user,
                                     libusb_hotplug_callback_handle* handle)
{
    const std::lock_guard lock(g_mutex);
    *handle = ++g_lastFarewell;
    g_farewells[*handle] = [=] { callback(context, &g_device, LIBUSB_HOTPLUG_EVENT_DEVICE_LEFT, user); };
    return LIBUSB_SUCCESS;
}

void libusb_hotplug_deregister_callback(libusb_context*, libusb_hotplug_callback_handle handle)
{
    const std::lock_guard lock(g_mutex);
    g_farewells.erase(handle);
}

int libusb_handle_events_timeout(libusb_context*, timeval*)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    decltype(g_farewells) farewells;
    if (!Plugged())
    {
        const std::lock_guard lock(g_mutex);
        farewells.swap(g_farewells);
    }
    for (const auto& farewell : farewells)
    {
        farewell.second();
    }
    return LIBUSB_SUCCESS;
}
