// Reading recorded dark frames, whole and damaged.
#include "DarkFrameFile.h"

#include "Sensor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <fstream>
#include <stdexcept>

namespace Simulation
{

namespace
{

using testing::HasSubstr;

std::string WriteFile(const std::string& content)
{
    const std::string path =
        testing::TempDir() + "dark-frame-" + testing::UnitTest::GetInstance()->current_test_info()->name() + ".image";
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

// A PNG file of the given pixel bytes.
std::string Png(png_uint_32 width, png_uint_32 height, png_uint_32 format, const std::string& pixels)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = format;
    png_alloc_size_t size = 0;
    EXPECT_NE(png_image_write_get_memory_size(image, size, 0, pixels.data(), 0, nullptr), 0);
    std::string bytes(size, '\0');
    EXPECT_NE(png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr), 0);
    return bytes;
}

std::string Message(const std::string& path)
{
    try
    {
        ReadDarkFrame(path, 8, 4);
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "no error";
}

} // namespace

TEST(DarkFrameFileTest, ReadsEachForm)
{
    const std::vector<std::pair<std::string, std::string>> files{
        {"PGM, 8 bits", std::string("P5\n3 2\n255\n") + std::string("\x00\x01\x02\x10\x80\xFF", 6)},
        {"PGM, comments",
         std::string("P5# made\n#by hand\n 3\t2 # size\r\n255 ") + std::string("\0\1\2\x10\x80\xFF", 6)},
        {"PGM, 16 bits", std::string("P5 3 2 65535\n") + std::string("\0\0\1\1\2\2\x10\x10\x80\x80\xFF\xFF", 12)},
        {"PNG", Png(3, 2, PNG_FORMAT_GRAY, std::string("\x00\x01\x02\x10\x80\xFF", 6))},
    };
    for (const auto& [name, content] : files)
    {
        SCOPED_TRACE(name);
        const DarkFrame frame = ReadDarkFrame(WriteFile(content), 3, 2);
        EXPECT_EQ(frame.width, 3U);
        EXPECT_EQ(frame.height, 2U);
        EXPECT_THAT(frame.counts, testing::Pointwise(testing::FloatNear(0.01F), {0, 16, 32, 256, 2048, 4080}));
    }
}

TEST(DarkFrameFileTest, RefusesDamagedFiles)
{
    const std::string png = Png(8, 4, PNG_FORMAT_GRAY, std::string(32, '\x55'));
    std::string flipped = png;
    flipped[flipped.size() - 20] = static_cast<char>(flipped[flipped.size() - 20] ^ 0x40);
    const std::string notGrey = "is a PNG file, but not a grey one of 8 bits without transparency.";
    const std::vector<std::tuple<std::string, std::string, std::string>> files{
        {"empty", "", "is neither a binary PGM file nor a PNG file."},
        {"plain PGM", "P2 1 1 255 0", "is neither a binary PGM file nor a PNG file."},
        {"only the magic number", "P5", "a number is missing."},
        {"no space after it", "P51 1 255\n0", "a number is missing."},
        {"a word for a number", "P5 1 x 255\n0", "a number is missing."},
        {"an endless comment", "P5 # 1 1 255", "a number is missing."},
        {"no end of header", "P5 1 1 255", "does not end with white space."},
        {"no pixels", "P5 0 4 255\n", "has no pixels."},
        {"too wide", "P5 9 1 255\n012345678", "has 9 x 1 pixels, the sensor only 8 x 4."},
        {"size overflows 64 bits", "P5 8 99999999999999999999999 255\n", "the sensor only 8 x 4."},
        {"no full scale", "P5 1 1 0\n0", "must lie between 1 and 65535."},
        {"full scale too large", "P5 1 1 65536\n0", "must lie between 1 and 65535."},
        {"one byte short", "P5 8 4 255\n" + std::string(31, 'x'), "ends before its last pixel."},
        {"one byte short of 16 bits", "P5 8 4 256\n" + std::string(63, 'x'), "ends before its last pixel."},
        {"longer than any image", std::string(2'000'000, 'x'), "is larger than any image of the sensor's size."},
        {"PNG: signature alone", png.substr(0, 8), "is a damaged PNG file: "},
        {"PNG: cut in the pixels", png.substr(0, png.size() - 24), "is a damaged PNG file: "},
        {"PNG: a bit flipped", flipped, "is a damaged PNG file: "},
        {"PNG: too high", Png(1, 5, PNG_FORMAT_GRAY, "01234"), "has 1 x 5 pixels, the sensor only 8 x 4."},
        {"PNG: colour", Png(1, 1, PNG_FORMAT_RGB, "012"), notGrey},
        {"PNG: transparent", Png(1, 1, PNG_FORMAT_GA, "01"), notGrey},
        {"PNG: 16 bits", Png(1, 1, PNG_FORMAT_LINEAR_Y, "01"), notGrey},
    };
    for (const auto& [name, content, message] : files)
    {
        const std::string path = WriteFile(content);
        EXPECT_THAT(Message(path), testing::AllOf(HasSubstr("The dark frame \"" + path + "\" "), HasSubstr(message)))
            << name;
    }
    EXPECT_THAT(Message(testing::TempDir() + "no/such/file"), HasSubstr("cannot be read: No such file or directory."));
    EXPECT_THAT(Message(testing::TempDir()), HasSubstr("The dark frame"));
}

TEST(DarkFrameFileTest, BecomesTheDarkSignalOfASensor)
{
    SensorConfig config;
    config.width = 64;
    config.height = 48;
    config.darkFrameFile = WriteFile(std::string("P5 3 2 255\n") + std::string("\x00\x20\x40\x60\x80\xA0", 6));
    config.darkFrameExposureUs = 20'000.0;
    Sensor sensor(config);
    EXPECT_TRUE(sensor.Faults().empty());
    ExposureSettings settings;
    settings.covered = true;
    // Twice the time of the recording, and the recording's own: grey values count 16 and 32.
    for (const auto& [exposureUs, factor] : {std::pair{20'000.0, 16.0}, {40'000.0, 32.0}})
    {
        settings.exposureUs = exposureUs;
        std::vector<double> mean(6);
        std::vector<std::uint16_t> raw;
        for (settings.frameNumber = 0; settings.frameNumber < 400; ++settings.frameNumber)
        {
            sensor.Expose(settings, raw);
            for (std::size_t i = 0; i < mean.size(); ++i)
            {
                mean[i] += (raw[i / 3 * config.width + i % 3] - PedestalCounts) / 400.0;
            }
        }
        for (std::size_t i = 0; i < mean.size(); ++i)
        {
            EXPECT_NEAR(mean[i], std::min(factor * 32.0 * static_cast<double>(i), MaxCount - PedestalCounts), 6.0);
        }
        EXPECT_LT(raw[3], 100) << "beside the recording";
        EXPECT_LT(raw[2 * config.width], 100) << "below the recording";
    }
    config.darkFrameExposureUs = 0.0;
    EXPECT_THROW(Sensor{config}, std::runtime_error);
}

} // namespace Simulation
