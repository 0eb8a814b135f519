// Aravis's GigE Vision camera as a process of its own, on the loopback interface.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace GenICam
{

constexpr const char* FakeAddress = "127.0.0.1";
constexpr const char* FakeId = "Aravis-Fake-BENCH1";

// A process that is killed at the end.
class Process
{
public:
    explicit Process(std::vector<std::string> arguments);
    ~Process() { Kill(); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void Kill();
    void Signal(int number) const;
    // Tells it to end and waits; gives its exit status.
    int End();

private:
    pid_t m_process = -1;
};

// Answers when the constructor returns. The arguments are further ones of the program; without any the camera has the
// description of the tests.
class FakeCamera : public Process
{
public:
    explicit FakeCamera(const std::vector<std::string>& arguments = {"-g", BENCH_DESCRIPTION});
};

// Puts this process into a network of its own, where there are no other cameras and tests can run side by side. False
// where the system does not allow that; then the computer's own loopback interface serves.
bool EnterOwnNetwork();
// Switches the loopback interface of that network on or off.
void SetLoopback(bool isUp);

} // namespace GenICam
