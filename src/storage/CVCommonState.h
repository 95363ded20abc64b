#pragma once

#include "files/CVFileSignature.h"
#include "model/CVDocumentText.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// The bytes that the data file and the budget last had in common: what this program has read or written there. Tells
/// another program's change from a touch, and is the state from which two changed budgets are merged.
class CVCommonState final {
public:
    /// A text that was written shares its memory with the budget.
    explicit CVCommonState(CVDocumentText text) : mSize(text.size()), mBytes(std::move(text)) {}
    /// Reads the file, compressed, because nothing else holds these bytes. Absent when the file has another signature
    /// before or afterwards, or cannot be read.
    [[nodiscard]] static std::optional<CVCommonState> ofFile(const QString& path, const CVFileSignature& signature);

    /// Whether the file holds exactly these bytes; false also when it cannot be read.
    [[nodiscard]] bool isIn(const QString& path) const;
    [[nodiscard]] CVDocumentText text() const;

private:
    using Pieces = std::vector<QByteArray>;
    explicit CVCommonState(qint64 size, Pieces pieces) : mSize(size), mBytes(std::move(pieces)) {}

    template <typename Take>
    [[nodiscard]] bool eachPiece(Take take) const;

    qint64 mSize;
    std::variant<CVDocumentText, Pieces> mBytes;
};
