// Makes one of the coming allocations that report failure as a null pointer fail.
#pragma once

// 1 is the next new (std::nothrow); none fails after that one.
void FailNothrowNew(unsigned number);
