#include "reports/CVDataOfReport.h"

#include "reports/CVReport.h"
#include "transfer/CVTransferCells.h"
#include "transfer/CVTransferValues.h"

namespace {

/// Writes a value as a cell of comma-separated text.
struct CellOfValue {
    QByteArray operator()(const QString& text) const { return text.toUtf8(); }
    QByteArray operator()(double number) const { return CVTransferValues::textOfAmount(number); }
    QByteArray operator()(const std::optional<QBDate>& day) const { return CVTransferValues::textOfDay(day); }
};

struct JSONOfValue {
    QByteArray operator()(const QString& text) const { return CVTransferCells::quotedInJSON(text.toUtf8()); }
    QByteArray operator()(double number) const { return CVTransferCells::amountInJSON(number); }
    QByteArray operator()(const std::optional<QBDate>& day) const {
        return day ? CVTransferCells::quotedInJSON(CVTransferValues::textOfDay(day)) : QByteArray("null");
    }
};

/// The texts of one line; columns without a value are as those without a day.
template <typename TextOfValue>
std::vector<QByteArray> textsOf(const CVReportValues& values, std::size_t columns) {
    std::vector<QByteArray> texts;
    for (std::size_t column = 0; column < columns; ++column)
        texts.push_back(std::visit(TextOfValue(),
                                   column < values.size() ? values[column] : CVReportValue(std::optional<QBDate>())));
    return texts;
}

std::vector<QByteArray> headingsOf(const CVReport& report) {
    std::vector<QByteArray> headings;
    for (const QString& label : report.labels())
        headings.push_back(label.toUtf8());
    return headings;
}

} // namespace

QByteArray CVCSVOfReport(const CVReport& report) {
    QByteArray text;
    const std::vector<QByteArray> headings = headingsOf(report);
    CVTransferCells::appendRow(text, headings);
    for (std::size_t i = 0; i < report.lineCount(); ++i) {
        if (const CVReportValues values = report.values(i); !values.empty())
            CVTransferCells::appendRow(text, textsOf<CellOfValue>(values, headings.size()));
    }
    return text;
}

QByteArray CVJSONOfReport(const CVReport& report) {
    const std::vector<QByteArray> headings = headingsOf(report);
    QByteArray text = "[";
    for (std::size_t i = 0; i < report.lineCount(); ++i) {
        const CVReportValues values = report.values(i);
        if (values.empty())
            continue;
        const std::vector<QByteArray> texts = textsOf<JSONOfValue>(values, headings.size());
        text += text.size() == 1 ? "\n" : ",\n";
        for (std::size_t column = 0; column < headings.size(); ++column)
            text += (column == 0 ? "{" : ",") + CVTransferCells::quotedInJSON(headings[column]) + ':' + texts[column];
        text += '}';
    }
    return text + "\n]\n";
}
