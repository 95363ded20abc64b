#include "importing/panel/CVTargetPane.h"

#include "base/QBXMLText.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVAllowAnyLength.h"
#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace {

constexpr int kNameInLetters = 14;

QString enteredName(const QLineEdit& field) {
    return xml_storableLine(field.text()).trimmed();
}

} // namespace

CVTargetPane::CVTargetPane(const CVDocument& document, QWidget* parent) : QWidget(parent), mDocument(document) {
    auto* const layout = new CVWrappingLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    mOut = addSide(tr("Money &out goes into"), tr("Money Out Goes Into"), "mOut");
    mIn = addSide(tr("Money i&n goes into"), tr("Money In Goes Into"), "mIn");
    mOut.name->setText(tr("Checking"));
    mIn.name->setText(tr("Income"));
    addSets(*mOut.box);
    addSets(*mIn.box);
    mIn.box->addItem(tr("The same set, as negative amounts"), SameSet);
    mIn.box->addItem(tr("Nowhere: left out"), LeftOut);
    showNames();
}

CVWrappingLayout& CVTargetPane::line() const {
    return *static_cast<CVWrappingLayout*>(layout());
}

CVTargetPane::Side CVTargetPane::addSide(const QString& label, const QString& shortLabel, const char* name) {
    auto* const part = new QHBoxLayout;
    auto* const text = new QLabel(label, this);
    const Side side{new CVWheelSafeComboBox(this), new QLineEdit(this)};
    side.box->setObjectName(QLatin1String(name) + QStringLiteral("SetBox"));
    side.box->setAccessibleName(shortLabel);
    side.name->setObjectName(QLatin1String(name) + QStringLiteral("NameField"));
    side.name->setAccessibleName(tr("Name of the New Set"));
    side.name->setPlaceholderText(tr("name of the new set"));
    side.name->setMinimumWidth(kNameInLetters * fontMetrics().averageCharWidth());
    CVAllowAnyLength(*side.name);
    text->setBuddy(side.box);
    part->addWidget(text);
    part->addWidget(side.box);
    part->addWidget(side.name);
    line().addPart(part);
    connect(side.box, &QComboBox::activated, this, [this, side] {
        showNames();
        if (choice(side) == NewSet) {
            side.name->setFocus(Qt::OtherFocusReason);
            side.name->selectAll();
        }
        emit changed();
    });
    connect(side.name, &QLineEdit::editingFinished, this, &CVTargetPane::changed);
    return side;
}

void CVTargetPane::addSets(QComboBox& box) const {
    for (const auto& set : mDocument.transactionSets())
        box.addItem(set->transactionSetName(), qint64(set->uniqueID()));
    // What is recorded without sets has this ID.
    if (mDocument.transactionSets().empty())
        box.addItem(tr("Your transactions"), qint64(0));
    box.addItem(tr("New Set…"), NewSet);
}

void CVTargetPane::setTargets(const CVImportTargets& targets) {
    const auto show = [](const Side& side, quint32 set, const QString& newSet) {
        const int place = side.box->findData(qint64(set));
        side.box->setCurrentIndex(newSet.isEmpty() && place >= 0 ? place : side.box->findData(NewSet));
        if (!newSet.isEmpty())
            side.name->setText(newSet);
    };
    show(mOut, targets.set, targets.newSet);
    show(mIn, targets.incomeSet, targets.newIncomeSet);
    if (targets.income != CVImportTargets::Income::OwnSet)
        mIn.box->setCurrentIndex(
            mIn.box->findData(targets.income == CVImportTargets::Income::SameSet ? SameSet : LeftOut));
    showNames();
}

qint64 CVTargetPane::choice(const Side& side) {
    return side.box->currentData().toLongLong();
}

CVImportTargets CVTargetPane::targets() const {
    CVImportTargets targets;
    if (choice(mOut) == NewSet)
        targets.newSet = enteredName(*mOut.name);
    else
        targets.set = static_cast<quint32>(choice(mOut));
    if (choice(mIn) == SameSet)
        targets.income = CVImportTargets::Income::SameSet;
    else if (choice(mIn) == LeftOut)
        targets.income = CVImportTargets::Income::LeftOut;
    else if (choice(mIn) == NewSet)
        targets.newIncomeSet = enteredName(*mIn.name);
    else
        targets.incomeSet = static_cast<quint32>(choice(mIn));
    return targets;
}

QString CVTargetPane::nameOfSet() const {
    return choice(mOut) == NewSet ? enteredName(*mOut.name) : mOut.box->currentText();
}

QString CVTargetPane::nameOfIncomeSet() const {
    switch (choice(mIn)) {
    case SameSet:
        return tr("%1, money in", "the name of a set").arg(nameOfSet());
    case LeftOut:
        return tr("nowhere");
    case NewSet:
        return enteredName(*mIn.name);
    default:
        return mIn.box->currentText();
    }
}

QString CVTargetPane::problem() const {
    for (const Side& side : {mOut, mIn}) {
        if (QString problem = problemOf(side); !problem.isEmpty())
            return problem;
    }
    const bool isSameSet = choice(mOut) == choice(mIn) && choice(mOut) != NewSet;
    const bool isSameName = choice(mOut) == NewSet && choice(mIn) == NewSet &&
                            enteredName(*mOut.name).compare(enteredName(*mIn.name), Qt::CaseInsensitive) == 0;
    if (isSameSet || isSameName)
        return tr("Choose another set for money in, or “The same set, as negative amounts”.");
    return {};
}

QString CVTargetPane::problemOf(const Side& side) const {
    if (choice(side) != NewSet)
        return {};
    const QString name = enteredName(*side.name);
    if (name.isEmpty())
        return tr("Name the new set.");
    const auto& sets = mDocument.transactionSets();
    const bool isTaken = std::any_of(sets.begin(), sets.end(), [&name](const auto& set) {
        return set->transactionSetName().compare(name, Qt::CaseInsensitive) == 0;
    });
    return isTaken ? tr("There is a set “%1” already.").arg(name) : QString();
}

void CVTargetPane::showNames() {
    for (const Side& side : {mOut, mIn})
        side.name->setVisible(choice(side) == NewSet);
}
