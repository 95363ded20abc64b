#include "versions/CVVersionName.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

const QString kTimeFormat = QStringLiteral("yyyy-MM-dd HHmmss");

constexpr int kSkippedSeconds = 3600;

struct ReasonWord {
    CVVersionReason reason = CVVersionReason::Hourly;
    QLatin1StringView word;
};

constexpr std::array kReasonWords{ReasonWord{CVVersionReason::FirstOfDay, QLatin1StringView("first change of the day")},
                                  ReasonWord{CVVersionReason::Hourly, QLatin1StringView("hourly")},
                                  ReasonWord{CVVersionReason::Removal, QLatin1StringView("before removing")},
                                  ReasonWord{CVVersionReason::Deletion, QLatin1StringView("before deleting")},
                                  ReasonWord{CVVersionReason::Clearing, QLatin1StringView("before clearing")},
                                  ReasonWord{CVVersionReason::Import, QLatin1StringView("before importing")},
                                  ReasonWord{CVVersionReason::Move, QLatin1StringView("before moving")},
                                  ReasonWord{CVVersionReason::Return, QLatin1StringView("before returning")},
                                  ReasonWord{CVVersionReason::TakingOver, QLatin1StringView("before taking over")},
                                  ReasonWord{CVVersionReason::Interruption, QLatin1StringView("interrupted save")}};

/// What stands behind the words, with its dot.
QString endOfName(const QString& dataFileName) {
    const QString suffix = QFileInfo(dataFileName).suffix();
    return suffix.isEmpty() ? QString() : u'.' + suffix;
}

} // namespace

QString CVWordsFor(CVVersionReason reason) {
    const auto* const found = std::find_if(kReasonWords.begin(), kReasonWords.end(),
                                           [reason](const auto& row) { return row.reason == reason; });
    return found->word;
}

std::optional<CVVersionName> CVVersionName::parse(const QString& fileName, const QString& dataFileName) {
    const QString begin = QFileInfo(dataFileName).completeBaseName() + u' ';
    const QString end = endOfName(dataFileName);
    if (!fileName.startsWith(begin) || !fileName.endsWith(end) || fileName.size() < begin.size() + end.size())
        return std::nullopt;
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]{4}-[0-9]{2}-[0-9]{2}) ([0-9]{6})(?: ([2-9]|[1-9][0-9]+))? \\((.+)\\)\\z"));
    const QRegularExpressionMatch match = pattern.match(fileName.chopped(end.size()).sliced(begin.size()));
    const auto* const row = std::find_if(kReasonWords.begin(), kReasonWords.end(),
                                         [&match](const auto& each) { return each.word == match.captured(4); });
    const QDate day = QDate::fromString(match.captured(1), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(match.captured(2), QStringLiteral("HHmmss"));
    if (row == kReasonWords.end() || !day.isValid() || !time.isValid())
        return std::nullopt;
    QDateTime kept(day, time);
    // A time that was skipped here when the clocks changed, but not where the version was kept, becomes the next one.
    if (!kept.isValid())
        kept = QDateTime(day, time.addSecs(kSkippedSeconds));
    return CVVersionName{kept, std::max(match.captured(3).toInt(), 1), row->reason};
}

QString CVVersionName::fileName(const QString& dataFileName) const {
    return QFileInfo(dataFileName).completeBaseName() + u' ' + kept.toString(kTimeFormat) +
           (number == 1 ? QString() : u' ' + QString::number(number)) + QStringLiteral(" (") + CVWordsFor(reason) +
           u')' + endOfName(dataFileName);
}
