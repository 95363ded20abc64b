#include "CVFigureReporter.h"

#include <iomanip>
#include <ostream>

namespace {

constexpr const char* kHead = "| Figure | Limit | 1,000 | 100,000 | 1,000,000 |\n"
                              "|---|---:|---:|---:|---:|\n";

void printLimit(std::ostream& out, const CVFigure& figure) {
    if (figure.limit == CVFigure::kNoLimit)
        return;
    out << std::setprecision(1) << figure.limit;
    if (figure.largestLimit != CVFigure::kNoLimit)
        out << " (" << figure.largestLimit << " for the largest)";
    if (figure.limitFrom > figure.sizes.front().transactions)
        out << " from " << figure.limitFrom;
}

} // namespace

void CVFigureReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        const auto ratio = run.counters.find("ratio");
        if (run.error_occurred || ratio == run.counters.end())
            mFailed = true;
        else
            mRatios[{run.run_name.function_name, run.run_name.args}] = ratio->second;
    }
}

std::optional<double> CVFigureReporter::ratio(const CVFigure& figure, const CVFigure::Size& size) const {
    const auto found = mRatios.find({figure.title, std::to_string(size.transactions)});
    return found == mRatios.end() ? std::nullopt : std::optional(found->second);
}

void CVFigureReporter::printTable(std::ostream& out) const {
    out << '\n' << kHead << std::fixed;
    for (const CVFigure& figure : CVFigures()) {
        out << "| " << figure.title << " | ";
        printLimit(out, figure);
        out << std::setprecision(2);
        for (const CVFigure::Size& size : figure.sizes) {
            const auto measured = ratio(figure, size);
            if (!measured)
                out << " | –";
            else if (figure.allows(*measured, size.transactions))
                out << " | " << *measured;
            else
                out << " | **" << *measured << "**";
        }
        out << " |\n";
    }
}

bool CVFigureReporter::allWithinLimits() const {
    bool within = !mFailed;
    for (const CVFigure& figure : CVFigures()) {
        for (const CVFigure::Size& size : figure.sizes) {
            const auto measured = ratio(figure, size);
            within = within && (!measured || figure.allows(*measured, size.transactions));
        }
    }
    return within;
}
