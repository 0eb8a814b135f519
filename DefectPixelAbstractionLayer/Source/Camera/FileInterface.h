// A file in a camera's file system, as the adapters see it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Every operation but IsOpen, GetSizeMax, IsWritable and GetName talks to the camera, and reports failure by throwing a
// KTR::System::Exception. There is no virtual destructor: files are held by a boost::shared_ptr made from the concrete
// type.
class FileInterface
{
public:
    // The numbers are fixed; scoped, because the operations below bear the same names.
    enum class FileOpenMode
    {
        Read = 0,
        Write = 1 // writing and appending
    };

    virtual std::string GetName() = 0;
    // Whether this object was opened and not yet closed; asks the camera nothing.
    virtual bool IsOpen() = 0;
    virtual void Open(FileOpenMode mode) = 0;
    virtual void Close() = 0;
    // Removes the content on the camera; called on a closed file.
    virtual void Delete() = 0;
    // Reads from the start; a size of 0 means the whole file. The vector is resized to the bytes read.
    virtual void Read(std::vector<std::uint8_t>& data, std::uint64_t size) = 0;
    virtual void Append(const std::vector<std::uint8_t>& data) = 0;
    // Replaces the content from offset 0.
    virtual void Write(const std::vector<std::uint8_t>& data) = 0;
    virtual std::uint64_t GetSize() = 0;
    // Largest size in bytes, fixed when the object was made; 0 when the camera would not tell.
    virtual std::uint64_t GetSizeMax() = 0;
    // Whether the camera lets the file be changed; fixed when the object was made.
    virtual bool IsWritable() = 0;

protected:
    ~FileInterface() = default;
};

} // namespace KTR::DPC
