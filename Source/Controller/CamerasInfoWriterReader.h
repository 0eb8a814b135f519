// The two small files that the program keeps in its working directory.
#pragma once

#include "CameraAccessInfo.h"

#include <vector>

// "Lorvane.cache" remembers which cameras support defect pixel correction, "Lorvane.ini" keeps two flags of the window.
// Both lie in the current directory. Failures are silent: a file that cannot be used counts as absent.
class CamerasInfoWriterReader
{
public:
    // Appends what the cache holds. A cache with a faulty camera empties the vector; one that is no cache at all, nests
    // deeper or is larger than any that the program writes leaves it untouched.
    void GetInformationFromFile(std::vector<CameraAccessInfo>& infos) const;
    // Replaces the cache; an empty vector leaves the old one in place.
    void SetInformationToFile(const std::vector<CameraAccessInfo>& infos) const;

    // A key that is not in the file leaves its variable untouched.
    void GetConfigInfo(bool& tutorialFinished, bool& automaticDetection) const;
    void SetConfigInfo(bool tutorialFinished, bool automaticDetection) const;
};
