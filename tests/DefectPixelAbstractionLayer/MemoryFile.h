// A camera file in memory that insists on the rules: opened once, in the right mode, within its size.
#pragma once

#include "Exception.h"
#include "FileInterface.h"

#include <optional>

// What was asked of a camera in memory, in order, and which of it fails.
struct CallLog
{
    std::vector<std::string> calls;
    std::string refused;           // this call fails whenever it comes
    std::size_t failAt = SIZE_MAX; // the call with this number fails

    void note(const std::string& call)
    {
        calls.push_back(call);
        require(call != refused && calls.size() - 1 != failAt, "Refused: " + call);
    }
    static void require(bool rule, const std::string& message)
    {
        rule ? void() : throw KTR::System::Exception(message, true);
    }
};

class MemoryFile : public KTR::DPC::FileInterface
{
public:
    MemoryFile(std::string fileName, std::uint64_t max, bool mayWrite, CallLog& callLog)
        : name(std::move(fileName)),
          sizeMax(max),
          writable(mayWrite),
          log(callLog)
    {
    }

    std::string GetName() override { return name; }
    bool IsOpen() override { return mode.has_value(); }
    void Open(FileOpenMode openMode) override
    {
        note(openMode == FileOpenMode::Read ? "OpenRead" : "OpenWrite",
             !mode && (openMode == FileOpenMode::Read || writable));
        mode = openMode;
    }
    // Closes also when it is refused, as if the answer were lost.
    void Close() override
    {
        const bool wasOpen = IsOpen();
        mode.reset();
        note("Close", wasOpen);
    }
    void Delete() override
    {
        note("Delete", !IsOpen() && writable);
        content.clear();
    }
    void Read(std::vector<std::uint8_t>& data, std::uint64_t size) override
    {
        note("Read", mode == FileOpenMode::Read);
        data = content;
        data.resize(size == 0 || size > content.size() ? content.size() : size);
    }
    void Append(const std::vector<std::uint8_t>&) override { note("Append", false); } // no adapter does
    void Write(const std::vector<std::uint8_t>& data) override
    {
        note("Write", mode == FileOpenMode::Write && data.size() <= sizeMax);
        content = data;
    }
    std::uint64_t GetSize() override
    {
        note("GetSize", true);
        return content.size();
    }
    std::uint64_t GetSizeMax() override { return sizeMax; }
    bool IsWritable() override { return writable; }

    std::vector<std::uint8_t> content;

private:
    void note(const char* call, bool allowed)
    {
        log.note(call + (" " + name));
        CallLog::require(allowed, std::string(call) + " is not allowed now on the file " + name + ".");
    }

    std::string name;
    std::uint64_t sizeMax;
    bool writable;
    std::optional<FileOpenMode> mode;
    CallLog& log;
};
