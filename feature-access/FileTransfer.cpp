// Moving a camera file's content, block by block.
#include "FileImpl.h"

#include "Exception.h"
#include "FeatureHelperException.h"
#include "ZltApi/Feature.h"

#include <algorithm>
#include <cstring>

namespace KTR::FeatureHelper::FileAccess
{

namespace
{

// Vectors grow with the bytes that arrive, from at most this size on: a camera that claims a huge file must also send
// it.
constexpr unsigned long LargestReservation = 16UL * 1024 * 1024;

// The bounds of one block, in bytes. They may change with the state of the camera, so each block asks anew.
struct BlockRange
{
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
};

unsigned long blockSize(unsigned long remaining, const BlockRange& range)
{
    if (range.minimum > 0 && remaining < static_cast<std::uint64_t>(range.minimum))
    {
        throw System::Exception("Block size too large for file access length minimum value.", true);
    }
    if (range.maximum < 1)
    {
        throw System::Exception("The camera accepts no block of data.", true);
    }
    return std::min(remaining, static_cast<unsigned long>(range.maximum));
}

void checkData(const void* data, unsigned long size)
{
    if (size != 0 && data == nullptr)
    {
        throw System::Exception("No data passed.", true);
    }
}

void report(TaskObserver* observer, double progress)
{
    if (observer != nullptr)
    {
        observer->ReportProgress(progress);
    }
}

void reportRemaining(TaskObserver* observer, unsigned long remaining, unsigned long size)
{
    report(observer, 1.0 - static_cast<double>(remaining) / static_cast<double>(size));
}

void checkAbort(TaskObserver* observer)
{
    if (observer != nullptr && observer->IsAborted())
    {
        throw System::Exception("Process aborted by user.", true);
    }
}

} // namespace

void FileAccess::FileImpl::Write(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer)
{
    checkData(data, size);
    writeBlocks(data, size, 0, observer.get());
}

void FileAccess::FileImpl::Write(const Bytes& data, const boost::shared_ptr<TaskObserver>& observer)
{
    Write(data.empty() ? nullptr : data.data(), data.size(), observer);
}

void FileAccess::FileImpl::Append(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer)
{
    checkData(data, size);
    writeBlocks(data, size, GetSize(), observer.get());
}

void FileAccess::FileImpl::Append(const Bytes& data, const boost::shared_ptr<TaskObserver>& observer)
{
    Append(data.empty() ? nullptr : data.data(), data.size(), observer);
}

void FileAccess::FileImpl::writeBlocks(const void* data, unsigned long size, std::uint64_t start,
                                       TaskObserver* observer)
{
    SelectFileOperation("Write");
    SetOffset(static_cast<long long>(start));
    report(observer, 0.0);
    if (size == 0)
    {
        report(observer, 1.0);
        return;
    }

    const auto* source = static_cast<const unsigned char*>(data);
    std::uint64_t position = start;
    for (unsigned long remaining = size; remaining >= 1;)
    {
        checkAbort(observer);
        BlockRange range;
        const ZltErrorType result = m_features->GetFileAccessLength()->GetRange(range.minimum, range.maximum);
        if (result != ZltErrorSuccess)
        {
            throw Exception("Could not get range of file access length.", result);
        }
        const unsigned long block = blockSize(remaining, range);
        writeBlock(source, block);
        position += block;
        source += block;
        remaining -= block;
        checkOffset(position);
        reportRemaining(observer, remaining, size);
        if (remaining >= 1 && cameraNeedsNoMore())
        {
            report(observer, 1.0);
            return;
        }
    }
}

void FileAccess::FileImpl::writeBlock(const unsigned char* data, unsigned long block)
{
    setLength(block);
    const ZltErrorType result = m_features->GetFileAccessBuffer()->SetValue(Bytes(data, data + block));
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not write into access buffer.", result);
    }
    ExecuteOperation();
    if (operationResult() != static_cast<std::int64_t>(block))
    {
        throw System::Exception("Invalid size written by file operation.", true);
    }
}

void FileAccess::FileImpl::Read(void* data, unsigned long* size, const boost::shared_ptr<TaskObserver>& observer) const
{
    if (size == nullptr)
    {
        throw System::Exception("No size passed.", true);
    }
    const unsigned long wanted = *size != 0 ? *size : GetSize();
    if (data == nullptr)
    {
        *size = wanted;
        return;
    }
    if (wanted > *size)
    {
        throw System::Exception("Not enough data passed.", true);
    }
    auto* target = static_cast<unsigned char*>(data);
    const auto sink = [&target](const unsigned char* block, unsigned long length)
    {
        std::memcpy(target, block, length);
        target += length;
    };
    readBlocks(wanted, sink, observer.get());
    *size = wanted;
}

void FileAccess::FileImpl::Read(Bytes& data, const boost::shared_ptr<TaskObserver>& observer) const
{
    Read(data, 0, observer);
}

void FileAccess::FileImpl::Read(Bytes& data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer) const
{
    const unsigned long wanted = size != 0 ? size : GetSize();
    if (wanted == 0)
    {
        return;
    }
    data.clear();
    data.reserve(std::min(wanted, LargestReservation));
    const auto sink = [&data](const unsigned char* block, unsigned long length)
    { data.insert(data.end(), block, block + length); };
    readBlocks(wanted, sink, observer.get());
}

std::vector<unsigned char> FileAccess::FileImpl::Read(const boost::shared_ptr<TaskObserver>& observer) const
{
    Bytes data;
    Read(data, 0, observer);
    return data;
}

void FileAccess::FileImpl::readBlocks(unsigned long size, const BlockSink& sink, TaskObserver* observer) const
{
    report(observer, 0.0);
    if (size == 0)
    {
        report(observer, 1.0);
        return;
    }

    SelectFileOperation("Read");
    SetOffset(0);
    std::uint64_t position = 0;
    for (unsigned long remaining = size; remaining >= 1;)
    {
        checkAbort(observer);
        BlockRange range;
        if (m_features->GetFileAccessLength()->GetRange(range.minimum, range.maximum) != ZltErrorSuccess)
        {
            throw System::Exception("Could not get range of file access length.", true);
        }
        const unsigned long block = blockSize(remaining, range);
        sink(readBlock(block).data(), block);
        position += block;
        remaining -= block;
        checkOffset(position);
        reportRemaining(observer, remaining, size);
    }
}

std::vector<unsigned char> FileAccess::FileImpl::readBlock(unsigned long block) const
{
    setLength(block);
    ExecuteOperation();
    if (operationResult() != static_cast<std::int64_t>(block))
    {
        throw System::Exception("Invalid size read by file operation.", true);
    }
    Bytes data;
    const ZltErrorType result = m_features->GetFileAccessBuffer()->GetValue(data);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not read access buffer.", result);
    }
    if (data.size() < block)
    {
        throw System::Exception("Insufficient data read from access buffer.", true);
    }
    return data;
}

void FileAccess::FileImpl::setLength(unsigned long block) const
{
    const ZltErrorType result = m_features->GetFileAccessLength()->SetValue(static_cast<std::int64_t>(block));
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not set file access length file operation.", result);
    }
}

std::int64_t FileAccess::FileImpl::operationResult() const
{
    std::int64_t moved = 0;
    const ZltErrorType result = m_features->GetFileOperationResult()->GetValue(moved);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file operation result.", result);
    }
    return moved;
}

void FileAccess::FileImpl::checkOffset(std::uint64_t position) const
{
    std::int64_t offset = 0;
    const ZltErrorType result = m_features->GetFileAccessOffset()->GetValue(offset);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file offset.", result);
    }
    if (static_cast<std::uint64_t>(offset) != position)
    {
        throw System::Exception("Invalid file offset found.", true);
    }
}

bool FileAccess::FileImpl::cameraNeedsNoMore() const
{
    const ZltApi::FeaturePtr& status = m_features->GetFileProcessStatus();
    std::string value;
    return status && status->GetValue(value) == ZltErrorSuccess && value == "UpdateNotRequired";
}

} // namespace KTR::FeatureHelper::FileAccess
