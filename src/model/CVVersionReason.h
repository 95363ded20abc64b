#pragma once

/// Why the saved state before a change is worth keeping as an earlier version.
enum class CVVersionReason {
    FirstOfDay,
    Hourly,
    Removal,
    /// Of a category or a set.
    Deletion,
    Clearing,
    Import,
    Move,
    Return,
    /// Another program's or computer's changes were taken over.
    TakingOver,
    /// Not kept before a change: a save that was interrupted left it.
    Interruption
};
