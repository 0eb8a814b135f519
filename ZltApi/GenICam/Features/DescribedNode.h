// A feature that the camera describes: what its description says about access.
#pragma once

#include "Features/FeatureNode.h"

#include <arv.h>

#include <vector>

namespace GenICam
{

// The node belongs to the open camera, and so does this object.
class DescribedNode : public FeatureNode
{
public:
    DescribedNode(ArvGcFeatureNode* node, std::string name, ZltFeatureDataType type);

    bool IsImplemented() const override;
    bool IsReadable() const override;
    bool IsWritable() const override;

private:
    bool IsAccessible(ArvGcAccessMode obstacle) const;

    // The node itself and then those from which it takes its value, one after the other. Each can be unavailable or
    // locked in its own right.
    std::vector<ArvGcFeatureNode*> m_chain;
    bool m_isSent = false;
};

// What the description says about a node now. What cannot be found out is as given: one broken condition spoils nothing
// else. Throws AravisError when the camera does not answer at all.
bool Holds(gboolean (*condition)(ArvGcFeatureNode*, GError**), ArvGcFeatureNode* node, bool otherwise);

// The node that another one names as the source of its value; null when there is none.
ArvGcNode* ValueSource(ArvGcNode* node);

// The text of a property such as "CommandValue", as the description has it; null when there is none.
ArvGcPropertyNode* FindProperty(ArvGcNode* node, ArvGcPropertyNodeType type);

} // namespace GenICam
