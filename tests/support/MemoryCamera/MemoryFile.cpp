// A camera file in memory that insists on the rules: opened once, in the right mode, within its size.
#include "MemoryFile.h"

void MemoryFile::note(const char* call, bool allowed)
{
    log.note(call + (" " + name));
    CallLog::require(allowed, std::string(call) + " is not allowed now on the file " + name + ".");
}

void MemoryFile::Open(FileOpenMode openMode)
{
    note(openMode == FileOpenMode::Read ? "OpenRead" : "OpenWrite",
         !mode && (openMode == FileOpenMode::Read || writable));
    mode = openMode;
}

void MemoryFile::Close()
{
    const bool wasOpen = IsOpen();
    mode.reset();
    note("Close", wasOpen);
}

void MemoryFile::Delete()
{
    note("Delete", !IsOpen() && writable);
    content.clear();
}

void MemoryFile::Read(std::vector<std::uint8_t>& data, std::uint64_t size)
{
    note("Read", mode == FileOpenMode::Read);
    data = content;
    data.resize(size == 0 || size > content.size() ? content.size() : size);
}

void MemoryFile::Append(const std::vector<std::uint8_t>& data)
{
    note("Append", mode == FileOpenMode::Write && content.size() + data.size() <= sizeMax);
    content.insert(content.end(), data.begin(), data.end());
}

void MemoryFile::Write(const std::vector<std::uint8_t>& data)
{
    note("Write", mode == FileOpenMode::Write && data.size() <= sizeMax);
    content = data;
}

std::uint64_t MemoryFile::GetSize()
{
    note("GetSize", true);
    return content.size();
}
