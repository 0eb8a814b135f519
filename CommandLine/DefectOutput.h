// How the batch tool hands out a list of defects.
#pragma once

#include "Command.h"
#include "DefectInfo.h"

#include <QVector>

#include <nlohmann/json.hpp>

#include <string>

namespace CommandLine
{

// One defect as {type, x, y, width, height}, types in the pixel list's numbering.
nlohmann::ordered_json ToJson(const QVector<DefectInfo>& defects);

// Writes the list as pixel list XML when a file is named, else to standard output: one defect a line,
// "type x y width height", or a JSON document. Throws KTR::System::Exception when the file cannot be written.
void PrintDefects(const QVector<DefectInfo>& defects, const std::string& xmlFile, const Request& request);

// Replaces the file by the bytes, or leaves it as it was and throws KTR::System::Exception.
void WriteWholeFile(const std::string& path, const QByteArray& bytes);
// Throws KTR::System::Exception when the file cannot be read.
QByteArray ReadWholeFile(const std::string& path);

} // namespace CommandLine
