// A USB3 Vision camera in software: its packets, its registers, and the functions of libusb by which Aravis reaches it.
#include "UsbCamera.h"

#include <libusb.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <thread>

namespace
{

using namespace GenICam;
using namespace std::chrono_literals;
using ProviderTest::Bytes;
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;
using U64 = std::uint64_t;

constexpr U64 TableAddresses = 0x01D0; // of the manifest table and the registers for USB
constexpr U64 UsbRegisters = 0x1000;
constexpr U64 LongestCommand = UsbRegisters + 0x14; // then acknowledge, number of streams, their registers
constexpr U64 AcquisitionRegister = WidthRegister + 8;
constexpr U64 StreamRegisters = 0x2000;
constexpr U64 StreamControl = StreamRegisters + 0x04;
constexpr U64 PayloadSize = StreamRegisters + 0x08; // then the sizes of leader and trailer
constexpr U64 ManifestTable = 0x3000;
constexpr U64 Description = 0x10000;
constexpr U32 CommandMagic = 0x43563355; // "U3VC"
constexpr U32 LeaderMagic = 0x4C563355;  // "U3VL"
constexpr U32 TrailerMagic = 0x54563355; // "U3VT"
constexpr U64 ReadMemory = 0x0800;       // to write is 0x0802; an acknowledge has the next number
constexpr U64 HeaderSize = 12;           // then an address
constexpr U64 CommandSize = 20;          // then data, or 2 reserved bytes and a count
constexpr U16 LeaderSize = 52;
constexpr U16 TrailerSize = 32;
constexpr U16 ImagePayload = 1;
constexpr U32 Mono8 = 0x01080001;
constexpr U32 Height = 480;
constexpr U16 Success = 0;
constexpr U16 InvalidParameter = 0x8002;
constexpr U16 InvalidAddress = 0x8003;

template <typename... Numbers> Bytes LittleEndian(Numbers... numbers)
{
    Bytes bytes;
    (std::generate_n(std::back_inserter(bytes), sizeof(numbers),
                     [rest = U64{numbers}]() mutable { return std::exchange(rest, rest >> 8U) & 0xFFU; }),
     ...);
    return bytes;
}

U64 Number(const Bytes& bytes, U64 at, U64 size)
{
    return size == 0 ? 0 : bytes.at(at) | Number(bytes, at + 1, size - 1) << 8U;
}

enum class Piece
{
    Leader,
    Image,
    Trailer
};

struct Camera
{
    explicit Camera(const UsbBehaviour& given) : behaviour(given)
    {
        std::ifstream file(USB_DESCRIPTION, std::ios::binary);
        const Bytes text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        Write(TableAddresses, LittleEndian(ManifestTable, UsbRegisters));
        Write(LongestCommand,
              LittleEndian(behaviour.longestCommand, behaviour.longestAcknowledge, U32{1}, StreamRegisters));
        Write(StreamControl, LittleEndian(U32{0}, U64{0}, U32{LeaderSize}, U32{TrailerSize}));
        Write(ManifestTable, LittleEndian(U64{1}, U32{0}, U32{0x01010000}, Description, U64{text.size()}));
        Write(Description, text);
        Write(FreeMemory, Bytes(Description - FreeMemory, MemoryFill));
        Write(WidthRegister, LittleEndian(behaviour.width, Height, U64{0}));
    }

    U32 Width() const { return static_cast<U32>(Number(memory, WidthRegister, 4)); }
    U64 Line() const { return U64{Width()} + behaviour.linePadding; }

    // Gives what the camera answers.
    Bytes Write(U64 address, const Bytes& data)
    {
        std::copy(data.begin(), data.end(), memory.data() + address);
        const Bytes payload = LittleEndian(Line() * Height);
        std::copy(payload.begin(), payload.end(), memory.data() + PayloadSize);
        return LittleEndian(U16{0}, static_cast<U16>(data.size()));
    }

    void Execute(const Bytes& packet)
    {
        const U64 command = Number(packet, 6, 2);
        const U64 address = Number(packet, HeaderSize, 8);
        const bool isRead = command == ReadMemory;
        const U64 count = isRead ? Number(packet, CommandSize + 2, 2) : packet.size() - CommandSize;
        const bool isShort = packet.size() <= behaviour.longestCommand &&
                             (!isRead || HeaderSize + count <= behaviour.longestAcknowledge);
        const bool isThere = address <= memory.size() && count <= memory.size() - address;
        const U16 status = !isShort ? InvalidParameter : !isThere ? InvalidAddress : Success;
        Bytes answer;
        if (status == Success)
        {
            const unsigned char* const place = memory.data() + address;
            answer = isRead ? Bytes(place, place + count)
                            : Write(address, Bytes(packet.begin() + CommandSize, packet.end()));
        }
        acknowledge = LittleEndian(CommandMagic, status, static_cast<U16>(command + 1), static_cast<U16>(answer.size()),
                                   static_cast<U16>(Number(packet, 10, 2)));
        acknowledge.insert(acknowledge.end(), answer.begin(), answer.end());
    }

    // A leader, an image, a trailer, and so on; nothing while it stands still. What is 0 is reserved or does not
    // matter.
    Bytes NextOfStream()
    {
        const U64 size = Line() * Height;
        switch (piece)
        {
        case Piece::Leader:
            if (Number(memory, StreamControl, 4) == 0 || Number(memory, AcquisitionRegister, 4) == 0)
            {
                return {};
            }
            piece = Piece::Image;
            return LittleEndian(LeaderMagic, U16{0}, LeaderSize, frame, U16{0}, ImagePayload, U64{0}, Mono8, Width(),
                                Height, U64{0}, behaviour.linePadding, U16{0});
        case Piece::Image:
            piece = Piece::Trailer;
            return UsbImage(frame, size - frame % 2 * behaviour.missing, Line());
        case Piece::Trailer:
            piece = Piece::Leader;
            return LittleEndian(TrailerMagic, U16{0}, TrailerSize, frame++, U32{0}, size, Height);
        }
        return {};
    }

    UsbBehaviour behaviour;
    Bytes memory = Bytes(0x20000);
    Bytes acknowledge;           // empty when it has been fetched
    Piece piece = Piece::Leader; // the next one
    U64 frame = 0;
};

std::mutex g_mutex;
std::optional<Camera> g_camera;

std::optional<UsbBehaviour> Plugged()
{
    const std::lock_guard lock(g_mutex);
    return g_camera ? std::make_optional(g_camera->behaviour) : std::nullopt;
}

constexpr unsigned char ControlEndpoint = 1;
constexpr unsigned char ControlAnswers = LIBUSB_ENDPOINT_IN | ControlEndpoint;
constexpr unsigned char StreamEndpoint = LIBUSB_ENDPOINT_IN | 2;
const std::string Texts[] = {"", "Test", "UsbBench", "", "0123456789AB"};                // the serial number is empty
const Bytes Information{20, 0x24, 1, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0}; // with the last text's number
const libusb_endpoint_descriptor Endpoints[] = {{7, LIBUSB_DT_ENDPOINT, ControlAnswers, 2, 1024, 0, 0, 0, nullptr, 0},
                                                {7, LIBUSB_DT_ENDPOINT, StreamEndpoint, 2, 1024, 0, 0, 0, nullptr, 0}};
const libusb_interface_descriptor Descriptors[] = {
    {9, LIBUSB_DT_INTERFACE, 0, 0, 1, 0xEF, 5, 0, 0, &Endpoints[0], Information.data(), 20},
    {9, LIBUSB_DT_INTERFACE, 1, 0, 1, 0xEF, 5, 2, 0, &Endpoints[1], nullptr, 0}};
const libusb_interface Interfaces[] = {{&Descriptors[0], 1}, {&Descriptors[1], 1}};
libusb_config_descriptor g_setup{9, LIBUSB_DT_CONFIG, 0, 2, 1, 0, 0x80, 0, Interfaces, nullptr, 0};
constexpr libusb_device_descriptor Device{18, LIBUSB_DT_DEVICE, 0x0320, 0xEF, 2, 1, 9, 0, 0, 0, 1, 2, 3, 1};

} // namespace

void GenICam::Plug(const std::optional<UsbBehaviour>& camera)
{
    const std::lock_guard lock(g_mutex);
    g_camera = camera ? std::make_optional<Camera>(*camera) : std::nullopt;
}

ProviderTest::Bytes GenICam::UsbImage(std::uint64_t frame, std::uint64_t size, std::uint64_t line)
{
    Bytes image(size);
    for (U64 i = 0; i < size; ++i)
    {
        image[i] = static_cast<unsigned char>(frame + i % line + i / line * 3);
    }
    return image;
}

// The bus, on which there is one device at most.
struct libusb_context
{
} g_context;
struct libusb_device
{
} g_device;
struct libusb_device_handle
{
} g_handle;
libusb_device* g_devices[] = {&g_device, nullptr};

int libusb_init(libusb_context** context)
{
    *context = &g_context;
    return 0;
}
void libusb_exit(libusb_context*) {}
int libusb_handle_events_timeout(libusb_context*, timeval*)
{
    std::this_thread::sleep_for(10ms);
    return 0;
}
int libusb_hotplug_register_callback(libusb_context*, int, int, int, int, int, libusb_hotplug_callback_fn, void*, int*)
{
    return 0;
}
void libusb_hotplug_deregister_callback(libusb_context*, int) {}
ssize_t libusb_get_device_list(libusb_context*, libusb_device*** list)
{
    *list = g_devices;
    return Plugged() ? 1 : 0;
}
void libusb_free_device_list(libusb_device**, int) {}
int libusb_get_device_descriptor(libusb_device*, libusb_device_descriptor* result)
{
    *result = Device;
    return 0;
}
int libusb_get_config_descriptor(libusb_device*, U8, libusb_config_descriptor** to)
{
    *to = &g_setup;
    return 0;
}
void libusb_free_config_descriptor(libusb_config_descriptor*) {}
int libusb_open(libusb_device*, libusb_device_handle** handle)
{
    *handle = &g_handle;
    return 0;
}
void libusb_close(libusb_device_handle*) {}
int libusb_set_auto_detach_kernel_driver(libusb_device_handle*, int)
{
    return 0;
}
int libusb_claim_interface(libusb_device_handle*, int)
{
    return Plugged().value_or(UsbBehaviour()).isBusy ? LIBUSB_ERROR_BUSY : 0;
}
int libusb_release_interface(libusb_device_handle*, int)
{
    return 0;
}
int libusb_clear_halt(libusb_device_handle*, unsigned char)
{
    return 0;
}
int libusb_control_transfer(libusb_device_handle*, U8, U8, U16, U16, unsigned char*, U16, unsigned)
{
    return 0;
}

int libusb_get_string_descriptor_ascii(libusb_device_handle*, U8 index, unsigned char* data, int length)
{
    const std::string text = Texts[index].substr(0, static_cast<std::size_t>(length) - 1);
    std::copy_n(text.c_str(), text.size() + 1, data);
    return static_cast<int>(text.size());
}

int libusb_bulk_transfer(libusb_device_handle*, unsigned char endpoint, unsigned char* data, int length, int* done,
                         unsigned)
{
    std::this_thread::sleep_for(endpoint == StreamEndpoint ? 2ms : 0ms);
    const std::lock_guard lock(g_mutex);
    if (g_camera && endpoint == ControlEndpoint)
    {
        g_camera->Execute(Bytes(data, data + length));
        *done = length;
        return 0;
    }
    if (!g_camera)
    {
        *done = 0;
        return LIBUSB_ERROR_NO_DEVICE;
    }
    const Bytes packet =
        endpoint == StreamEndpoint ? g_camera->NextOfStream() : std::exchange(g_camera->acknowledge, {});
    *done = std::min(length, static_cast<int>(packet.size()));
    std::copy_n(packet.begin(), *done, data);
    if (packet.empty())
    {
        return LIBUSB_ERROR_TIMEOUT;
    }
    return packet.size() > static_cast<std::size_t>(length) ? LIBUSB_ERROR_OVERFLOW : 0;
}
