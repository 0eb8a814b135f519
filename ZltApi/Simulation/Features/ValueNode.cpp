// Range checks and text forms of the features with one value.
#include "Features/ValueNode.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace Simulation
{

namespace
{

template <typename Number> std::string ToText(Number number)
{
    char text[64];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return {text, end};
}

template <typename Number> std::optional<Number> FromText(const std::string& text)
{
    Number number{};
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    return error == std::errc() && end == last ? std::optional<Number>(number) : std::nullopt;
}

} // namespace

IntegerNode::IntegerNode(std::string name, std::int64_t value, Limits limits, std::int64_t increment)
    : ValueNode(std::move(name), ZltFeatureDataInteger, value),
      m_limits([limits] { return limits; }),
      m_increment(increment)
{
}

bool IntegerNode::Accepts(std::int64_t value) const
{
    const auto [minimum, maximum] = m_limits();
    return value >= minimum && value <= maximum && (value - minimum) % m_increment == 0;
}

ZltErrorType IntegerNode::Set(std::int64_t value)
{
    return Accepts(value) ? Store(value) : ZltErrorInvalidValue;
}

ZltErrorType IntegerNode::Range(std::int64_t& minimum, std::int64_t& maximum) const
{
    const auto limits = m_limits();
    minimum = limits.minimum;
    maximum = limits.maximum;
    return ZltErrorSuccess;
}

ZltErrorType IntegerNode::Increment(std::int64_t& increment) const
{
    increment = m_increment;
    return ZltErrorSuccess;
}

std::string IntegerNode::Save() const
{
    return ToText(Chosen());
}

bool IntegerNode::Restore(const std::string& text)
{
    const auto value = FromText<std::int64_t>(text);
    if (!value || !Accepts(*value))
    {
        return false;
    }
    Assign(*value);
    return true;
}

FloatNode::FloatNode(std::string name, double value, Limits limits, double increment)
    : ValueNode(std::move(name), ZltFeatureDataFloat, value),
      m_limits(limits),
      m_increment(increment)
{
}

double FloatNode::Rounded(double value) const
{
    if (m_increment > 0.0)
    {
        value = m_limits.minimum + std::round((value - m_limits.minimum) / m_increment) * m_increment;
    }
    return std::clamp(value, m_limits.minimum, m_limits.maximum);
}

ZltErrorType FloatNode::Set(double value)
{
    const bool inRange = value >= m_limits.minimum && value <= m_limits.maximum; // false for a value that is no number
    return inRange ? Store(Rounded(value)) : ZltErrorInvalidValue;
}

ZltErrorType FloatNode::Range(double& minimum, double& maximum) const
{
    minimum = m_limits.minimum;
    maximum = m_limits.maximum;
    return ZltErrorSuccess;
}

ZltErrorType FloatNode::Increment(double& increment) const
{
    if (m_increment <= 0.0)
    {
        return ZltErrorNotSupported;
    }
    increment = m_increment;
    return ZltErrorSuccess;
}

std::string FloatNode::Save() const
{
    return ToText(Chosen());
}

bool FloatNode::Restore(const std::string& text)
{
    const auto value = FromText<double>(text);
    if (!value || !(*value >= m_limits.minimum && *value <= m_limits.maximum))
    {
        return false;
    }
    Assign(*value);
    return true;
}

void FloatNode::AssignClamped(double value)
{
    Assign(Rounded(value));
}

BooleanNode::BooleanNode(std::string name, bool value) : ValueNode(std::move(name), ZltFeatureDataBoolean, value) {}

ZltErrorType BooleanNode::Set(bool value)
{
    return Store(value);
}

std::string BooleanNode::Save() const
{
    return Chosen() ? "true" : "false";
}

bool BooleanNode::Restore(const std::string& text)
{
    if (text != "true" && text != "false")
    {
        return false;
    }
    Assign(text == "true");
    return true;
}

StringNode::StringNode(std::string name, std::string value)
    : ValueNode(std::move(name), ZltFeatureDataString, std::move(value))
{
}

ZltErrorType StringNode::Set(const std::string& value)
{
    return Store(value);
}

RawNode::RawNode(std::string name) : ValueNode(std::move(name), ZltFeatureDataRaw, Bytes()) {}

ZltErrorType RawNode::Set(const Bytes& value)
{
    return Store(value);
}

} // namespace Simulation
