// A command feature.
#pragma once

#include "Features/DescribedNode.h"

namespace GenICam
{

class CommandNode final : public DescribedNode
{
public:
    CommandNode(ArvGcFeatureNode* node, std::string name)
        : DescribedNode(node, std::move(name), ZltFeatureDataCommand),
          m_command(ARV_GC_COMMAND(node))
    {
    }

    bool IsReadable() const override { return false; }
    ZltErrorType Run() override;
    ZltErrorType IsDone(bool& done) const override;

private:
    ArvGcCommand* const m_command;
};

} // namespace GenICam
