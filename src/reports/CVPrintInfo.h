#pragma once

#include <QLocale>
#include <QMarginsF>
#include <QPageLayout>
#include <QSizeF>

class QBUserDefaults;

/// The page set-up. Margins are in points and belong to the sides of the page as it is read, in either orientation.
struct CVPrintInfo {
    static constexpr double kInch = 72;

    QPageSize paper = QPageSize(QPageSize::A4);
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF margins{kInch, kInch, kInch, kInch};

    /// The paper that is usual in the locale's territory: Letter or A4.
    [[nodiscard]] static CVPrintInfo ofLocale(const QLocale& locale);
    /// The set-up that `keepIn` stored. A value that is absent or makes no page is that of the locale.
    [[nodiscard]] static CVPrintInfo fromDefaults(const QBUserDefaults& defaults, const QLocale& locale);
    void keepIn(QBUserDefaults& defaults) const;

    /// The size in points, in the page's orientation.
    [[nodiscard]] QSizeF paperSize() const;

    /// The layout for the toolkit's panels, which show the margins.
    [[nodiscard]] QPageLayout pageLayout() const;
    void setPageLayout(const QPageLayout& layout);
    /// The layout for a device on which the whole sheet is painted.
    [[nodiscard]] QPageLayout wholeSheet() const;

    bool operator==(const CVPrintInfo&) const = default;
};
