// The defect pixel file of the Ostrel camera family: the defect store and the writer.
#include "DpcFileOstrel.h"

#include "DpcFileOstrelTags.h"

#include "Exception.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <cassert>
#include <tuple>

namespace KTR::DPC
{
namespace
{

constexpr std::uint16_t CoordinateRange = 0x4000; // a word has 14 bits for a coordinate
constexpr std::uint16_t TopBits = 0xC000;

// Fixed contents of the head.
constexpr std::uint64_t FormatCode = 0x0200000000000000;
constexpr std::uint32_t DpcType = 2;
constexpr std::uint32_t DataFormat = 16;
// The conditions that every data set claims: 20 degrees Celsius and 1000 microseconds, as IEEE 754 bits.
constexpr std::uint32_t TemperatureBits = 0x41A00000;
constexpr std::uint32_t ExposureBits = 0x447A0000;

constexpr unsigned IndexSegments = 16;
constexpr std::uint32_t InfoContentSize = 72;
constexpr std::uint32_t DataSetContentSize = 28;
constexpr unsigned ReverseShift = 30;

struct DataSet
{
    ReverseCapability reverse;
    std::vector<std::uint16_t> words;

    std::uint32_t sizeInBytes() const { return static_cast<std::uint32_t>(words.size() * sizeof(std::uint16_t)); }
};

std::size_t wordCount(const SortableVector<DpcFileOstrel::XCoordinateEntry>& row)
{
    const auto runs = std::count_if(row.begin(), row.end(), [](const auto& entry) { return entry.isRange; });
    return 1 + row.size() + static_cast<std::size_t>(runs);
}

void appendRow(std::vector<std::uint16_t>& words, unsigned y,
               const SortableVector<DpcFileOstrel::XCoordinateEntry>& row)
{
    words.push_back(static_cast<std::uint16_t>(y | DpcFileOstrel::DATA_SET_Y));
    for (const auto& entry : row)
    {
        if (entry.isRange)
        {
            words.push_back(static_cast<std::uint16_t>(DpcFileOstrel::DATA_SET_X_ROW | entry.x));
            words.push_back(static_cast<std::uint16_t>(DpcFileOstrel::DATA_SET_X_ROW | entry.xEnd));
        }
        else
        {
            words.push_back(static_cast<std::uint16_t>(DpcFileOstrel::DATA_SET_X | entry.x));
        }
    }
}

void pushBlock(DataHelper& file, std::uint32_t tag, std::uint32_t content)
{
    file.pushBack32(tag);
    file.pushBack32(sizeof(content));
    file.pushBack32(content);
}

void pushHead(DataHelper& file)
{
    pushBlock(file, OstrelTags::Type, OstrelTags::TypeDpc);
    file.pushBack32(OstrelTags::FormatCode);
    file.pushBack32(sizeof(FormatCode));
    file.pushBack64(FormatCode);
    pushBlock(file, OstrelTags::DpcType, DpcType);
    pushBlock(file, OstrelTags::DataFormat, DataFormat);
}

void pushDataSetInfo(DataHelper& file, std::uint32_t number, std::uint32_t offset, const DataSet& dataSet,
                     std::uint16_t width, std::uint16_t height)
{
    file.pushBack32(OstrelTags::Info);
    file.pushBack32(InfoContentSize);
    pushBlock(file, OstrelTags::Index, number);
    file.pushBack32(OstrelTags::DataSet);
    file.pushBack32(DataSetContentSize);
    file.pushBack32(offset);
    file.pushBack32(dataSet.sizeInBytes());
    file.pushBack32(static_cast<std::uint32_t>(dataSet.reverse) << ReverseShift);
    file.pushBack32(height);
    file.pushBack32(width);
    file.pushBack32(0);
    file.pushBack32(0);
    pushBlock(file, OstrelTags::Temperature, TemperatureBits);
    pushBlock(file, OstrelTags::Exposure, ExposureBits);
}

} // namespace

DpcFileOstrel::DpcFileOstrel(ReverseCapability reverseCapability, std::uint32_t width, std::uint32_t height)
    : DpcFileOstrel(INFO_SIZE_OSTREL, INFO_ELEMENT_SIZE_OSTREL, reverseCapability, width, height)
{
}

DpcFileOstrel::DpcFileOstrel(std::uint16_t infoSize, std::uint16_t infoElementSize, ReverseCapability reverseCapability,
                             std::uint32_t width, std::uint32_t height)
    : m_infoSize(infoSize),
      m_infoElementSize(infoElementSize),
      m_width(static_cast<std::uint16_t>(width)),
      m_height(static_cast<std::uint16_t>(height)),
      m_reverseCapability(reverseCapability)
{
    assert(infoElementSize != 0 && infoSize >= infoElementSize);
    checkConstructorParams();
}

void DpcFileOstrel::checkConstructorParams() const
{
    if (m_reverseCapability == ReverseCapability::Y)
    {
        throw System::Exception("Allowed capabilities are: Non, X, XY!", true);
    }
    if (m_width == 0)
    {
        throw System::Exception("Width must be set!", true);
    }
    if (m_height == 0)
    {
        throw System::Exception("Height must be set!", true);
    }
}

void DpcFileOstrel::addSinglePixelDefect(std::uint16_t x, std::uint16_t y)
{
    m_added.push_back({static_cast<std::uint16_t>(y % CoordinateRange),
                       XCoordinateEntry(static_cast<std::uint16_t>(x % CoordinateRange))});
}

void DpcFileOstrel::addPixelRowDefect(std::uint16_t xStart, std::uint16_t xEnd, std::uint16_t y)
{
    m_added.push_back({static_cast<std::uint16_t>(y % CoordinateRange),
                       XCoordinateEntry(static_cast<std::uint16_t>(xStart % CoordinateRange),
                                        static_cast<std::uint16_t>(xEnd % CoordinateRange))});
}

void DpcFileOstrel::addRowDefect(std::uint16_t y)
{
    addPixelRowDefect(0, static_cast<std::uint16_t>(m_width - 1), y);
}

const DpcFileOstrel::Rows& DpcFileOstrel::rows()
{
    std::stable_sort(m_added.begin(), m_added.end(),
                     [](const AddedEntry& left, const AddedEntry& right)
                     { return std::tie(left.y, left.entry.x) < std::tie(right.y, right.entry.x); });
    for (const auto& added : m_added)
    {
        m_rows[added.y].insert_sorted(added.entry);
    }
    m_added.clear();
    return m_rows;
}

std::vector<std::uint16_t> DpcFileOstrel::indexTable()
{
    std::vector<std::uint16_t> table(IndexSegments, 0);
    const unsigned segmentRows = m_height / IndexSegments;
    std::size_t position = 0;
    for (const auto& [y, row] : rows())
    {
        const unsigned segment = segmentRows == 0 ? 0 : std::min(y / segmentRows, IndexSegments - 1);
        if (segment != 0 && table[segment] == 0)
        {
            table[segment] = static_cast<std::uint16_t>(position);
        }
        position += wordCount(row);
    }
    for (unsigned i = 1; i < IndexSegments; ++i)
    {
        table[i] = table[i] == 0 ? table[i - 1] : table[i];
    }
    return table;
}

std::vector<std::uint16_t> DpcFileOstrel::calculateDataSet(ReverseCapability reverse)
{
    std::vector<std::uint16_t> words = indexTable();
    if (includes(reverse, ReverseCapability::Y))
    {
        // From the last row to the first, so that the mirrored rows ascend.
        std::for_each(rows().rbegin(), rows().rend(),
                      [&](const auto& row) { appendRow(words, unsigned{m_height} - row.first - 1, row.second); });
    }
    else
    {
        std::for_each(rows().begin(), rows().end(), [&](const auto& row) { appendRow(words, row.first, row.second); });
    }
    words.push_back(DATA_SET_END);
    return words;
}

boost::shared_ptr<DataHelper> DpcFileOstrel::createFileData()
{
    std::vector<ReverseCapability> reversals = {ReverseCapability::Non};
    for (const auto reverse : {ReverseCapability::X, ReverseCapability::Y})
    {
        if (includes(m_reverseCapability, reverse))
        {
            reversals.push_back(reverse);
        }
    }
    if (m_reverseCapability != ReverseCapability::Non)
    {
        reversals.push_back(ReverseCapability::XY);
    }

    auto file = boost::make_shared<DataHelper>(false);
    pushHead(*file);
    std::vector<DataSet> dataSets;
    dataSets.reserve(reversals.size());
    std::uint32_t payloadSize = 0;
    for (const auto reverse : reversals)
    {
        dataSets.push_back({reverse, calculateDataSet(reverse)});
        pushDataSetInfo(*file, static_cast<std::uint32_t>(dataSets.size() - 1), payloadSize, dataSets.back(), m_width,
                        m_height);
        payloadSize += dataSets.back().sizeInBytes();
    }
    file->pushBack32(OstrelTags::Payload);
    file->pushBack32(payloadSize);
    for (const auto& dataSet : dataSets)
    {
        for (const auto word : dataSet.words)
        {
            file->pushBack16(word);
        }
    }
    return file;
}

void DpcFileOstrel::pushBackInfoBlock(const std::vector<std::uint16_t>& words,
                                      const boost::shared_ptr<DataHelper>& helper) const
{
    const unsigned entries = m_infoSize / m_infoElementSize;
    const unsigned rowsPerEntry = m_height / entries;
    std::map<unsigned, std::uint32_t> firstPairOfBand;
    const auto isRow = [](std::uint16_t word) { return (word & TopBits) == DATA_SET_Y; };
    for (std::size_t i = 0; i + 1 < words.size(); i += 2)
    {
        if (isRow(words[i]) || isRow(words[i + 1]))
        {
            const unsigned row = (isRow(words[i]) ? words[i] : words[i + 1]) % CoordinateRange;
            firstPairOfBand.emplace(rowsPerEntry == 0 ? 0 : row / rowsPerEntry, static_cast<std::uint32_t>(i / 2));
        }
    }
    std::uint32_t value = 0;
    for (unsigned band = 0; band < entries; ++band)
    {
        const auto found = firstPairOfBand.find(band);
        value = found == firstPairOfBand.end() ? value : found->second;
        switch (m_infoElementSize) // the format's own code of widths, not a number of bytes
        {
        case 1:
            helper->pushBack8(static_cast<std::uint8_t>(value));
            break;
        case 2:
            helper->pushBack16(static_cast<std::uint16_t>(value));
            break;
        case 3:
            helper->pushBack32(value);
            break;
        default:
            break;
        }
    }
}

void DpcFileOstrel::writeToFile(std::string fileName)
{
    createFileData()->write(std::move(fileName));
}

std::vector<std::uint8_t> DpcFileOstrel::getRawData()
{
    return createFileData()->getData();
}

std::size_t DpcFileOstrel::getSizeInBytes()
{
    return createFileData()->getSize();
}

} // namespace KTR::DPC
