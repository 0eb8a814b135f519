// One feature as the camera itself sees it: access rules and, in the derived classes, typed values.
#pragma once

#include "BasicNode.h"

#include <functional>
#include <string>
#include <vector>

namespace Simulation
{

// The camera's lock is held around every call.
class FeatureNode : public ProviderBase::BasicNode
{
public:
    using Condition = std::function<bool()>;

    using BasicNode::BasicNode;

    // Access rules; several conditions on one feature must all hold.
    void ReadableIf(Condition condition) { m_readable.push_back(std::move(condition)); }
    void WritableIf(Condition condition) { m_writable.push_back(std::move(condition)); }
    void ReadOnly();
    bool IsReadable() const override;
    bool IsWritable() const override;

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

    // A command that has begun never ends.
    virtual void Hang() {}

private:
    std::vector<Condition> m_readable;
    std::vector<Condition> m_writable;
    bool m_kept = false;
    bool m_keptAtOnce = false;
};

} // namespace Simulation
