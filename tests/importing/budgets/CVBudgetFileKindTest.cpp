#include "importing/budgets/CVBudgetFileKind.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <ostream>

namespace {

const QByteArray kRoot = "<CorvellaDocument os=\"Mac OS X\" app=\"com.quenbylabs.corvella\">";

struct KindRow {
    const char* what;
    QByteArray bytes;
    CVBudgetFileKind kind;
};

void PrintTo(const KindRow& row, std::ostream* out) {
    *out << row.what;
}

class BudgetFileKinds : public testing::TestWithParam<KindRow> {};

TEST_P(BudgetFileKinds, AreToldByTheContent) {
    EXPECT_EQ(CVKindOfBudgetFile(GetParam().bytes), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BudgetFileKinds,
    testing::Values(
        KindRow{"a data file", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + kRoot + "</CorvellaDocument>",
                CVBudgetFileKind::DataFile},
        KindRow{"one without its declaration", kRoot, CVBudgetFileKind::DataFile},
        KindRow{"one with a mark and a comment", "\xef\xbb\xbf<?xml version=\"1.0\"?><!-- mine -->\n" + kRoot,
                CVBudgetFileKind::DataFile},
        KindRow{"one in UTF-16",
                QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom)(QString::fromLatin1(kRoot)),
                CVBudgetFileKind::DataFile},
        KindRow{"one that is damaged behind its beginning", kRoot + "<Transaction <<<\x01\x02",
                CVBudgetFileKind::DataFile},
        KindRow{"one that begins late", "<!--" + QByteArray(kCVTellingBytes, 'x') + "-->" + kRoot,
                CVBudgetFileKind::None},
        KindRow{"XML of another kind", "<?xml version=\"1.0\"?><Document xmlns=\"urn:iso\"><CorvellaDocument>",
                CVBudgetFileKind::None},
        KindRow{"another element of nearly that name", "<CorvellaDocuments>", CVBudgetFileKind::None},
        KindRow{"a statement", "Date,Payee,Amount\n2026-03-01,CorvellaDocument,1.00\n", CVBudgetFileKind::None},
        KindRow{"exported transactions", "Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n",
                CVBudgetFileKind::Transfer},
        KindRow{"exported transactions as JSON", "[\n{\"date\":\"2026-11-22\",\"amount\":12.5",
                CVBudgetFileKind::Transfer},
        KindRow{"a statement with nearly that header", "Date,Amount,Category,Paid To,For,Tax,Flagged\n",
                CVBudgetFileKind::None},
        KindRow{"nothing", "", CVBudgetFileKind::None},
        KindRow{"bytes", QByteArray("\x89PNG\r\n\x1a\n\0\0", 10), CVBudgetFileKind::None}));

} // namespace
