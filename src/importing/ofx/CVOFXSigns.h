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
/// it. Some banks write the amounts of a card turned round. Others write no signs at all, but debits and credits.
class CVOFXSigns {
public:
    CVOFXSigns(const std::vector<CVOFXSignedEntry>& entries, bool isCard, const CVStatementMapping& known);

    /// The first entry whose type contradicts its sign, where it is open which of both is right.
    [[nodiscard]] const CVOFXEntry* openEntry() const { return mOpen; }
    /// The amount with the sign that it has for us; absent where nothing tells it.
    [[nodiscard]] std::optional<qint64> signedAmount(const CVOFXSignedEntry& entry) const;

private:
    [[nodiscard]] int signOfType(const QString& type) const;
    [[nodiscard]] int usualSignOfType(const QString& type) const;
    void count(const std::vector<CVOFXSignedEntry>& entries);
    [[nodiscard]] bool isDoubtful() const;
    [[nodiscard]] bool hasTypesForSigns() const;

    const CVStatementMapping& mKnown;
    bool mIsCard = false;
    const CVOFXEntry* mOpen = nullptr;
    int mAgreeing = 0;
    int mContradicting = 0;
    bool mHasNegative = false;
    bool mHasPlus = false;
    bool mHasTypeIn = false;
    bool mHasTypeOut = false;
    int mDebits = 0;
    int mCredits = 0;
    /// Entries of types that say nothing.
    int mNeutral = 0;
};
