#pragma once

#include <QSize>

/// What a window can be on the screens that people have: the screen less the frame of the window manager.
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
