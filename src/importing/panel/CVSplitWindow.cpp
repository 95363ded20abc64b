#include "importing/panel/CVSplitWindow.h"

#include "base/QBMoney.h"
#include "format/QBMoneyFormatter.h"
#include "importing/panel/CVImportLineText.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVMoneyField.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <utility>

CVSplitWindow::CVSplitWindow(const CVImportLine& line, QStringList categories, QWidget* parent)
    : QDialog(parent)
    , mWhole(line.hundredths)
    , mCategories(std::move(categories))
    , mLines(new QVBoxLayout)
    , mSplit(new CVCompactButton(tr("&Split"), this)) {
    setWindowTitle(tr("Split Among Categories"));
    setWindowModality(Qt::WindowModal);
    auto* const layout = new QVBoxLayout(this);
    auto* const whole = new QLabel(tr("%1 for %2, split:", "an amount and a payee")
                                       .arg(QBMoneyFormatter().string(CVImportLineText::amountOf(mWhole)), line.payee),
                                   this);
    whole->setTextFormat(Qt::PlainText);
    whole->setWordWrap(true);
    layout->addWidget(whole);
    layout->addLayout(mLines);
    addFirst(line.category);
    addShare();
    auto* const another = new CVCompactButton(tr("Add &Part"), this);
    another->setObjectName(QStringLiteral("mAddPartButton"));
    auto* const cancel = new CVCompactButton(tr("Cancel"), this);
    mSplit->setObjectName(QStringLiteral("mSplitButton"));
    for (QPushButton* const button : {static_cast<QPushButton*>(another), static_cast<QPushButton*>(cancel), mSplit}) {
        button->setAccessibleName(QString(button->text()).remove('&'));
        button->setAutoDefault(false);
    }
    mSplit->setDefault(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(another);
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(mSplit);
    layout->addStretch();
    layout->addLayout(row);
    connect(another, &QPushButton::clicked, this, [this] {
        addShare();
        // The layout would show it only later, and what is hidden gets no focus.
        mShares.back().amount->show();
        mShares.back().amount->setFocus();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(mSplit, &QPushButton::clicked, this, [this] {
        for (const Share& share : mShares) {
            if (share.amount)
                share.amount->endEditing();
        }
        showState();
        if (mSplit->isEnabled())
            accept();
    });
    mShares.back().amount->setFocus();
    showState();
}

/// A field that has the focus ends its editing while it is destroyed.
CVSplitWindow::~CVSplitWindow() {
    for (const Share& share : mShares) {
        if (share.amount)
            share.amount->disconnect(this);
    }
}

CVCompletingComboBox* CVSplitWindow::makeCategory() {
    auto* const box = new CVCompletingComboBox(this);
    box->setItems(mCategories);
    CVSetAccessibleName(*box, tr("Category of Part %1").arg(mShares.size() + 1));
    connect(box, &QComboBox::editTextChanged, this, &CVSplitWindow::showState);
    return box;
}

void CVSplitWindow::addFirst(const QString& category) {
    auto* const row = new QHBoxLayout;
    mRest = new QLabel(this);
    mRest->setObjectName(QStringLiteral("mRest"));
    mRest->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    CVCompletingComboBox* const box = makeCategory();
    box->setEditText(category);
    row->addWidget(mRest, 1);
    row->addWidget(box, 1);
    mLines->addLayout(row);
    mShares.push_back({nullptr, box});
}

void CVSplitWindow::addShare() {
    auto* const row = new QHBoxLayout;
    auto* const amount = new CVMoneyField(this);
    amount->setAccessibleName(tr("Amount of Part %1").arg(mShares.size() + 1));
    amount->clearValue();
    row->addWidget(amount, 1);
    CVCompletingComboBox* const box = makeCategory();
    row->addWidget(box, 1);
    mLines->addLayout(row);
    if (!mShares.empty())
        setTabOrder(mShares.back().category, amount);
    setTabOrder(amount, box);
    mShares.push_back({amount, box});
    connect(amount, &QLineEdit::textChanged, this, &CVSplitWindow::showState);
    connect(amount, &QLineEdit::editingFinished, this, &CVSplitWindow::showState);
    showState();
}

qint64 CVSplitWindow::rest() const {
    qint64 rest = mWhole;
    for (const Share& share : mShares) {
        if (share.amount)
            rest -= CVImportLineText::hundredthsOf(RoundDoubleToTwoPlaces(share.amount->doubleValue()));
    }
    return rest;
}

bool CVSplitWindow::areAmountsReadable() const {
    return std::all_of(mShares.begin(), mShares.end(),
                       [](const Share& share) { return !share.amount || share.amount->isReadable(); });
}

/// A part without an amount is left out; one with an amount needs a category.
std::vector<CVImportRows::Part> CVSplitWindow::parts() const {
    std::vector<CVImportRows::Part> parts;
    for (const Share& share : mShares) {
        const qint64 hundredths =
            share.amount ? CVImportLineText::hundredthsOf(RoundDoubleToTwoPlaces(share.amount->doubleValue())) : rest();
        if (hundredths != 0)
            parts.push_back({hundredths, share.category->enteredText()});
    }
    return parts;
}

void CVSplitWindow::showState() {
    if (!mRest)
        return;
    mRest->setText(tr("%1, the rest", "an amount").arg(QBMoneyFormatter().string(CVImportLineText::amountOf(rest()))));
    const std::vector<CVImportRows::Part> shares = parts();
    const bool haveCategories = std::none_of(
        shares.begin(), shares.end(), [](const CVImportRows::Part& part) { return part.category.trimmed().isEmpty(); });
    mSplit->setEnabled(shares.size() > 1 && haveCategories && areAmountsReadable());
}
