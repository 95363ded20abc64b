#pragma once

#include <QDateTime>
#include <QString>

enum class CVKeptReason;
enum class CVVersionReason;

/// Says about earlier versions what a person would say, in the user's language and format.
namespace CVVersionText {

/// "today 2:02 PM", "yesterday 9:15 AM", or the short date and the time. Empty for an invalid time.
[[nodiscard]] QString moment(const QDateTime& time);
[[nodiscard]] QString reason(CVVersionReason reason);
[[nodiscard]] QString reason(CVKeptReason reason);

} // namespace CVVersionText
