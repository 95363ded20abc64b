#include "widgets/CVQuietTextColour.h"

namespace {

constexpr float kTextPart = 0.67F;

} // namespace

QColor CVQuietTextColour(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor ground = palette.color(QPalette::Active, QPalette::Base);
    const auto mix = [](float ofText, float ofGround) { return ofText * kTextPart + ofGround * (1 - kTextPart); };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}
