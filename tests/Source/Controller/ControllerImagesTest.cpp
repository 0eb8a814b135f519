// Frames on their way through the controller into the image buffer, value for value and while settings change.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "FrameObserver.h"
#include "ImageDoubleBuffer.h"
#include "ListedSystem.h"
#include "ZltApi/PixelFormat.h"

#include <QSignalSpy>

#include <array>
#include <atomic>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<int> g_allocations{0};
}

void* operator new(std::size_t size)
{
    ++g_allocations;
    void* const memory = std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{

using Controller = AsynchronousCameraController;

// Everything of it can be wrong.
struct MemoryFrame final : ZltApi::Frame
{
    MemoryFrame(std::uint32_t pixelFormat, std::vector<unsigned char> content)
        : format(pixelFormat),
          bytes(std::move(content)),
          size(bytes.size())
    {
    }
    ZltErrorType GetImage(unsigned char*& image) override { return image = bytes.data(), result; }
    ZltErrorType GetReceiveStatus(ZltApi::FrameStatus& is) const override { return is = status, ZltErrorSuccess; }
    ZltErrorType GetBufferSize(std::uint64_t& is) const override { return is = size, ZltErrorSuccess; }
    ZltErrorType GetWidth(std::uint32_t& is) const override { return is = width, ZltErrorSuccess; }
    ZltErrorType GetHeight(std::uint32_t& is) const override { return is = height, ZltErrorSuccess; }
    ZltErrorType GetPixelFormat(std::uint32_t& is) const override { return is = format, ZltErrorSuccess; }
    ZltErrorType GetFrameID(std::uint64_t&) const override { return ZltErrorNotImplemented; }

    std::uint32_t format;
    std::vector<unsigned char> bytes;
    std::uint64_t size;
    std::uint32_t width = 36;
    std::uint32_t height = 10;
    ZltApi::FrameStatus status = ZltApi::FrameStatusComplete;
    ZltErrorType result = ZltErrorSuccess;
};

class ControllerImagesTest : public ListedSystem
{
protected:
    static constexpr std::size_t Pixels = 36 * 10;

    ControllerImagesTest() : camera(Add("A"))
    {
        (*camera)["Width"].maximum = std::int64_t{37};
        (*camera)["Height"].maximum = std::int64_t{10};
        controller.SetNewIndex(0, "A");
        QObject::connect(&controller, &Controller::SendPixmapToArea, [this] { ++announced; });
    }
    void Start(std::uint32_t format)
    {
        controller.StopIfStreaming();
        (*camera)["PixelFormat"].value = std::int64_t{format};
        controller.StartStopAcquisition();
    }
    // Whether it was announced; the camera has it back in any case.
    bool Shows(const std::shared_ptr<MemoryFrame>& frame)
    {
        const int before = announced;
        camera->observer->FrameReceived(frame);
        EXPECT_EQ(camera->queued.back(), frame);
        return announced == before + 1;
    }
    std::uint32_t Pixel(int x, int y) { return images.Front()->pixel(x, y); }

    std::shared_ptr<ListedCamera> camera;
    CustomListView view;
    ImageDoubleBuffer images;
    Controller controller{&view, -1, QString(), false, images};
    int announced = 0;
};

// The mosaic whose grey value is 7 times the pixel number, with noise in the bits that are not shown.
std::vector<unsigned char> Mosaic(int bits, bool isPacked, std::size_t pixels)
{
    std::vector<unsigned char> bytes;
    for (std::size_t i = 0; i < pixels; ++i)
    {
        const std::size_t word = ((i * 7 % 256) << (bits - 8)) | (i % (1U << (bits - 8)));
        isPacked&& i % 2 == 1 ? bytes.push_back(static_cast<unsigned char>(0xCD + i)) : void();
        bytes.push_back(static_cast<unsigned char>(isPacked ? word >> 4 : word));
        bits > 8 && !isPacked ? bytes.push_back(static_cast<unsigned char>(word >> 8)) : void();
    }
    return bytes;
}

TEST_F(ControllerImagesTest, MosaicsAsGreyValues)
{
    const std::vector<std::tuple<std::uint32_t, int, bool>> formats = {{ZltPixelFormatBayerGR8, 8, false},
                                                                       {ZltPixelFormatBayerGR10, 10, false},
                                                                       {ZltPixelFormatBayerGR12, 12, false},
                                                                       {ZltPixelFormatBayerGR12Packed, 12, true}};
    for (const auto& [first, bits, isPacked] : formats)
    {
        for (std::uint32_t pattern = 0; pattern < 4; ++pattern)
        {
            Start(first + pattern);
            controller.SetDebayeringOnOff(false);
            ASSERT_TRUE(Shows(std::make_shared<MemoryFrame>(first + pattern, Mosaic(bits, isPacked, Pixels))));
            for (unsigned i = 0; i < Pixels; ++i)
            {
                ASSERT_EQ(Pixel(int(i % 36), int(i / 36)), 0xFF000000U | (i * 7 % 256 * 0x010101U))
                    << first << ' ' << i;
            }
        }
    }
    QImage image(36, 10, QImage::Format_RGB32);
    std::vector<unsigned char> words(Pixels * 2);
    std::copy_n("\xFF\x03\x04\x00\x03\x00", 6, words.begin());
    controller.TransformBayer10Image(words.data(), image);
    EXPECT_EQ(std::tuple(image.pixel(0, 0), image.pixel(1, 0), image.pixel(2, 0)),
              std::tuple(0xFFFFFFFFU, 0xFF010101U, 0xFF000000U));
    std::copy_n("\xF0\x0F\x0F\x00", 4, words.begin());
    controller.TransformBayer12Image(words.data(), image);
    EXPECT_EQ(std::tuple(image.pixel(0, 0), image.pixel(1, 0)), std::tuple(0xFFFFFFFFU, 0xFF000000U));
    QImage tooSmall(34, 10, QImage::Format_RGB32);
    EXPECT_DEATH(controller.TransformBayer8Image(words.data(), tooSmall), "img.byteCount\\(\\) == count \\* 4");
}

TEST_F(ControllerImagesTest, FramesThatAreNotShown)
{
    const std::vector<std::pair<const char*, void (*)(MemoryFrame&)>> cases = {
        {"incomplete", [](MemoryFrame& frame) { frame.status = ZltApi::FrameStatusIncomplete; }},
        {"another format", [](MemoryFrame& frame) { frame.format = ZltPixelFormatMono12; }},
        {"wider", [](MemoryFrame& frame) { frame.width = 38; }},
        {"flatter", [](MemoryFrame& frame) { frame.height = 8; }},
        {"too few bytes", [](MemoryFrame& frame) { --frame.size; }},
        {"no image", [](MemoryFrame& frame) { frame.result = ZltErrorInvalidCall; }}};
    for (const auto& [what, spoil] : cases)
    {
        Start(ZltPixelFormatMono8);
        const auto frame = std::make_shared<MemoryFrame>(ZltPixelFormatMono8, Mosaic(8, false, Pixels));
        spoil(*frame);
        const QImage* const front = images.Front();
        EXPECT_FALSE(Shows(frame)) << what;
        EXPECT_EQ(images.Front(), front) << what;
    }
    images.SetDefImages();
    EXPECT_FALSE(Shows(std::make_shared<MemoryFrame>(ZltPixelFormatMono8, Mosaic(8, false, Pixels))));
    controller.StopIfStreaming(); // needs the lock that the frame has given back
    Start(ZltPixelFormatMono8);
    // What the acquisition before announced meets an incomplete frame of this one.
    auto* const observer = dynamic_cast<FrameObserver*>(camera->observer.get());
    QObject::disconnect(observer, nullptr, &controller, nullptr);
    const QSignalSpy keepsTheFrameQueued(observer, &FrameObserver::FrameReceivedSignal);
    const auto frame = std::make_shared<MemoryFrame>(ZltPixelFormatMono8, Mosaic(8, false, Pixels));
    frame->status = ZltApi::FrameStatusIncomplete;
    observer->FrameReceived(frame);
    controller.OnFrameReady(ZltApi::FrameStatusComplete);
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(camera->queued.back(), frame);
}

TEST_F(ControllerImagesTest, ColourAndAllocations)
{
    std::vector<unsigned char> flat(Pixels); // red 200, green 100, blue 50
    for (std::size_t i = 0; i < Pixels; ++i)
    {
        flat[i] = std::array<unsigned char, 4>{200, 100, 100, 50}[(i / 36 % 2) * 2 + i % 2];
    }
    const std::vector<std::tuple<std::uint32_t, bool, std::uint32_t>> cases = {
        {ZltPixelFormatBayerRG8, true, 0xFFC86432U},
        {ZltPixelFormatBayerBG8, true, 0xFF3264C8U},
        {ZltPixelFormatBayerRG8, false, 0xFFC8C8C8U},
        {ZltPixelFormatMono8, true, 0xFFC8C8C8U},
        {ZltPixelFormatMono8, false, 0xFFC8C8C8U}};
    for (const auto& [format, debayering, expected] : cases)
    {
        Start(format);
        controller.SetDebayeringOnOff(debayering);
        EXPECT_TRUE(controller.GetIfStreaming());
        const auto frame = std::make_shared<MemoryFrame>(format, flat);
        EXPECT_TRUE(Shows(frame) && Shows(frame)) << "both images";
        EXPECT_EQ(Pixel(4, 4), expected) << std::hex << format;
        const uchar* const memory = images.Front()->constBits();
        camera->queued.reserve(camera->queued.size() + 2);
        const int before = g_allocations;
        EXPECT_TRUE(Shows(frame) && Shows(frame));
        EXPECT_EQ(g_allocations, before);
        EXPECT_EQ(images.Front()->constBits(), memory) << "nor has the image been copied";
    }
    const float swapped[] = {0, 0, 1, 0, 1, 0, 1, 0, 0}; // red and blue
    QImage image(36, 10, QImage::Format_RGB32);
    controller.CopyToImage(flat.data(), ZltPixelFormatBayerRG8, image, swapped);
    EXPECT_EQ(image.pixel(4, 4), 0xFF3264C8U);
}

} // namespace
