// Aravis's GigE Vision camera as a process of its own, on the loopback interface.
#include "FakeCamera.h"

#include "Discovery/ControlPort.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <utility>

#include <net/if.h>
#include <sched.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace GenICam
{

Process::Process(std::vector<std::string> arguments)
{
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
    {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    if (::posix_spawn(&m_process, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0)
    {
        throw std::runtime_error("Cannot start " + arguments[0]);
    }
}

void Process::Signal(int number) const
{
    ::kill(m_process, number);
}

void Process::Kill()
{
    if (m_process > 0)
    {
        Signal(SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
}

int Process::End()
{
    int status = 0;
    Signal(SIGTERM);
    ::waitpid(std::exchange(m_process, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

FakeCamera::FakeCamera(const std::vector<std::string>& arguments)
    : Process(
          [&]
          {
              std::vector<std::string> all = {FAKE_CAMERA_PROGRAM, "-i", FakeAddress, "-s", "BENCH1"};
              all.insert(all.end(), arguments.begin(), arguments.end());
              return all;
          }())
{
    for (int i = 0; ControlPort(FakeAddress).ReadControlState() == ControlState::Unknown; ++i)
    {
        if (i == 30)
        {
            throw std::runtime_error("The camera does not answer.");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

bool EnterOwnNetwork()
{
    if (::unshare(CLONE_NEWNET) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
    {
        return false;
    }
    SetLoopback(true);
    return true;
}

void SetLoopback(bool isUp)
{
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    request.ifr_flags = static_cast<short>(isUp ? IFF_UP : 0);
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (::ioctl(socket, SIOCSIFFLAGS, &request) != 0)
    {
        std::perror("lo");
        std::abort();
    }
    ::close(socket);
}

} // namespace GenICam
