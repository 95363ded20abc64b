#include "versions/CVVersionName.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

const QString kTimeFormat = QStringLiteral("yyyy-MM-dd HHmmss");

struct ReasonWord {
    CVVersionReason reason;
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
    const qsizetype timeEnd = begin.size() + kTimeFormat.size();
    if (!fileName.startsWith(begin) || fileName.size() < timeEnd)
        return std::nullopt;
    CVVersionName name;
    name.kept = QDateTime::fromString(fileName.sliced(begin.size(), kTimeFormat.size()), kTimeFormat);
    const QString rest = fileName.sliced(timeEnd);
    for (const ReasonWord& row : kReasonWords) {
        const QString end = QStringLiteral(" (") + row.word + u')' + endOfName(dataFileName);
        if (!rest.endsWith(end))
            continue;
        name.reason = row.reason;
        const QString number = rest.chopped(end.size());
        bool isNumber = number.isEmpty();
        if (!isNumber && number.startsWith(u' '))
            name.number = number.sliced(1).toInt(&isNumber);
        return isNumber && name.number > 0 && name.kept.isValid() && name.fileName(dataFileName) == fileName
                   ? std::optional(name)
                   : std::nullopt;
    }
    return std::nullopt;
}

QString CVVersionName::fileName(const QString& dataFileName) const {
    return QFileInfo(dataFileName).completeBaseName() + u' ' + kept.toString(kTimeFormat) +
           (number == 1 ? QString() : u' ' + QString::number(number)) + QStringLiteral(" (") + CVWordsFor(reason) +
           u')' + endOfName(dataFileName);
}
