#pragma once

#include "widgets/CVAlerts.h"

#include <QStringList>
#include <QWidget>

#include <functional>

/// Answers alerts from a script, in order, and records them. An alert without an answer left gets the default button.
class ScriptedAlerts final : public CVAlerts {
public:
    CVAlert::Answer run(QWidget* window, const CVAlert& alert) override {
        mShown.append(alert);
        mOwners.append(window ? window->window()->windowTitle() : QString());
        if (mMeanwhile)
            mMeanwhile();
        return mAnswers.isEmpty() ? CVAlert::kDefault : mAnswers.takeFirst();
    }

    /// Runs `action` while an alert is shown.
    void meanwhile(std::function<void()> action) { mMeanwhile = std::move(action); }
    void answer(std::initializer_list<CVAlert::Answer> answers) { mAnswers.append(answers); }
    [[nodiscard]] const QList<CVAlert>& shown() const { return mShown; }
    /// The title of the window that each alert belongs to; null for none.
    [[nodiscard]] const QStringList& owners() const { return mOwners; }

private:
    QList<CVAlert::Answer> mAnswers;
    QList<CVAlert> mShown;
    QStringList mOwners;
    std::function<void()> mMeanwhile;
};
