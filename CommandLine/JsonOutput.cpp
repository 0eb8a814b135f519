#include "JsonOutput.h"

#include <iostream>

namespace CommandLine
{

void PrintJson(const nlohmann::ordered_json& document)
{
    std::cout << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

} // namespace CommandLine
