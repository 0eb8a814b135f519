// Ownership of a POSIX file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace Simulation
{

class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~FileDescriptor() { Reset(); }
    FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        if (this != &other)
        {
            Reset();
            m_descriptor = std::exchange(other.m_descriptor, -1);
        }
        return *this;
    }

    int Get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }
    void Reset()
    {
        if (m_descriptor >= 0)
        {
            ::close(std::exchange(m_descriptor, -1));
        }
    }

private:
    int m_descriptor = -1;
};

} // namespace Simulation
