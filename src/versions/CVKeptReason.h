#pragma once

/// Why a file that this program did not write stands beside the data file under a name of its own.
enum class CVKeptReason {
    /// This program could not read it.
    Unreadable,
    /// It stood in the data file's place, and this program had neither read nor written it.
    ChangedOutside,
    /// This program could read some of its values only in part.
    AsItWasRead,
    /// The user moved the data file to its place.
    ReplacedWhenMoved
};
