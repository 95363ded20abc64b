#include "budget/CVFrequencyLabel.h"

#include <QCoreApplication>

#include <array>

namespace {

constexpr const char* kContext = "CVFrequencyLabel";

constexpr std::array<const char*, kFrequencyLabels> kLabels{
    QT_TRANSLATE_NOOP("CVFrequencyLabel", "Weekly"),        QT_TRANSLATE_NOOP("CVFrequencyLabel", "Bi-Weekly"),
    QT_TRANSLATE_NOOP("CVFrequencyLabel", "Semi-Monthly"),  QT_TRANSLATE_NOOP("CVFrequencyLabel", "Monthly"),
    QT_TRANSLATE_NOOP("CVFrequencyLabel", "Bi-Monthly"),    QT_TRANSLATE_NOOP("CVFrequencyLabel", "Quarterly"),
    QT_TRANSLATE_NOOP("CVFrequencyLabel", "Semi-Annually"), QT_TRANSLATE_NOOP("CVFrequencyLabel", "Annually")};

} // namespace

QString CVFrequencyLabel(qint64 code) {
    if (code < 0 || code >= kFrequencyLabels)
        return {};
    return QCoreApplication::translate(kContext, kLabels[static_cast<std::size_t>(code)]);
}
