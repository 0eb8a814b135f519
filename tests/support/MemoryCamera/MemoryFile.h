// A camera file in memory that insists on the rules: opened once, in the right mode, within its size.
#pragma once

#include "CallLog.h"

#include "FileInterface.h"

#include <optional>

class MemoryFile : public KTR::DPC::FileInterface
{
public:
    MemoryFile(std::string name, std::uint64_t sizeMax, bool writable, CallLog& log);

    std::string GetName() override { return m_name; }
    bool IsOpen() override { return m_mode.has_value(); }
    void Open(FileOpenMode mode) override;
    void Close() override; // never refused: a failing Close ends the process
    void Delete() override;
    void Read(std::vector<std::uint8_t>& data, std::uint64_t size) override;
    void Append(const std::vector<std::uint8_t>& data) override;
    void Write(const std::vector<std::uint8_t>& data) override;
    std::uint64_t GetSize() override;
    std::uint64_t GetSizeMax() override { return m_sizeMax; }
    bool IsWritable() override { return m_writable; }

    std::vector<std::uint8_t> content;

private:
    void require(bool rule, const char* call) const;

    std::string m_name;
    std::uint64_t m_sizeMax;
    bool m_writable;
    std::optional<FileOpenMode> m_mode;
    CallLog& m_log;
};
