#pragma once

#include <QSize>

/// The largest size of a window on common screens: the screen without the window manager's frame.
struct ScreenRow {
    const char* name;
    QSize inside;
    int letterPixels;
};

inline constexpr ScreenRow kScreenRows[] = {
    {"1280x800", {1272, 758}, 13},
    {"800x600", {792, 558}, 13},
    {"1280x720 at 200 %", {632, 318}, 13},
    {"24 points on 1280x800", {1272, 758}, 32},
    {"24 points on 800x600", {792, 558}, 32},
};
