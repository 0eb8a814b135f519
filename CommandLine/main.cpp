// The batch tool: everything that the window does with a camera, for scripts and production lines.

#include "CameraSession.h"
#include "Command.h"

#include "Exception.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace
{

// Text of the exception that is being handled.
std::string CurrentFailure()
{
    try
    {
        throw;
    }
    catch (const KTR::System::Exception& failure)
    {
        return failure.ToString();
    }
    catch (const std::exception& failure)
    {
        return failure.what();
    }
    catch (...)
    {
        return "An unknown failure.";
    }
}

// Whether the exception that ends the process comes from the camera layers.
bool IsCameraFailure()
{
    try
    {
        if (const std::exception_ptr failure = std::current_exception())
        {
            std::rethrow_exception(failure);
        }
    }
    catch (const KTR::System::Exception&)
    {
        return true;
    }
    catch (...)
    {
        return false;
    }
    return false;
}

// The guard around an open camera file ends the process here when nothing else would tell that the file did not close.
// The user still gets a sentence and the status of a failure.
[[noreturn]] void OnTerminate()
{
    const std::string text =
        std::current_exception() ? CurrentFailure() : std::string("The program has run into a fault.");
    std::fprintf(stderr, "lorvane-cli: %s%s\n",
                 IsCameraFailure() ? "The camera was lost in the middle of a file transfer: " : "", text.c_str());
    std::fflush(nullptr);
    std::_Exit(CommandLine::Failed);
}

} // namespace

int main(int argc, char** argv)
{
    std::set_terminate(OnTerminate);
    const QCoreApplication application(argc, argv);

    CLI::App app("Lorvane batch tool: reads, finds and corrects defective sensor pixels of industrial cameras.",
                 "lorvane-cli");
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", std::string("lorvane-cli ") + LORVANE_VERSION);
    CommandLine::Request request;
    app.add_flag("--json", request.json, "Print one JSON document instead of text");

    app.add_option("--adapter", request.adapter, "Family of the camera, for cameras whose own names do not tell it")
        ->check(CLI::IsMember(CommandLine::AdapterNames()));

    CommandLine::AddCameras(app, request);
    CommandLine::AddFeatures(app, request);
    CommandLine::AddSets(app, request);
    CommandLine::AddRead(app, request);
    CommandLine::AddWrite(app, request);
    CommandLine::AddSetStates(app, request);
    CommandLine::AddGrab(app, request);
    CommandLine::AddCrop(app, request);
    CommandLine::AddDetect(app, request);
    CommandLine::AddCommission(app, request);
    CommandLine::AddEncode(app, request);
    CommandLine::AddDecode(app, request);

    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& problem)
    {
        return app.exit(problem) == 0 ? CommandLine::Done : CommandLine::WrongUsage;
    }

    try
    {
        const CommandLine::ExitStatus status = request.action();
        std::cout.flush();
        if (!std::cout)
        {
            std::cerr << "lorvane-cli: The result could not be written to standard output.\n";
            return CommandLine::Failed;
        }
        return status;
    }
    catch (...)
    {
        std::cout.flush();
        std::cerr << "lorvane-cli: " << CurrentFailure() << '\n';
        return CommandLine::Failed;
    }
}
