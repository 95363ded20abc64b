#include "importing/panel/CVQuestionPane.h"

#include "widgets/CVCompactButton.h"
#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStyle>

namespace {

constexpr std::size_t kMostButtons = 3;

} // namespace

CVQuestionPane::CVQuestionPane(QWidget* parent) : QWidget(parent) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    hide();
}

void CVQuestionPane::show(const std::vector<CVStatementQuestion>& questions) {
    if (mShown) {
        mShown->hide();
        // The button that was pressed may be one of its controls.
        mShown->deleteLater();
        mShown = nullptr;
    }
    setVisible(!questions.empty());
    if (questions.empty())
        return;
    mShown = new QWidget(this);
    auto* const lines = new QVBoxLayout(mShown);
    lines->setContentsMargins(0, 0, 0, 0);
    for (const CVStatementQuestion& question : questions)
        addQuestion(question, *lines);
    layout()->addWidget(mShown);
    mShown->show();
}

void CVQuestionPane::focusFirst() {
    for (auto* const control : mShown ? mShown->findChildren<QWidget*>() : QList<QWidget*>()) {
        if (control->focusPolicy() & Qt::TabFocus)
            return control->setFocus(Qt::OtherFocusReason);
    }
}

void CVQuestionPane::addQuestion(const CVStatementQuestion& question, QVBoxLayout& lines) {
    auto* const line = new QHBoxLayout;
    auto* const mark = new QLabel(mShown);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    mark->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(QSize(side, side), devicePixelRatio()));
    auto* const text = new QLabel(question.text, mShown);
    text->setObjectName(QStringLiteral("mQuestion"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    QFont bold = text->font();
    bold.setBold(true);
    text->setFont(bold);
    line->addWidget(mark);
    line->addWidget(text, 1);
    if (question.answers.size() <= kMostButtons)
        addButtons(question, *line, *mShown);
    else
        addPopUp(question, *line, *mShown);
    lines.addLayout(line);
    QAccessibleEvent announcement(text, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CVQuestionPane::addButtons(const CVStatementQuestion& question, QHBoxLayout& line, QWidget& parent) {
    for (const CVStatementQuestion::Answer& answer : question.answers) {
        auto* const button = new CVCompactButton(QString(answer.label).replace('&', QStringLiteral("&&")), &parent);
        button->setObjectName(QStringLiteral("mAnswerButton"));
        button->setAccessibleName(answer.label);
        button->setAccessibleDescription(question.text);
        button->setAutoDefault(false);
        line.addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, with = answer.with] { emit answered(with); });
    }
}

void CVQuestionPane::addPopUp(const CVStatementQuestion& question, QHBoxLayout& line, QWidget& parent) {
    auto* const box = new CVWheelSafeComboBox(&parent);
    box->setObjectName(QStringLiteral("mAnswerBox"));
    box->setAccessibleName(question.text);
    box->addItem(tr("Choose…"));
    for (const CVStatementQuestion::Answer& answer : question.answers)
        box->addItem(answer.label);
    line.addWidget(box);
    connect(box, &QComboBox::activated, this, [this, answers = question.answers](int index) {
        if (index > 0)
            emit answered(answers[static_cast<std::size_t>(index) - 1].with);
    });
}
