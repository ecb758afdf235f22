#pragma once

inline constexpr int twipsPerPoint = 20;

/// A sheet of paper, upright or not, in twips. The margins of a report are always the same.
struct Paper
{
    int Width = 12240;
    int Height = 15840;

    static constexpr int LeftMargin = 720;
    static constexpr int RightMargin = 720;
    static constexpr int TopMargin = 1000;
    static constexpr int BottomMargin = 1000;
    static constexpr int FooterFromFoot = 350; ///< from the foot of the page to that of its footer

    int PrintableWidth() const { return Width - LeftMargin - RightMargin; }

    bool operator==(const Paper &) const = default;
};
