// A USB3 Vision camera in software: its packets and registers, and the functions of libusb by which Aravis reaches it.
// A program's own functions come before those of the library.
#include "UsbCamera.h"

#include <libusb.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// clang-format off
struct libusb_context {} g_context;
struct libusb_device {} g_device;
struct libusb_device_handle {} g_handle;
// clang-format on

namespace GenICam
{

namespace
{

using Bytes = std::vector<unsigned char>;
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;
using U64 = std::uint64_t;

constexpr U64 ModelName = 0x0044;
constexpr U64 ResponseTime = 0x01CC; // then where the manifest table and the registers for USB begin
constexpr U64 UsbRegisters = 0x1000;
constexpr U64 LongestCommand = UsbRegisters + 0x14; // then acknowledge, number of streams, their registers
constexpr U64 StreamRegisters = 0x2000;
constexpr U64 StreamControl = StreamRegisters + 0x04;
constexpr U64 PayloadSize = StreamRegisters + 0x08; // then the sizes of leader and trailer
constexpr U64 ManifestTable = 0x3000;
constexpr U64 Description = 0x10000;
constexpr U64 MemorySize = 0x20000;
constexpr U32 CommandMagic = 0x43563355; // "U3VC"
constexpr U32 LeaderMagic = 0x4C563355;  // "U3VL"
constexpr U32 TrailerMagic = 0x54563355; // "U3VT"
constexpr U16 ReadMemory = 0x0800;       // to write is 0x0802; an acknowledge has the next number
constexpr U64 HeaderSize = 12;           // then an address
constexpr U64 CommandSize = 20;          // then data, or 2 reserved bytes and a count
constexpr U16 LeaderSize = 52;
constexpr U16 TrailerSize = 32;
constexpr U16 ImagePayload = 1;
constexpr U32 Mono8 = 0x01080001;
constexpr U32 Height = 480;
enum Status : U16
{
    Success,
    InvalidParameter = 0x8002,
    InvalidAddress = 0x8003,
    InvalidHeader = 0x800E
};

template <typename... Numbers> Bytes LittleEndian(Numbers... numbers)
{
    Bytes bytes;
    const auto append = [&](U64 number, std::size_t size)
    { std::generate_n(std::back_inserter(bytes), size, [&] { return std::exchange(number, number >> 8U) & 0xFFU; }); };
    (append(numbers, sizeof(numbers)), ...);
    return bytes;
}

U64 Number(const Bytes& bytes, U64 at, U64 size)
{
    return size == 0 ? 0 : bytes.at(at) | Number(bytes, at + 1, size - 1) << 8U;
}

struct Camera
{
    explicit Camera(const UsbBehaviour& given) : behaviour(given)
    {
        std::ifstream file(USB_DESCRIPTION, std::ios::binary);
        const Bytes text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        const U32 runs = behaviour.isLeftAcquiring ? 1 : 0;
        Store(ModelName, {'U', 's', 'b', 'B', 'e', 'n', 'c', 'h'});
        Store(ResponseTime, LittleEndian(U32{50}, ManifestTable, UsbRegisters));
        Store(LongestCommand,
              LittleEndian(behaviour.longestCommand, behaviour.longestAcknowledge, U32{1}, StreamRegisters));
        Store(StreamControl, LittleEndian(runs, U64{0}, U32{LeaderSize}, U32{TrailerSize}));
        Store(ManifestTable, LittleEndian(U64{1}, U32{0}, U32{0x01010000}, Description, U64{text.size()}));
        Store(Description, text);
        Store(WidthRegister, LittleEndian(behaviour.width, Height, runs, runs));
    }

    U64 Line() const { return Number(memory, WidthRegister, 4) + behaviour.linePadding; }

    void Store(U64 address, const Bytes& data)
    {
        std::copy(data.begin(), data.end(), &memory.at(address));
        const Bytes payload = LittleEndian(Line() * Height);
        std::copy(payload.begin(), payload.end(), &memory[PayloadSize]);
    }

    void Command(const Bytes& packet)
    {
        const auto command = static_cast<U16>(Number(packet, 6, 2));
        const U64 address = Number(packet, HeaderSize, 8);
        const U64 count = command == ReadMemory ? Number(packet, CommandSize + 2, 2) : packet.size() - CommandSize;
        const U64 expected = command == ReadMemory ? HeaderSize + count : 0;
        const bool isWhole = Number(packet, 0, 4) == CommandMagic && packet.size() == HeaderSize + Number(packet, 8, 2);
        const bool isShort = packet.size() <= behaviour.longestCommand && expected <= behaviour.longestAcknowledge;
        const bool isThere = address <= MemorySize && count <= MemorySize - address;
        const Status status = !isWhole   ? InvalidHeader
                              : !isShort ? InvalidParameter
                              : isThere  ? Success
                                         : InvalidAddress;
        Bytes answer = LittleEndian(U16{0}, static_cast<U16>(count));
        if (status == Success && command == ReadMemory)
        {
            answer.assign(&memory[address], &memory[address] + count);
        }
        else if (status == Success)
        {
            Store(address, Bytes(packet.begin() + CommandSize, packet.end()));
        }
        acknowledge = LittleEndian(CommandMagic, status, static_cast<U16>(command + 1), static_cast<U16>(answer.size()),
                                   static_cast<U16>(Number(packet, 10, 2)));
        acknowledge.insert(acknowledge.end(), answer.begin(), answer.end());
    }

    // A leader, an image, a trailer, and so on; nothing while the camera stands still.
    Bytes NextOfStream()
    {
        if (piece == 0 && Number(memory, StreamControl, 4) * Number(memory, AcquisitionRegister, 4) == 0)
        {
            return {};
        }
        piece = (piece + 1) % 3;
        Bytes image(piece == 2 ? Line() * Height - frame % 2 * behaviour.missing : 0);
        for (std::size_t i = 0; i < image.size(); ++i)
        {
            image[i] = UsbPixel(frame, i % Line(), i / Line());
        }
        // What is 0 is reserved, the time, the place on the sensor, or a status.
        return piece == 2   ? image
               : piece == 1 ? LittleEndian(LeaderMagic, U16{0}, LeaderSize, frame, U16{0}, ImagePayload, U64{0}, Mono8,
                                           static_cast<U32>(Line()) - behaviour.linePadding, Height, U64{0},
                                           behaviour.linePadding, U16{0})
                            : LittleEndian(TrailerMagic, U16{0}, TrailerSize, frame++, U32{0}, Line() * Height, Height);
    }

    UsbBehaviour behaviour;
    Bytes memory = Bytes(MemorySize);
    Bytes acknowledge; // empty when it has been fetched
    int piece = 0;     // of the frame
    U64 frame = 0;
};

std::mutex g_mutex;
std::optional<Camera> g_camera;

constexpr unsigned char ControlEndpoint = 1;
constexpr unsigned char StreamEndpoint = 2;
constexpr const char* Texts[] = {"", "Test", "UsbBench", "",
                                 "0123456789AB"}; // maker, model, serial number, unique number
libusb_device_descriptor g_descriptor{18, LIBUSB_DT_DEVICE, 0x0320, 0xEF, 2, 1, 9, 0, 0, 0, 1, 2, 3, 1};
const Bytes g_information{20, 0x24, 1, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0};
const libusb_endpoint_descriptor g_endpoints[] = {
    {7, LIBUSB_DT_ENDPOINT, LIBUSB_ENDPOINT_IN | ControlEndpoint, 2, 1024, 0, 0, 0, nullptr, 0},
    {7, LIBUSB_DT_ENDPOINT, LIBUSB_ENDPOINT_IN | StreamEndpoint, 2, 1024, 0, 0, 0, nullptr, 0}};
const libusb_interface_descriptor g_descriptors[] = {
    {9, LIBUSB_DT_INTERFACE, 0, 0, 1, 0xEF, 5, 0, 0, &g_endpoints[0], g_information.data(), 20},
    {9, LIBUSB_DT_INTERFACE, 1, 0, 1, 0xEF, 5, 2, 0, &g_endpoints[1], nullptr, 0}};
const libusb_interface g_interfaces[] = {{&g_descriptors[0], 1}, {&g_descriptors[1], 1}};
libusb_config_descriptor g_configuration{9, LIBUSB_DT_CONFIG, 0, 2, 1, 0, 0x80, 0, g_interfaces, nullptr, 0};

} // namespace

void Plug(const std::optional<UsbBehaviour>& camera)
{
    const std::lock_guard lock(g_mutex);
    g_camera = camera ? std::make_optional<Camera>(*camera) : std::nullopt;
}

unsigned char UsbPixel(std::uint64_t frame, std::uint64_t x, std::uint64_t y)
{
    return static_cast<unsigned char>(frame + x + 3 * y);
}

} // namespace GenICam

using namespace GenICam;

// clang-format off
int libusb_init(libusb_context** context) { *context = &g_context; return 0; }
void libusb_exit(libusb_context*) {}
void libusb_free_device_list(libusb_device**, int) {}
int libusb_get_device_descriptor(libusb_device*, libusb_device_descriptor* result) { *result = g_descriptor; return 0; }
int libusb_get_config_descriptor(libusb_device*, U8, libusb_config_descriptor** result) { *result = &g_configuration; return 0; }
void libusb_free_config_descriptor(libusb_config_descriptor*) {}
int libusb_open(libusb_device*, libusb_device_handle** handle) { *handle = &g_handle; return 0; }
void libusb_close(libusb_device_handle*) {}
int libusb_set_auto_detach_kernel_driver(libusb_device_handle*, int) { return 0; }
int libusb_release_interface(libusb_device_handle*, int) { return 0; }
int libusb_clear_halt(libusb_device_handle*, unsigned char) { return 0; }
int libusb_control_transfer(libusb_device_handle*, U8, U8, U16, U16, unsigned char*, U16, unsigned) { return 0; }
int libusb_hotplug_register_callback(libusb_context*, int, int, int, int, int, libusb_hotplug_callback_fn, void*, int*) { return 0; }
void libusb_hotplug_deregister_callback(libusb_context*, int) {}
// clang-format on

int libusb_handle_events_timeout(libusb_context*, timeval*)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return 0;
}

ssize_t libusb_get_device_list(libusb_context*, libusb_device*** list)
{
    static libusb_device* devices[] = {&g_device, nullptr};
    *list = devices;
    const std::lock_guard lock(g_mutex);
    return g_camera ? 1 : 0;
}

int libusb_get_string_descriptor_ascii(libusb_device_handle*, U8 index, unsigned char* data, int length)
{
    const std::string text = std::string(Texts[index]).substr(0, static_cast<std::size_t>(length) - 1);
    std::copy_n(text.c_str(), text.size() + 1, data);
    return static_cast<int>(text.size());
}

int libusb_claim_interface(libusb_device_handle*, int)
{
    const std::lock_guard lock(g_mutex);
    return g_camera && g_camera->behaviour.isBusy ? LIBUSB_ERROR_BUSY : 0;
}

int libusb_bulk_transfer(libusb_device_handle*, unsigned char endpoint, unsigned char* data, int length, int* done,
                         unsigned)
{
    const bool isStream = endpoint == (LIBUSB_ENDPOINT_IN | StreamEndpoint);
    std::this_thread::sleep_for(std::chrono::milliseconds(isStream ? 2 : 0));
    const std::lock_guard lock(g_mutex);
    if (!g_camera)
    {
        return LIBUSB_ERROR_NO_DEVICE;
    }
    *done = length;
    if (endpoint == ControlEndpoint)
    {
        g_camera->Command(Bytes(data, data + length));
        return 0;
    }
    const Bytes packet = isStream ? g_camera->NextOfStream() : std::exchange(g_camera->acknowledge, {});
    *done = std::min(length, static_cast<int>(packet.size()));
    std::copy_n(packet.begin(), *done, data);
    return packet.empty()                                  ? LIBUSB_ERROR_TIMEOUT
           : packet.size() > static_cast<unsigned>(length) ? LIBUSB_ERROR_OVERFLOW
                                                           : 0;
}
