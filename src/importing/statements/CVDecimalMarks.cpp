#include "importing/statements/CVDecimalMarks.h"

#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <algorithm>

void CVDecimalMarks::count(const QString& text, std::size_t at) {
    const CVMarkEvidence evidence = CVMarkEvidenceOf(text);
    if (evidence.point != evidence.comma && !CVReadStatementDay(text))
        ++(evidence.point ? point : comma);
    if (evidence.differs && !openAt) {
        openAt = at;
        openText = text;
    }
}

bool CVDecimalMarks::isSettled() const {
    constexpr int kMany = 9;
    const int more = std::max(point, comma);
    const int fewer = std::min(point, comma);
    if (more == 0)
        return !openAt;
    // Where some texts have the other mark, they cannot be read, and texts that could be either are no longer sure.
    return fewer == 0 || (!openAt && more > kMany * fewer);
}
