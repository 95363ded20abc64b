#include "reports/CVGridSummary.h"

#include "contents/CVGridContents.h"

QString CVGridSummary::columnTitle(int column) const {
    return mGrid.periods().header(mGrid.columns().at(static_cast<std::size_t>(column))).text;
}

std::optional<double> CVGridSummary::objectValue(int column, int row) const {
    return mGrid.grid().cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
}
