// A camera file in memory that insists on the rules: opened once, in the right mode, within its size.
#include "MemoryFile.h"

#include "Exception.h"

#include <utility>

MemoryFile::MemoryFile(std::string name, std::uint64_t sizeMax, bool writable, CallLog& log)
    : m_name(std::move(name)),
      m_sizeMax(sizeMax),
      m_writable(writable),
      m_log(log)
{
}

void MemoryFile::require(bool rule, const char* call) const
{
    if (!rule)
    {
        throw KTR::System::Exception(std::string(call) + " is not allowed now on the file " + m_name + ".", true);
    }
}

void MemoryFile::Open(FileOpenMode mode)
{
    m_log.note((mode == FileOpenMode::Read ? "OpenRead " : "OpenWrite ") + m_name);
    require(!m_mode && (mode == FileOpenMode::Read || m_writable), "Open");
    m_mode = mode;
}

void MemoryFile::Close()
{
    m_log.calls.push_back("Close " + m_name);
    require(IsOpen(), "Close");
    m_mode.reset();
}

void MemoryFile::Delete()
{
    m_log.note("Delete " + m_name);
    require(!IsOpen() && m_writable, "Delete");
    content.clear();
}

void MemoryFile::Read(std::vector<std::uint8_t>& data, std::uint64_t size)
{
    m_log.note("Read " + m_name);
    require(m_mode == FileOpenMode::Read, "Read");
    data = content;
    data.resize(size == 0 || size > content.size() ? content.size() : size);
}

void MemoryFile::Append(const std::vector<std::uint8_t>& data)
{
    m_log.note("Append " + m_name);
    require(m_mode == FileOpenMode::Write && content.size() + data.size() <= m_sizeMax, "Append");
    content.insert(content.end(), data.begin(), data.end());
}

void MemoryFile::Write(const std::vector<std::uint8_t>& data)
{
    m_log.note("Write " + m_name);
    require(m_mode == FileOpenMode::Write && data.size() <= m_sizeMax, "Write");
    content = data;
}

std::uint64_t MemoryFile::GetSize()
{
    m_log.note("GetSize " + m_name);
    return content.size();
}
