#pragma once

#include "contents/CVShownSets.h"
#include "contents/CVTransactionExport.h"
#include "widgets/CVFilePanels.h"

class CVDocument;

/// A kind of file in which the window exports transactions.
struct CVExportKind {
    CVFileKind file;
    CVExportFormat format = CVExportFormat::List;
    /// `Current`: the lines that the list shows.
    CVShownSets sets = CVShownSets::Current;
};

/// The kinds that are offered, the list first. Where there are several sets, all of them can be written together.
[[nodiscard]] QList<CVExportKind> CVExportKinds(const CVDocument& document);
