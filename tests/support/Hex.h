// Bytes written out in tables.
#pragma once

#include <boost/algorithm/hex.hpp>

#include <cstdint>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

// Words of hexadecimal digits; a word that begins with an apostrophe stands for its letters.
inline std::vector<std::uint8_t> bytesFrom(const std::string& text)
{
    std::vector<std::uint8_t> bytes;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        word.front() == '\'' ? void(bytes.insert(bytes.end(), word.begin() + 1, word.end()))
                             : void(boost::algorithm::unhex(word, std::back_inserter(bytes)));
    }
    return bytes;
}
