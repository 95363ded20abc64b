#pragma once

#include "shared/widgets/CVAlerts.h"

#include <QList>

/// Answers alerts from a script, in order, and remembers them. One without an answer left gets the default button.
class ScriptedAlerts final : public CVAlerts {
public:
    CVAlert::Answer run(const CVAlert& alert) override {
        mShown.append(alert);
        return mAnswers.isEmpty() ? CVAlert::kDefault : mAnswers.takeFirst();
    }

    void answer(std::initializer_list<CVAlert::Answer> answers) { mAnswers.append(answers); }
    [[nodiscard]] const QList<CVAlert>& shown() const { return mShown; }

private:
    QList<CVAlert::Answer> mAnswers;
    QList<CVAlert> mShown;
};
