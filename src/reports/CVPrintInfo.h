#pragma once

#include <QLocale>
#include <QMarginsF>
#include <QPageLayout>
#include <QSizeF>

class QBUserDefaults;

/// How pages are set up. Margins are in points, of the page as it is read, whichever way the paper lies.
struct CVPrintInfo {
    static constexpr double kInch = 72;

    QPageSize paper = QPageSize(QPageSize::A4);
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF margins{kInch, kInch, kInch, kInch};

    /// The paper that is usual where the locale is spoken: Letter or A4.
    [[nodiscard]] static CVPrintInfo ofLocale(const QLocale& locale);
    /// As `keepIn` kept it. What is absent or makes no page is that of the locale.
    [[nodiscard]] static CVPrintInfo fromDefaults(const QBUserDefaults& defaults, const QLocale& locale);
    void keepIn(QBUserDefaults& defaults) const;

    /// In points, as the paper lies.
    [[nodiscard]] QSizeF paperSize() const;

    /// For the toolkit's panels, which show the margins.
    [[nodiscard]] QPageLayout pageLayout() const;
    void setPageLayout(const QPageLayout& layout);
    /// For a device on which the whole sheet is painted.
    [[nodiscard]] QPageLayout wholeSheet() const;

    bool operator==(const CVPrintInfo&) const = default;
};
