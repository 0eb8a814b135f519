// crop: a piece of an image file, enlarged pixel by pixel, to look at single pixels.

#include "Command.h"
#include "ImageFile.h"

#include "Exception.h"
#include "FrameFile.h"

#include <CLI/CLI.hpp>

namespace CommandLine
{

namespace
{

// Longest edge of the piece after enlarging.
constexpr int LargestEdge = 16384;

struct Options
{
    std::string image;
    std::string output;
    std::vector<int> region;
    int zoom = 1;
};

ExitStatus Crop(const Options& options)
{
    QString problem;
    const QImage image = LoadFrameFile(QString::fromLocal8Bit(options.image.c_str()), &problem);
    if (image.isNull())
    {
        throw KTR::System::Exception(problem.toStdString(), true);
    }
    const QRect region =
        QRect(options.region[0], options.region[1], options.region[2], options.region[3]) & image.rect();
    if (region.isEmpty() || region.width() > LargestEdge / options.zoom || region.height() > LargestEdge / options.zoom)
    {
        throw KTR::System::Exception("The region lies outside the image, or is too large to be enlarged that much.",
                                     true);
    }
    SaveImage(image.copy(region).scaled(region.size() * options.zoom, Qt::IgnoreAspectRatio, Qt::FastTransformation),
              options.output);
    return Done;
}

} // namespace

void AddCrop(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("crop", "Save a piece of a grey image, enlarged without smoothing");
    command->add_option("IMAGE", options->image, "Image file")->required();
    command->add_option("--region", options->region, "x,y,width,height in pixels")
        ->delimiter(',')
        ->expected(4)
        ->required();
    command->add_option("--zoom", options->zoom, "Enlargement")->check(CLI::Range(1, 64))->capture_default_str();
    command->add_option("-o,--output", options->output, "Image file to write")->required();
    command->callback([options, &request] { request.action = [options] { return Crop(*options); }; });
}

} // namespace CommandLine
