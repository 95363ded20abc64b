#pragma once

#include "files/CVFileSignature.h"
#include "storage/CVPartlyRead.h"

#include <QString>

#include <memory>

class CVDetachedDocument;

/// What was noticed of the data file that this program did not do itself.
struct CVOutsideChange {
    enum class Kind {
        /// It holds another budget.
        Changed,
        /// It holds something that cannot be read; it may still be being written.
        Unreadable,
        /// It is not there.
        Gone,
        /// It is again what this program last read or wrote.
        AsKnown
    };

    Kind kind = Kind::Changed;
    QString path = {};
    /// Why it cannot be read; empty otherwise.
    QString reason = {};
    /// Whether a file that is not there went with its disk.
    bool diskIsAway = false;
    /// What a changed file holds, in order of date; null otherwise.
    std::shared_ptr<CVDetachedDocument> budget = nullptr;
    /// Of the changed file when its reading began.
    CVFileSignature signature = {};
    /// What of the changed file the next save does not write again.
    CVPartlyRead partly = {};
};
