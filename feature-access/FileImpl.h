// A camera file behind the file access features.
#pragma once

#include "FeatureCollection.h"
#include "File.h"
#include "FileAccess.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace KTR::FeatureHelper::FileAccess
{

// Selectors and offset of the camera are shared by all files, so each operation selects again what it needs, and writes
// only what differs from what it reads.
class FileAccess::FileImpl : public virtual File
{
public:
    // Selects the file on the camera, and closes it there if somebody left it open and the camera tells so.
    FileImpl(const boost::shared_ptr<FeatureCollection>& features, const std::string& name);
    // Closes an open file; a failure to do so is ignored.
    ~FileImpl() override;
    FileImpl(const FileImpl&) = delete;
    FileImpl& operator=(const FileImpl&) = delete;

    ZltApi::CameraPtr GetCamera() const override;
    std::string GetName() const override;
    void Open(const std::string& mode) override;
    void Close() override;
    void Delete() override;
    void Write(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer) override;
    void Write(const std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) override;
    void Append(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer) override;
    void Append(const std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) override;
    void Read(void* data, unsigned long* size, const boost::shared_ptr<TaskObserver>& observer) const override;
    void Read(std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) const override;
    void Read(std::vector<unsigned char>& data, unsigned long size,
              const boost::shared_ptr<TaskObserver>& observer) const override;
    std::vector<unsigned char> Read(const boost::shared_ptr<TaskObserver>& observer) const override;
    unsigned long GetSize() const override;
    bool IsWritable() const override;

    // Asks the camera whether the file may be deleted, which is its way to tell that it may be changed. The file must
    // be closed.
    bool IsWritableImpl() const;

private:
    using Bytes = std::vector<unsigned char>;
    // Receives the blocks of a file in order.
    using BlockSink = std::function<void(const unsigned char* block, unsigned long size)>;

    void SelectFile() const;
    void SelectFileOperation(const std::string& name) const;
    void SetOffset(long long offset) const;
    void ExecuteOperation() const;
    void ExecuteOperation(const std::string& name) const;

    // The steps of a transfer. Sizes and positions are in bytes.
    void writeBlocks(const void* data, unsigned long size, std::uint64_t start, TaskObserver* observer);
    void readBlocks(unsigned long size, const BlockSink& sink, TaskObserver* observer) const;
    void writeBlock(const unsigned char* data, unsigned long block);
    Bytes readBlock(unsigned long block) const;
    void setLength(unsigned long block) const;
    std::int64_t operationResult() const;
    void checkOffset(std::uint64_t position) const;
    bool cameraNeedsNoMore() const;

    boost::shared_ptr<FeatureCollection> m_features;
    std::string m_strName;
    bool m_open = false;
    bool m_writable = false;
};

} // namespace KTR::FeatureHelper::FileAccess
