// Keeps a camera file open for the length of a scope.
#include "ScopedOpenFile.h"

#include <exception>
#include <utility>

namespace KTR::DPC
{

ScopedOpenFile::ScopedOpenFile(boost::shared_ptr<FileInterface> file, FileInterface::FileOpenMode mode)
    : m_file(std::move(file)),
      m_exceptionsOnTheirWay(std::uncaught_exceptions())
{
    m_file->Open(mode);
}

ScopedOpenFile::~ScopedOpenFile()
{
    if (!m_file)
    {
        return;
    }
    if (std::uncaught_exceptions() == m_exceptionsOnTheirWay)
    {
        Close();
        return;
    }
    try
    {
        Close();
    }
    catch (...) // NOLINT(bugprone-empty-catch): the exception on its way tells of the camera
    {
    }
}

void ScopedOpenFile::Close()
{
    std::exchange(m_file, nullptr)->Close();
}

} // namespace KTR::DPC
