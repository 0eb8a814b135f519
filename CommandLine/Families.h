// The on-camera bytes of each camera family, without a camera.
#pragma once

#include "ReverseCapability.h"
#include "SensorDefect.h"
#include "SensorDefectType.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

namespace CommandLine
{

// What a camera would tell about itself.
struct SensorDescription
{
    std::uint32_t width = 0;  // pixels
    std::uint32_t height = 0; // pixels
    KTR::DPC::ReverseCapability reverse = KTR::DPC::ReverseCapability::Non;
    std::string sensorType = "Mono"; // "Mono" or "Bayer"
};

// Conditions under which a list was made, for the families that keep them.
struct Conditions
{
    std::optional<double> gain;
    std::optional<double> exposureUs;
    std::optional<double> temperatureC;
};

// Those that are known, under the keys of a correction set's metadata.
std::map<std::string, double> Metadata(const Conditions& conditions);

// One family's way of holding its defects. Both functions throw KTR::System::Exception.
struct Family
{
    const char* name;
    std::vector<KTR::DPC::SensorDefectType> types; // that it stores, in its order
    std::vector<std::uint8_t> (*encode)(const KTR::DPC::SensorDefectList& defects, const SensorDescription& sensor,
                                        const Conditions& conditions);
    KTR::DPC::SensorDefectList (*decode)(const std::vector<std::uint8_t>& bytes, const SensorDescription& sensor);
};

// Adds the required options "--width" and "--height".
void AddSensorSize(CLI::App& command, SensorDescription& sensor);

// Names that the command line takes.
std::vector<std::string> FamilyNames();

// Throws KTR::System::Exception for a name that is none of FamilyNames.
const Family& FindFamily(const std::string& name);

} // namespace CommandLine
