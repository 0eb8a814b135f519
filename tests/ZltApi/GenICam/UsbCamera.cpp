// A USB3 Vision camera in software: its registers, the packets of its control channel and those of its stream.
#include "UsbCamera.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>
#include <utility>

namespace GenICam
{

namespace
{

// The protocol's registers: those of every device, at fixed addresses, and through them those of USB3 Vision, of the
// stream, and of the list of descriptions.
constexpr std::uint64_t ManufacturerName = 0x0004;
constexpr std::uint64_t ModelName = 0x0044;
constexpr std::uint64_t ResponseTime = 0x01CC;
constexpr std::uint64_t ManifestTableAddress = 0x01D0;
constexpr std::uint64_t Usb3VisionAddress = 0x01D8;
constexpr std::uint64_t Usb3Vision = 0x1000;
constexpr std::uint64_t LongestCommand = Usb3Vision + 0x14;
constexpr std::uint64_t LongestAcknowledge = Usb3Vision + 0x18;
constexpr std::uint64_t StreamAddress = Usb3Vision + 0x20;
constexpr std::uint64_t StreamInterface = 0x2000;
constexpr std::uint64_t StreamControl = StreamInterface + 0x04;
constexpr std::uint64_t PayloadSize = StreamInterface + 0x08;
constexpr std::uint64_t LeaderSizeRegister = StreamInterface + 0x10;
constexpr std::uint64_t TrailerSizeRegister = StreamInterface + 0x14;
constexpr std::uint64_t ManifestTable = 0x3000;
constexpr std::uint64_t Description = 0x10000;
constexpr std::size_t MemorySize = 0x20000;

constexpr std::uint64_t CommandMagic = 0x43563355; // "U3VC", and so on
constexpr std::uint64_t LeaderMagic = 0x4C563355;
constexpr std::uint64_t TrailerMagic = 0x54563355;
constexpr std::uint64_t ReadMemory = 0x0800; // an acknowledge has the next number
constexpr std::uint16_t StatusSuccess = 0;
constexpr std::uint16_t StatusInvalidParameter = 0x8002;
constexpr std::uint16_t StatusInvalidAddress = 0x8003;
constexpr std::uint16_t StatusInvalidHeader = 0x800E;
constexpr std::size_t HeaderSize = 12;     // bytes
constexpr std::size_t LengthlessSize = 20; // header and address
constexpr std::size_t LeaderSize = 52;
constexpr std::size_t TrailerSize = 32;
constexpr std::uint64_t ImagePayload = 1;
constexpr std::uint64_t Mono8 = 0x01080001;
constexpr std::uint32_t Height = 480;
constexpr std::chrono::milliseconds FramePause{5};

// Values and their sizes in bytes, one behind the other, in little-endian order.
Bytes Pack(std::initializer_list<std::pair<std::uint64_t, std::size_t>> fields)
{
    Bytes bytes;
    for (const auto& [value, size] : fields)
    {
        for (std::size_t i = 0; i < size; ++i)
        {
            bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
        }
    }
    return bytes;
}

std::uint64_t Unpack(const Bytes& bytes, std::size_t at, std::size_t size)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
    {
        value |= std::uint64_t{bytes.at(at + i)} << (8 * i);
    }
    return value;
}

Bytes Text(const std::string& text)
{
    return {text.begin(), text.end()};
}

} // namespace

UsbCamera::UsbCamera(UsbBehaviour behaviour) : m_behaviour(std::move(behaviour)), m_memory(MemorySize)
{
    std::ifstream file(m_behaviour.description, std::ios::binary);
    const Bytes description{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::uint64_t acquires = m_behaviour.isLeftAcquiring ? 1 : 0;
    Store(ManufacturerName, Text(UsbManufacturer));
    Store(ModelName, Text(UsbModel));
    Store(ResponseTime, Pack({{50, 4}})); // milliseconds
    Store(ManifestTableAddress, Pack({{ManifestTable, 8}}));
    Store(Usb3VisionAddress, Pack({{Usb3Vision, 8}}));
    Store(LongestCommand, Pack({{m_behaviour.longestCommand, 4}}));
    Store(LongestAcknowledge, Pack({{m_behaviour.longestAcknowledge, 4}}));
    Store(StreamAddress, Pack({{StreamInterface, 8}}));
    Store(LeaderSizeRegister, Pack({{LeaderSize, 4}}));
    Store(TrailerSizeRegister, Pack({{TrailerSize, 4}}));
    // One description, of schema 1.1, not compressed.
    Store(ManifestTable, Pack({{1, 8}, {0x01000000, 4}, {0x01010000, 4}, {Description, 8}, {description.size(), 8}}));
    Store(Description, description);
    Store(HeightRegister, Pack({{Height, 4}}));
    Store(AcquisitionRegister, Pack({{acquires, 4}}));
    Store(LockRegister, Pack({{acquires, 4}}));
    Store(StreamControl, Pack({{acquires, 4}}));
    Store(WidthRegister, Pack({{m_behaviour.width, 4}}));
}

unsigned char UsbCamera::Pixel(std::uint64_t frame, std::size_t x, std::size_t y)
{
    return static_cast<unsigned char>(frame + x + 3 * y);
}

std::uint64_t UsbCamera::Register(std::uint64_t address, std::size_t size) const
{
    return Unpack(m_memory, address, size);
}

void UsbCamera::Store(std::uint64_t address, const Bytes& data)
{
    if (address > m_memory.size() || data.size() > m_memory.size() - address)
    {
        throw std::out_of_range("behind the camera's memory");
    }
    std::copy(data.begin(), data.end(), m_memory.begin() + static_cast<std::ptrdiff_t>(address));
    if (address == StreamControl)
    {
        m_stream.clear();
        m_frame = 0;
    }
    if (address == WidthRegister)
    {
        const std::uint64_t line = Register(WidthRegister, 4) + m_behaviour.linePadding;
        Store(PayloadSize, Pack({{line * Register(HeightRegister, 4), 8}}));
    }
}

std::uint16_t UsbCamera::Execute(const Bytes& packet, bool isRead, Bytes& answer)
{
    if (packet.size() < LengthlessSize + (isRead ? 4 : 0) || Unpack(packet, 0, 4) != CommandMagic ||
        packet.size() != HeaderSize + Unpack(packet, 8, 2))
    {
        return StatusInvalidHeader;
    }
    const std::uint64_t address = Unpack(packet, HeaderSize, 8);
    const std::size_t count = isRead ? Unpack(packet, LengthlessSize + 2, 2) : packet.size() - LengthlessSize;
    if (packet.size() > m_behaviour.longestCommand || (isRead && HeaderSize + count > m_behaviour.longestAcknowledge))
    {
        return StatusInvalidParameter;
    }
    if (address > m_memory.size() || count > m_memory.size() - address)
    {
        return StatusInvalidAddress;
    }
    if (isRead)
    {
        const auto begin = m_memory.begin() + static_cast<std::ptrdiff_t>(address);
        answer.assign(begin, begin + static_cast<std::ptrdiff_t>(count));
        return StatusSuccess;
    }
    Store(address, Bytes(packet.begin() + LengthlessSize, packet.end()));
    answer = Pack({{0, 2}, {count, 2}});
    return StatusSuccess;
}

void UsbCamera::Command(const Bytes& packet)
{
    const std::lock_guard lock(m_mutex);
    const std::uint64_t command = Unpack(packet, 6, 2);
    Bytes answer;
    const std::uint16_t status = Execute(packet, command == ReadMemory, answer);
    m_acknowledge =
        Pack({{CommandMagic, 4}, {status, 2}, {command + 1, 2}, {answer.size(), 2}, {Unpack(packet, 10, 2), 2}});
    m_acknowledge.insert(m_acknowledge.end(), answer.begin(), answer.end());
}

Bytes UsbCamera::Acknowledge()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_acknowledge, {});
}

void UsbCamera::BeginFrame()
{
    const std::size_t width = Register(WidthRegister, 4);
    const std::size_t height = Register(HeightRegister, 4);
    Bytes image;
    image.reserve(Register(PayloadSize, 8));
    for (std::size_t y = 0; y < height; ++y)
    {
        for (std::size_t x = 0; x < width; ++x)
        {
            image.push_back(Pixel(m_frame, x, y));
        }
        image.resize(image.size() + m_behaviour.linePadding);
    }
    image.resize(image.size() - (m_frame % 2 == 0 ? 0 : m_behaviour.missing));
    // Here and there something reserved, the time, and where the image begins on the sensor.
    m_stream.push_back(Pack({{LeaderMagic, 4},
                             {0, 2},
                             {LeaderSize, 2},
                             {m_frame, 8},
                             {0, 2},
                             {ImagePayload, 2},
                             {0, 8},
                             {Mono8, 4},
                             {width, 4},
                             {height, 4},
                             {0, 4},
                             {0, 4},
                             {m_behaviour.linePadding, 2},
                             {0, 2}}));
    const std::size_t size = image.size();
    m_stream.push_back(std::move(image));
    m_stream.push_back(
        Pack({{TrailerMagic, 4}, {0, 2}, {TrailerSize, 2}, {m_frame, 8}, {0, 4}, {size, 8}, {height, 4}}));
    ++m_frame;
}

Bytes UsbCamera::StreamData(std::size_t length)
{
    std::unique_lock lock(m_mutex);
    if (m_stream.empty())
    {
        lock.unlock();
        std::this_thread::sleep_for(FramePause);
        lock.lock();
        if (Register(StreamControl, 4) == 0 || Register(AcquisitionRegister, 4) == 0)
        {
            return {};
        }
        BeginFrame();
    }
    Bytes& piece = m_stream.front();
    const auto end = piece.begin() + static_cast<std::ptrdiff_t>(std::min(length, piece.size()));
    Bytes data(piece.begin(), end);
    piece.erase(piece.begin(), end);
    if (piece.empty())
    {
        m_stream.pop_front();
    }
    return data;
}

} // namespace GenICam
