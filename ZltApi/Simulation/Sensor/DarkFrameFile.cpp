// Reading of PGM and PNG dark frames. The files are not trusted: sizes are settled before memory is taken.
#include "DarkFrameFile.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace Simulation
{

namespace
{

constexpr float FullScaleCounts = 255.0F * 16.0F;
// Room for headers, comments and the text chunks of a PNG file beside the pixels.
constexpr std::uint64_t HeaderRoom = 1U << 20U;
constexpr std::array<unsigned char, 8> PngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

using Bytes = std::vector<unsigned char>;

class DarkFrameReader
{
public:
    DarkFrameReader(const std::string& path, std::uint32_t maxWidth, std::uint32_t maxHeight)
        : m_path(path),
          m_maxWidth(maxWidth),
          m_maxHeight(maxHeight)
    {
    }

    DarkFrame Read()
    {
        ReadBytes();
        if (m_bytes.size() >= PngSignature.size() &&
            std::equal(PngSignature.begin(), PngSignature.end(), m_bytes.begin()))
        {
            return ReadPng();
        }
        if (m_bytes.size() >= 2 && m_bytes[0] == 'P' && m_bytes[1] == '5')
        {
            return ReadPgm();
        }
        Fail("is neither a binary PGM file nor a PNG file.");
    }

private:
    [[noreturn]] void Fail(const std::string& reason) const
    {
        throw std::runtime_error("The dark frame \"" + m_path + "\" " + reason);
    }

    void ReadBytes()
    {
        std::ifstream file(m_path, std::ios::binary | std::ios::ate);
        // A directory opens like a file, and fails or gives an absurd size only here.
        const std::streamoff end = file ? static_cast<std::streamoff>(file.tellg()) : -1;
        if (end < 0)
        {
            Fail("cannot be read: " + std::generic_category().message(errno) + ".");
        }
        const std::uint64_t limit = 2ULL * m_maxWidth * m_maxHeight + HeaderRoom;
        if (static_cast<std::uint64_t>(end) > limit)
        {
            Fail("is larger than any image of the sensor's size.");
        }
        m_bytes.resize(static_cast<std::size_t>(end));
        file.seekg(0);
        if (!m_bytes.empty() && !file.read(reinterpret_cast<char*>(m_bytes.data()), end))
        {
            Fail("cannot be read to its end.");
        }
    }

    // The frame without its counts.
    [[nodiscard]] DarkFrame MakeFrame(std::uint64_t width, std::uint64_t height) const
    {
        if (width == 0 || height == 0)
        {
            Fail("has no pixels.");
        }
        if (width > m_maxWidth || height > m_maxHeight)
        {
            Fail("has " + std::to_string(width) + " x " + std::to_string(height) + " pixels, the sensor only " +
                 std::to_string(m_maxWidth) + " x " + std::to_string(m_maxHeight) + ".");
        }
        DarkFrame frame;
        frame.width = static_cast<std::uint32_t>(width);
        frame.height = static_cast<std::uint32_t>(height);
        return frame;
    }

    DarkFrame ReadPgm()
    {
        m_position = 2;
        const std::uint64_t width = PgmNumber();
        const std::uint64_t height = PgmNumber();
        const std::uint64_t fullScale = PgmNumber();
        DarkFrame frame = MakeFrame(width, height);
        if (fullScale == 0 || fullScale > 0xFFFF)
        {
            Fail("has a damaged PGM header: its brightest value must lie between 1 and 65535.");
        }
        if (m_position == m_bytes.size() || !IsSpace(m_bytes[m_position]))
        {
            Fail("has a damaged PGM header: it does not end with white space.");
        }
        ++m_position;
        const std::size_t valueSize = fullScale > 0xFF ? 2 : 1;
        const std::size_t pixels = static_cast<std::size_t>(frame.width) * frame.height;
        if ((m_bytes.size() - m_position) / valueSize < pixels)
        {
            Fail("ends before its last pixel.");
        }
        const float scale = FullScaleCounts / static_cast<float>(fullScale);
        frame.counts.reserve(pixels);
        for (std::size_t i = 0; i < pixels; ++i)
        {
            // Wide values stand with the high byte first.
            unsigned value = m_bytes[m_position++];
            if (valueSize == 2)
            {
                value = value << 8U | m_bytes[m_position++];
            }
            frame.counts.push_back(static_cast<float>(std::min<std::uint64_t>(value, fullScale)) * scale);
        }
        return frame;
    }

    static bool IsSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    static bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }

    std::uint64_t PgmNumber()
    {
        const std::size_t start = m_position;
        while (m_position < m_bytes.size() && (IsSpace(m_bytes[m_position]) || m_bytes[m_position] == '#'))
        {
            if (m_bytes[m_position] == '#')
            {
                const auto end =
                    std::find(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_position), m_bytes.end(), '\n');
                m_position = static_cast<std::size_t>(end - m_bytes.begin());
            }
            else
            {
                ++m_position;
            }
        }
        if (m_position == start || m_position == m_bytes.size() || !IsDigit(m_bytes[m_position]))
        {
            Fail("has a damaged PGM header: a number is missing.");
        }
        constexpr std::uint64_t Largest = 1'000'000'000;
        std::uint64_t number = 0;
        for (; m_position < m_bytes.size() && IsDigit(m_bytes[m_position]); ++m_position)
        {
            number = std::min(number * 10 + (m_bytes[m_position] - static_cast<unsigned>('0')), Largest);
        }
        return number;
    }

    DarkFrame ReadPng()
    {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        const std::unique_ptr<png_image, decltype(&png_image_free)> guard(&image, &png_image_free);
        if (png_image_begin_read_from_memory(&image, m_bytes.data(), m_bytes.size()) == 0)
        {
            Fail(std::string("is a damaged PNG file: ") + image.message + ".");
        }
        DarkFrame frame = MakeFrame(image.width, image.height);
        if (image.format != PNG_FORMAT_GRAY)
        {
            Fail("is a PNG file, but not a grey one of 8 bits without transparency.");
        }
        Bytes pixels(static_cast<std::size_t>(frame.width) * frame.height);
        if (png_image_finish_read(&image, nullptr, pixels.data(), static_cast<png_int_32>(frame.width), nullptr) == 0)
        {
            Fail(std::string("is a damaged PNG file: ") + image.message + ".");
        }
        frame.counts.reserve(pixels.size());
        for (const unsigned char value : pixels)
        {
            frame.counts.push_back(static_cast<float>(value) * FullScaleCounts / 255.0F);
        }
        return frame;
    }

    const std::string& m_path;
    std::uint32_t m_maxWidth;
    std::uint32_t m_maxHeight;
    Bytes m_bytes;
    std::size_t m_position = 0; // in a PGM header
};

} // namespace

DarkFrame ReadDarkFrame(const std::string& path, std::uint32_t maxWidth, std::uint32_t maxHeight)
{
    return DarkFrameReader(path, maxWidth, maxHeight).Read();
}

} // namespace Simulation
