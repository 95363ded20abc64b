#pragma once

#include <QStringView>

/// Words in payees that banks, shops and the law put beside the name, and that say nothing about who it is. The words
/// are given as `CVPayeeKey` writes them: small letters without accents.

/// Whether a word is of that kind: of a card, of a payment, of a company's form, of an address.
[[nodiscard]] bool CVIsWordBesidePayee(QStringView word);

/// Whether a word is the name of a month or its beginning.
[[nodiscard]] bool CVIsWordOfMonth(QStringView word);
