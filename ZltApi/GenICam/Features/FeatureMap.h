// The features of an open camera, or of its stream.
#pragma once

#include "Features/FeatureNode.h"

#include <arv.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace GenICam
{

class CameraMemory;

// Guarded by the lock of the camera's connection. Nodes stay where they are as long as the map lives.
class FeatureMap
{
public:
    void Add(std::unique_ptr<FeatureNode> node);

    // Null when there is none of that name.
    FeatureNode* Find(const std::string& name) const;
    // In the order in which they were added.
    const std::vector<FeatureNode*>& All() const { return m_order; }

private:
    std::unordered_map<std::string, std::unique_ptr<FeatureNode>> m_nodes;
    std::vector<FeatureNode*> m_order;
};

// A node for what a camera describes under that name. Null when it is nothing that a program can use.
std::unique_ptr<FeatureNode> MakeNode(ArvGcNode* node, const std::string& name, CameraMemory& memory);

// What the camera lists in its tree of categories, from top to bottom, each feature once.
void AddDescribedFeatures(ArvGc& description, CameraMemory& memory, FeatureMap& features);

} // namespace GenICam
