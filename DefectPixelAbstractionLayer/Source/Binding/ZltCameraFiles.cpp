// A camera of the camera API, as the adapters see it: files.
#include "ZltCamera.h"

#include "Exception.h"
#include "FileAccess.h"
#include "ZoltaFile.h"

namespace KTR::DPC
{

namespace
{

using FeatureHelper::FileAccess::File;
using FeatureHelper::FileAccess::FileAccess;

// A file that some cameras let be opened only for writing while it is empty.
constexpr const char* UserCorrectionFile = "DefectPixelCorrectionUser";

// Opens the file for the query below. Cameras may refuse that to any file; the user's correction file gets a second
// try.
bool openForQuery(File& file)
{
    try
    {
        file.Open("Read");
        return true;
    }
    catch (...)
    {
        if (file.GetName() != UserCorrectionFile)
        {
            return false;
        }
    }
    try
    {
        file.Open("Write");
        return true;
    }
    catch (...)
    {
        return false;
    }
}

// Largest size of a file in bytes, which the camera tells as the range of "FileSize" while the file is selected and
// open. A file that does not open is asked about in whatever selection stands.
std::uint64_t getMaxFileSize(CameraAbstraction& camera, const boost::shared_ptr<File>& file)
{
    File& selected = *file;
    try
    {
        const bool opened = openForQuery(selected);
        const std::int64_t size = camera.GetFeatureIntegerMax("FileSize");
        if (opened)
        {
            selected.Close();
        }
        if (size >= 0)
        {
            return static_cast<std::uint64_t>(size);
        }
    }
    catch (...) // told below, whatever it was
    {
    }
    throw System::Exception("Could not query max file size.", true);
}

boost::shared_ptr<FileInterface> makeFile(CameraAbstraction& camera, const boost::shared_ptr<File>& file)
{
    std::uint64_t maxSize = 0;
    try
    {
        maxSize = getMaxFileSize(camera, file);
    }
    catch (const System::Exception&) // NOLINT(bugprone-empty-catch): a file of unknown largest size is still a file
    {
    }
    return boost::shared_ptr<ZoltaFile>(new ZoltaFile(file, maxSize));
}

} // namespace

bool ZltCamera::IsFileAccessSupported()
{
    if (!IsOpen())
    {
        throw System::Exception("Camera must be opened to query File Access compatibility.", true);
    }
    return FileAccess::IsCompatible(m_camera);
}

std::vector<boost::shared_ptr<FileInterface>> ZltCamera::GetFiles()
{
    if (!IsFileAccessSupported())
    {
        throw System::Exception("File Access is not supported.", true);
    }
    FileAccess access(m_camera);
    std::vector<boost::shared_ptr<FileInterface>> files;
    for (const boost::shared_ptr<File>& file : access.GetFiles())
    {
        files.push_back(makeFile(*this, file));
    }
    return files;
}

boost::shared_ptr<FileInterface> ZltCamera::GetFile(const std::string& name)
{
    FileAccess access(m_camera);
    return makeFile(*this, access.GetFile(name));
}

} // namespace KTR::DPC
