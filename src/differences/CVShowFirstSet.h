#pragma once

#include <QString>

class CVDocument;

/// Shows what is right once a document that had no sets gets the first, which has or will have the ID `first`. Until
/// then the transactions without a set, those with the ID 0, were shown; they stay so in a set that has their ID, which
/// is made where there is none. Without such transactions the first set is shown. Announces nothing.
void CVShowFirstSet(CVDocument& document, quint32 first);

/// The name of the set that is made for transactions without a set.
[[nodiscard]] QString CVNameOfInitialSet();
