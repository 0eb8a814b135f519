// What was asked of a camera in memory, in order, and which of it fails.
#include "CallLog.h"

#include "Exception.h"

void CallLog::note(const std::string& call)
{
    calls.push_back(call);
    if (call == refused || calls.size() - 1 == failAt)
    {
        throw KTR::System::Exception("Refused: " + call, true);
    }
}
