// grab: one settled frame of a camera as an image file.

#include "CameraSession.h"
#include "Command.h"
#include "FrameGrabber.h"
#include "ImageFile.h"
#include "JsonOutput.h"
#include "SettingsKeeper.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace CommandLine
{

namespace
{

struct Options
{
    std::string camera;
    std::string output;
    int frames = SettlingFrames;
};

ExitStatus Grab(const Options& options, const Request& request)
{
    CameraSession session(options.camera);
    const boost::shared_ptr<KTR::DPC::CameraAbstraction> camera = session.Abstraction();
    const SettingsKeeper settings(*camera);
    SelectEightBitFormat(*camera);
    const std::string format = camera->GetFeatureEnumValue("PixelFormat");
    const QImage image = GrabFrame(session.Api(), *camera, options.frames);
    settings.Restore(*camera);
    SaveImage(image, options.output);
    if (request.json)
    {
        PrintJson(
            {{"file", options.output}, {"width", image.width()}, {"height", image.height()}, {"pixelFormat", format}});
    }
    else
    {
        std::cout << options.output << '\t' << image.width() << '\t' << image.height() << '\t' << format << '\n';
    }
    return Done;
}

} // namespace

void AddGrab(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("grab", "Save one settled frame as an 8-bit image, a Bayer mosaic as it is");
    command->add_option("CAMERA", options->camera, "Camera ID")->required();
    command->add_option("-o,--output", options->output, "Image file, such as frame.png")->required();
    command->add_option("--frames", options->frames, "How many frames to take; the last one is saved")
        ->check(CLI::Range(1, 100000))
        ->capture_default_str();
    command->callback([options, &request]
                      { request.action = [options, &request] { return Grab(*options, request); }; });
}

} // namespace CommandLine
