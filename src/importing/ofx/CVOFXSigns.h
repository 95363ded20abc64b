#pragma once

#include "importing/ofx/CVOFXContents.h"
#include "importing/statements/CVStatementMapping.h"

#include <QString>

#include <optional>
#include <vector>

/// An entry with what its amount's own sign says.
struct CVOFXSignedEntry {
    const CVOFXEntry* entry = nullptr;
    qint64 hundredths = 0;
};

/// What tells money out from money in: the sign of the amount, as it should, unless the types of the entries contradict
/// it. Some banks write the amounts of a card turned round, others no signs at all.
class CVOFXSigns {
public:
    CVOFXSigns(const std::vector<CVOFXSignedEntry>& entries, const CVStatementMapping& known);

    /// The first entry whose type contradicts its sign, where it is open which of both is right.
    [[nodiscard]] const CVOFXEntry* openEntry() const { return mOpen; }
    /// The amount with the sign that it has for us; absent where nothing tells it.
    [[nodiscard]] std::optional<qint64> signedAmount(const CVOFXSignedEntry& entry) const;

private:
    [[nodiscard]] int signOfType(const QString& type) const;
    void count(const std::vector<CVOFXSignedEntry>& entries);
    [[nodiscard]] bool isDoubtful() const;

    const CVStatementMapping& mKnown;
    const CVOFXEntry* mOpen = nullptr;
    int mAgreeing = 0;
    int mContradicting = 0;
    bool mHasNegative = false;
    bool mHasTypeIn = false;
    bool mHasTypeOut = false;
};
