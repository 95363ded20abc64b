#include "widgets/CVAttentionColourOn.h"

namespace {

constexpr QColor kOnLight(0xb7, 0x12, 0x1f);
constexpr QColor kOnDark(0xff, 0x8a, 0x80);
constexpr int kMiddleGray = 128;

} // namespace

QColor CVAttentionColourOn(const QPalette& palette, QPalette::ColorRole ground) {
    return qGray(palette.color(ground).rgb()) < kMiddleGray ? kOnDark : kOnLight;
}
