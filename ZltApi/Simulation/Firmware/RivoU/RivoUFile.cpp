// The defect file of the Rivo U family inside the camera.
#include "Firmware/RivoU/RivoUFile.h"

#include <algorithm>
#include <array>
#include <optional>

namespace Simulation
{

namespace
{

// Cameras in the field hold such files: no value may ever change.
constexpr std::uint32_t FirstWord = 2;
constexpr std::uint32_t SecondWord = 4;
constexpr std::size_t HeadWords = 6;
constexpr std::uint32_t IndexWords = 16;    // one for each sixteenth of the sensor
constexpr std::uint32_t IndexSize = 32;     // bytes
constexpr std::uint32_t CountBits = 0x7FFF; // of a data set's number of words
constexpr std::uint16_t Kind = 0xC000;
constexpr std::uint16_t Value = 0x3FFF;
constexpr std::uint16_t PixelWord = 0x0000;
constexpr std::uint16_t RunWord = 0x4000;
constexpr std::uint16_t RowWord = 0x8000;
constexpr std::uint16_t EndWord = 0xC000;

using Words = std::vector<std::uint16_t>;
using Index = std::array<std::uint16_t, IndexWords>;

bool IsA(std::uint16_t word, std::uint16_t kind)
{
    return (word & Kind) == kind;
}

// Where the data sets of a file stand, in words.
struct Places
{
    Places(Mirroring mirrors, std::size_t words) : able(mirrors), setWords(words) {}

    std::size_t IndexOf(bool mirroredY) const { return mirroredY ? HeadWords + UprightWords() : HeadWords; }
    std::size_t SetOf(Mirroring mirroring) const
    {
        return IndexOf(mirroring.y) + IndexWords + (mirroring.x ? setWords : 0);
    }
    std::size_t End() const { return HeadWords + UprightWords() + (able.y ? IndexWords + 2 * setWords : 0); }

    Mirroring able;
    std::size_t setWords;

private:
    std::size_t UprightWords() const { return IndexWords + (able.x ? 2 : 1) * setWords; }
};

// The places, if the head is right and the whole file is there.
std::optional<Places> ParseHead(const Words& words, Mirroring able)
{
    const std::size_t empty = Places(able, 0).End();
    const std::size_t sets = (able.x ? 2U : 1U) + (able.y ? 2U : 0U);
    if (words.size() < empty + sets || (words.size() - empty) % sets != 0)
    {
        return std::nullopt;
    }
    const Places places(able, (words.size() - empty) / sets);
    const std::uint32_t size = words[2] | static_cast<std::uint32_t>(words[3]) << 16;
    if (words[0] != FirstWord || words[1] != SecondWord || size != 2 * words.size() ||
        words[4] != (places.setWords & CountBits) * 2 || words[5] != IndexSize)
    {
        return std::nullopt;
    }
    return places;
}

// For each sixteenth of the sensor the first pair of words that holds one of its rows; for one without rows, what the
// one before has.
Index MakeIndex(const std::uint16_t* set, std::size_t count, std::uint32_t height)
{
    Index index{};
    std::array<bool, IndexWords> isSet{};
    const std::uint32_t rows = height / IndexWords;
    for (std::size_t i = 0; i < count / 2 * 2; ++i)
    {
        const std::size_t band = rows == 0 ? 0 : (set[i] & Value) / rows;
        if (IsA(set[i], RowWord) && band < IndexWords && !isSet[band])
        {
            isSet[band] = true;
            index[band] = static_cast<std::uint16_t>(i / 2);
        }
    }
    for (std::size_t band = 1; band < IndexWords; ++band)
    {
        index[band] = isSet[band] ? index[band] : index[band - 1];
    }
    return index;
}

// Reads one data set from its first word to its end mark. In sensor coordinates its rows ascend, and so do the entries
// within a row.
class SetReader
{
public:
    SetReader(const std::uint16_t* words, std::size_t count, SensorSize sensor, Mirroring mirroring)
        : m_words(words),
          m_count(count),
          m_sensor(sensor),
          m_mirroring(mirroring)
    {
    }

    std::optional<std::vector<PixelPosition>> Read()
    {
        while (m_next < m_count && IsA(m_words[m_next], RowWord))
        {
            const std::uint32_t y = Upright(m_words[m_next++], m_mirroring.y, m_sensor.height);
            if ((m_row && y <= *m_row) || !ReadRow(y))
            {
                return std::nullopt;
            }
            m_row = y;
        }
        const bool isWhole = m_next + 1 == m_count && m_words[m_next] == EndWord;
        return isWhole ? std::optional(std::move(m_pixels)) : std::nullopt;
    }

private:
    static std::uint32_t Upright(std::uint16_t word, bool mirrored, std::uint32_t size)
    {
        return (mirrored ? size - 1 - word : word) & Value;
    }

    bool ReadRow(std::uint32_t y)
    {
        std::uint32_t previous = 0;
        std::uint32_t free = 0; // the first column that no entry has taken yet
        const std::size_t start = m_next;
        for (; m_next < m_count && (IsA(m_words[m_next], PixelWord) || IsA(m_words[m_next], RunWord)); ++m_next)
        {
            const bool isRun = IsA(m_words[m_next], RunWord);
            const std::uint32_t first = Upright(m_words[m_next], m_mirroring.x, m_sensor.width);
            if (isRun && (++m_next == m_count || !IsA(m_words[m_next], RunWord)))
            {
                return false;
            }
            const std::uint32_t last = Upright(m_words[m_next], m_mirroring.x, m_sensor.width);
            if (first < previous || last < first)
            {
                return false;
            }
            previous = first;
            for (free = std::max(free, first); free <= last && free < m_sensor.width && y < m_sensor.height; ++free)
            {
                m_pixels.push_back({free, y});
            }
        }
        return m_next > start;
    }

    const std::uint16_t* m_words;
    const std::size_t m_count;
    const SensorSize m_sensor;
    const Mirroring m_mirroring;
    std::size_t m_next = 0;
    std::optional<std::uint32_t> m_row;
    std::vector<PixelPosition> m_pixels;
};

// The pixels are sorted by row and column.
void AppendSet(Words& file, const std::vector<PixelPosition>& pixels, SensorSize sensor, Mirroring mirroring)
{
    const auto mirrored = [](std::uint32_t at, bool mirror, std::uint32_t size) { return mirror ? size - 1 - at : at; };
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        if (i == 0 || pixels[i].y != pixels[i - 1].y)
        {
            file.push_back(static_cast<std::uint16_t>(RowWord | mirrored(pixels[i].y, mirroring.y, sensor.height)));
        }
        file.push_back(static_cast<std::uint16_t>(PixelWord | mirrored(pixels[i].x, mirroring.x, sensor.width)));
    }
    file.push_back(EndWord);
}

void AppendSets(Words& file, const std::vector<PixelPosition>& pixels, SensorSize sensor, bool ableX, bool mirroredY)
{
    Words sets;
    AppendSet(sets, pixels, sensor, {false, mirroredY});
    const Index index = MakeIndex(sets.data(), sets.size(), sensor.height);
    if (ableX)
    {
        AppendSet(sets, pixels, sensor, {true, mirroredY});
    }
    file.insert(file.end(), index.begin(), index.end());
    file.insert(file.end(), sets.begin(), sets.end());
}

} // namespace

std::vector<PixelPosition> DecodeRivoUFile(const FileBytes& file, SensorSize sensor, Mirroring able,
                                           Mirroring mirroring)
{
    if (file.size() % 2 != 0 || (mirroring.x && !able.x) || (mirroring.y && !able.y))
    {
        return {};
    }
    Words words(file.size() / 2);
    for (std::size_t i = 0; i < words.size(); ++i)
    {
        words[i] = static_cast<std::uint16_t>(file[2 * i] | file[2 * i + 1] << 8);
    }
    const auto places = ParseHead(words, able);
    if (!places)
    {
        return {};
    }
    // The index is that of the first of the two sets behind it; rows and lengths are the same in both.
    const std::uint16_t* const set = words.data() + places->SetOf(mirroring);
    const Index index = MakeIndex(set, places->setWords, sensor.height);
    if (!std::equal(index.begin(), index.end(), words.data() + places->IndexOf(mirroring.y)))
    {
        return {};
    }
    return SetReader(set, places->setWords, sensor, mirroring).Read().value_or(std::vector<PixelPosition>());
}

FileBytes EncodeRivoUFile(std::vector<PixelPosition> pixels, SensorSize sensor, Mirroring able)
{
    std::sort(pixels.begin(), pixels.end(),
              [](const PixelPosition& a, const PixelPosition& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
    Words file(HeadWords);
    AppendSets(file, pixels, sensor, able.x, false);
    const std::size_t setWords = (file.size() - HeadWords - IndexWords) / (able.x ? 2 : 1);
    if (able.y)
    {
        AppendSets(file, pixels, sensor, true, true);
    }
    const auto size = static_cast<std::uint32_t>(2 * file.size());
    const std::array<std::uint32_t, HeadWords> head = {
        FirstWord, SecondWord, size & 0xFFFF, size >> 16, static_cast<std::uint32_t>(setWords & CountBits) * 2,
        IndexSize};
    std::transform(head.begin(), head.end(), file.begin(),
                   [](std::uint32_t number) { return static_cast<std::uint16_t>(number); });
    FileBytes bytes;
    bytes.reserve(2 * file.size());
    for (const std::uint16_t word : file)
    {
        bytes.push_back(static_cast<unsigned char>(word & 0xFF));
        bytes.push_back(static_cast<unsigned char>(word >> 8));
    }
    return bytes;
}

} // namespace Simulation
