// Reading the Ostrel defect file inside the camera.
#include "Firmware/Ostrel/OstrelFile.h"
#include "Firmware/Ostrel/OstrelLayout.h"

#include <algorithm>
#include <optional>

namespace Simulation
{

namespace
{

using namespace OstrelLayout;

// A stretch of the file that has been checked to lie inside it.
struct Span
{
    const unsigned char* data = nullptr;
    std::size_t size = 0;

    std::uint16_t Word(std::size_t index) const
    {
        return static_cast<std::uint16_t>(data[2 * index] | data[2 * index + 1] << 8);
    }
    std::uint32_t Number(std::size_t offset) const
    {
        return Word16(offset) | static_cast<std::uint32_t>(Word16(offset + 2)) << 16;
    }
    // Empty unless the part lies inside.
    std::optional<Span> Part(std::size_t offset, std::size_t length) const
    {
        return offset <= size && length <= size - offset ? std::optional<Span>({data + offset, length}) : std::nullopt;
    }

private:
    std::uint16_t Word16(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(data[offset] | data[offset + 1] << 8);
    }
};

// Walks a chain of blocks by their tags and lengths.
class BlockChain
{
public:
    explicit BlockChain(Span bytes) : m_rest(bytes) {}

    bool AtEnd() const { return m_rest.size == 0; }
    bool IsNext(std::uint32_t tag) const { return m_rest.size >= BlockHeadSize && m_rest.Number(0) == tag; }

    // The content of the next block, if it has that tag and lies inside the chain.
    std::optional<Span> Take(std::uint32_t tag)
    {
        if (!IsNext(tag))
        {
            return std::nullopt;
        }
        const auto content = m_rest.Part(BlockHeadSize, m_rest.Number(4));
        if (content)
        {
            const std::size_t used = BlockHeadSize + content->size;
            m_rest = {m_rest.data + used, m_rest.size - used};
        }
        return content;
    }

    // The next block must hold exactly these numbers.
    bool TakeNumbers(std::uint32_t tag, const std::vector<std::uint32_t>& numbers)
    {
        const auto content = Take(tag);
        if (!content || content->size != 4 * numbers.size())
        {
            return false;
        }
        for (std::size_t i = 0; i < numbers.size(); ++i)
        {
            if (content->Number(4 * i) != numbers[i])
            {
                return false;
            }
        }
        return true;
    }

private:
    Span m_rest;
};

struct DataSet
{
    std::uint32_t offset = 0; // bytes from the start of the payload
    std::uint32_t size = 0;   // bytes
    std::uint32_t reverse = 0;
};

std::optional<DataSet> ParseInfo(Span info, std::uint32_t number, SensorSize sensor)
{
    BlockChain chain(info);
    if (!chain.TakeNumbers(IndexTag, {number}))
    {
        return std::nullopt;
    }
    const auto content = chain.Take(DataSetTag);
    if (!content || content->size != DataSetInfoSize || content->Number(12) != sensor.height ||
        content->Number(16) != sensor.width)
    {
        return std::nullopt;
    }
    const auto temperature = chain.Take(TemperatureTag);
    const auto exposure = chain.Take(ExposureTag);
    if (!temperature || temperature->size != 4 || !exposure || exposure->size != 4 || !chain.AtEnd())
    {
        return std::nullopt;
    }
    return DataSet{content->Number(0), content->Number(4), content->Number(8) >> ReverseShift};
}

// Words of a data set behind its table, up to the end mark.
class Body
{
public:
    // Checks the whole body: rows that ascend, entries that ascend within their row, runs of two words, an end mark.
    static std::optional<Body> Parse(Span words)
    {
        Body body(words);
        std::optional<std::uint16_t> row;
        std::size_t i = 0;
        for (; i < body.m_count && (words.Word(i) & WordKind) != EndWord;)
        {
            const std::uint16_t word = words.Word(i);
            if ((word & WordKind) != RowWord || (row && (word & WordValue) <= *row))
            {
                return std::nullopt;
            }
            row = static_cast<std::uint16_t>(word & WordValue);
            if (!body.SkipEntries(++i))
            {
                return std::nullopt;
            }
        }
        if (i == body.m_count)
        {
            return std::nullopt;
        }
        body.m_count = i;
        return body;
    }

    std::size_t Count() const { return m_count; }
    bool IsRow(std::size_t i) const { return i < m_count && (m_words.Word(i) & WordKind) == RowWord; }
    std::uint32_t Row(std::size_t i) const { return m_words.Word(i) & WordValue; }

    // The position behind the row whose row word stands at i. Adds the row's entries as pixels of sensor row y, each
    // pixel once, without those outside the sensor.
    std::size_t TakeRow(std::size_t i, std::uint32_t y, SensorSize sensor, std::vector<PixelPosition>& pixels) const
    {
        std::uint32_t x = 0;
        for (++i; i < m_count && !IsRow(i); ++i)
        {
            const std::uint32_t first = m_words.Word(i) & WordValue;
            const bool isRun = (m_words.Word(i) & WordKind) == RunWord;
            const std::uint32_t last = isRun ? m_words.Word(++i) & WordValue : first;
            for (x = std::max(x, first); x <= last && x < sensor.width && y < sensor.height; ++x)
            {
                pixels.push_back({x, y});
            }
        }
        return i;
    }

private:
    explicit Body(Span words) : m_words(words), m_count(words.size / 2) {}

    bool SkipEntries(std::size_t& i) const
    {
        std::uint16_t previous = 0;
        for (; i < m_count; ++i)
        {
            const std::uint16_t word = m_words.Word(i);
            const auto kind = static_cast<std::uint16_t>(word & WordKind);
            const auto x = static_cast<std::uint16_t>(word & WordValue);
            if (kind == RowWord || kind == EndWord)
            {
                return true;
            }
            if (x < previous)
            {
                return false;
            }
            previous = x;
            if (kind == RunWord &&
                (++i >= m_count || (m_words.Word(i) & WordKind) != RunWord || (m_words.Word(i) & WordValue) < x))
            {
                return false;
            }
        }
        return true;
    }

    Span m_words;
    std::size_t m_count;
};

void TakeMirrored(const Body& body, SensorSize sensor, std::vector<PixelPosition>& pixels)
{
    for (std::size_t i = 0; i < body.Count();)
    {
        const std::uint32_t mirrored = body.Row(i);
        i = body.TakeRow(i, mirrored < sensor.height ? sensor.height - 1 - mirrored : mirrored, sensor, pixels);
    }
}

void TakeByTable(const Body& body, Span table, SensorSize sensor, std::vector<PixelPosition>& pixels)
{
    if (!body.IsRow(0))
    {
        return;
    }
    // The row at the very start needs no table: there, a 0 also stands for segments without rows.
    const std::size_t firstEnd = body.TakeRow(0, body.Row(0), sensor, pixels);
    std::size_t position = 0;
    for (std::size_t segment = 0; segment < SegmentCount; ++segment)
    {
        // Positions never go back; one that seems to has lost its upper bits.
        std::size_t i = (position & ~std::size_t{0xFFFF}) + table.Word(segment);
        i += i < position ? 0x10000 : 0;
        position = i;
        const auto isHere = [&](std::size_t at)
        { return body.IsRow(at) && SegmentOf(body.Row(at), sensor.height) == segment; };
        if (i == 0 && isHere(0))
        {
            i = firstEnd;
        }
        while (isHere(i))
        {
            i = body.TakeRow(i, body.Row(i), sensor, pixels);
        }
    }
}

std::vector<PixelPosition> DecodeDataSet(Span bytes, SensorSize sensor, bool mirroredY)
{
    const auto table = bytes.Part(0, TableSize);
    const auto words = bytes.Part(TableSize, bytes.size - TableSize);
    const auto body = table && words && bytes.size % 2 == 0 ? Body::Parse(*words) : std::nullopt;
    std::vector<PixelPosition> pixels;
    if (body && mirroredY)
    {
        TakeMirrored(*body, sensor, pixels);
    }
    else if (body)
    {
        TakeByTable(*body, *table, sensor, pixels);
    }
    return pixels;
}

} // namespace

std::vector<PixelPosition> DecodeOstrelFile(const FileBytes& file, SensorSize sensor, Mirroring mirroring)
{
    BlockChain chain({file.data(), file.size()});
    if (!chain.TakeNumbers(TypeTag, {DefectFileType}) ||
        !chain.TakeNumbers(FormatConstantTag, {FormatConstantLow, FormatConstantHigh}) ||
        !chain.TakeNumbers(CorrectionTypeTag, {CorrectionType}) || !chain.TakeNumbers(DataFormatTag, {DataFormat}))
    {
        return {};
    }
    std::vector<DataSet> sets;
    while (chain.IsNext(InfoTag) && sets.size() < MostDataSets)
    {
        const auto info = chain.Take(InfoTag);
        const auto set = info ? ParseInfo(*info, static_cast<std::uint32_t>(sets.size()), sensor) : std::nullopt;
        if (!set)
        {
            return {};
        }
        sets.push_back(*set);
    }
    const auto payload = chain.Take(PayloadTag);
    if (!payload || !chain.AtEnd() ||
        !std::all_of(sets.begin(), sets.end(),
                     [&](const DataSet& set) { return payload->Part(set.offset, set.size).has_value(); }))
    {
        return {};
    }
    const std::uint32_t wanted = (mirroring.x ? ReverseX : 0) | (mirroring.y ? ReverseY : 0);
    const auto set =
        std::find_if(sets.begin(), sets.end(), [&](const DataSet& candidate) { return candidate.reverse == wanted; });
    if (set == sets.end())
    {
        return {};
    }
    return DecodeDataSet(*payload->Part(set->offset, set->size), sensor, mirroring.y);
}

} // namespace Simulation
