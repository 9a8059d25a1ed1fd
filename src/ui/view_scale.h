// The transformation of the last paint between data and the pixels of the plot box; the mouse
// code converts back through it.
#pragma once

struct ViewScale {
    float xMin = 0.0f; // stored data units
    float xMax = 1.0f;
    float yMin = 0.0f;
    float yMax = 1.0f;
    int scaleAuto = 1; // non-zero: the next paint takes the range from the data
    int plotWidth = 0; // pixels of the plot box
    int plotHeight = 0;
    double xPerPixel = 1e-32; // at least 1e-32
    double yPerPixel = 1e-32;
    int plotLeft = 0; // lower left corner of the box
    int plotBottom = 0;
};
