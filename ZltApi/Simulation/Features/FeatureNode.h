// One feature as the camera itself sees it: access rules and, in the derived classes, typed values.
#pragma once

#include "ZltApi/ResultCodes.h"
#include "ZltApi/Types.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Simulation
{

// The base refuses every typed operation with ZltErrorWrongType; a kind overrides those that fit it. Access rules are
// checked by FeatureHandle, not here, so that a camera can read and restore its own features at any time. Not
// thread-safe: the camera's lock is held around every call.
class FeatureNode
{
public:
    using Condition = std::function<bool()>;
    using Bytes = std::vector<unsigned char>;

    FeatureNode(std::string name, ZltFeatureDataType type);
    virtual ~FeatureNode() = default;
    FeatureNode(const FeatureNode&) = delete;
    FeatureNode& operator=(const FeatureNode&) = delete;

    const std::string& Name() const { return m_name; }
    ZltFeatureDataType Type() const { return m_type; }

    // Access rules; several conditions on one feature must all hold.
    void ReadableIf(Condition condition) { m_readable.push_back(std::move(condition)); }
    void WritableIf(Condition condition) { m_writable.push_back(std::move(condition)); }
    void ReadOnly();
    bool IsReadable() const;
    bool IsWritable() const;

    // Takes part in what the camera remembers for as long as it has power.
    void KeepWhilePowered() { m_kept = true; }
    // Kept, and written down as soon as it has changed instead of when the camera is closed.
    void KeepAtOnce();
    bool IsKept() const { return m_kept; }
    bool IsKeptAtOnce() const { return m_keptAtOnce; }
    // The stored value as text, and back. A text that does not fit leaves the value alone and returns false.
    virtual std::string Save() const { return {}; }
    virtual bool Restore(const std::string&) { return false; }
    // Goes back to the value that the feature was made with.
    virtual void Reset() {}

    virtual ZltErrorType Get(bool&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(double&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(std::string&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Get(Bytes&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Set(bool) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(std::int64_t) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(double) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const std::string&) { return ZltErrorWrongType; }
    virtual ZltErrorType Set(const Bytes&) { return ZltErrorWrongType; }
    virtual ZltErrorType Range(std::int64_t&, std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Range(double&, double&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(std::int64_t&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Increment(double&) const { return ZltErrorWrongType; }
    virtual ZltErrorType Run() { return ZltErrorWrongType; }
    virtual void Hang() {}
    virtual ZltErrorType IsDone(bool&) const { return ZltErrorWrongType; }

private:
    const std::string m_name;
    const ZltFeatureDataType m_type;
    std::vector<Condition> m_readable;
    std::vector<Condition> m_writable;
    bool m_kept = false;
    bool m_keptAtOnce = false;
};

} // namespace Simulation
