#pragma once

#include <functional>

class CVReportView;
class QIODevice;
class QPagedPaintDevice;

/// Some pages of a report, both ends included, from 1 on.
struct CVPageRange {
    int first = 1;
    int last = 0;

    [[nodiscard]] static CVPageRange all(const CVReportView& view);
    [[nodiscard]] int count() const { return last - first + 1; }
};

enum class CVPaintResult { Painted, Cancelled, Failed };

/// Hears how many pages are done and ends the painting by answering false.
using CVPaintProgress = std::function<bool(int done)>;

/// Paints pages on a device that has pages of its own, after setting it up for whole sheets of the view's paper. Fails
/// when the device cannot be painted on.
[[nodiscard]] CVPaintResult CVPaintPages(const CVReportView& view, QPagedPaintDevice& device, CVPageRange pages,
                                         const CVPaintProgress& progress = {});

/// The same as a PDF with the report's name as its title, and embedded fonts. It is written piece by piece, so that its
/// length takes no memory; whether all of it was written is the output's to tell.
[[nodiscard]] CVPaintResult CVWritePDF(const CVReportView& view, QIODevice& output, CVPageRange pages,
                                       const CVPaintProgress& progress = {});
