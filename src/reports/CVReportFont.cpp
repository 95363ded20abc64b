#include "reports/CVReportFont.h"

#include <QFontMetricsF>
#include <QStringList>

#include <array>

namespace {

struct Type {
    double points;
    bool isUnderlined;
};

constexpr std::array<Type, kReportFonts> kTypes{{{13, false}, {12, true}, {10, false}}};

constexpr double kSpace = 2.0;
/// Large enough that rounding to whole pixels does not matter.
constexpr int kMeasuredPixels = 1000;

} // namespace

QFont CVFontOf(CVReportFont font) {
    const Type& type = kTypes[static_cast<std::size_t>(font)];
    // Both families have the letter widths of Helvetica.
    QFont result(QStringList{QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica")});
    result.setPointSizeF(type.points);
    result.setUnderline(type.isUnderlined);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

double CVLineHeightOf(CVReportFont font) {
    QFont large = CVFontOf(font);
    const double points = large.pointSizeF();
    large.setPixelSize(kMeasuredPixels);
    return QFontMetricsF(large).boundingRect(QStringLiteral("Anything")).height() * points / kMeasuredPixels + kSpace;
}
