#pragma once

#include <QString>
#include <QStringView>

/// The words of `text` in small letters without accents, with one blank between them; "RunningBalance" is two words.
[[nodiscard]] QString CVPlainWords(const QString& text);

/// What a word such as D, CR, S, H, debit or Bij says: -1 money out, 1 money in, 0 nothing.
[[nodiscard]] int CVMarkerOf(QStringView text);

/// Whether a cell says that its row is a balance or a sum and no line: "Opening balance", "Saldo anterior".
[[nodiscard]] bool CVNamesBalanceRow(const QString& text);

/// Whether a cell holds a word for a balance. A payee may be called so, so that more than this must speak for it.
[[nodiscard]] bool CVMayNameBalanceRow(const QString& text);

/// As `CVNamesBalanceRow` for a row without a day, which may be a sum: "Total".
[[nodiscard]] bool CVNamesSumRow(const QString& text);

/// Whether a status says that no money was moved: "DECLINED".
[[nodiscard]] bool CVNamesFailure(const QString& text);

/// What the words of a line let expect: 1 money in ("Payment - thank you", "Lohn"), -1 money out ("Purchase",
/// "Einkauf"), 0 nothing. Enough to doubt a sign, too little to settle one.
[[nodiscard]] int CVExpectedSign(const QString& text);
