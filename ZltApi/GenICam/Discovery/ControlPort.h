// A GigE Vision camera's control port, asked without opening the camera.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace GenICam
{

enum class ControlState
{
    Free,
    Held,
    Unknown // no answer, or not there
};

// Speaks the GigE Vision control protocol just far enough to read what any program may read of a camera that another
// one controls. One thread at a time.
class ControlPort
{
public:
    // Sends nothing.
    explicit ControlPort(const std::string& address);
    ~ControlPort();
    ControlPort(const ControlPort&) = delete;
    ControlPort& operator=(const ControlPort&) = delete;

    bool IsOpen() const { return m_socket >= 0; }
    int Socket() const { return m_socket; }

    // Whether a program controls the camera now. Waits up to a third of a second for an answer.
    ControlState ReadControlState();

    // The name that the user has given to the camera; empty when it has none or does not answer.
    std::string ReadUserName();

private:
    using Bytes = std::vector<unsigned char>;

    struct Answer
    {
        std::uint16_t status = 0;
        Bytes payload;
    };

    std::optional<Answer> Ask(std::uint16_t command, const Bytes& payload);
    std::optional<Answer> Receive(std::uint16_t command);

    int m_socket = -1;
    std::uint16_t m_request = 0;
};

} // namespace GenICam
