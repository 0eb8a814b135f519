// A lock on a file that only one holder has at a time, across processes and within one.
#pragma once

#include "State/FileDescriptor.h"

#include <filesystem>

namespace Simulation
{

// Ends with the object or with its process. Each object is a holder of its own, also within one process.
class FileLock
{
public:
    explicit FileLock(std::filesystem::path path) : m_path(std::move(path)) {}

    // True when this object holds the lock from now on. Leaves the process number in the file, for people who look.
    bool TryAcquire();
    // The same, but waits until the other holder is done. False only when the file cannot be opened.
    bool Acquire();
    void Release() { m_descriptor.Reset(); }
    bool IsHeld() const { return static_cast<bool>(m_descriptor); }

    // Whether anybody holds the lock on that file at this moment.
    static bool IsTaken(const std::filesystem::path& path);

private:
    bool Lock(int command);

    const std::filesystem::path m_path;
    FileDescriptor m_descriptor;
};

} // namespace Simulation
