// sets: the correction sets of a camera and their state.

#include "CameraSession.h"
#include "Command.h"
#include "JsonOutput.h"

#include "Exception.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <nlohmann/json.hpp>

#include <iostream>
#include <optional>

namespace CommandLine
{

namespace
{

std::string MetadataText(const std::map<std::string, double>& metadata)
{
    std::string text;
    for (const auto& [key, value] : metadata)
    {
        text += (text.empty() ? "" : ",") + key + "=" + QString::number(value, 'g', 10).toStdString();
    }
    return text.empty() ? "-" : text;
}

// Nothing when the content cannot be read: some cameras do not let an empty file be opened for reading.
std::optional<bool> IsEmpty(KTR::DPC::DpcAdapter& adapter, const boost::shared_ptr<KTR::DPC::CorrectionSet>& set)
{
    try
    {
        return !adapter.IsCorrectionSetReadable(set) || adapter.ReadCorrectionSet(set).empty();
    }
    catch (const KTR::System::Exception& failure)
    {
        std::cerr << "Correction set \"" << set->getName() << "\" cannot be read: " << failure.ToString() << '\n';
        return std::nullopt;
    }
}

ExitStatus List(const std::string& cameraId, const Request& request)
{
    CameraSession session(cameraId, request.adapter);
    const boost::shared_ptr<KTR::DPC::DpcAdapter> adapter = session.Adapter();
    const std::string defaultName = adapter->GetDefaultCorrectionSet()->getName();
    const auto word = [](bool state) { return state ? "yes" : "no"; };
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    for (const auto& set : adapter->GetAvailableCorrectionSetsWithMetadata())
    {
        const bool writable = adapter->IsCorrectionSetWritable(set);
        const bool available = adapter->IsCorrectionSetAvailable(set);
        const std::optional<bool> empty = IsEmpty(*adapter, set);
        const bool enabled = adapter->IsCorrectionSetEnabled(set);
        const bool isDefault = set->getName() == defaultName;
        if (request.json)
        {
            document.push_back({{"name", set->getName()},
                                {"writable", writable},
                                {"available", available},
                                {"empty", empty ? nlohmann::ordered_json(*empty) : nlohmann::ordered_json()},
                                {"enabled", enabled},
                                {"default", isDefault},
                                {"metadata", set->getAllMetadata()}});
        }
        else
        {
            std::cout << set->getName() << '\t' << word(writable) << '\t' << word(available) << '\t'
                      << (empty ? word(*empty) : "unknown") << '\t' << word(enabled) << '\t' << word(isDefault) << '\t'
                      << MetadataText(set->getAllMetadata()) << '\n';
        }
    }
    if (request.json)
    {
        PrintJson(document);
    }
    return Done;
}

} // namespace

void AddSets(CLI::App& app, Request& request)
{
    auto camera = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("sets", "List the correction sets: name, then yes or no for writable, "
                                                   "available, empty, enabled, default, then metadata");
    command->add_option("CAMERA", *camera, "Camera ID")->required();
    command->callback([camera, &request] { request.action = [camera, &request] { return List(*camera, request); }; });
}

} // namespace CommandLine
