// A camera file behind the file access features.
#include "FileImpl.h"

#include "Exception.h"
#include "FeatureHelperException.h"
#include "ZltApi/Feature.h"

#include <boost/format.hpp>

namespace KTR::FeatureHelper::FileAccess
{

namespace
{

bool holds(const ZltApi::FeaturePtr& feature, const std::string& value)
{
    std::string current;
    return feature->GetValue(current) == ZltErrorSuccess && current == value;
}

} // namespace

FileAccess::FileImpl::FileImpl(const boost::shared_ptr<FeatureCollection>& features, const std::string& name)
    : m_features(features),
      m_strName(name)
{
    if (!m_features)
    {
        throw System::Exception("No file access feature collection passed.", true);
    }
    SelectFile();
    if (m_features->GetFileStatus() && holds(m_features->GetFileStatus(), "Open"))
    {
        FileImpl::Close();
    }
    m_writable = IsWritableImpl();
}

FileAccess::FileImpl::~FileImpl()
{
    if (m_open)
    {
        try
        {
            FileImpl::Close();
        }
        catch (...) // NOLINT(bugprone-empty-catch): the camera may be gone, and nobody is left to hear of it
        {
        }
    }
}

ZltApi::CameraPtr FileAccess::FileImpl::GetCamera() const
{
    return m_features->GetCamera();
}

std::string FileAccess::FileImpl::GetName() const
{
    return m_strName;
}

void FileAccess::FileImpl::Open(const std::string& mode)
{
    SelectFileOperation("Open");
    const ZltApi::FeaturePtr& openMode = m_features->GetFileOpenMode();
    if (!holds(openMode, mode))
    {
        const ZltErrorType result = openMode->SetValue(mode.c_str());
        if (result != ZltErrorSuccess)
        {
            throw Exception(str(boost::format("Could not select file open mode \"%1%\".") % mode), result);
        }
    }
    ExecuteOperation();
    m_open = true;
}

void FileAccess::FileImpl::Close()
{
    ExecuteOperation("Close");
    m_open = false;
}

void FileAccess::FileImpl::Delete()
{
    ExecuteOperation("Delete");
}

unsigned long FileAccess::FileImpl::GetSize() const
{
    SelectFile();
    std::int64_t size = 0;
    const ZltErrorType result = m_features->GetFileSize()->GetValue(size);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file size.", result);
    }
    if (size < 0)
    {
        throw System::Exception("Invalid file size found.", true);
    }
    return static_cast<unsigned long>(size);
}

bool FileAccess::FileImpl::IsWritable() const
{
    return m_writable;
}

bool FileAccess::FileImpl::IsWritableImpl() const
{
    SelectFile();
    if (m_open)
    {
        throw Exception("Cannot query IsWritable if file is opened", ZltErrorFileOpen);
    }
    try
    {
        SelectFileOperation("Delete");
    }
    catch (...) // a camera without the operation, or that refuses it now
    {
        return false;
    }
    bool writable = false;
    return m_features->GetFileOperationExecute()->IsWritable(writable) == ZltErrorSuccess && writable;
}

void FileAccess::FileImpl::SelectFile() const
{
    const ZltApi::FeaturePtr& selector = m_features->GetFileSelector();
    if (!holds(selector, m_strName))
    {
        const ZltErrorType result = selector->SetValue(m_strName.c_str());
        if (result != ZltErrorSuccess)
        {
            throw Exception(str(boost::format("Could not select file \"%1%\".") % m_strName), result);
        }
    }
}

void FileAccess::FileImpl::SelectFileOperation(const std::string& name) const
{
    SelectFile();
    const ZltApi::FeaturePtr& selector = m_features->GetFileOperationSelector();
    if (!holds(selector, name))
    {
        const ZltErrorType result = selector->SetValue(name.c_str());
        if (result != ZltErrorSuccess)
        {
            const auto message =
                boost::format("Could not select operation \"%1%\" for file \"%2%\".") % name % m_strName;
            throw Exception(str(message), result);
        }
    }
}

void FileAccess::FileImpl::SetOffset(long long offset) const
{
    SelectFile();
    const ZltApi::FeaturePtr& feature = m_features->GetFileAccessOffset();
    std::int64_t current = 0;
    if (feature->GetValue(current) != ZltErrorSuccess || current != offset)
    {
        const ZltErrorType result = feature->SetValue(static_cast<std::int64_t>(offset));
        if (result != ZltErrorSuccess)
        {
            throw Exception("Could not set file offset.", result);
        }
    }
}

void FileAccess::FileImpl::ExecuteOperation() const
{
    ZltErrorType result = m_features->GetFileOperationExecute()->RunCommand();
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not execute file operation.", result);
    }
    std::string status;
    result = m_features->GetFileOperationStatus()->GetValue(status);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file operation status.", result);
    }
    if (status != "Success")
    {
        const auto message = boost::format("Unsuccessful file operation execution  for file \"%1%\" (Status: %2%).") %
                             m_strName % status;
        throw System::Exception(str(message), true);
    }
}

void FileAccess::FileImpl::ExecuteOperation(const std::string& name) const
{
    SelectFileOperation(name);
    ExecuteOperation();
}

} // namespace KTR::FeatureHelper::FileAccess
