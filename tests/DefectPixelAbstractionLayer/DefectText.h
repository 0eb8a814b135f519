// Bytes and defects as texts, for tests of the formats.
#pragma once

#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DpcAdapterOstrel.h"
#include "PixelColumnDefect.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <boost/algorithm/hex.hpp>
#include <boost/format.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <random>
#include <sstream>

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

inline Bytes fromHex(std::string hex)
{
    hex.erase(std::remove(hex.begin(), hex.end(), ' '), hex.end());
    Bytes bytes;
    boost::algorithm::unhex(hex, std::back_inserter(bytes));
    return bytes;
}

inline Bytes fromWords(const Words& words)
{
    KTR::DPC::DataHelper bytes(false);
    std::for_each(words.begin(), words.end(), [&](auto word) { bytes.pushBack16(word); });
    return bytes.getData();
}

// One defect a word: pixel "P x,y", row "R y", column "V x", run in a row "L x,y,width", run in a column "C
// x,y,height", cluster "K pixels", without the blank.
inline std::string text(const KTR::DPC::SensorDefectList& defects)
{
    using namespace KTR::DPC;
    std::ostringstream text;
    for (const auto& defect : defects)
    {
        const auto* pixel = dynamic_cast<const PixelDefect*>(defect.get());
        const auto* row = dynamic_cast<const RowDefect*>(defect.get());
        const auto* column = dynamic_cast<const ColumnDefect*>(defect.get());
        const auto* run = dynamic_cast<const PixelRowDefect*>(defect.get());
        const auto* upright = dynamic_cast<const PixelColumnDefect*>(defect.get());
        const auto* cluster = dynamic_cast<const ClusterDefect*>(defect.get());
        pixel     ? text << 'P' << pixel->getX() << ',' << pixel->getY()
        : row     ? text << 'R' << row->getY()
        : column  ? text << 'V' << column->getX()
        : run     ? text << 'L' << run->getX() << ',' << run->getY() << ',' << run->getWidth()
        : upright ? text << 'C' << upright->getX() << ',' << upright->getY() << ',' << upright->getHeight()
                  : text << 'K' << cluster->getPixels().size();
        text << ' ';
    }
    return text.str();
}

// The same backwards; a cluster is "K x,y,size".
inline KTR::DPC::SensorDefectList defectsOf(const std::string& text)
{
    using namespace KTR::DPC;
    SensorDefectList defects;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        unsigned a = 0, b = 0, c = 0;
        std::sscanf(word.c_str() + 1, "%u,%u,%u", &a, &b, &c);
        word[0] == 'P'   ? defects.push_back(boost::make_shared<PixelDefect>(a, b))
        : word[0] == 'R' ? defects.push_back(boost::make_shared<RowDefect>(a))
        : word[0] == 'V' ? defects.push_back(boost::make_shared<ColumnDefect>(a))
        : word[0] == 'L' ? defects.push_back(boost::make_shared<PixelRowDefect>(a, b, c))
        : word[0] == 'C' ? defects.push_back(boost::make_shared<PixelColumnDefect>(a, b, c))
                         : defects.push_back(boost::make_shared<ClusterDefect>(a, b, c, c));
    }
    return defects;
}

// Adds random defects of a sensor of 640 x 480; gives their text in the file's order.
inline std::string addRandom(KTR::DPC::DpcFileOstrel& file, std::mt19937& random)
{
    std::map<std::pair<std::uint_fast32_t, std::uint_fast32_t>, std::string> defects; // by y, then x
    for (auto i = random() % 3000; i > 0; --i)
    {
        const auto x = i % 3 == 0 ? 0 : random() % 640, y = random() % 480, width = random() % 639 + 1;
        boost::format word(i % 3 == 0 ? "R%2% " : i % 3 == 1 ? "P%1%,%2% " : "L%1%,%2%,%3% ");
        word.exceptions(boost::io::no_error_bits);
        const auto defect = (word % x % y % width).str();
        defects[{y, x}] += defect;
        KTR::DPC::DpcAdapterOstrel::addDefects(file, defectsOf(defect));
        i % 700 == 0 ? file.getRawData() : Bytes(); // building in between changes nothing
    }
    std::string expected;
    std::for_each(defects.begin(), defects.end(), [&](auto& place) { expected += place.second; });
    return expected;
}
