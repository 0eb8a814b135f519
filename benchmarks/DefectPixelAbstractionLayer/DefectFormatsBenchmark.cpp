// Encoding and decoding of every on-camera form, beside a plain copy of the same bytes.
#include "ColumnMaskTable.h"
#include "DefectRectangleTable.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "DpcAdapterTamorinPro.h"
#include "DpcFileRivoU.h"
#include "PixelColumnDefect.h"
#include "PixelDefect.h"

#include <benchmark/benchmark.h>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <random>
#include <string>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t Width = 5328;
constexpr std::uint32_t Height = 4608;

using Bytes = std::vector<std::uint8_t>;

template <typename Make> SensorDefectList listOf(std::size_t count, Make make)
{
    SensorDefectList list(count);
    std::uint32_t number = 0;
    std::generate(list.begin(), list.end(), [&] { return make(number++); });
    return list;
}

// All over the sensor, in no order.
SensorDefectList scattered(std::size_t count)
{
    std::mt19937 random(1);
    return listOf(count,
                  [&](std::uint32_t)
                  {
                      const auto x = static_cast<std::uint32_t>(random() % Width);
                      return boost::make_shared<PixelDefect>(x, static_cast<std::uint32_t>(random() % Height));
                  });
}

// In one row, from right to left, again and again: what keeping a row sorted at each insertion finds hardest.
SensorDefectList backwards(std::size_t count)
{
    return listOf(
        count, [&](std::uint32_t i)
        { return boost::make_shared<PixelDefect>(static_cast<std::uint32_t>((count - i) * Width / (count + 1)), 7); });
}

// One pixel in three of each row: whole neighbourhoods are listed.
SensorDefectList dense(std::size_t count)
{
    return listOf(count, [](std::uint32_t i) { return boost::make_shared<PixelDefect>(3 * i % Width, 3 * i / Width); });
}

// Stretches of every second column, from the bottom up: a mask without neighbours.
SensorDefectList stretches(std::size_t count)
{
    return listOf(count,
                  [](std::uint32_t i)
                  {
                      const std::uint32_t x = 2 * (i % (Width / 2));
                      return boost::make_shared<PixelColumnDefect>(x, Height - 9 * (i / (Width / 2) + 1), 5);
                  });
}

template <typename File> Bytes encodeFile(const SensorDefectList& list)
{
    File file(ReverseCapability::XY, Width, Height);
    DpcAdapterOstrel::addDefects(file, list);
    return file.getRawData();
}

SensorDefectList decodeOstrel(const Bytes& bytes)
{
    return DpcFileOstrel::getSensorDefectsListFromRawData(bytes, Width);
}

// The head cannot tell the end of so long a data set, so its words are decoded.
SensorDefectList decodeRivoU(const Bytes& bytes)
{
    return DpcFileRivoU::parseSensorDefectsFromDataBlock({bytes.begin() + 44, bytes.end()}, Width);
}

Bytes encodeTamorinPro(const SensorDefectList& list)
{
    return DpcAdapterTamorinPro::ConvertDefectsListToBinary(CorrectionSet("DPC_User_1"), list, Width, Height);
}

Bytes encodeFlash(const SensorDefectList& list)
{
    return DpcAdapterQuorsalinWithPython::CreateBinaryDefectFile(list, {"", "", "Mono", Width, Height, 0});
}

Bytes encodeRectangles(const SensorDefectList& list)
{
    return encodeDefectTable(list, Width, Height);
}

SensorDefectList decodeRectangles(const Bytes& bytes)
{
    return decodeDefectTable(bytes, Width, Height);
}

Bytes encodeColumns(const SensorDefectList& list)
{
    return isColumnMask(list, Width, Height) ? encodeColumnMask(list, Height) : Bytes();
}

struct Form
{
    const char* name;
    SensorDefectList (*list)(std::size_t count);
    Bytes (*encode)(const SensorDefectList& list);
    SensorDefectList (*decode)(const Bytes& bytes);
};

constexpr Form Forms[] = {
    {"Ostrel", scattered, encodeFile<DpcFileOstrel>, decodeOstrel},
    {"Ostrel/backwards", backwards, encodeFile<DpcFileOstrel>, decodeOstrel},
    {"RivoU", scattered, encodeFile<DpcFileRivoU>, decodeRivoU},
    {"RivoU/backwards", backwards, encodeFile<DpcFileRivoU>, decodeRivoU},
    {"TamorinPro", scattered, encodeTamorinPro, DpcAdapterTamorinPro::getSensorDefectsListFromRawData},
    {"Flash", scattered, encodeFlash, DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile},
    {"Flash/dense", dense, encodeFlash, DpcAdapterQuorsalinWithPython::DecodeBinaryDefectFile},
    {"EstablishedGigE", scattered, encodeRectangles, decodeRectangles},
    {"LoadDefects", stretches, encodeColumns, nullptr}, // no table holds so many: what a too long list costs
};

template <typename Prepare, typename Work>
void addBenchmark(const std::string& name, const Form& form, Prepare prepare, Work work)
{
    const auto measure = [&form, prepare, work](benchmark::State& state)
    {
        const auto input = prepare(form.list(static_cast<std::size_t>(state.range(0))));
        for (auto _ : state)
        {
            auto output = work(input);
            benchmark::DoNotOptimize(output.data());
        }
        state.SetComplexityN(state.range(0));
    };
    auto* const added = benchmark::RegisterBenchmark((name + "/" + form.name).c_str(), measure);
    added->Arg(1000)->Arg(25000)->Arg(50000)->Arg(100000)->Complexity()->Unit(benchmark::kMillisecond);
}

const bool AreAdded = []
{
    for (const Form& form : Forms)
    {
        addBenchmark(
            "Encode", form, [](SensorDefectList list) { return list; }, form.encode);
        if (form.decode)
        {
            addBenchmark("Decode", form, form.encode, form.decode);
        }
        addBenchmark("CopyYardstick", form, form.encode, [](const Bytes& bytes) { return Bytes(bytes); });
    }
    return true;
}();

} // namespace
