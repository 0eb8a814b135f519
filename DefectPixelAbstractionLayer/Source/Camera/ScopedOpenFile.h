// Keeps a camera file open for the length of a scope.
#pragma once

#include "FileInterface.h"

#include <boost/shared_ptr.hpp>

namespace KTR::DPC
{

class ScopedOpenFile
{
public:
    // Opens the file; what Open throws leaves the constructor, and then nothing is left to close.
    ScopedOpenFile(boost::shared_ptr<FileInterface> file, FileInterface::FileOpenMode mode);
    // Closes the file. A Close that fails here ends the process: nobody could say any more what the camera holds.
    ~ScopedOpenFile();

    ScopedOpenFile(const ScopedOpenFile&) = delete;
    ScopedOpenFile& operator=(const ScopedOpenFile&) = delete;

    const boost::shared_ptr<FileInterface>& operator->() const { return m_file; }

private:
    boost::shared_ptr<FileInterface> m_file;
};

} // namespace KTR::DPC
