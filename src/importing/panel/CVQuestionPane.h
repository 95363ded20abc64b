#pragma once

#include "importing/statements/CVStatementQuestion.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;
class QVBoxLayout;

/// The questions that a statement leaves open, a line for each, with a button for each answer, or a pop-up where there
/// are many.
class CVQuestionPane final : public QWidget {
    Q_OBJECT

public:
    explicit CVQuestionPane(QWidget* parent = nullptr);

    void show(const std::vector<CVStatementQuestion>& questions);
    /// Gives the focus to the first answer.
    void focusFirst();

signals:
    /// The statement is to be read with the answer.
    void answered(const CVStatementMapping& with);

private:
    void addQuestion(const CVStatementQuestion& question, QVBoxLayout& lines);
    void addButtons(const CVStatementQuestion& question, QHBoxLayout& line, QWidget& parent);
    void addPopUp(const CVStatementQuestion& question, QHBoxLayout& line, QWidget& parent);

    /// Holds the controls of the questions that are shown; null when there are none.
    QWidget* mShown = nullptr;
};
