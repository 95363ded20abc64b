#include "importing/CVReadStatement.h"

#include "importing/delimited/CVReadDelimited.h"
#include "importing/qif/CVReadQIF.h"
#include "importing/ofx/CVReadOFX.h"

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
    bool (*recognizes)(const QByteArray& bytes);
    CVStatement (*read)(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop);
};

/// In the order in which they are tried; anything may be delimited text.
constexpr std::array kKinds{
    Kind{CVIsQIF, CVReadQIF},
    Kind{CVIsOFX, CVReadOFX},
    Kind{[](const QByteArray&) { return true; }, CVReadDelimited},
};

} // namespace

CVStatement CVReadStatement(const QByteArray& bytes, const CVStatementMapping& known, const CVStopRequested& stop) {
    if (bytes.size() > kCVLargestStatement)
        return CVStatement::ofProblem(ReadStatementText::tr("The file is larger than 64 MiB, which no statement is."));
    const auto* const kind =
        std::find_if(kKinds.begin(), kKinds.end(), [&bytes](const Kind& each) { return each.recognizes(bytes); });
    return kind->read(bytes, known, stop);
}
