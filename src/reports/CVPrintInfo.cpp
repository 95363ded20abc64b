#include "reports/CVPrintInfo.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

/// The territories whose usual paper is "US-Letter" in the Unicode CLDR.
constexpr std::array<QLocale::Territory, 14> kLetterTerritories{
    QLocale::Belize,     QLocale::Canada,     QLocale::Chile,        QLocale::Colombia, QLocale::CostaRica,
    QLocale::Guatemala,  QLocale::Mexico,     QLocale::Nicaragua,    QLocale::Panama,   QLocale::Philippines,
    QLocale::PuertoRico, QLocale::ElSalvador, QLocale::UnitedStates, QLocale::Venezuela};

/// The range of a side of paper, in points: half an inch to 200 inches.
constexpr double kShortestSide = 36;
constexpr double kLongestSide = 14400;
constexpr qsizetype kSides = 4;

/// The numbers between the separators; absent unless all of them are finite numbers.
std::optional<QList<double>> numbersIn(const QString& text, QChar separator) {
    QList<double> numbers;
    for (const QString& part : text.split(separator)) {
        bool isNumber = false;
        numbers.append(part.toDouble(&isNumber));
        if (!isNumber || !std::isfinite(numbers.constLast()))
            return std::nullopt;
    }
    return numbers;
}

QString nameOfPaper(const QPageSize& paper) {
    if (paper.id() != QPageSize::Custom)
        return QPageSize::key(paper.id());
    const QSizeF size = paper.size(QPageSize::Point);
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

std::optional<QPageSize> paperNamed(const QString& name) {
    for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
        const auto pageSize = static_cast<QPageSize::PageSizeId>(id);
        if (pageSize != QPageSize::Custom && QPageSize::key(pageSize) == name)
            return QPageSize(pageSize);
    }
    const auto sides = numbersIn(name, u'x');
    const auto isSide = [](double side) { return side >= kShortestSide && side <= kLongestSide; };
    if (!sides || sides->size() != 2 || !std::all_of(sides->begin(), sides->end(), isSide))
        return std::nullopt;
    return QPageSize(QSizeF(sides->at(0), sides->at(1)), QPageSize::Point);
}

/// Absent when the text holds no four margins or when they leave nothing of the paper.
std::optional<QMarginsF> marginsNamed(const QString& text, const QSizeF& paper) {
    const auto sides = numbersIn(text, u' ');
    if (!sides || sides->size() != kSides ||
        std::any_of(sides->begin(), sides->end(), [](double side) { return side < 0; }))
        return std::nullopt;
    const QMarginsF margins(sides->at(0), sides->at(1), sides->at(2), sides->at(3));
    const bool leavesRoom =
        margins.left() + margins.right() < paper.width() && margins.top() + margins.bottom() < paper.height();
    return leavesRoom ? std::optional(margins) : std::nullopt;
}

} // namespace

CVPrintInfo CVPrintInfo::ofLocale(const QLocale& locale) {
    const bool isLetter =
        std::find(kLetterTerritories.begin(), kLetterTerritories.end(), locale.territory()) != kLetterTerritories.end();
    return {.paper = QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4)};
}

CVPrintInfo CVPrintInfo::fromDefaults(const QBUserDefaults& defaults, const QLocale& locale) {
    CVPrintInfo printInfo = ofLocale(locale);
    if (const auto name = defaults.stringForKey(CVDefaultsKeys::kPaper))
        printInfo.paper = paperNamed(*name).value_or(printInfo.paper);
    if (defaults.boolForKey(CVDefaultsKeys::kPaperLandscape))
        printInfo.orientation = QPageLayout::Landscape;
    if (const auto margins = defaults.stringForKey(CVDefaultsKeys::kPaperMargins))
        printInfo.margins = marginsNamed(*margins, printInfo.paperSize()).value_or(printInfo.margins);
    return printInfo;
}

void CVPrintInfo::keepIn(QBUserDefaults& defaults) const {
    defaults.setString(CVDefaultsKeys::kPaper, nameOfPaper(paper));
    defaults.setBool(CVDefaultsKeys::kPaperLandscape, orientation == QPageLayout::Landscape);
    defaults.setString(CVDefaultsKeys::kPaperMargins, QStringLiteral("%1 %2 %3 %4")
                                                          .arg(margins.left())
                                                          .arg(margins.top())
                                                          .arg(margins.right())
                                                          .arg(margins.bottom()));
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
