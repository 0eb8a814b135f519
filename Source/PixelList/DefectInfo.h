// One entry of the pixel list.
#pragma once

// A defect in zero-based sensor coordinates, sizes in pixels. Whole columns have y 0 and the sensor's height, whole
// rows x 0 and its width.
struct DefectInfo
{
    int x = -1;
    int y = -1;
    int width = -1;
    int height = -1;
    int type = -1;   // a DefectUiType
    int color = -1;  // NewColor or CameraColor
    int number = -1; // how many rows the list had when the defect was added

    static constexpr int NewColor = 0;    // not yet in the camera
    static constexpr int CameraColor = 1; // read from the camera

    bool isValid() const { return x != -1 && y != -1 && width != -1 && height != -1 && type != -1 && color != -1; }
};
