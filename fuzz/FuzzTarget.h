// The frame of a fuzz target: a source that includes this defines Fuzz.
#pragma once

#include <cassert>
#include <cstdint>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// Takes arbitrary bytes. A crash, a failed assertion or an exception that gets out is a finding.
void Fuzz(const Bytes& input);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz({data, data + size});
    return 0;
}
