// An established GigE camera in memory, 640 x 480, with the registers and the table of one kind.
#pragma once

#include "MemoryCamera.h"

#include <boost/format.hpp>

#include <algorithm>

class MaskCamera final : public MemoryCamera
{
public:
    using Bytes = std::vector<std::uint8_t>;

    // The switch is an enumeration when there are entries, else a boolean.
    explicit MaskCamera(std::uint64_t tableAddress, const std::string& name, Names entries = {}) : table(tableAddress)
    {
        features = {{"SensorWidth", {640, {}, {}, {}}}, {"SensorHeight", {480, {}, {}, {}}}};
        features["DeviceModelName"].text = "Rivo G-011";
        features[name] = {0, "Off", std::move(entries), {}};
        WriteMemory(0x19100, {0, 0, 0x03, 0xE8}); // capacity: 1000 units of 4 bytes
        table == Rectangles ? WriteMemory(table, End) : void();
    }

    FeatureType GetFeatureType(const std::string& name) override
    {
        GetFeatureEnumValue(name);
        return features[name].entries.empty() ? FeatureType::Boolean : FeatureType::Enumeration;
    }
    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) override
    {
        Bytes bytes(4);
        ReadMemory(address, bytes);
        return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
    }
    void ReadMemory(const std::uint64_t& address, Bytes& data) override
    {
        log.note((boost::format("Read %1$x %2%") % address % data.size()).str());
        std::copy_n(at(address), data.size(), data.begin());
        data.resize(data.size() - (address == table ? shortBy : 0));
    }
    // A write at the table makes the camera count its entries.
    void WriteMemory(const std::uint64_t& address, const Bytes& data) override
    {
        log.note((boost::format("Write %1$x %2%") % address % data.size()).str());
        std::copy(data.begin(), data.end(), at(address));
        packets.push_back(data);
        if (address >= table)
        {
            const auto end = std::search(at(table), memory.end(), End.begin(), End.end());
            const auto count = table == Rectangles ? (end - at(table)) / 8 : std::ptrdiff_t(data.size() / 6);
            *at(0x19106) = static_cast<std::uint8_t>(count >> 8);
            *at(0x19107) = static_cast<std::uint8_t>(count);
        }
    }
    Bytes::iterator at(std::uint64_t address) { return memory.begin() + std::ptrdiff_t(address - 0x19100); }

    static constexpr std::uint64_t Rectangles = 0x19300;
    static inline const Bytes End = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};
    std::uint64_t table;     // its address
    std::size_t shortBy = 0; // so many bytes of the table do not come
    std::vector<Bytes> packets;
    Bytes memory = Bytes(16384);
};
