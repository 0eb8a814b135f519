// A GigE Vision camera's control port, asked without opening the camera.
#include "Discovery/ControlPort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

namespace GenICam
{

namespace
{

using Clock = std::chrono::steady_clock;

// The protocol's own numbers, all big-endian on the wire.
constexpr std::uint16_t ControlProtocolPort = 3956;
constexpr unsigned char CommandKey = 0x42;
constexpr unsigned char AnswerWanted = 0x01;
constexpr std::uint16_t ReadRegister = 0x0080; // an answer's code is one higher
constexpr std::uint16_t ReadMemory = 0x0084;
constexpr std::uint16_t StillWorking = 0x0089;
constexpr std::uint16_t AccessDenied = 0x8006;
constexpr std::size_t HeaderSize = 8;

constexpr std::uint32_t UserNameAddress = 0x00E8;
constexpr std::uint32_t UserNameSize = 16;
constexpr std::uint32_t ControlPrivilegeAddress = 0x0A00;
constexpr std::uint32_t HeldBits = 0x3; // exclusive access, control access

constexpr int Tries = 3;
constexpr std::chrono::milliseconds AnswerTime{100};

void Append16(std::vector<unsigned char>& bytes, std::uint32_t value)
{
    bytes.push_back(static_cast<unsigned char>(value >> 8));
    bytes.push_back(static_cast<unsigned char>(value));
}

void Append32(std::vector<unsigned char>& bytes, std::uint32_t value)
{
    Append16(bytes, value >> 16);
    Append16(bytes, value & 0xFFFF);
}

std::uint16_t Word(const unsigned char* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

} // namespace

ControlPort::ControlPort(const std::string& address)
{
    sockaddr_in camera{};
    camera.sin_family = AF_INET;
    camera.sin_port = htons(ControlProtocolPort);
    if (inet_pton(AF_INET, address.c_str(), &camera.sin_addr) != 1)
    {
        return;
    }
    m_socket = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (m_socket >= 0 && connect(m_socket, reinterpret_cast<const sockaddr*>(&camera), sizeof(camera)) != 0)
    {
        close(m_socket);
        m_socket = -1;
    }
}

ControlPort::~ControlPort()
{
    if (m_socket >= 0)
    {
        close(m_socket);
    }
}

ControlState ControlPort::ReadControlState()
{
    Bytes payload;
    Append32(payload, ControlPrivilegeAddress);
    const std::optional<Answer> answer = Ask(ReadRegister, payload);
    if (answer && answer->status == AccessDenied)
    {
        return ControlState::Held; // the holder wants nobody even to read
    }
    if (!answer || answer->status != 0 || answer->payload.size() < 4)
    {
        return ControlState::Unknown;
    }
    return (answer->payload[3] & HeldBits) != 0 ? ControlState::Held : ControlState::Free;
}

std::string ControlPort::ReadUserName()
{
    Bytes payload;
    Append32(payload, UserNameAddress);
    Append32(payload, UserNameSize);
    const std::optional<Answer> answer = Ask(ReadMemory, payload);
    if (!answer || answer->status != 0 || answer->payload.size() < 4 + UserNameSize)
    {
        return {};
    }
    const auto begin = answer->payload.begin() + 4; // behind the address
    return {begin, std::find(begin, begin + UserNameSize, '\0')};
}

std::optional<ControlPort::Answer> ControlPort::Ask(std::uint16_t command, const Bytes& payload)
{
    if (!IsOpen())
    {
        return std::nullopt;
    }
    m_request = m_request == 0xFFFF ? std::uint16_t{1} : static_cast<std::uint16_t>(m_request + 1); // never 0
    Bytes packet = {CommandKey, AnswerWanted};
    Append16(packet, command);
    Append16(packet, static_cast<std::uint32_t>(payload.size()));
    Append16(packet, m_request);
    packet.insert(packet.end(), payload.begin(), payload.end());
    for (int i = 0; i < Tries; ++i)
    {
        if (send(m_socket, packet.data(), packet.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(packet.size()))
        {
            return std::nullopt;
        }
        if (std::optional<Answer> answer = Receive(static_cast<std::uint16_t>(command + 1)))
        {
            return answer;
        }
    }
    return std::nullopt;
}

std::optional<ControlPort::Answer> ControlPort::Receive(std::uint16_t command)
{
    Bytes packet(2048);
    const auto end = Clock::now() + AnswerTime;
    for (;;)
    {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        pollfd wait{m_socket, POLLIN, 0};
        if (left.count() <= 0 || poll(&wait, 1, static_cast<int>(left.count())) <= 0)
        {
            return std::nullopt;
        }
        const ssize_t received = recv(m_socket, packet.data(), packet.size(), 0);
        if (received < 0)
        {
            return std::nullopt; // nobody listens at that address
        }
        const auto size = static_cast<std::size_t>(received);
        // Late answers to earlier questions are passed over, and so is the news that the camera needs longer.
        if (size < HeaderSize || Word(&packet[2]) == StillWorking || Word(&packet[2]) != command ||
            Word(&packet[6]) != m_request)
        {
            continue;
        }
        const std::size_t length = std::min<std::size_t>(Word(&packet[4]), size - HeaderSize);
        const auto payload = packet.begin() + HeaderSize;
        return Answer{Word(packet.data()), Bytes(payload, payload + static_cast<std::ptrdiff_t>(length))};
    }
}

} // namespace GenICam
