#include "versions/CVKeptName.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

const QString kTimeOfKeptCopy = QStringLiteral("yyyy-MM-dd HHmmss");

struct KeptWord {
    CVKeptReason reason = CVKeptReason::Unreadable;
    QLatin1StringView word;
};

constexpr std::array kKeptWords{KeptWord{CVKeptReason::Unreadable, QLatin1StringView("unreadable")},
                                KeptWord{CVKeptReason::ChangedOutside, QLatin1StringView("changed outside")},
                                KeptWord{CVKeptReason::AsItWasRead, QLatin1StringView("as it was read")},
                                KeptWord{CVKeptReason::ReplacedWhenMoved, QLatin1StringView("replaced when moved")}};

QString beginOfKeptName(const QString& dataFileName) {
    return QFileInfo(dataFileName).completeBaseName() + QStringLiteral(" (");
}

/// What stands behind the time, with its bracket and its dot.
QString endOfKeptName(const QString& dataFileName) {
    const QString suffix = QFileInfo(dataFileName).suffix();
    return suffix.isEmpty() ? QStringLiteral(")") : QStringLiteral(").") + suffix;
}

} // namespace

QString CVWordsFor(CVKeptReason reason) {
    const auto* const found =
        std::find_if(kKeptWords.begin(), kKeptWords.end(), [reason](const auto& row) { return row.reason == reason; });
    return found->word;
}

std::optional<CVKeptName> CVKeptName::parse(const QString& fileName, const QString& dataFileName) {
    const QString begin = beginOfKeptName(dataFileName);
    const QString end = endOfKeptName(dataFileName);
    if (!fileName.startsWith(begin) || !fileName.endsWith(end) || fileName.size() < begin.size() + end.size())
        return std::nullopt;
    static const QRegularExpression pattern(
        QStringLiteral("\\A(.+) ([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{6})(?: ([2-9]|[1-9][0-9]+))?\\z"));
    const QRegularExpressionMatch match = pattern.match(fileName.chopped(end.size()).sliced(begin.size()));
    const auto* const row = std::find_if(kKeptWords.begin(), kKeptWords.end(),
                                         [&match](const auto& each) { return each.word == match.captured(1); });
    if (row == kKeptWords.end())
        return std::nullopt;
    return CVKeptName{row->reason, QDateTime::fromString(match.captured(2), kTimeOfKeptCopy),
                      std::max(match.captured(3).toInt(), 1)};
}

QString CVKeptName::fileName(const QString& dataFileName) const {
    return beginOfKeptName(dataFileName) + CVWordsFor(reason) + u' ' + kept.toString(kTimeOfKeptCopy) +
           (number == 1 ? QString() : u' ' + QString::number(number)) + endOfKeptName(dataFileName);
}
