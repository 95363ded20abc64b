#include "importing/panel/CVImportLineText.h"

#include "contents/CVTransactionText.h"
#include "importing/panel/CVImportRows.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"

#include <QStringList>

#include <cmath>

namespace {

constexpr double kHundred = 100;

/// "3/7/14  $45.10  Corner Market  Groceries"
QString recordedText(const CVTransaction& transaction) {
    const CVTransactionText text;
    QStringList cells;
    for (const int column : {CVTransactionColumns::Date, CVTransactionColumns::Amount, CVTransactionColumns::ToFrom,
                             CVTransactionColumns::For, CVTransactionColumns::Category}) {
        if (const QString cell = text.string(transaction, column); !cell.isEmpty())
            cells.append(cell);
    }
    return cells.join(QStringLiteral("  "));
}

} // namespace

QString CVImportLineText::title(int column) {
    switch (column) {
    case CVImportColumns::Date:
        return CVTransactionText::title(CVTransactionColumns::Date);
    case CVImportColumns::Amount:
        return CVTransactionText::title(CVTransactionColumns::Amount);
    case CVImportColumns::ToFrom:
        return CVTransactionText::title(CVTransactionColumns::ToFrom);
    case CVImportColumns::For:
        return CVTransactionText::title(CVTransactionColumns::For);
    case CVImportColumns::Category:
        return CVTransactionText::title(CVTransactionColumns::Category);
    case CVImportColumns::Into:
        return tr("Into");
    case CVImportColumns::Note:
        return tr("Note");
    default:
        return {};
    }
}

double CVImportLineText::amountOf(qint64 hundredths) {
    return static_cast<double>(hundredths) / kHundred;
}

qint64 CVImportLineText::hundredthsOf(double amount) {
    return std::llround(amount * kHundred);
}

void CVImportLineText::setNamesOfSets(const QString& out, const QString& in) {
    mNameOut = out;
    mNameIn = in;
}

QString CVImportLineText::string(std::size_t line, int column) const {
    const CVImportLine& shown = mLines->at(line);
    switch (column) {
    case CVImportColumns::Date:
        return shown.day ? mDates.string(*shown.day) : QString();
    case CVImportColumns::Amount:
        return mLines->isReadable(line) ? mMoney.string(amountOf(shown.hundredths)) : QString();
    case CVImportColumns::ToFrom:
        return shown.payee;
    case CVImportColumns::For:
        return shown.xfor;
    case CVImportColumns::Category:
        return shown.category;
    case CVImportColumns::Into:
        return mLines->isReadable(line) ? nameOfSet(shown.isIncome) : QString();
    case CVImportColumns::Note:
        return note(line);
    default:
        return {};
    }
}

/// What the user has settled needs no note any more.
QString CVImportLineText::note(std::size_t line) const {
    const CVImportLine& shown = mLines->at(line);
    if (mLines->isReadable(line) && !mLines->canBeRecorded(line))
        return tr("money in is left out");
    if (mLines->is(line, CVImportRows::Kind::WithoutCategory))
        return mLines->is(line, CVImportRows::Kind::PerhapsRecorded) ? tr("%1; no category yet").arg(shown.noteText)
                                                                     : tr("no category yet");
    if (shown.note != CVImportLine::Note::None && shown.note != CVImportLine::Note::NoCategory)
        return shown.noteText;
    if (mLines->isPart(line))
        return tr("a part of line %1").arg(shown.number);
    return mLines->is(line, CVImportRows::Kind::Guessed) ? tr("category guessed") : QString();
}

QString CVImportLineText::spoken(std::size_t line, int column) const {
    if (column != CVImportColumns::Checked)
        return string(line, column);
    return mLines->willBeRecorded(line) ? tr("to import") : tr("left out");
}

QString CVImportLineText::toolTip(std::size_t line, int column) const {
    const CVImportLine& shown = mLines->at(line);
    if (column == CVImportColumns::Note && !shown.recorded.empty()) {
        QStringList rows{note(line)};
        for (const auto& transaction : shown.recorded)
            rows.append(tr("Recorded: %1").arg(recordedText(*transaction)));
        return rows.join(u'\n');
    }
    const bool isProposed = column == CVImportColumns::Category && !shown.category.isEmpty() &&
                            shown.sure != CVSureness::None && !mLines->isChanged(line, CVImportRows::Change::Category);
    if (!isProposed)
        return {};
    if (shown.from.empty())
        return tr("Perhaps “%1”, as the statement says").arg(shown.category);
    QStringList rows{shown.sure == CVSureness::Sure ? tr("“%1”, as recorded before:").arg(shown.category)
                                                    : tr("Perhaps “%1”, as for:").arg(shown.category)};
    for (const auto& transaction : shown.from)
        rows.append(recordedText(*transaction));
    return rows.join(u'\n');
}
