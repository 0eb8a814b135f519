// Frames on their way through the controller into the image buffer, value for value.
#include "AsynchronousCameraController.h"

#include "CustomListView.h"
#include "ImageDoubleBuffer.h"
#include "ListedSystem.h"
#include "ZltApi/PixelFormat.h"

#include <atomic>
#include <cstdlib>
#include <future>
#include <new>

namespace
{
std::atomic<int> g_allocations{0};
}

// The sanitizers have a heap of their own; the analyzer takes each new for a malloc.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && !defined(__clang_analyzer__)
void* operator new(std::size_t size)
{
    void* const memory = (++g_allocations, std::malloc(size));
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
#endif

namespace
{

using namespace std::chrono_literals;

class ControllerImagesTest : public ListedSystem
{
protected:
    ControllerImagesTest() : camera(Add("A"))
    {
        (*camera)["Width"].maximum = std::int64_t{37};
        (*camera)["Height"].maximum = std::int64_t{10};
        controller.SetNewIndex(0, "A");
        QObject::connect(&controller, &AsynchronousCameraController::SendPixmapToArea, [this] { ++announced; });
    }
    void Start(std::uint32_t format)
    {
        controller.StopIfStreaming();
        (*camera)["PixelFormat"].value = std::int64_t{format};
        controller.StartStopAcquisition();
    }
    // Whether it was announced; the camera has it back in any case.
    bool Shows(const std::shared_ptr<ListedFrame>& frame)
    {
        const int before = announced;
        camera->observer->FrameReceived(frame);
        EXPECT_EQ(camera->queued.back(), frame);
        return announced == before + 1;
    }

    std::shared_ptr<ListedCamera> camera;
    CustomListView view;
    ImageDoubleBuffer images;
    AsynchronousCameraController controller{&view, -1, QString(), false, images};
    int announced = 0;
};

constexpr unsigned Pixels = 36 * 10;

// The image of this grey value for each pixel, with noise in the bits that are not shown.
template <class Grey> std::vector<unsigned char> Image(int bits, bool isPacked, const Grey& grey)
{
    std::vector<unsigned char> bytes;
    for (unsigned i = 0; i < Pixels; ++i)
    {
        const unsigned word = (grey(i) << (bits - 8)) | (i % (1U << (bits - 8)));
        isPacked&& i % 2 == 1 ? bytes.push_back(static_cast<unsigned char>(0xCD + i)) : void();
        bytes.push_back(static_cast<unsigned char>(isPacked ? word >> 4 : word));
        bits > 8 && !isPacked ? bytes.push_back(static_cast<unsigned char>(word >> 8)) : void();
    }
    return bytes;
}

unsigned Ramp(unsigned i)
{
    return i * 7 % 256;
}

unsigned Flat(unsigned i)
{
    return i / 36 % 2 == i % 2 ? 200 - i % 2 * 150 : 100; // red 200, green 100, blue 50
}

TEST_F(ControllerImagesTest, MosaicsAsGreyValues)
{
    const std::vector<std::tuple<std::uint32_t, int, bool>> formats = {{ZltPixelFormatBayerGR8, 8, false},
                                                                       {ZltPixelFormatBayerGR10, 10, false},
                                                                       {ZltPixelFormatBayerGR12, 12, false},
                                                                       {ZltPixelFormatBayerGR12Packed, 12, true}};
    for (const auto& [first, bits, isPacked] : formats)
    {
        for (std::uint32_t format = first; format < first + 4; ++format)
        {
            Start(format);
            controller.SetDebayeringOnOff(false);
            ASSERT_TRUE(Shows(std::make_shared<ListedFrame>(0, format, Image(bits, isPacked, Ramp))));
            for (unsigned i = 0; i < Pixels; ++i)
            {
                ASSERT_EQ(images.Front()->pixel(int(i % 36), int(i / 36)), 0xFF000000U | (Ramp(i) * 0x010101U))
                    << format;
            }
        }
    }
    QImage tooSmall(34, 10, QImage::Format_RGB32);
    EXPECT_DEATH(controller.TransformBayer8Image(nullptr, tooSmall), "img.byteCount\\(\\) == count \\* 4");
}

TEST_F(ControllerImagesTest, ColourAndAllocations)
{
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
        const auto frame = std::make_shared<ListedFrame>(0, format, Image(8, false, Flat));
        EXPECT_TRUE(Shows(frame) && Shows(frame)) << "both images";
        EXPECT_EQ(images.Front()->pixel(4, 4), expected) << std::hex << format;
        const uchar* const memory = images.Front()->constBits();
        camera->queued.reserve(camera->queued.size() + 2);
        const int before = g_allocations;
        EXPECT_TRUE(Shows(frame) && Shows(frame));
        EXPECT_EQ(g_allocations, before);
        EXPECT_EQ(images.Front()->constBits(), memory) << "nor has the image been copied";
    }
    const float swapped[] = {0, 0, 1, 0, 1, 0, 1, 0, 0}; // red and blue
    QImage image(36, 10, QImage::Format_RGB32);
    controller.CopyToImage(Image(8, false, Flat).data(), ZltPixelFormatBayerRG8, image, swapped);
    EXPECT_EQ(image.pixel(4, 4), 0xFF3264C8U);
}

TEST_F(ControllerImagesTest, FramesThatAreNotShown)
{
    const auto good = [] { return std::make_shared<ListedFrame>(0, ZltPixelFormatMono8, Image(8, false, Ramp)); };
    const std::vector<std::pair<const char*, void (*)(ListedFrame&)>> cases = {
        {"incomplete", [](ListedFrame& frame) { frame.status = ZltApi::FrameStatusIncomplete; }},
        {"another format", [](ListedFrame& frame) { frame.format = ZltPixelFormatBayerRG8; }},
        {"wider", [](ListedFrame& frame) { frame.width = 38; }},
        {"flatter", [](ListedFrame& frame) { frame.height = 8; }},
        {"too few bytes", [](ListedFrame& frame) { --frame.size; }},
        {"no image", [](ListedFrame& frame) { frame.result = ZltErrorInvalidCall; }}};
    for (const auto& [what, spoil] : cases)
    {
        Start(ZltPixelFormatMono8);
        const auto frame = good();
        spoil(*frame);
        const QImage* const front = images.Front();
        EXPECT_FALSE(Shows(frame)) << what;
        EXPECT_EQ(images.Front(), front) << what;
    }
    images.SetDefImages();
    EXPECT_FALSE(Shows(good()));
    auto swap = std::async(std::launch::async, [&] { images.Swap(); });
    EXPECT_EQ(swap.wait_for(50ms), std::future_status::timeout) << "the images are out of use";
    images.Unlock();
    swap.get();
}

} // namespace
