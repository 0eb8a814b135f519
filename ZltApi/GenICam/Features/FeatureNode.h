// One feature of a camera or of its stream.
#pragma once

#include "BasicNode.h"

namespace GenICam
{

// Called under the lock of the camera's connection; operations throw AravisError where the camera or its description
// fail.
class FeatureNode : public ProviderBase::BasicNode
{
public:
    using BasicNode::BasicNode;

    // A feature that is described but not implemented counts as absent. Does not change while the camera is open.
    virtual bool IsImplemented() const { return true; }
};

} // namespace GenICam
