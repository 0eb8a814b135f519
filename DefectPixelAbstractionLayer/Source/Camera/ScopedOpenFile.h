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
    // Closes the file if that was not done before. While an exception is on its way, which tells of the trouble, a
    // Close that fails as well is dropped (an exception of the camera layers has logged itself). Without one it ends
    // the process: nobody could say any more what the camera holds. Transfers call Close() to hear of it instead.
    ~ScopedOpenFile();

    ScopedOpenFile(const ScopedOpenFile&) = delete;
    ScopedOpenFile& operator=(const ScopedOpenFile&) = delete;

    // Valid until Close().
    const boost::shared_ptr<FileInterface>& operator->() const { return m_file; }

    // Closes the file ahead of the scope's end, and lets out what that throws. The file counts as given up either way.
    void Close();

private:
    boost::shared_ptr<FileInterface> m_file; // null once it was closed
    int m_exceptionsOnTheirWay;              // when the file was opened
};

} // namespace KTR::DPC
