// Reading and atomic replacing of small files.
#include "State/StateFile.h"

#include "State/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace Simulation
{

namespace
{

[[noreturn]] void Fail(const std::filesystem::path& path)
{
    throw std::runtime_error("The file " + path.string() +
                             " cannot be written: " + std::error_code(errno, std::generic_category()).message() + ".");
}

bool WriteAll(int descriptor, const unsigned char* data, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t written = ::write(descriptor, data, size);
        if (written < 0 && errno != EINTR)
        {
            return false;
        }
        if (written > 0)
        {
            data += written;
            size -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

// Makes a rename in that folder permanent.
void SyncFolder(const std::filesystem::path& folder)
{
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor)
    {
        ::fsync(descriptor.Get());
    }
}

// A name that no other writer uses at the same time; the leading dot keeps it out of the watched names.
std::filesystem::path TemporaryName(const std::filesystem::path& path)
{
    static std::atomic<unsigned> counter{0};
    return path.parent_path() /
           ("." + path.filename().string() + "." + std::to_string(::getpid()) + "." + std::to_string(counter++));
}

} // namespace

std::optional<FileBytes> ReadStateFile(const std::filesystem::path& path, std::uint64_t limit)
{
    const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor || ::fstat(descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uint64_t>(status.st_size) > limit)
    {
        return std::nullopt;
    }
    FileBytes bytes(static_cast<std::size_t>(status.st_size));
    std::size_t done = 0;
    while (done < bytes.size())
    {
        const ssize_t got = ::read(descriptor.Get(), bytes.data() + done, bytes.size() - done);
        if (got < 0 && errno == EINTR)
        {
            continue;
        }
        if (got <= 0)
        {
            return std::nullopt;
        }
        done += static_cast<std::size_t>(got);
    }
    return bytes;
}

void ReplaceStateFile(const std::filesystem::path& path, const FileBytes& bytes)
{
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    const std::filesystem::path temporary = TemporaryName(path);
    FileDescriptor descriptor(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!descriptor)
    {
        Fail(path);
    }
    if (!WriteAll(descriptor.Get(), bytes.data(), bytes.size()) || ::fsync(descriptor.Get()) != 0 ||
        std::rename(temporary.c_str(), path.c_str()) != 0)
    {
        const int reason = errno;
        ::unlink(temporary.c_str());
        errno = reason;
        Fail(path);
    }
    SyncFolder(path.parent_path());
}

void ReplaceStateFile(const std::filesystem::path& path, const std::string& text)
{
    ReplaceStateFile(path, FileBytes(text.begin(), text.end()));
}

} // namespace Simulation
