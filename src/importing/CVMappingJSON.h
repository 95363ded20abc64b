#pragma once

#include "importing/statements/CVStatementMapping.h"

#include <QJsonObject>

#include <optional>

/// A mapping as the notes keep it, without the year.
[[nodiscard]] QJsonObject CVJSONOfMapping(const CVStatementMapping& mapping);
/// Absent for what no mapping gives.
[[nodiscard]] std::optional<CVStatementMapping> CVMappingOfJSON(const QJsonObject& object);
