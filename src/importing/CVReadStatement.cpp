#include "importing/CVReadStatement.h"

#include "importing/camt/CVReadCAMT.h"
#include "importing/delimited/CVReadDelimited.h"
#include "importing/ofx/CVReadOFX.h"
#include "importing/qif/CVReadQIF.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct ReadStatementText {
    Q_DECLARE_TR_FUNCTIONS(CVReadStatement)
};

/// A kind of statement.
struct Kind {
    /// Whether the bytes are of that kind.
    bool (*recognizes)(const QByteArray& bytes) = nullptr;
    CVStatement (*read)(const QByteArray& bytes, const CVStatementMapping& known,
                        const CVStopRequested& stop) = nullptr;
    /// Whether it has rows with columns; the others may have accounts.
    bool hasColumns = false;
};

/// Why a kind cannot be read as somebody says; empty when it can.
QString faultOfKnown(const Kind& kind, const CVStatementMapping& known) {
    if (kind.hasColumns && known.account)
        return ReadStatementText::tr("This statement names no accounts, so that none can be chosen.");
    if (!kind.hasColumns && (known.columns || known.separator || known.headerLine))
        return ReadStatementText::tr("This kind of statement says itself what is what: it has no columns to choose.");
    return {};
}

/// In the order in which they are tried; anything may be delimited text.
constexpr std::array kKinds{
    Kind{CVIsQIF, CVReadQIF},
    Kind{CVIsOFX, CVReadOFX},
    Kind{CVIsCAMT, CVReadCAMT},
    Kind{[](const QByteArray&) { return true; }, CVReadDelimited, true},
};

} // namespace

CVStatement CVReadStatement(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    if (bytes.size() > kCVLargestStatement)
        return CVStatement::ofProblem(ReadStatementText::tr("The file is larger than 64 MiB, which no statement is."));
    const auto* const kind =
        std::find_if(kKinds.begin(), kKinds.end(), [&bytes](const Kind& each) { return each.recognizes(bytes); });
    const QString fault = faultOfKnown(*kind, known);
    return fault.isEmpty() ? kind->read(bytes, known, stop) : CVStatement::ofProblem(fault);
}
