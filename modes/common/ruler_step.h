#pragma once

// Metres between two marks of a scale, 0.1, 0.5, 1, 5, 10 and so on: the first that keeps them apart.
inline double rulerStep(double pixelsPerMetre, double fewestPixels)
{
    double step = 0.1;
    for (bool toFive = true; step * pixelsPerMetre < fewestPixels; toFive = !toFive)
        step *= toFive ? 5 : 2;
    return step;
}
