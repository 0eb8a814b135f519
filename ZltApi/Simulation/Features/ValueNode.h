// Features that hold a number, a text or a switch.
#pragma once

#include "Features/FeatureNode.h"

#include <functional>
#include <utility>

namespace Simulation
{

// What all features with one value have in common: a stored value, or one that is worked out at each reading, and a
// hook that may refuse a new value before it is stored.
template <typename Value> class ValueNode : public FeatureNode
{
public:
    using Reader = std::function<Value()>;
    using Writer = std::function<ZltErrorType(const Value&)>;

    ValueNode(std::string name, ZltFeatureDataType type, Value value)
        : FeatureNode(std::move(name), type),
          m_initial(value),
          m_value(std::move(value))
    {
    }

    void OnRead(Reader reader) { m_reader = std::move(reader); }
    void OnWrite(Writer writer) { m_writer = std::move(writer); }

    Value Current() const { return m_reader ? m_reader() : m_value; }
    // The value that was written last, also where another one is read.
    const Value& Chosen() const { return m_value; }
    // The camera's own change of the value: neither access rules nor the hook are asked.
    void Assign(Value value) { m_value = std::move(value); }
    void Reset() override { m_value = m_initial; }

    using FeatureNode::Get;
    ZltErrorType Get(Value& value) const override
    {
        value = Current();
        return ZltErrorSuccess;
    }

protected:
    ZltErrorType Store(const Value& value)
    {
        const ZltErrorType result = m_writer ? m_writer(value) : ZltErrorSuccess;
        if (result == ZltErrorSuccess)
        {
            m_value = value;
        }
        return result;
    }

private:
    const Value m_initial;
    Value m_value;
    Reader m_reader;
    Writer m_writer;
};

template <typename Number> struct NumberRange
{
    Number minimum;
    Number maximum;
};

class IntegerNode final : public ValueNode<std::int64_t>
{
public:
    using Limits = NumberRange<std::int64_t>;

    IntegerNode(std::string name, std::int64_t value, Limits limits, std::int64_t increment = 1);

    // Replaces the fixed limits by ones that are worked out at each use.
    void LimitedBy(std::function<Limits()> limits) { m_limits = std::move(limits); }

    using FeatureNode::Increment;
    using FeatureNode::Range;
    using FeatureNode::Set;
    ZltErrorType Set(std::int64_t value) override;
    ZltErrorType Range(std::int64_t& minimum, std::int64_t& maximum) const override;
    ZltErrorType Increment(std::int64_t& increment) const override;
    std::string Save() const override;
    bool Restore(const std::string& text) override;

private:
    bool Accepts(std::int64_t value) const;

    std::function<Limits()> m_limits;
    const std::int64_t m_increment;
};

class FloatNode final : public ValueNode<double>
{
public:
    using Limits = NumberRange<double>;

    // An increment of 0 accepts any value in range; otherwise a value is rounded to the nearest step from the minimum.
    FloatNode(std::string name, double value, Limits limits, double increment = 0.0);

    using FeatureNode::Increment;
    using FeatureNode::Range;
    using FeatureNode::Set;
    ZltErrorType Set(double value) override;
    ZltErrorType Range(double& minimum, double& maximum) const override;
    ZltErrorType Increment(double& increment) const override;
    std::string Save() const override;
    bool Restore(const std::string& text) override;

    // The camera's own change of the value, cut to the limits.
    void AssignClamped(double value);

private:
    double Rounded(double value) const;

    const Limits m_limits;
    const double m_increment;
};

class BooleanNode final : public ValueNode<bool>
{
public:
    BooleanNode(std::string name, bool value);

    using FeatureNode::Set;
    ZltErrorType Set(bool value) override;
    std::string Save() const override;
    bool Restore(const std::string& text) override;
};

class StringNode final : public ValueNode<std::string>
{
public:
    StringNode(std::string name, std::string value);

    using FeatureNode::Set;
    ZltErrorType Set(const std::string& value) override;
};

// A register of bytes; what it holds is the business of the two hooks.
class RawNode final : public ValueNode<FeatureNode::Bytes>
{
public:
    explicit RawNode(std::string name);

    using FeatureNode::Set;
    ZltErrorType Set(const Bytes& value) override;
};

} // namespace Simulation
