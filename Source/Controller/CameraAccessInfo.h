// What is remembered of a camera from one run of the program to the next.
#pragma once

#include <string>

struct CameraAccessInfo
{
    bool dpcSupported = false;
    std::string id; // of the camera
};
