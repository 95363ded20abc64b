#pragma once

#include <QString>

#include <optional>

class QWidget;

/// The operations of the program that the preferences use.
class CVPreferenceHost {
public:
    /// Starts to look for a newer version and returns at once. The user is told the result in `asker`, the window from
    /// which the user asked.
    virtual void checkForNewVersion(QWidget& asker) = 0;
    /// Blocks until nothing is being saved. Returns in one sentence why the last save failed; empty when it succeeded.
    [[nodiscard]] virtual QString waitForSaves() = 0;
    /// What becomes of the data file in a place that the user has chosen.
    enum class PlaceUse { Opened, Replaced };
    /// Makes sure that no other program has the data file at `path` open, or asks the user in `asker` what to do. False
    /// when the place is not to be used. `settlePlace` follows.
    [[nodiscard]] virtual bool claimPlace(const QString& path, PlaceUse use, QWidget& asker) = 0;
    /// Lets those places go that the settings do not name.
    virtual void settlePlace() = 0;
    /// Reads the file named in the user defaults into a new document, which replaces the present one. Otherwise the
    /// present one stays, and the answer is why the file could not be read, empty when the user cancelled the reading.
    [[nodiscard]] virtual std::optional<QString> reopenDocument() = 0;
    /// Begins a new budget in the file named in the user defaults, where there is none; it replaces the present one,
    /// which stays in its own file.
    virtual void startNewDocument() = 0;
    /// Takes the earlier versions of the data file at `from` and the notes of imports along to the one at `to`. Returns
    /// why they could not be moved, in one sentence for each of both; empty when they were.
    [[nodiscard]] virtual QString moveVersions(const QString& from, const QString& to) = 0;
    /// The earlier versions were deleted.
    virtual void versionsDeleted() = 0;

protected:
    ~CVPreferenceHost() = default;
};
