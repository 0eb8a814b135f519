// How the batch tool hands out a JSON document.
#pragma once

#include <nlohmann/json.hpp>

namespace CommandLine
{

// Prints it to standard output. Bytes that are no UTF-8, as cameras may send, become replacement characters.
void PrintJson(const nlohmann::ordered_json& document);

} // namespace CommandLine
