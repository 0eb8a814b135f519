// The files of one camera, reached through its file access features.
#include "FileAccess.h"

#include "Exception.h"
#include "FeatureCollection.h"
#include "FeatureHelperException.h"
#include "FileImpl.h"
#include "ZltApi/Camera.h"

#include <new>
#include <set>

namespace KTR::FeatureHelper::FileAccess
{

namespace
{

std::vector<ZltApi::EnumEntryPtr> fileEntries(const ZltApi::FeaturePtr& selector)
{
    std::vector<ZltApi::EnumEntryPtr> entries;
    const ZltErrorType result = selector->GetEntries(entries);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file name entries.", result);
    }
    return entries;
}

std::string entryName(const ZltApi::EnumEntryPtr& entry)
{
    std::string name;
    const ZltErrorType result = entry ? entry->GetName(name) : ZltErrorInvalidHandle;
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file entry name.", result);
    }
    return name;
}

// Tests an entry's name against those seen before, and tells whether the entry is available.
bool checkEntry(const ZltApi::FeaturePtr& selector, const std::string& name, const std::set<std::string>& seen)
{
    if (name.empty())
    {
        throw System::Exception("Invalid file name found.", true);
    }
    if (seen.count(name) != 0)
    {
        throw System::Exception("Duplicate file names found.", true);
    }
    bool available = false;
    const ZltErrorType result = selector->IsValueAvailable(name.c_str(), available);
    if (result != ZltErrorSuccess)
    {
        throw Exception("Could not get file entry availability.", result);
    }
    return available;
}

} // namespace

FileAccess::FileAccess(const ZltApi::CameraPtr& camera) : m_features(new (std::nothrow) FeatureCollection(camera))
{
    if (!m_features)
    {
        throw System::Exception("Could not allocate feature collection.", true);
    }
}

ZltApi::CameraPtr FileAccess::GetCamera() const
{
    return m_features->GetCamera();
}

std::vector<boost::shared_ptr<File>> FileAccess::GetFiles()
{
    const ZltApi::FeaturePtr& selector = m_features->GetFileSelector();
    std::vector<boost::shared_ptr<File>> files;
    std::set<std::string> seen;
    for (const ZltApi::EnumEntryPtr& entry : fileEntries(selector))
    {
        const std::string name = entryName(entry);
        if (checkEntry(selector, name, seen))
        {
            seen.insert(name);
            files.push_back(accessFile(name));
        }
    }
    return files;
}

boost::shared_ptr<File> FileAccess::GetFile(const std::string& name)
{
    const ZltApi::FeaturePtr& selector = m_features->GetFileSelector();
    std::set<std::string> seen;
    for (const ZltApi::EnumEntryPtr& entry : fileEntries(selector))
    {
        if (entryName(entry) == name)
        {
            // A file may be asked for before it is available, so the answer does not count; a failure to answer does.
            checkEntry(selector, name, seen);
            seen.insert(name);
        }
    }
    return seen.empty() ? boost::shared_ptr<File>() : accessFile(name);
}

bool FileAccess::IsCompatible(const ZltApi::CameraPtr& camera)
{
    return FeatureCollection::IsCompatible(camera);
}

boost::shared_ptr<File> FileAccess::accessFile(const std::string& name)
{
    boost::weak_ptr<File>& known = m_files[name];
    boost::shared_ptr<File> file = known.lock();
    if (!file)
    {
        file.reset(new (std::nothrow) FileImpl(m_features, name));
        if (!file)
        {
            throw System::Exception("Could not allocate file.", true);
        }
        known = file;
    }
    return file;
}

} // namespace KTR::FeatureHelper::FileAccess
