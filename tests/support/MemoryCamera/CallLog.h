// What was asked of a camera in memory, in order, and which of it fails.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

struct CallLog
{
    // Writes the call down; throws "Refused: " and the call when it is to fail.
    void note(const std::string& call);
    // Forgets the calls and the failures.
    void clear() { *this = CallLog(); }

    std::vector<std::string> calls;
    std::string refused;                                          // this call fails whenever it comes
    std::size_t failAt = std::numeric_limits<std::size_t>::max(); // the call with this number fails
};
