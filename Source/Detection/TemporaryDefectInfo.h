// One candidate of the automatic detection.
#pragma once

// A rectangle of sensor pixels that the detection takes for a defect. Coordinates are zero-based pixels of the frame.
struct TemporaryDefectInfo
{
    TemporaryDefectInfo(int x_, int y_, int width_, int height_, int type_, double value_)
        : x(x_),
          y(y_),
          width(width_),
          height(height_),
          type(type_),
          value(value_)
    {
    }

    int x;
    int y;
    int width;
    int height;
    int type;     // a DefectUiType
    double value; // mean of red, green and blue at detection, 0 to 255
};
