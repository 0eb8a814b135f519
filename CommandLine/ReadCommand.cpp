// read: a correction set of a camera as a pixel list.

#include "CameraSession.h"
#include "Command.h"
#include "DefectOutput.h"
#include "Upload.h"

#include <CLI/CLI.hpp>

namespace CommandLine
{

namespace
{

struct Options
{
    std::string camera;
    std::string set;
    std::string output;
};

ExitStatus Read(const Options& options, const Request& request)
{
    CameraSession session(options.camera, request.adapter);
    const boost::shared_ptr<KTR::DPC::DpcAdapter> adapter = session.Adapter();
    const auto set = FindSet(adapter->GetAvailableCorrectionSets(), options.set);
    PrintDefects(ToPixelList(*adapter, adapter->ReadCorrectionSet(set)), options.output, request);
    return Done;
}

} // namespace

void AddRead(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("read", "Read a correction set as a pixel list");
    command->add_option("CAMERA", options->camera, "Camera ID")->required();
    command->add_option("SET", options->set, "Correction set")->required();
    command->add_option("-o,--output", options->output,
                        "XML file to write; else one defect a line: type x y width height");
    command->callback([options, &request]
                      { request.action = [options, &request] { return Read(*options, request); }; });
}

} // namespace CommandLine
