#pragma once

#include "storage/CVDocumentFile.h"

#include <functional>

class CVAlerts;

/// Reads the user's budget at the start by `read`, which fills a new document each time. Asks first when the stored
/// place of the data file is missing, and again when the file could not be read. Absent when the user wants to quit or
/// cancelled the reading.
[[nodiscard]] std::optional<CVLoadReport> CVReadAtStart(const CVStandardFolders& folders, QBUserDefaults& defaults,
                                                        CVAlerts& alerts, const std::function<CVLoadReport()>& read);
