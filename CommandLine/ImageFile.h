// Image files of the batch tool.
#pragma once

#include <QImage>

#include <string>

namespace CommandLine
{

// The format follows from the file name's ending. Replaces the file whole, or leaves it as it was and throws
// KTR::System::Exception.
void SaveImage(const QImage& image, const std::string& path);

} // namespace CommandLine
