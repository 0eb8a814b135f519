// A camera of the flash family in memory, 640 x 480, whose flash answers by a script.
#pragma once

#include "MemoryCamera.h"

#include <boost/format.hpp>

#include <algorithm>
#include <deque>

class FlashCamera final : public MemoryCamera
{
public:
    using Bytes = std::vector<std::uint8_t>;

    FlashCamera()
    {
        features = {{"SensorWidth", {640, {}, {}, {}}}, {"SensorHeight", {480, {}, {}, {}}}};
        features["SensorType"] = {0, "Mono", {"Mono", "Bayer"}, {}};
        features["DefectMaskEnable"] = {};
        flash[103100] = Bytes(4096, 0xFF);
        std::fill_n(flash[103100].begin() + 12, 4, std::uint8_t{0});
    }

    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) override
    {
        log.note((boost::format("Read %1$x") % address).str());
        return spoilt(answer(address));
    }
    void WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value) override
    {
        log.note((boost::format("Write %1$x=%2%") % address % value).str());
        registers[address] = value;
        if (address == 0x1A0B4 && value != 6)
        {
            CallLog::require(value == 1532604 || privileged, "The command is not allowed.");
            privileged = value == 1532604;
            statuses = value == 5 ? erasing : value == 2 ? programming : statuses;
            flash[registers[0x1A0BC]].resize(value == 5 || value == 2 ? 0 : flash[registers[0x1A0BC]].size());
        }
    }
    void ReadMemory(const std::uint64_t& address, Bytes& data) override
    {
        log.note((boost::format("ReadMemory %1$x %2%") % address % data.size()).str());
        std::uint32_t& offset = registers[0x1A0A8];
        const Bytes& file = flash[registers[0x1A0BC]];
        const auto head = spoilt(offset);
        std::generate_n(data.begin(), 4, [&, shift = 32]() mutable { return std::uint8_t(head >> (shift -= 8)); });
        std::copy_n(file.begin() + offset, data.size() - 4, data.begin() + 4);
        data.back() = std::uint8_t(data.back() ^ noise ^ lie(3));
        offset += std::uint32_t(data.size() - 4);
        data.resize(data.size() - shortBy);
    }
    void WriteMemory(const std::uint64_t& address, const Bytes& data) override
    {
        log.note((boost::format("WriteMemory %1$x %2%") % address % data.size()).str());
        Bytes& file = flash[registers[0x1A0BC]];
        const auto offset = std::size_t(data[2] << 8 | data[3]);
        CallLog::require(offset == file.size(), "The packet is not the next one.");
        file.insert(file.end(), data.begin() + 4, data.end());
    }

    std::deque<std::uint32_t> erasing{0xFE000000, 0xFFFFFFFE}, programming{0xFFFFFE00, 0xFFFFFFC0, 0xFFFFF800};
    std::deque<std::uint32_t> statuses; // the coming answers; without any the file's content tells
    std::map<std::uint64_t, std::uint32_t> registers{{0x14000, 1U << 22}, {0x1A0A0, 4352 + 8 * 200}};
    std::map<std::uint32_t, Bytes> flash; // by number
    std::size_t shortBy = 0;              // so many bytes of a packet do not come
    std::uint8_t noise = 0;               // in the last byte of a packet
    std::size_t lieAt = SIZE_MAX;         // the answer with this number is wrong in a bit
    std::size_t answers = 0;

private:
    std::uint32_t lie(std::uint32_t bit) { return answers++ == lieAt ? 1U << bit : 0; }
    std::uint32_t spoilt(std::uint32_t value) { return value ^ lie(1); }
    std::uint32_t answer(std::uint64_t address)
    {
        const Bytes& file = flash[registers[0x1A0BC]];
        if (address == 0x1A0B0 && !statuses.empty())
        {
            const auto status = statuses.front();
            statuses.pop_front();
            return status;
        }
        return address == 0x1A0B0   ? (file.empty() ? 0xFFFFFFFE : 0xFFFFF800)
               : address == 0x1A0A4 ? std::uint32_t(file.size())
                                    : registers[address];
    }

    bool privileged = false;
};
