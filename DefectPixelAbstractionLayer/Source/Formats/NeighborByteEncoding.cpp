// Neighbour masks of defective pixels, and the file that holds them.
#include "NeighborByteEncoding.h"

#include "Exception.h"

#include <algorithm>
#include <array>
#include <limits>

namespace KTR::DPC
{
namespace
{

constexpr std::uint32_t SearchWidth = 4; // on each side
constexpr std::uint32_t MaskBits = 2 * SearchWidth + 1;
constexpr std::uint32_t FullMask = (1U << MaskBits) - 1;
constexpr std::uint32_t OtherColours = 0xAA; // the odd distances of a Bayer sensor
constexpr std::uint32_t ControlBits = 0xF000;

// Row in the high half, column in the low one, so that pixels of a row stand together.
std::uint32_t keyOf(const PixelCoords& place)
{
    return std::uint32_t{place.x} << 16 | place.y;
}

struct Place
{
    std::uint32_t key;
    std::uint32_t index; // in the list of defects
};

// By key, in time proportional to the number.
std::vector<Place> sortedPlaces(const std::vector<PixelCoords>& defects)
{
    std::vector<Place> places(defects.size());
    for (std::size_t i = 0; i < defects.size(); ++i)
    {
        places[i] = {keyOf(defects[i]), static_cast<std::uint32_t>(i)};
    }
    std::vector<Place> sorted(places.size());
    for (unsigned int shift = 0; shift < 32; shift += 8)
    {
        std::array<std::size_t, 257> starts{};
        for (const Place& place : places)
        {
            ++starts[(place.key >> shift & 0xFF) + 1];
        }
        for (std::size_t digit = 1; digit < starts.size(); ++digit)
        {
            starts[digit] += starts[digit - 1];
        }
        for (const Place& place : places)
        {
            sorted[starts[place.key >> shift & 0xFF]++] = place;
        }
        places.swap(sorted);
    }
    return places;
}

// Neighbours that do not lie on the sensor.
std::uint32_t outside(std::uint32_t column, std::uint64_t width)
{
    std::uint32_t mask = 0;
    if (column < SearchWidth)
    {
        mask |= FullMask & ~(FullMask >> (SearchWidth - column));
    }
    if (column >= width - SearchWidth)
    {
        const std::uint64_t bits = column + SearchWidth - width + 1;
        mask |= bits >= MaskBits ? FullMask : (1U << bits) - 1;
    }
    return mask;
}

void put16(unsigned char* out, std::uint16_t value, bool littleEndian)
{
    out[littleEndian ? 0 : 1] = static_cast<unsigned char>(value);
    out[littleEndian ? 1 : 0] = static_cast<unsigned char>(value >> 8);
}

} // namespace

void NeighborByteEncoding::Initialize(const CameraInfo& info, const std::vector<PixelCoords>& defects)
{
    m_cameraInfo = info;
    m_defects = defects;
    m_encoded = false;
}

void NeighborByteEncoding::Clear()
{
    m_result.clear();
    m_defects.clear();
    m_encoded = false;
}

bool NeighborByteEncoding::Generate1DNbEncodingFromDefectList()
{
    if (m_defects.empty() || m_cameraInfo.sensorWidth < MaskBits)
    {
        return false;
    }
    m_result.clear();
    const bool isBayer = m_cameraInfo.sensorType == "Bayer";
    if (!isBayer && m_cameraInfo.sensorType != "Mono")
    {
        throw System::Exception("Unknown Sensor Type!", true);
    }
    const std::vector<Place> places = sortedPlaces(m_defects);
    std::vector<std::uint32_t> keys; // each once
    keys.reserve(places.size());
    for (const Place& place : places)
    {
        if (keys.empty() || keys.back() != place.key)
        {
            keys.push_back(place.key);
        }
    }

    m_result.resize(m_defects.size());
    auto place = places.begin();
    for (std::size_t i = 0; i < keys.size(); ++i)
    {
        const std::uint32_t row = keys[i] >> 16;
        const std::uint32_t column = keys[i] & 0xFFFF;
        std::uint32_t mask =
            (isBayer ? OtherColours : 0U) | 1U << SearchWidth | outside(column, m_cameraInfo.sensorWidth);
        const auto isNear = [&](std::size_t other)
        {
            const std::uint32_t distance = std::max(keys[i], keys[other]) - std::min(keys[i], keys[other]);
            return distance <= SearchWidth && keys[other] >> 16 == row;
        };
        for (std::size_t left = i; left-- > 0 && isNear(left);)
        {
            mask |= 1U << (SearchWidth + (keys[i] - keys[left]));
        }
        for (std::size_t right = i + 1; right < keys.size() && isNear(right); ++right)
        {
            mask |= 1U << (SearchWidth - (keys[right] - keys[i]));
        }
        for (; place != places.end() && place->key == keys[i]; ++place)
        {
            m_result[place->index] = {static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column),
                                      FullMask & ~mask};
        }
    }
    m_encoded = true;
    return true;
}

std::uint32_t NeighborByteEncoding::GetNumberOfDefects() const
{
    return m_encoded ? static_cast<std::uint32_t>(m_result.size()) : std::numeric_limits<std::uint32_t>::max();
}

bool NeighborByteEncoding::GetDpcInfoAt(unsigned int index, DefectivePixelInfo& info)
{
    if (index >= m_result.size())
    {
        m_lastError = m_result.empty() ? "Defect list is empty." : "Index out of range.";
        return false;
    }
    info = m_result[index];
    return true;
}

template <typename Condition> std::vector<PixelCoords> NeighborByteEncoding::removeIf(Condition condition)
{
    std::vector<PixelCoords> removed;
    std::vector<std::uint32_t> keys;
    const auto note = [&](const DefectivePixelInfo& info)
    {
        const bool isRemoved = condition(info);
        if (isRemoved)
        {
            removed.push_back({info.GetRow(), info.GetColumn()});
            keys.push_back(keyOf(removed.back()));
        }
        return isRemoved;
    };
    m_result.erase(std::remove_if(m_result.begin(), m_result.end(), note), m_result.end());
    if (!keys.empty())
    {
        std::sort(keys.begin(), keys.end());
        m_defects.erase(std::remove_if(m_defects.begin(), m_defects.end(),
                                       [&](const PixelCoords& defect)
                                       { return std::binary_search(keys.begin(), keys.end(), keyOf(defect)); }),
                        m_defects.end());
    }
    return removed;
}

std::vector<PixelCoords> NeighborByteEncoding::RemoveOutOfRangeDefects(const CameraInfo& info)
{
    return removeIf([&](const DefectivePixelInfo& defect)
                    { return defect.GetRow() > info.sensorHeight || defect.GetColumn() > info.sensorWidth; });
}

std::vector<PixelCoords> NeighborByteEncoding::RemoveUncorrectableDefects()
{
    return removeIf([](const DefectivePixelInfo& defect) { return defect.GetNBData() == 0; });
}

std::size_t NeighborByteEncoding::GetDefectFileSize() const
{
    return (m_result.size() + DpcHeader::Size / DpcHeader::RecordSize) * DpcHeader::RecordSize;
}

bool NeighborByteEncoding::PrepareBinaryDefectFile(std::vector<unsigned char>& out)
{
    if (m_result.empty())
    {
        return false;
    }
    if (out.empty())
    {
        out.resize(GetDefectFileSize());
    }
    if (out.size() < GetDefectFileSize())
    {
        return false;
    }
    m_header.Fill(static_cast<std::uint32_t>(m_result.size()), static_cast<std::uint32_t>(m_cameraInfo.sensorWidth),
                  static_cast<std::uint32_t>(m_cameraInfo.sensorHeight));
    unsigned char* record = std::copy(m_header.GetBytes().begin(), m_header.GetBytes().end(), out.data());
    for (const DefectivePixelInfo& info : m_result)
    {
        const std::uint32_t control = info.GetNBData() | ControlBits;
        put16(record, info.GetColumn(), m_header.IsLittleEndian());
        put16(record + 2, info.GetRow(), m_header.IsLittleEndian());
        put16(record + 4, static_cast<std::uint16_t>(control), true);
        put16(record + 6, static_cast<std::uint16_t>(control >> 16), true);
        record += DpcHeader::RecordSize;
    }
    return true;
}

} // namespace KTR::DPC
