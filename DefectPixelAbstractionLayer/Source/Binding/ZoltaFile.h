// A camera file of the file access features, as the adapters see it.
#pragma once

#include "File.h"
#include "FileInterface.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

class ZoltaFile : public KTR::DPC::FileInterface
{
public:
    // maxSize in bytes, 0 when the camera would not tell. Throws a KTR::System::Exception for an empty file.
    ZoltaFile(const boost::shared_ptr<KTR::FeatureHelper::FileAccess::File>& file, std::uint64_t maxSize);

    std::string GetName() override;
    bool IsOpen() override;
    void Open(FileOpenMode mode) override;
    void Close() override;
    void Delete() override;
    void Read(std::vector<std::uint8_t>& data, std::uint64_t size) override;
    void Append(const std::vector<std::uint8_t>& data) override;
    void Write(const std::vector<std::uint8_t>& data) override;
    std::uint64_t GetSize() override;
    std::uint64_t GetSizeMax() override;
    bool IsWritable() override;

private:
    boost::shared_ptr<KTR::FeatureHelper::FileAccess::File> m_file;
    std::uint64_t m_sizeMax;
    bool m_open = false;
};
