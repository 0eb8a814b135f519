// The batch tool on a real camera, with all layers in between.
#include "FakeCamera.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace GenICam
{

namespace
{

// Standard output and the exit status of "lorvane-cli ARGUMENTS".
std::string Cli(const std::string& arguments)
{
    std::string output;
    FILE* const pipe = ::popen((LORVANE_CLI " " + arguments + " 2>/dev/null").c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe))
    {
        output.append(part.data(), size);
    }
    return output + "status " + std::to_string(::pclose(pipe) >> 8);
}

} // namespace

TEST(GenICamBatchTool, ListsSetsAndGrabs)
{
    ::setenv("ZLT_PROVIDER_PATH", PROVIDER_FOLDER, 1);
    const FakeCamera camera;
    const std::string id = FakeId;
    EXPECT_EQ(id + "\tFake\tBENCH1\tBench Family\tno-dpc\tfree\nstatus 0", Cli("cameras"));
    EXPECT_EQ("status 0", Cli("set " + id + " ExposureTimeAbs 2500"));
    EXPECT_EQ("status 0", Cli("set " + id + " PixelFormat BayerRG8"));
    EXPECT_EQ("status 1", Cli("set " + id + " ExposureTimeAbs 1"));
    EXPECT_EQ("ExposureTimeAbs\t2500\tfloat\trw\t10..100000\nPixelFormat\tBayerRG8\tenumeration\trw\tMono8,BayerRG8\n"
              "DefectMaskEnable\tfalse\tboolean\trw\t\nstatus 0",
              Cli("features " + id + " ExposureTimeAbs PixelFormat DefectMaskEnable"));
    const std::string all = Cli("features " + id);
    EXPECT_NE(std::string::npos, all.find("\nstatus 0")) << all;
    EXPECT_NE(std::string::npos, all.find("\nStopFails\t")) << "behind one that cannot be read: " << all;
    const std::string file =
        (std::filesystem::temp_directory_path() / ("grab-" + std::to_string(::getpid()) + ".png")).string();
    EXPECT_EQ(file + "\t2048\t2048\tBayerRG8\nstatus 0", Cli("grab " + id + " --frames 3 -o " + file));
    EXPECT_TRUE(std::filesystem::remove(file));
    const Process holder({"/proc/self/exe", "--hold"});
    std::string list;
    for (int i = 0; i < 5 && list.find("in-use") == std::string::npos; ++i)
    {
        list = Cli("cameras");
    }
    EXPECT_EQ(id + "\tFake\tBENCH1\t-\tunknown\tin-use\nstatus 0", list);
    EXPECT_EQ("status 1", Cli("features " + id));
}

TEST(GenICamBatchTool, WritesACorrectionTable)
{
    ::setenv("ZLT_PROVIDER_PATH", PROVIDER_FOLDER, 1);
    const FakeCamera camera({"-g", FILE_DESCRIPTION});
    const std::string id = FakeId;
    const std::string list = (std::filesystem::temp_directory_path() / ("list-" + std::to_string(::getpid()))).string();
    std::ofstream file(list);
    file << "<Camera>";
    std::string lines;
    for (int i = 0; i < 1000; ++i) // many packets
    {
        const std::string x = std::to_string(i * 7 % 1280);
        const std::string y = std::to_string(i);
        file << R"(<Pixel LP:=")" << i << R"("><Type Type:="0"/><Data><Coordinates x:=")" << x << R"(" y:=")" << y
             << R"("/><Width width:="1"/><Height height:="1"/></Data></Pixel>)";
        lines += "0 " + x + " " + y + " 1 1\n";
    }
    file << "</Camera>" << std::flush;
    EXPECT_EQ("written 1000, read back 1000, equal\nstatus 0", Cli("write " + id + " User " + list));
    EXPECT_EQ(lines + "status 0", Cli("read " + id + " User"));
    EXPECT_EQ("status 0", Cli("enable " + id + " User"));
    EXPECT_EQ("User\tyes\tyes\tno\tyes\tyes\t-\nstatus 0", Cli("sets " + id));
    std::filesystem::remove(list);
}

} // namespace GenICam
