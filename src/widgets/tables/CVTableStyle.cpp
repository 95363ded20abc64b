#include "widgets/tables/CVTableStyle.h"

namespace {

/// Keeps a right-aligned number and a left-aligned text in the next column apart. In pixels.
constexpr int kCellMargin = 7;

} // namespace

int CVTableStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    if (metric == PM_HeaderMargin)
        return kCellMargin + 1;
    // The styles add one pixel to this metric.
    return metric == PM_FocusFrameHMargin ? kCellMargin : QProxyStyle::pixelMetric(metric, option, widget);
}
