// One fault that a simulated camera is asked to show.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Simulation
{

// What happens to one call. Several rules may hit the same call; their effects then join.
struct FaultEffect
{
    std::optional<std::int32_t> code; // the call fails with this ZltErrorType
    std::uint32_t delayMs = 0;        // the call takes this much longer
    std::uint32_t shortBy = 0;        // a read or a frame yields this many bytes less
    bool drop = false;                // the frame never arrives
    bool hang = false;                // the command has no effect and is never done
    bool unplug = false;              // the camera is gone from this call on
    std::optional<std::string> value; // a reading gives this text, an executed file operation this status
};

// Hits `count` calls of an operation on a feature, counted from 1: the one number `call` and then each `every`-th one.
//
// Operations are those of the camera API: "GetValue", "SetValue", "GetRange", "GetIncrement", "GetEntry", "GetEntries",
// "IsReadable", "IsWritable", "IsValueAvailable", "RunCommand", "IsCommandDone", "GetFeatureByName", "Open",
// "ReadMemory" and "WriteMemory" with the address in upper-case hexadecimal digits as the feature, "StartAcquisition".
// Inside the camera there are "FileRead" and "FileWrite", once for each block, with the file's name as the feature,
// which know the effects code, shortBy and value; and "Frame", once for each exposed frame, which knows shortBy (the
// frame arrives incomplete), delay (it takes longer) and drop; and "FlashErase" and "FlashProgram" with the file's
// number as the feature, which know code (it ends in an error) and hang (it never ends).
struct FaultRule
{
    std::string operation; // empty: every operation
    std::string feature;   // empty: every feature
    std::uint64_t call = 1;
    std::uint64_t every = 1;
    std::uint64_t count = 1; // 0: for good
    FaultEffect effect;
};

// Reads rules from a JSON text: one object or an array of objects with the keys "operation", "feature", "call",
// "every", "count", "code", "delay" (milliseconds), "shortBy", "drop", "hang", "unplug" and "value", all of them
// optional but for one effect.
// Throws std::runtime_error with a full sentence when the text does not fit.
std::vector<FaultRule> ParseFaultRules(const std::string& json);

} // namespace Simulation
