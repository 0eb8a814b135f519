// Bytes and defects as texts, for tests of the formats.
#pragma once

#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DpcFileOstrel.h"
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

// One defect a word: "P x,y", "L x,y,width", "C x,y,height", "K pixels", "V x" or "R y" without the blank.
inline std::string text(const KTR::DPC::SensorDefectList& defects)
{
    using namespace KTR::DPC;
    std::ostringstream text;
    for (const auto& defect : defects)
    {
        if (const auto* pixel = dynamic_cast<const PixelDefect*>(defect.get()))
            text << 'P' << pixel->getX() << ',' << pixel->getY() << ' ';
        else if (const auto* run = dynamic_cast<const PixelRowDefect*>(defect.get()))
            text << 'L' << run->getX() << ',' << run->getY() << ',' << run->getWidth() << ' ';
        else if (const auto* part = dynamic_cast<const PixelColumnDefect*>(defect.get()))
            text << 'C' << part->getX() << ',' << part->getY() << ',' << part->getHeight() << ' ';
        else if (const auto* cluster = dynamic_cast<const ClusterDefect*>(defect.get()))
            text << 'K' << cluster->getPixels().size() << ' ';
        else if (const auto* column = dynamic_cast<const ColumnDefect*>(defect.get()))
            text << 'V' << column->getX() << ' ';
        else
            text << 'R' << dynamic_cast<const RowDefect&>(*defect).getY() << ' ';
    }
    return text.str();
}

inline void add(KTR::DPC::DpcFileOstrel& file, const std::string& defects)
{
    std::istringstream words(defects);
    for (std::string word; words >> word;)
    {
        unsigned a = 0, b = 0, c = 0;
        std::sscanf(word.c_str() + 1, "%u,%u,%u", &a, &b, &c);
        const auto cut = [](unsigned value) { return static_cast<std::uint16_t>(value); };
        word[0] == 'P'   ? file.addSinglePixelDefect(cut(a), cut(b))
        : word[0] == 'L' ? file.addPixelRowDefect(cut(a), cut(a + c - 1), cut(b))
                         : file.addRowDefect(cut(a));
    }
}

// Adds random defects of a sensor of 640 x 480; gives their text in the file's order.
inline std::string addRandom(KTR::DPC::DpcFileOstrel& file, std::mt19937& random, std::size_t most)
{
    std::map<std::pair<std::uint_fast32_t, std::uint_fast32_t>, std::string> defects; // by y, then x
    for (auto i = random() % most; i > 0; --i)
    {
        const auto x = i % 3 == 0 ? 0 : random() % 640, y = random() % 480, width = random() % 639 + 1;
        boost::format word(i % 3 == 0 ? "R%2% " : i % 3 == 1 ? "P%1%,%2% " : "L%1%,%2%,%3% ");
        word.exceptions(boost::io::no_error_bits);
        const auto defect = (word % x % y % width).str();
        defects[{y, x}] += defect;
        add(file, defect);
        i % 700 == 0 ? file.getRawData() : Bytes(); // building in between changes nothing
    }
    std::string expected;
    for (const auto& [place, list] : defects)
    {
        expected += list;
    }
    return expected;
}
