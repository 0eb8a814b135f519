// An established GigE camera in memory, 640 x 480: the registers and the table of defect rectangles.
#pragma once

#include "MemoryCamera.h"

#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>

class MaskCamera final : public MemoryCamera
{
public:
    // An enumeration when there are entries, else a boolean.
    explicit MaskCamera(Names entries = {})
    {
        features = {{"DeviceModelName", {0, "Rivo G-011", {}, {}}},
                    {"SensorWidth", {640, {}, {}, {}}},
                    {"SensorHeight", {480, {}, {}, {}}},
                    {"DefectMaskEnable", {0, "Off", std::move(entries), {}}}};
        setTable(Table);
    }

    Names GetAvailableFeatures() override { return listsNothing ? Names() : MemoryCamera::GetAvailableFeatures(); }
    FeatureType GetFeatureType(const std::string& name) override
    {
        GetFeatureEnumValue(name);
        return features[name].entries.empty() ? FeatureType::Boolean : FeatureType::Enumeration;
    }
    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) override
    {
        note("ReadRegister", address);
        return address == 0x19100 ? capacity : address == 0x19104 ? countEntries() : 0;
    }
    void ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data) override
    {
        note("ReadMemory", address, data.size());
        std::copy_n(memory.begin() + offsetOf(address), data.size(), data.begin());
        data.resize(data.size() - std::min(shortBy, data.size()));
    }
    void WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data) override
    {
        note("WriteMemory", address, data.size());
        std::copy(data.begin(), data.end(), memory.begin() + offsetOf(address));
        packets.push_back(data);
    }

    // The table as it stands in memory.
    void setTable(const std::vector<std::uint8_t>& table) { std::copy(table.begin(), table.end(), memory.begin()); }

    std::uint32_t capacity = 1000; // in units of 4 bytes
    std::optional<std::uint32_t> count;
    bool listsNothing = false;
    std::size_t shortBy = 0; // so many bytes of a read do not come
    std::vector<std::uint8_t> memory = std::vector<std::uint8_t>(16384);
    std::vector<std::vector<std::uint8_t>> packets;

private:
    static inline const std::vector<std::uint8_t> Table = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};

    void note(const char* call, std::uint64_t address, std::size_t size = 4)
    {
        log.note((boost::format("%1% %2$#x %3%") % call % address % size).str());
    }
    static std::ptrdiff_t offsetOf(std::uint64_t address) { return static_cast<std::ptrdiff_t>(address - 0x19300); }
    std::uint32_t countEntries() const
    {
        std::uint32_t entries = 0;
        while (!std::equal(Table.begin(), Table.end(), memory.begin() + 8 * std::ptrdiff_t{entries}))
        {
            ++entries;
        }
        return count.value_or(entries);
    }
};
