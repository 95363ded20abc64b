#include "widgets/tables/CVTableStyle.h"

namespace {

/// The edges of neighbouring numbers and texts would touch otherwise. In pixels.
constexpr int kCellMargin = 7;

} // namespace

int CVTableStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    if (metric == PM_HeaderMargin)
        return kCellMargin + 1;
    // The styles put one pixel more around a text than this says.
    return metric == PM_FocusFrameHMargin ? kCellMargin : QProxyStyle::pixelMetric(metric, option, widget);
}
