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

    // Now, as a selector may tell. A feature that is described but not implemented counts as absent.
    virtual bool IsImplemented() const { return true; }
};

} // namespace GenICam
