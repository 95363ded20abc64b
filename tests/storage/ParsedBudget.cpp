#include "storage/ParsedBudget.h"

#include "storage/LogCapture.h"

namespace {

void addNumber(QString& line, const char* name, qint64 value) {
    if (value != 0)
        line += QStringLiteral(" %1=%2").arg(QLatin1String(name)).arg(value);
}

void addAmount(QString& line, const char* name, double value) {
    if (value != 0)
        line += QStringLiteral(" %1=%2").arg(QLatin1String(name), QString::number(value, 'g', 17));
}

void addText(QString& line, const char* name, const QString& text) {
    if (!text.isNull())
        line += QStringLiteral(" %1='%2'").arg(QLatin1String(name), text);
}

QString describeSet(const CVTransactionSet& set) {
    QString line(u'S');
    addNumber(line, "id", set.uniqueID());
    addText(line, "name", set.transactionSetName());
    return line;
}

QString describeTransaction(const CVTransaction& transaction) {
    QString line(u'T');
    addNumber(line, "category", transaction.categoryID());
    addNumber(line, "set", transaction.transactionSetID());
    addNumber(line, "flag", transaction.userFlag());
    addNumber(line, "tax", transaction.taxFlag());
    if (const auto& date = transaction.effectiveDate())
        line += QStringLiteral(" date=") + QString::fromLatin1(date->corvellaXMLRepresentation());
    addAmount(line, "amount", transaction.amount());
    addText(line, "payTo", transaction.payTo());
    addText(line, "for", transaction.xfor());
    return line;
}

QString describeCategory(const CVCategory& category) {
    QString line(u'C');
    addNumber(line, "id", category.uniqueID());
    addText(line, "name", category.categoryName());
    addNumber(line, "frequency", category.expenseFrequency());
    addAmount(line, "target", category.expenseTarget());
    return line;
}

} // namespace

bool SaveCounter::workbookSave(CVDocument& /*document*/) {
    ++mCount;
    return true;
}

ParsedBudget::ParsedBudget(const QByteArray& bytes)
    : mNotifications(mBudget.notificationCenter())
    , mParser(&mBudget.document()) {
    mBudget.document().setSaver(&mSaves);
    const LogCapture capture;
    mRead = mParser.prepareFromData(bytes) && !mParser.isEncrypted() && mParser.parseDocumentData();
    mLog = LogCapture::messages();
}

bool ParsedBudget::holdsDefaults() {
    const auto names = CVCategory::standardCategoryNames();
    return document().transactions().empty() && names && !names->isEmpty() &&
           document().countOfCategories() == static_cast<std::size_t>(names->size()) &&
           document().uniqueID() == document().countOfCategories();
}

QStringList ParsedBudget::describe(const CVDocument& document) {
    QStringList lines;
    QString counters(u'M');
    addNumber(counters, "id", document.uniqueID());
    addNumber(counters, "set", document.currentTransactionSet());
    if (counters.size() > 1)
        lines.append(counters);
    for (const auto& set : document.transactionSets())
        lines.append(describeSet(*set));
    for (const auto& transaction : document.transactions())
        lines.append(describeTransaction(*transaction));
    for (const auto& category : document.categories())
        lines.append(describeCategory(*category));
    return lines;
}

QByteArray inRoot(const QByteArray& elements) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n<CorvellaDocument>" +
           elements + "</CorvellaDocument>\n";
}
