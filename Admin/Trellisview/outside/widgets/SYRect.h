#pragma once

// A rectangle in pixels; right and bottom lie just outside.
struct SYRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool operator==(const SYRect&) const = default;
};
