#pragma once

#include "importing/statements/CVStatementLine.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

/// An amount as the file has it.
struct CVCAMTAmount {
    QString text = {};
    QString currency = {};
};

/// Who is named on one side of a payment.
struct CVCAMTParty {
    QString name = {};
    /// On whose behalf the party acts.
    QString ultimate = {};
    QString account = {};
};

/// A payment of an entry.
struct CVCAMTPart {
    /// The amounts that may be that of the payment, the likeliest first: of the payment, of the transaction, as it was
    /// ordered.
    std::array<CVCAMTAmount, 3> amounts = {};
    QString mark = {};
    CVCAMTParty debtor = {};
    CVCAMTParty creditor = {};
    QString otherParty = {};
    QStringList texts = {};
    QStringList references = {};
    QString information = {};
    QString bankReference = {};
    QString transactionID = {};
};

/// What was booked at once on an account.
struct CVCAMTEntry {
    int line = 0;
    CVCAMTAmount amount = {};
    /// CRDT or DBIT, for money in or money out: of this booking, even where it takes back an earlier one.
    QString mark = {};
    /// Whether it takes back an earlier booking, whose mark was the other one.
    bool isReversal = false;
    QString status = {};
    QString bookingDay = {};
    QString valueDay = {};
    QString bankReference = {};
    QString reference = {};
    QString information = {};
    std::vector<CVCAMTPart> parts = {};
};

/// An account, with the lines of all its statements.
struct CVCAMTAccount {
    /// Its IBAN, else what the bank calls it. May be empty.
    QString id = {};
    /// As the file says it, else that of the first entry.
    QString currency = {};
    QString owner = {};
    std::vector<CVStatementLine> lines = {};
};
