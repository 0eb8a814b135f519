// A feature as the camera API hands it out, with the faults that were ordered.
#include "Features/FeatureHandle.h"

#include "Features/EnumNode.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace Simulation
{

namespace
{

// What a fault does to a value that was read.
class Distortion
{
public:
    Distortion(const FeatureNode& node, const FaultEffect& effect) : m_node(node), m_effect(effect) {}

    void operator()(FeatureNode::Bytes* bytes) const
    {
        bytes->resize(bytes->size() - std::min<std::size_t>(bytes->size(), m_effect.shortBy));
    }
    void operator()(std::string* text) const { *text = m_effect.value.value_or(*text); }
    void operator()(std::int64_t* number) const
    {
        const auto* const enumeration = dynamic_cast<const EnumNode*>(&m_node);
        if (enumeration && m_effect.value)
        {
            const EnumNode::Entry* const entry = enumeration->Find(*m_effect.value);
            *number = entry ? entry->number : -1;
        }
    }
    void operator()(const void*) const {}

private:
    const FeatureNode& m_node;
    const FaultEffect& m_effect;
};

} // namespace

FeatureHandle::FeatureHandle(std::shared_ptr<FeatureAccess> access, FeatureNode& node)
    : BasicFeature(node),
      m_access(std::move(access)),
      m_node(node)
{
}

ZltErrorType FeatureHandle::List(const std::shared_ptr<FeatureAccess>& access,
                                 std::vector<ZltApi::FeaturePtr>& features)
{
    return access->gate.Run("GetFeatures", {},
                            [&](const FaultEffect&)
                            {
                                features.clear();
                                for (FeatureNode* const node : access->features.Shown())
                                {
                                    features.push_back(std::make_shared<FeatureHandle>(access, *node));
                                }
                                return ZltErrorSuccess;
                            });
}

ZltErrorType FeatureHandle::Find(const std::shared_ptr<FeatureAccess>& access, const char* name,
                                 ZltApi::FeaturePtr& feature)
{
    if (!name)
    {
        return ZltErrorBadParameter;
    }
    return access->gate.Run("GetFeatureByName", name,
                            [&](const FaultEffect&)
                            {
                                FeatureNode* const node = access->features.Find(name);
                                if (!node)
                                {
                                    return ZltErrorNotFound;
                                }
                                feature = std::make_shared<FeatureHandle>(access, *node);
                                return ZltErrorSuccess;
                            });
}

ZltErrorType FeatureHandle::Enter(const char* operation, const Action& action) const
{
    return m_access->gate.Run(operation, m_node.Name(), [&](const FaultEffect&) { return action(); });
}

ZltErrorType FeatureHandle::Read(const Target& target) const
{
    return m_access->gate.Run("GetValue", m_node.Name(),
                              [&](const FaultEffect& effect)
                              {
                                  const ZltErrorType result = ReadNow(target);
                                  if (result == ZltErrorSuccess)
                                  {
                                      std::visit(Distortion(m_node, effect), target);
                                  }
                                  return result;
                              });
}

ZltErrorType FeatureHandle::Write(const Source& source)
{
    return m_access->gate.Run("SetValue", m_node.Name(),
                              [&](const FaultEffect&)
                              {
                                  const ZltErrorType result = WriteNow(source);
                                  if (result == ZltErrorSuccess && m_node.IsKeptAtOnce() && m_access->keep)
                                  {
                                      m_access->keep();
                                  }
                                  return result;
                              });
}

ZltErrorType FeatureHandle::RunCommand()
{
    return m_access->gate.Run("RunCommand", m_node.Name(),
                              [&](const FaultEffect& effect)
                              {
                                  if (effect.hang && m_node.Type() == ZltFeatureDataCommand && m_node.IsWritable())
                                  {
                                      m_node.Hang();
                                      return ZltErrorSuccess;
                                  }
                                  return RunNow();
                              });
}

} // namespace Simulation
