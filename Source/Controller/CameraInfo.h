// Status of one plugged camera, as the controller keeps it.
#pragma once

#include "ZltApi/Types.h"

#include <string>

struct CameraInfo
{
    bool dpcSupported = false;
    bool accessible = false;    // it could be opened when that was last looked at
    bool accessFrozen = false;  // always false
    bool accessChecked = false; // dpcSupported is known, from an opening of the camera or from the file
    std::string id;
    ZltApi::CameraPtr camera;
};

inline bool operator==(const CameraInfo& info, const ZltApi::CameraPtr& camera)
{
    return info.camera == camera;
}
