// A command feature.
#include "Features/CommandNode.h"

#include "Aravis/Ask.h"

namespace GenICam
{

namespace
{

// The number that starts the command.
gint64 CommandValue(ArvGcNode* node)
{
    if (ArvGcPropertyNode* const value = FindProperty(node, ARV_GC_PROPERTY_NODE_TYPE_COMMAND_VALUE))
    {
        return Ask(arv_gc_property_node_get_int64, value);
    }
    ArvGcPropertyNode* const link = FindProperty(node, ARV_GC_PROPERTY_NODE_TYPE_P_COMMAND_VALUE);
    ArvGcNode* const source = link != nullptr ? arv_gc_property_node_get_linked_node(link) : nullptr;
    return ARV_IS_GC_INTEGER(source) ? Ask(arv_gc_integer_get_value, ARV_GC_INTEGER(source)) : 0;
}

} // namespace

ZltErrorType CommandNode::Run()
{
    Ask(arv_gc_command_execute, m_command);
    return ZltErrorSuccess;
}

// A camera that tells shows the command's number until it has finished. One that does not tell has finished at once.
ZltErrorType CommandNode::IsDone(bool& done) const
{
    ArvGcNode* const source = ValueSource(ARV_GC_NODE(m_command));
    if (!ARV_IS_GC_INTEGER(source) || !ARV_IS_GC_FEATURE_NODE(source) ||
        arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(source)) == ARV_GC_ACCESS_MODE_WO)
    {
        done = true;
        return ZltErrorSuccess;
    }
    done = Ask(arv_gc_integer_get_value, ARV_GC_INTEGER(source)) != CommandValue(ARV_GC_NODE(m_command));
    return ZltErrorSuccess;
}

} // namespace GenICam
