// Reading recorded dark frames, whole and damaged.
#include "DarkFrameFile.h"

#include "SensorTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <fstream>
#include <stdexcept>

namespace Simulation
{

namespace
{

const std::string SixPixels("\x00\x01\x02\x10\x80\xFF", 6);

std::string WriteFile(const std::string& content)
{
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string path = testing::TempDir() + "dark-frame-" + name + ".image";
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string Png(png_uint_32 width, png_uint_32 height, png_uint_32 format, const std::string& pixels)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = format;
    png_alloc_size_t size = 4096;
    std::string bytes(size, '\0');
    EXPECT_NE(png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr), 0);
    bytes.resize(size);
    return bytes;
}

} // namespace

TEST(DarkFrameFileTest, ReadsEachForm)
{
    for (const std::string& content :
         {"P5\n3 2\n255\n" + SixPixels, "P5# made\n#by hand\n 3\t2 # size\r\n255 " + SixPixels,
          "P5 3 2 65535\n" + std::string("\0\0\1\1\2\2\x10\x10\x80\x80\xFF\xFF", 12),
          Png(3, 2, PNG_FORMAT_GRAY, SixPixels)})
    {
        const DarkFrame frame = ReadDarkFrame(WriteFile(content), 3, 2);
        EXPECT_THAT(frame.counts, testing::Pointwise(testing::FloatNear(0.01F), {0, 16, 32, 256, 2048, 4080}));
    }
}

TEST(DarkFrameFileTest, RefusesDamagedFiles)
{
    const std::string png = Png(8, 4, PNG_FORMAT_GRAY, std::string(32, '\x55'));
    std::string flipped = png;
    flipped[png.size() - 20] = static_cast<char>(flipped[png.size() - 20] ^ 0x40);
    for (const auto& [message, contents] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"is neither a binary PGM file nor a PNG file.", {"", "P", "P2 1 1 255 0", png.substr(1)}},
             {"a number is missing.", {"P5", "P51 1 255\n0", "P5 1 x 255\n0", "P5 1 1", "P5 # 1 1 255"}},
             {"does not end with white space.", {"P5 1 1 255", "P5 1 1 255x"}},
             {"has no pixels.", {"P5 0 4 255\n", "P5 4 0 255\n"}},
             {"the sensor only 8 x 4.",
              {"P5 9 1 255\n012345678", "P5 8 18446744073709551617 255\n01234567",
               Png(1, 5, PNG_FORMAT_GRAY, "01234")}},
             {"must lie between 1 and 65535.", {"P5 1 1 0\n0", "P5 1 1 65536\n0"}},
             {"ends before its last pixel.",
              {"P5 8 4 255\n" + std::string(31, 'x'), "P5 8 4 256\n" + std::string(63, 'x')}},
             {"is larger than any image of the sensor's size.", {std::string(2'000'000, 'x')}},
             {"is a damaged PNG file: ", {png.substr(0, 8), png.substr(0, png.size() - 24), flipped}},
             {"not a grey one of 8 bits without transparency.",
              {Png(1, 1, PNG_FORMAT_RGB, "012"), Png(1, 1, PNG_FORMAT_GA, "01"), Png(1, 1, PNG_FORMAT_LINEAR_Y, "01")}},
         })
    {
        for (const std::string& content : contents)
        {
            const std::string path = WriteFile(content);
            EXPECT_THAT([&path] { ReadDarkFrame(path, 8, 4); },
                        testing::ThrowsMessage<std::runtime_error>(testing::AllOf(
                            testing::StartsWith("The dark frame \"" + path + "\" "), testing::HasSubstr(message))))
                << content.substr(0, 30);
        }
    }
    EXPECT_THROW(ReadDarkFrame(testing::TempDir(), 8, 4), std::runtime_error);
}

TEST(DarkFrameFileTest, BecomesTheDarkSignalOfASensor)
{
    SensorConfig config;
    config.width = 64;
    config.height = 48;
    config.darkFrameFile = WriteFile("P5 3 2 255\n" + SixPixels);
    config.darkFrameExposureUs = 20'000.0;
    Sensor sensor(config);
    EXPECT_TRUE(sensor.Faults().empty());
    const Counts raw = Expose(sensor, {40'000.0, 0.0, ReferenceTemperatureC, 0.0, 1.0, true});
    EXPECT_NEAR(raw[0], PedestalCounts, 30.0);
    EXPECT_NEAR(raw[config.width], 0x10 * 16 * 2 + PedestalCounts, 60.0) << "second row, twice the time";
    EXPECT_EQ(raw[config.width + 2], MaxCount);
    EXPECT_TRUE(raw[3] < 100 && raw[2 * config.width] < 100) << "beside and below the recording";
}

} // namespace Simulation
