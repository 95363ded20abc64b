#pragma once

#include "files/CVFileSignature.h"
#include "model/CVDocumentText.h"
#include "model/CVVersionReason.h"
#include "versions/CVVersionName.h"

#include <QCoreApplication>

#include <optional>

struct CVFileResult;

/// Keeps states of one data file as earlier versions when they are due, and thins the versions. Used on one thread.
class CVVersionKeeper final {
    Q_DECLARE_TR_FUNCTIONS(CVVersionKeeper)

public:
    explicit CVVersionKeeper(QString dataFile) : mDataFile(std::move(dataFile)) {}

    /// Why the data file of that signature is to be kept before it is replaced. `asked` is what the change asks for;
    /// with a limit of 0 bytes nothing is due.
    [[nodiscard]] std::optional<CVVersionReason> due(std::optional<CVVersionReason> asked,
                                                     const CVFileSignature& present, qint64 limit) const;
    /// Makes a version of what the data file was before it was replaced, and thins to the limit. Answers the trouble in
    /// a sentence for the user; empty when there was none.
    [[nodiscard]] QString keepFile(const QString& former, CVVersionReason reason, qint64 limit);
    /// Does the same with a text that may be in no file; a limit of 0 thins none.
    [[nodiscard]] QString keepText(const CVDocumentText& text, CVVersionReason reason, qint64 limit);

private:
    [[nodiscard]] QString finish(const CVFileResult& kept, const CVVersionName& version, qint64 limit);

    QString mDataFile;
    /// The last version that could not be kept: it counts as kept, so that not every save leaves a file with a
    /// temporary name.
    std::optional<CVVersionName> mNotKept;
};
