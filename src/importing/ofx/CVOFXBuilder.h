#pragma once

#include "importing/ofx/CVOFXContents.h"
#include "importing/ofx/CVOFXTags.h"

#include <cstddef>

/// Gathers the accounts and their entries from the elements of a file in their order. It relies on no end: an entry
/// ends where the next one or a balance begins.
class CVOFXBuilder {
public:
    void begin(CVOFXTag tag, int line);
    /// The text of the element that began last.
    void take(const QString& text, int line);
    void end(CVOFXTag tag);
    /// Whether nothing more is taken, because of a problem.
    [[nodiscard]] bool isFull() const { return !mContents.problem.isEmpty(); }
    void refuse(const QString& problem) { mContents.problem = problem; }
    /// All of it, at the end of the file.
    [[nodiscard]] CVOFXContents finish(int lastLine);

private:
    enum class Place { Elsewhere, AccountFrom, Entry, Payee, Currency, OtherPart };

    CVOFXAccount& account();
    void beginAccount();
    void beginEntry(int line);
    void endEntry();
    void takeOfAccount(const QString& text, int line);
    void takeOfEntry(const QString& text);
    void takeName(const QString& text);
    void takeCurrency(const QString& text);
    void takeOnce(QString& kept, const QString& text);
    void uniteAccounts();

    CVOFXContents mContents;
    CVOFXEntry mEntry;
    bool mHasEntry = false;
    bool mIsInRoot = false;
    bool mIsInList = false;
    std::size_t mEntries = 0;
    CVOFXTag mElement = CVOFXTag::Unknown;
    Place mPlace = Place::Elsewhere;
};
