// detect: the automatic detection on an image file.

#include "Command.h"
#include "DefectOutput.h"
#include "Detection.h"

#include "Exception.h"
#include "FrameFile.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <optional>

namespace CommandLine
{

namespace
{

struct Options
{
    std::string image;
    std::string output;
    int threshold = DefaultThreshold;
    std::vector<int> types = {0};
    std::optional<int> width;
    std::optional<int> height;
};

ExitStatus Detect(const Options& options, const Request& request)
{
    QString problem;
    const QImage image = LoadFrameFile(QString::fromLocal8Bit(options.image.c_str()), &problem);
    if (image.isNull())
    {
        throw KTR::System::Exception(problem.toStdString(), true);
    }
    PrintDefects(DetectInFrame(image, options.threshold, options.width.value_or(image.width()),
                               options.height.value_or(image.height()), options.types),
                 options.output, request);
    return Done;
}

} // namespace

void AddDetect(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("detect", "Find the defective pixels in a dark frame");
    command->add_option("IMAGE", options->image, "Image file: PNG, PGM or TIFF")->required();
    command->add_option("--threshold", options->threshold, "Grey value from which on a pixel is a defect")
        ->check(CLI::Range(0, 255))
        ->capture_default_str();
    command->add_option("--types", options->types, "Kinds that can be stored, separated by commas")
        ->delimiter(',')
        ->check(CLI::Range(0, 5))
        ->capture_default_str();
    command->add_option("--width", options->width, "Length that makes a run a whole row; the image's width without it")
        ->check(CLI::Range(1, 65535));
    command->add_option("--height", options->height, "Length that makes a run a whole column; likewise")
        ->check(CLI::Range(1, 65535));
    command->add_option("-o,--output", options->output,
                        "XML file to write; else one defect a line: type x y width height");
    command->callback([options, &request]
                      { request.action = [options, &request] { return Detect(*options, request); }; });
}

} // namespace CommandLine
