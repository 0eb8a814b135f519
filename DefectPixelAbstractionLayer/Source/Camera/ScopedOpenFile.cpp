// Keeps a camera file open for the length of a scope.
#include "ScopedOpenFile.h"

#include <utility>

namespace KTR::DPC
{

ScopedOpenFile::ScopedOpenFile(boost::shared_ptr<FileInterface> file, FileInterface::FileOpenMode mode)
    : m_file(std::move(file))
{
    m_file->Open(mode);
}

ScopedOpenFile::~ScopedOpenFile()
{
    m_file->Close();
}

} // namespace KTR::DPC
