// Reading frames: which bits of a sample are kept, and which files are refused.
#include "FrameFile.h"

#include "WorkingFolder.h"

#include <string>
#include <vector>

using namespace std::string_literals;

namespace
{

class FrameFile : public ::testing::Test, protected WorkingFolder
{
protected:
    static QString Store(const std::string& bytes)
    {
        WriteFile("frame", QByteArray::fromStdString(bytes));
        return "frame";
    }
};

TEST_F(FrameFile, KeepsTheUpperBitsOfGreySamples)
{
    const std::vector<std::pair<std::string, std::vector<int>>> cases{
        {"P5\n# dark\n3 1\n255\n\x00\x28\xff"s, {0x00, 0x28, 0xff}},
        {"P5 3 1 65535\n\x27\xff\x28\x00\xff\xff"s, {0x27, 0x28, 0xff}},
        {"P5 3 # 12 bits\n1 4095\n\x02\x7f\x02\x80\x0f\xff"s, {0x27, 0x28, 0xff}}};
    for (const auto& [bytes, expected] : cases)
    {
        const QImage frame = LoadFrameFile(Store(bytes), nullptr);
        ASSERT_EQ(frame.size(), QSize(3, 1)) << bytes;
        const uchar* line = frame.constScanLine(0);
        EXPECT_EQ(std::vector<int>(line, line + 3), expected) << bytes;
    }
    QImage wide(2, 1, QImage::Format_Grayscale16);
    reinterpret_cast<quint16*>(wide.scanLine(0))[0] = 0x28ff; // rounds up to 41 in a plain conversion
    ASSERT_TRUE(wide.save("wide.png"));
    EXPECT_EQ(*LoadFrameFile("wide.png", nullptr).constScanLine(0), 0x28);
}

TEST_F(FrameFile, RefusesWithASentence)
{
    for (const std::string& bytes : {""s, "no image"s, "P5 4 4 255\n\x01\x02"s, "P5 4 4 65535\n\x01\x02"s,
                                     "P5 99999 99999 255\n\x01"s, "P5 999999999 999999999 65535\n\x01"s})
    {
        QString error;
        EXPECT_TRUE(LoadFrameFile(Store(bytes), &error).isNull()) << bytes;
        EXPECT_TRUE(error.startsWith(QLatin1String("The image file \"")) && error.endsWith('.')) << qPrintable(error);
    }
    EXPECT_TRUE(LoadFrameFile("absent.png", nullptr).isNull());
}

} // namespace
