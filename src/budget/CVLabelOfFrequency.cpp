#include "budget/CVLabelOfFrequency.h"

#include <QCoreApplication>

#include <array>

namespace {

struct FrequencyText {
    Q_DECLARE_TR_FUNCTIONS(CVLabelOfFrequency)
};

constexpr std::array<const char*, kFrequencyLabels> kLabels{
    QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Weekly"),        QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Bi-Weekly"),
    QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Semi-Monthly"),  QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Monthly"),
    QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Bi-Monthly"),    QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Quarterly"),
    QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Semi-Annually"), QT_TRANSLATE_NOOP("CVLabelOfFrequency", "Annually")};

} // namespace

QString CVLabelOfFrequency(qint64 code) {
    if (code < 0 || code >= kFrequencyLabels)
        return {};
    return FrequencyText::tr(kLabels[static_cast<std::size_t>(code)]);
}
