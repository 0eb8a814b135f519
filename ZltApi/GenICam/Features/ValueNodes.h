// Features with one value: integers, floats, booleans, texts and raw registers.
#pragma once

#include "Features/DescribedNode.h"

namespace GenICam
{

class CameraMemory;

class IntegerNode final : public DescribedNode
{
public:
    IntegerNode(ArvGcFeatureNode* node, std::string name)
        : DescribedNode(node, std::move(name), ZltFeatureDataInteger),
          m_integer(ARV_GC_INTEGER(node))
    {
    }

    using DescribedNode::Get;
    using DescribedNode::Increment;
    using DescribedNode::Range;
    using DescribedNode::Set;
    ZltErrorType Get(std::int64_t& value) const override;
    ZltErrorType Set(std::int64_t value) override;
    ZltErrorType Range(std::int64_t& minimum, std::int64_t& maximum) const override;
    ZltErrorType Increment(std::int64_t& increment) const override;

private:
    ArvGcInteger* const m_integer;
};

class FloatNode final : public DescribedNode
{
public:
    FloatNode(ArvGcFeatureNode* node, std::string name)
        : DescribedNode(node, std::move(name), ZltFeatureDataFloat),
          m_float(ARV_GC_FLOAT(node))
    {
    }

    using DescribedNode::Get;
    using DescribedNode::Increment;
    using DescribedNode::Range;
    using DescribedNode::Set;
    ZltErrorType Get(double& value) const override;
    ZltErrorType Set(double value) override;
    ZltErrorType Range(double& minimum, double& maximum) const override;
    ZltErrorType Increment(double& increment) const override;

private:
    ArvGcFloat* const m_float;
};

class BooleanNode final : public DescribedNode
{
public:
    BooleanNode(ArvGcFeatureNode* node, std::string name)
        : DescribedNode(node, std::move(name), ZltFeatureDataBoolean),
          m_boolean(ARV_GC_BOOLEAN(node))
    {
    }

    using DescribedNode::Get;
    using DescribedNode::Set;
    ZltErrorType Get(bool& value) const override;
    ZltErrorType Set(bool value) override;

private:
    ArvGcBoolean* const m_boolean;
};

class StringNode final : public DescribedNode
{
public:
    StringNode(ArvGcFeatureNode* node, std::string name)
        : DescribedNode(node, std::move(name), ZltFeatureDataString),
          m_string(ARV_GC_STRING(node))
    {
    }

    using DescribedNode::Get;
    using DescribedNode::Set;
    ZltErrorType Get(std::string& value) const override;
    ZltErrorType Set(const std::string& value) override;

private:
    ArvGcString* const m_string;
};

// A stretch of camera memory that the description names. Fewer bytes than it is long can be written at its start.
class RawNode final : public DescribedNode
{
public:
    RawNode(ArvGcFeatureNode* node, std::string name, CameraMemory& memory)
        : DescribedNode(node, std::move(name), ZltFeatureDataRaw),
          m_register(ARV_GC_REGISTER(node)),
          m_memory(memory)
    {
    }

    using DescribedNode::Get;
    using DescribedNode::Set;
    ZltErrorType Get(Bytes& value) const override;
    ZltErrorType Set(const Bytes& value) override;

private:
    std::size_t Length() const;

    ArvGcRegister* const m_register;
    CameraMemory& m_memory;
};

} // namespace GenICam
