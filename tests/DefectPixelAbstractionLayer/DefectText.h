// Bytes and defects as texts, for tests of the formats.
#pragma once

#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DataHelper.h"
#include "Hex.h"
#include "PixelColumnDefect.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <sstream>

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

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

// Single pixels in row 300.
inline KTR::DPC::SensorDefectList pixels(std::uint32_t count, std::uint32_t step = 1)
{
    std::string words;
    for (std::uint32_t x = 0; x < count * step; x += step)
    {
        words += "P" + std::to_string(x) + ",300 ";
    }
    return defectsOf(words);
}
