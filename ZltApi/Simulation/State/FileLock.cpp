// Locking with open file description locks, which two holders in one process do not share.
#include "State/FileLock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace Simulation
{

namespace
{

struct flock WholeFile()
{
    struct flock region = {};
    region.l_type = F_WRLCK;
    region.l_whence = SEEK_SET;
    return region;
}

} // namespace

bool FileLock::TryAcquire()
{
    return Lock(F_OFD_SETLK);
}

bool FileLock::Acquire()
{
    return Lock(F_OFD_SETLKW);
}

bool FileLock::Lock(int command)
{
    if (IsHeld())
    {
        return false;
    }
    std::error_code ignored;
    std::filesystem::create_directories(m_path.parent_path(), ignored);
    FileDescriptor descriptor(::open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    struct flock region = WholeFile();
    int result = -1;
    do
    {
        result = descriptor ? ::fcntl(descriptor.Get(), command, &region) : -1;
    } while (result != 0 && descriptor && errno == EINTR);
    if (result != 0)
    {
        return false;
    }
    // The write is what tells a watching process that the lock has changed hands.
    const std::string holder = std::to_string(::getpid()) + "\n";
    if (::ftruncate(descriptor.Get(), 0) != 0 || ::write(descriptor.Get(), holder.data(), holder.size()) < 0)
    {
        return false;
    }
    m_descriptor = std::move(descriptor);
    return true;
}

bool FileLock::IsTaken(const std::filesystem::path& path)
{
    // Opened for reading only, so that the closing is not taken for the end of a lock by those who watch.
    const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct flock region = WholeFile();
    return descriptor && ::fcntl(descriptor.Get(), F_OFD_GETLK, &region) == 0 && region.l_type != F_UNLCK;
}

} // namespace Simulation
