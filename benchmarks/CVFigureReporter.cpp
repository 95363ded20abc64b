#include "CVFigureReporter.h"

#include <iomanip>
#include <ostream>

namespace {

constexpr const char* kHead = "| Figure | Measured in | 100,000 | Limit | 1,000,000 | Limit |\n"
                              "|---|---|---:|---:|---:|---:|\n";

void printLimit(std::ostream& out, const CVFigure::Size& size) {
    if (size.limit != CVFigure::kNoLimit)
        out << std::defaultfloat << std::setprecision(6) << size.limit;
}

} // namespace

void CVFigureReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        const auto figure = run.counters.find("figure");
        if (run.error_occurred || figure == run.counters.end())
            mFailed = true;
        else
            mValues[{run.run_name.function_name, run.run_name.args}] = figure->second;
    }
}

std::optional<double> CVFigureReporter::value(const CVFigure& figure, const CVFigure::Size& size) const {
    const auto found = mValues.find({figure.title, std::to_string(size.transactions)});
    return size.rounds == 0 || found == mValues.end() ? std::nullopt : std::optional(found->second);
}

void CVFigureReporter::printTable(std::ostream& out) const {
    out << '\n' << kHead;
    for (const CVFigure& figure : CVFigures()) {
        out << "| " << figure.title << " | " << figure.unit;
        for (const CVFigure::Size& size : figure.sizes) {
            out << " | " << std::fixed << std::setprecision(figure.isTime() ? 1 : 2);
            const auto measured = value(figure, size);
            if (!measured)
                out << (size.rounds == 0 ? "" : "–");
            else if (size.allows(*measured))
                out << *measured;
            else
                out << "**" << *measured << "**";
            out << " | ";
            printLimit(out, size);
        }
        out << " |\n";
    }
}

bool CVFigureReporter::allWithinLimits() const {
    bool within = !mFailed;
    for (const CVFigure& figure : CVFigures()) {
        for (const CVFigure::Size& size : figure.sizes) {
            const auto measured = value(figure, size);
            within = within && (!measured || size.allows(*measured));
        }
    }
    return within;
}
