// A camera file of the file access features, as the adapters see it.
#include "ZoltaFile.h"

#include "Exception.h"

using KTR::FeatureHelper::FileAccess::File;

ZoltaFile::ZoltaFile(const boost::shared_ptr<File>& file, std::uint64_t maxSize) : m_file(file), m_sizeMax(maxSize)
{
    if (!m_file)
    {
        throw KTR::System::Exception("File is null!", true);
    }
}

std::string ZoltaFile::GetName()
{
    return m_file->GetName();
}

bool ZoltaFile::IsOpen()
{
    return m_open;
}

void ZoltaFile::Open(FileOpenMode mode)
{
    switch (mode)
    {
    case FileOpenMode::Read:
        m_file->Open("Read");
        break;
    case FileOpenMode::Write:
        m_file->Open("Write");
        break;
    default: // counts as open without a word to the camera
        break;
    }
    m_open = true;
}

void ZoltaFile::Close()
{
    m_file->Close();
    m_open = false;
}

void ZoltaFile::Delete()
{
    m_file->Delete();
}

void ZoltaFile::Read(std::vector<std::uint8_t>& data, std::uint64_t size)
{
    m_file->Read(data, size, {});
}

void ZoltaFile::Append(const std::vector<std::uint8_t>& data)
{
    m_file->Append(data, {});
}

void ZoltaFile::Write(const std::vector<std::uint8_t>& data)
{
    m_file->Write(data, {});
}

std::uint64_t ZoltaFile::GetSize()
{
    return m_file->GetSize();
}

std::uint64_t ZoltaFile::GetSizeMax()
{
    return m_sizeMax;
}

bool ZoltaFile::IsWritable()
{
    return m_file->IsWritable();
}
