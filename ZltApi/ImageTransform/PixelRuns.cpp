// Conversion of runs of pixels, as long as a whole image: rows follow one another without a gap.
#include "PixelRuns.h"

#include "PackedPixels.h"
#include "PixelBlocks.h"

#include <cassert>
#include <cstring>

namespace ZltApi::ImageTransform
{

namespace
{

struct ByteWriter
{
    static constexpr std::size_t PixelBytes = 1;
    static void Write(const Channel& pixels, std::uint8_t* destination)
    {
        cv::v_store(destination, pixels.First);
        cv::v_store(destination + 16, pixels.Second);
    }
};

struct BgraWriter
{
    static constexpr std::size_t PixelBytes = BgraBytes;
    static void Write(const ColorBlock& pixels, std::uint8_t* destination)
    {
        const cv::v_uint8x16 opaque = cv::v_setall_u8(255);
        cv::v_store_interleave(destination, pixels.Blue.First, pixels.Green.First, pixels.Red.First, opaque);
        cv::v_store_interleave(destination + 16 * BgraBytes, pixels.Blue.Second, pixels.Green.Second, pixels.Red.Second,
                               opaque);
    }
};

// The pixels after the last whole block go through a block of their own, so that nothing beyond the run is touched.
template <class Reader, class Writer>
void ConvertRun(const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    constexpr std::size_t DestinationBytes = BlockPixels * Writer::PixelBytes;
    for (; pixels >= BlockPixels; pixels -= BlockPixels)
    {
        Writer::Write(Reader::Read(source), destination);
        source += Reader::SourceBytes;
        destination += DestinationBytes;
    }
    if (pixels > 0)
    {
        std::uint8_t last[Reader::SourceBytes] = {};
        std::uint8_t converted[DestinationBytes];
        std::memcpy(last, source, pixels * Reader::SourceBytes / BlockPixels);
        Writer::Write(Reader::Read(last), converted);
        std::memcpy(destination, converted, pixels * Writer::PixelBytes);
    }
}

using Run = void (*)(const std::uint8_t*, std::uint8_t*, std::size_t);

// Null for a packed and for a colour encoding. The grey readers are wrapped before they meet the writer.
template <class Writer, template <class> class Wrapped> Run FindGreyRun(Encoding encoding)
{
    switch (encoding)
    {
    case Encoding::Byte:
        return &ConvertRun<Wrapped<ByteReader>, Writer>;
    case Encoding::Word10:
        return &ConvertRun<Wrapped<WordReader<10>>, Writer>;
    case Encoding::Word12:
        return &ConvertRun<Wrapped<WordReader<12>>, Writer>;
    case Encoding::Word14:
        return &ConvertRun<Wrapped<WordReader<14>>, Writer>;
    case Encoding::Word16:
        return &ConvertRun<Wrapped<WordReader<16>>, Writer>;
    default:
        return nullptr;
    }
}

template <class Reader> using Plain = Reader;

Run FindBgraRun(Encoding encoding)
{
    switch (encoding)
    {
    case Encoding::Rgba:
        return &ConvertRun<QuadReader<true>, BgraWriter>;
    case Encoding::Bgra:
        return &ConvertRun<QuadReader<false>, BgraWriter>;
    case Encoding::Uyvy:
        return &ConvertRun<YuvReader<false>, BgraWriter>;
    case Encoding::Yuyv:
        return &ConvertRun<YuvReader<true>, BgraWriter>;
    default:
        return FindGreyRun<BgraWriter, GreyReader>(encoding);
    }
}

} // namespace

void ReduceToBytes(const PixelLayout& layout, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    if (IsPacked(layout.Code))
    {
        UnpackToBytes(layout.Code, source, destination, pixels);
        return;
    }
    const Run run = FindGreyRun<ByteWriter, Plain>(layout.Code);
    assert(run != nullptr);
    run(source, destination, pixels);
}

void ConvertToBgra(const PixelLayout& layout, const std::uint8_t* source, std::uint8_t* destination, std::size_t pixels)
{
    if (IsPacked(layout.Code))
    {
        UnpackToBgra(layout.Code, source, destination, pixels);
        return;
    }
    const Run run = FindBgraRun(layout.Code);
    assert(run != nullptr);
    run(source, destination, pixels);
}

} // namespace ZltApi::ImageTransform
