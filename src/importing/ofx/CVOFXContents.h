#pragma once

#include <QString>

#include <utility>
#include <vector>

/// A booked transaction as its texts stand in the file; empty where the file has none.
struct CVOFXEntry {
    enum class Fault {
        None,
        /// The file ends within it.
        CutOff,
        /// It has two different days or amounts, as where the end of one entry and the beginning of the next are lost.
        Twofold,
        TooLong
    };

    /// The line of the file in which it begins, from 1.
    int line = 0;
    Fault fault = Fault::None;
    QString type = {};
    QString day = {};
    QString amount = {};
    QString id = {};
    /// Banks cut it after 32 characters or fewer.
    QString name = {};
    QString fullName = {};
    /// The name beside an address.
    QString payeeName = {};
    QString address = {};
    QString memo = {};
    /// Of a check, or of whatever the bank numbers.
    QString number = {};
    /// In which the amount is, where it is not that of the account, and its rate.
    QString currency = {};
    QString rate = {};
    QString category = {};
    /// What is done to an entry of an earlier file: "DELETE".
    QString correction = {};
};

struct CVOFXAccount {
    bool isCard = false;
    QString bank = {};
    QString number = {};
    QString type = {};
    QString currency = {};
    std::vector<CVOFXEntry> entries = {};
    /// Entries that are announced and not booked.
    int pending = 0;
    /// Purchases, sales and the like, which are no payments.
    int investments = 0;

    [[nodiscard]] bool isSameAs(const CVOFXAccount& other) const {
        return bank == other.bank && number == other.number && type == other.type && currency == other.currency;
    }
};

/// What is in a file.
struct CVOFXContents {
    /// Why nothing can be read, one sentence; empty otherwise.
    QString problem = {};
    std::vector<CVOFXAccount> accounts = {};
    /// The balances with their lines: they are no payments, but show which decimal mark the bank writes.
    std::vector<std::pair<QString, int>> balances = {};
    /// The line in which the file breaks off within a list of entries; 0 where it does not.
    int cutOffLine = 0;
};
