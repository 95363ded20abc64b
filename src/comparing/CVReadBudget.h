#pragma once

#include "model/CVDetachedDocument.h"

#include <QCoreApplication>

#include <memory>

class CVDocumentReader;
class CVDocumentText;

/// A budget that was read beside the one that is shown, on any thread.
struct CVReadBudget {
    Q_DECLARE_TR_FUNCTIONS(CVReadBudget)

public:
    /// Null when there is a problem, or when the reading was cancelled.
    std::shared_ptr<CVDetachedDocument> budget;
    /// Why it cannot be read.
    QString problem;

    [[nodiscard]] static CVReadBudget of(CVDocumentReader& reader, const CVDocumentText& text);
    [[nodiscard]] static CVReadBudget of(CVDocumentReader& reader, const QString& path);
    [[nodiscard]] static QString tooLittleMemory() { return tr("there is not enough memory"); }
};
