#include "reports/CVPrintInfo.h"

#include <algorithm>
#include <array>

namespace {

/// Unicode CLDR, "US-Letter".
constexpr std::array<QLocale::Territory, 14> kLetterTerritories{
    QLocale::Belize,     QLocale::Canada,     QLocale::Chile,        QLocale::Colombia, QLocale::CostaRica,
    QLocale::Guatemala,  QLocale::Mexico,     QLocale::Nicaragua,    QLocale::Panama,   QLocale::Philippines,
    QLocale::PuertoRico, QLocale::ElSalvador, QLocale::UnitedStates, QLocale::Venezuela};

} // namespace

CVPrintInfo CVPrintInfo::ofLocale(const QLocale& locale) {
    const bool isLetter =
        std::find(kLetterTerritories.begin(), kLetterTerritories.end(), locale.territory()) != kLetterTerritories.end();
    return {.paper = QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4)};
}

QSizeF CVPrintInfo::paperSize() const {
    const QSizeF upright = paper.size(QPageSize::Point);
    return orientation == QPageLayout::Landscape ? upright.transposed() : upright;
}

QPageLayout CVPrintInfo::pageLayout() const {
    return {paper, orientation, margins, QPageLayout::Point};
}

void CVPrintInfo::setPageLayout(const QPageLayout& layout) {
    paper = layout.pageSize();
    orientation = layout.orientation();
    margins = layout.margins(QPageLayout::Point);
}

QPageLayout CVPrintInfo::wholeSheet() const {
    QPageLayout layout(paper, orientation, QMarginsF(), QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}
