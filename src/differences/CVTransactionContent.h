#pragma once

#include "base/QBDate.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

class CVTransaction;

/// What a transaction says, so that transactions of two states of a budget can be compared. The amount is compared as
/// the data file holds it. Sets and categories are named by their IDs in the later state.
struct CVTransactionContent {
    /// Of a transaction of the later state.
    explicit CVTransactionContent(const CVTransaction& transaction);
    /// `set` and `category` are the IDs in the later state, or absent when it has no counterpart.
    CVTransactionContent(const CVTransaction& transaction, std::optional<quint32> set, std::optional<quint32> category);

    std::optional<quint32> set;
    std::optional<quint32> category;
    std::optional<QBDate> day;
    QByteArray amount;
    QString payTo;
    QString xfor;
    bool taxFlag;
    bool userFlag;

    /// A content without a counterpart of its set or category equals no other.
    friend bool operator==(const CVTransactionContent& a, const CVTransactionContent& b);
};

[[nodiscard]] size_t qHash(const CVTransactionContent& content, size_t seed = 0);
