#pragma once

// Screen measures are kept in twips, 1/1440 of an inch, so that a width means the same on every
// screen. A logical pixel is 1/96 of an inch, whatever the scale of the screen.

constexpr int twipsPerInch = 1440;
constexpr int twipsPerPixel = twipsPerInch / 96;

constexpr int PixelsFromTwips(int twips)
{
    return twips >= 0 ? (twips + twipsPerPixel / 2) / twipsPerPixel
                      : -((-twips + twipsPerPixel / 2) / twipsPerPixel);
}

constexpr int TwipsFromPixels(int pixels)
{
    return pixels * twipsPerPixel;
}
