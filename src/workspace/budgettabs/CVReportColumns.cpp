#include "workspace/budgettabs/CVReportColumns.h"

#include "budget/CVReportFigures.h"
#include "model/CVCategory.h"

#include <QCoreApplication>

#include <array>

namespace {

using Figures = CVReportFigures;
using Kind = CVReportColumnKind;
using Name = QLatin1StringView;

constexpr int kNameWidth = 24;
constexpr int kMoneyWidth = 13;

template <auto Getter>
QVariant ofCategory(const Figures& /*figures*/, const CVCategory& category) {
    return QVariant::fromValue((category.*Getter)());
}

template <auto Getter>
QVariant ofFigures(const Figures& figures, const CVCategory& category) {
    return QVariant::fromValue((figures.*Getter)(category));
}

constexpr CVReportColumn kCategory{Name("category"), QT_TRANSLATE_NOOP("CVReportColumns", "Category"), Kind::Text,
                                   kNameWidth, &ofCategory<&CVCategory::categoryName>};
constexpr CVReportColumn kTotal{Name("total"), QT_TRANSLATE_NOOP("CVReportColumns", "Total"), Kind::Money, kMoneyWidth,
                                &ofCategory<&CVCategory::total>};

constexpr std::array<CVReportColumn, 7> kAverages{
    {kCategory,
     kTotal,
     {Name("pattern"), QT_TRANSLATE_NOOP("CVReportColumns", "Pattern"), Kind::Text, 15,
      &ofCategory<&CVCategory::billFrequency>},
     {Name("numtrans"), QT_TRANSLATE_NOOP("CVReportColumns", "Transactions"), Kind::Count, 14,
      &ofCategory<&CVCategory::numberOfTransactions>},
     {Name("weekly"), QT_TRANSLATE_NOOP("CVReportColumns", "Weekly"), Kind::Money, kMoneyWidth,
      &ofCategory<&CVCategory::weekly>},
     {Name("biweekly"), QT_TRANSLATE_NOOP("CVReportColumns", "Bi-Weekly"), Kind::Money, kMoneyWidth,
      &ofCategory<&CVCategory::biWeekly>},
     {Name("monthly"), QT_TRANSLATE_NOOP("CVReportColumns", "Monthly"), Kind::Money, kMoneyWidth,
      &ofCategory<&CVCategory::monthly>}}};

constexpr std::array<CVReportColumn, 5> kTotals{{kCategory,
                                                 {Name("freq"), QT_TRANSLATE_NOOP("CVReportColumns", "Frequency"),
                                                  Kind::Frequency, 16, &ofCategory<&CVCategory::expenseFrequency>},
                                                 {Name("target"), QT_TRANSLATE_NOOP("CVReportColumns", "Target"),
                                                  Kind::Target, kMoneyWidth, &ofCategory<&CVCategory::expenseTarget>},
                                                 {Name("average"), QT_TRANSLATE_NOOP("CVReportColumns", "Average"),
                                                  Kind::Money, kMoneyWidth, &ofFigures<&Figures::average>},
                                                 {Name("diff"), QT_TRANSLATE_NOOP("CVReportColumns", "Difference"),
                                                  Kind::Difference, kMoneyWidth, &ofFigures<&Figures::difference>}}};

constexpr std::array<CVReportColumn, 3> kPercent{{kCategory,
                                                  kTotal,
                                                  {Name("percent"), QT_TRANSLATE_NOOP("CVReportColumns", "Percent"),
                                                   Kind::Percent, kMoneyWidth, &ofFigures<&Figures::percent>}}};

constexpr std::array<CVReportColumn, 3> kTax{{kCategory,
                                              {Name("amount"), QT_TRANSLATE_NOOP("CVReportColumns", "Amount"),
                                               Kind::Money, kMoneyWidth, &ofFigures<&Figures::taxAmount>},
                                              {Name("number"), QT_TRANSLATE_NOOP("CVReportColumns", "Transactions"),
                                               Kind::Count, 14, &ofFigures<&Figures::taxItems>}}};

constexpr std::array<std::span<const CVReportColumn>, kReportTables> kTables{kAverages, kTotals, kPercent, kTax};

} // namespace

std::span<const CVReportColumn> CVColumnsOfReport(CVReportTable table) {
    return kTables[static_cast<std::size_t>(table)];
}

QString CVTitleOfReportColumn(const CVReportColumn& column) {
    return QCoreApplication::translate("CVReportColumns", column.title);
}
