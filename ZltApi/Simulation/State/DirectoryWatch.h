// Waits for changes in a set of folders.
#pragma once

#include "State/FileDescriptor.h"

#include <chrono>
#include <filesystem>

namespace Simulation
{

// One thread waits; any thread may wake it.
class DirectoryWatch
{
public:
    DirectoryWatch();

    // Folders that cannot be watched are looked at ten times a second instead.
    void Add(const std::filesystem::path& folder);

    // Returns when something may have changed in a folder, when woken, or after the longest wait. Files whose names
    // start with a dot do not count.
    void Wait(std::chrono::milliseconds longest);
    void Wake();

private:
    bool ReadChanges();

    FileDescriptor m_changes;
    FileDescriptor m_wakeUp;
    bool m_polling = false;
};

} // namespace Simulation
