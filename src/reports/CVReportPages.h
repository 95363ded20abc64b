#pragma once

#include <functional>

class CVReportView;
class QIODevice;
class QPagedPaintDevice;

/// A range of pages, both ends included; pages are numbered from 1.
struct CVPageRange {
    int first = 1;
    int last = 0;

    [[nodiscard]] static CVPageRange all(const CVReportView& view);
    [[nodiscard]] int count() const { return last - first + 1; }
};

enum class CVPaintResult { Painted, Cancelled, Failed };

/// Called with the number of pages that are done; answering false ends the painting.
using CVPaintProgress = std::function<bool(int done)>;

/// Paints pages on a paged device, after setting the device up for whole sheets of the view's paper. Fails when the
/// device cannot be painted on.
[[nodiscard]] CVPaintResult CVPaintPages(const CVReportView& view, QPagedPaintDevice& device, CVPageRange pages,
                                         const CVPaintProgress& progress = {});

/// Writes pages as a PDF with the report's name as its title and embedded fonts. Writes piece by piece, so that a long
/// report takes no more memory than a short one. The caller asks `output` whether all of it was written.
[[nodiscard]] CVPaintResult CVWritePDF(const CVReportView& view, QIODevice& output, CVPageRange pages,
                                       const CVPaintProgress& progress = {});
