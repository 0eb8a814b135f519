// Features with one value: integers, floats, booleans, texts and raw registers.
#include "Features/ValueNodes.h"

#include "Aravis/Ask.h"
#include "Device/CameraMemory.h"

#include <algorithm>
#include <cmath>

namespace GenICam
{

namespace
{

constexpr std::uint64_t LongestRegister = 16U << 20U; // bytes
constexpr double MostSteps = 1e12; // further from the minimum, or without one, a double has no steps to count

} // namespace

ZltErrorType IntegerNode::Get(std::int64_t& value) const
{
    value = Ask(arv_gc_integer_get_value, m_integer);
    return ZltErrorSuccess;
}

ZltErrorType IntegerNode::Set(std::int64_t value)
{
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    std::int64_t increment = 1;
    Range(minimum, maximum);
    Increment(increment);
    // Without a sign, so that no distance is too long.
    const std::uint64_t distance = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(minimum);
    if (value < minimum || value > maximum || (increment > 1 && distance % static_cast<std::uint64_t>(increment) != 0))
    {
        return ZltErrorInvalidValue;
    }
    Ask(arv_gc_integer_set_value, m_integer, gint64{value});
    return ZltErrorSuccess;
}

ZltErrorType IntegerNode::Range(std::int64_t& minimum, std::int64_t& maximum) const
{
    const std::int64_t lowest = AskOptional(arv_gc_integer_get_min, m_integer);
    maximum = AskOptional(arv_gc_integer_get_max, m_integer);
    minimum = lowest;
    return ZltErrorSuccess;
}

ZltErrorType IntegerNode::Increment(std::int64_t& increment) const
{
    increment = std::max<std::int64_t>(AskOptional(arv_gc_integer_get_inc, m_integer), 1);
    return ZltErrorSuccess;
}

ZltErrorType FloatNode::Get(double& value) const
{
    value = Ask(arv_gc_float_get_value, m_float);
    return ZltErrorSuccess;
}

ZltErrorType FloatNode::Set(double value)
{
    double minimum = 0.0;
    double maximum = 0.0;
    double increment = 0.0;
    Range(minimum, maximum);
    if (!(value >= minimum && value <= maximum))
    {
        return ZltErrorInvalidValue;
    }
    if (Increment(increment) == ZltErrorSuccess && (value - minimum) / increment < MostSteps)
    {
        const double steps = std::min(std::round((value - minimum) / increment),
                                      std::floor((maximum - minimum) / increment * (1 + 1e-12)));
        value = std::min(minimum + steps * increment, maximum);
    }
    Ask(arv_gc_float_set_value, m_float, value);
    return ZltErrorSuccess;
}

ZltErrorType FloatNode::Range(double& minimum, double& maximum) const
{
    const double lowest = AskOptional(arv_gc_float_get_min, m_float);
    maximum = AskOptional(arv_gc_float_get_max, m_float);
    minimum = lowest;
    return ZltErrorSuccess;
}

ZltErrorType FloatNode::Increment(double& increment) const
{
    // Aravis would also guess one from a formula, which fails where that has an offset.
    if (FindProperty(ARV_GC_NODE(m_float), ARV_GC_PROPERTY_NODE_TYPE_INCREMENT) == nullptr &&
        FindProperty(ARV_GC_NODE(m_float), ARV_GC_PROPERTY_NODE_TYPE_P_INCREMENT) == nullptr)
    {
        return ZltErrorNotSupported;
    }
    const double step = AskOptional(arv_gc_float_get_inc, m_float);
    if (!(step > G_MINDOUBLE)) // which stands for none
    {
        return ZltErrorNotSupported;
    }
    increment = step;
    return ZltErrorSuccess;
}

ZltErrorType BooleanNode::Get(bool& value) const
{
    value = Ask(arv_gc_boolean_get_value, m_boolean) != FALSE;
    return ZltErrorSuccess;
}

ZltErrorType BooleanNode::Set(bool value)
{
    Ask(arv_gc_boolean_set_value, m_boolean, gboolean{value ? TRUE : FALSE});
    return ZltErrorSuccess;
}

ZltErrorType StringNode::Get(std::string& value) const
{
    const char* const text = Ask(arv_gc_string_get_value, m_string);
    value = text != nullptr ? text : "";
    return ZltErrorSuccess;
}

ZltErrorType StringNode::Set(const std::string& value)
{
    const gint64 longest = AskOptional(arv_gc_string_get_max_length, m_string);
    if (longest >= 0 && value.size() > static_cast<std::uint64_t>(longest))
    {
        return ZltErrorInvalidValue;
    }
    Ask(arv_gc_string_set_value, m_string, value.c_str());
    return ZltErrorSuccess;
}

std::size_t RawNode::Length() const
{
    const guint64 length = Ask(arv_gc_register_get_length, m_register);
    if (length > LongestRegister)
    {
        throw AravisError(ZltErrorResource);
    }
    return static_cast<std::size_t>(length);
}

ZltErrorType RawNode::Get(Bytes& value) const
{
    Bytes bytes(Length());
    m_memory.Read(Ask(arv_gc_register_get_address, m_register), bytes);
    value = std::move(bytes);
    return ZltErrorSuccess;
}

ZltErrorType RawNode::Set(const Bytes& value)
{
    const std::size_t length = Length();
    if (value.size() > length)
    {
        return ZltErrorInvalidValue;
    }
    m_memory.WriteAtStart(Ask(arv_gc_register_get_address, m_register), value, length);
    return ZltErrorSuccess;
}

} // namespace GenICam
