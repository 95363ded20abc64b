#include "importing/CVNotesJSON.h"

#include "importing/CVMappingJSON.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace {

using Contents = CVImportNotes::Contents;
using NotedSet = CVImportNotes::NotedSet;
using NotedTargets = CVImportNotes::NotedTargets;
using Income = CVImportTargets::Income;

/// By which the file is known to be one of notes.
const QString kFormatKey = QStringLiteral("import notes");
constexpr int kFormat = 1;

const QString kLastKey = QStringLiteral("last statement");
const QString kTargetsKey = QStringLiteral("statements");
const QString kMappingsKey = QStringLiteral("columns");
const QString kLeftOutKey = QStringLiteral("payees left out");
const QString kPayeesKey = QStringLiteral("payees");
const QString kNumbersKey = QStringLiteral("numbers");
const QString kAccountsKey = QStringLiteral("accounts");
const QString kSetKey = QStringLiteral("money out");
const QString kIncomeKey = QStringLiteral("income");
const QString kIncomeSetKey = QStringLiteral("money in");
const QString kNewIncomeSetKey = QStringLiteral("new set for money in");
const QString kNotedIDKey = QStringLiteral("id");
const QString kNotedNameKey = QStringLiteral("name");
const QString kMappingKey = QStringLiteral("mapping");

struct IncomeName {
    Income income{};
    QLatin1StringView name;
};

constexpr std::array kIncomeNames{IncomeName{Income::OwnSet, QLatin1StringView("own set")},
                                  IncomeName{Income::SameSet, QLatin1StringView("same set")},
                                  IncomeName{Income::LeftOut, QLatin1StringView("left out")}};

QJsonObject jsonOf(const NotedSet& set) {
    return {{kNotedIDKey, static_cast<double>(set.id)}, {kNotedNameKey, set.name}};
}

NotedSet notedSetOf(const QJsonObject& object) {
    return {static_cast<quint32>(object[kNotedIDKey].toInteger()), object[kNotedNameKey].toString()};
}

QJsonObject jsonOf(const NotedTargets& targets) {
    const auto* const row = std::find_if(kIncomeNames.begin(), kIncomeNames.end(),
                                         [&targets](const auto& each) { return each.income == targets.income; });
    QJsonObject object{{kSetKey, jsonOf(targets.set)}, {kIncomeKey, QString(row->name)}};
    if (targets.incomeSet)
        object[kIncomeSetKey] = jsonOf(*targets.incomeSet);
    if (!targets.newIncomeSet.isEmpty())
        object[kNewIncomeSetKey] = targets.newIncomeSet;
    return object;
}

/// Absent for an income that nobody knows.
std::optional<NotedTargets> notedTargetsOf(const QJsonObject& object) {
    const QString income = object[kIncomeKey].toString();
    const auto* const row = std::find_if(kIncomeNames.begin(), kIncomeNames.end(),
                                         [&income](const auto& each) { return each.name == income; });
    if (row == kIncomeNames.end())
        return std::nullopt;
    NotedTargets targets{notedSetOf(object[kSetKey].toObject()), row->income};
    targets.newIncomeSet = object[kNewIncomeSetKey].toString();
    if (object.contains(kIncomeSetKey))
        targets.incomeSet = notedSetOf(object[kIncomeSetKey].toObject());
    return targets;
}

template <typename Texts>
QJsonArray sortedArrayOf(const Texts& texts) {
    QStringList list;
    for (const auto& text : texts)
        list.append(QString(text));
    list.sort();
    return QJsonArray::fromStringList(list);
}

void readTargets(const QJsonObject& root, Contents& contents) {
    if (root.contains(kLastKey))
        contents.lastTargets = notedTargetsOf(root[kLastKey].toObject());
    const QJsonObject targets = root[kTargetsKey].toObject();
    for (auto each = targets.begin(); each != targets.end(); ++each) {
        if (const auto noted = notedTargetsOf(each.value().toObject()))
            contents.targets.insert(each.key().toLatin1(), *noted);
    }
}

void readMappings(const QJsonObject& root, Contents& contents) {
    const QJsonObject mappings = root[kMappingsKey].toObject();
    for (auto each = mappings.begin(); each != mappings.end(); ++each) {
        const QJsonObject noted = each.value().toObject();
        if (const auto mapping = CVMappingOfJSON(noted[kMappingKey].toObject()))
            contents.mappings.insert(each.key().toLatin1(), {noted[kNotedNameKey].toString(), *mapping});
    }
}

void readPayees(const QJsonObject& root, Contents& contents) {
    for (const auto& payee : root[kLeftOutKey].toArray())
        contents.leftOut.insert(payee.toString());
    const QJsonObject payees = root[kPayeesKey].toObject();
    for (auto each = payees.begin(); each != payees.end(); ++each)
        contents.payees.insert(each.key(), each.value().toString());
}

void readNumbers(const QJsonObject& root, Contents& contents) {
    const QJsonObject accounts = root[kNumbersKey].toObject();
    for (auto account = accounts.begin(); account != accounts.end(); ++account) {
        for (const auto& number : account.value().toArray())
            contents.numbers[account.key()].insert(number.toString().toLatin1());
    }
    const QJsonObject ids = root[kAccountsKey].toObject();
    for (auto account = ids.begin(); account != ids.end(); ++account)
        contents.accounts.insert(account.key(), static_cast<quint32>(account.value().toInteger()));
}

QJsonObject jsonOfTargets(const Contents& contents) {
    QJsonObject object;
    for (auto each = contents.targets.begin(); each != contents.targets.end(); ++each)
        object[QString::fromLatin1(each.key())] = jsonOf(each.value());
    return object;
}

QJsonObject jsonOfMappings(const Contents& contents) {
    QJsonObject object;
    for (auto each = contents.mappings.begin(); each != contents.mappings.end(); ++each)
        object[QString::fromLatin1(each.key())] =
            QJsonObject{{kNotedNameKey, each->name}, {kMappingKey, CVJSONOfMapping(each->mapping)}};
    return object;
}

} // namespace

QByteArray CVJSONOfNotes(const CVImportNotes& notes) {
    const Contents& contents = notes.contents();
    QJsonObject payees;
    for (auto each = contents.payees.begin(); each != contents.payees.end(); ++each)
        payees[each.key()] = each.value();
    QJsonObject numbers;
    for (auto each = contents.numbers.begin(); each != contents.numbers.end(); ++each)
        numbers[each.key()] = sortedArrayOf(each.value());
    QJsonObject accounts;
    for (auto each = contents.accounts.begin(); each != contents.accounts.end(); ++each)
        accounts[each.key()] = static_cast<double>(each.value());
    QJsonObject root{{kFormatKey, kFormat},
                     {kTargetsKey, jsonOfTargets(contents)},
                     {kMappingsKey, jsonOfMappings(contents)},
                     {kLeftOutKey, sortedArrayOf(contents.leftOut)},
                     {kPayeesKey, payees},
                     {kNumbersKey, numbers},
                     {kAccountsKey, accounts}};
    if (contents.lastTargets)
        root[kLastKey] = jsonOf(*contents.lastTargets);
    return QJsonDocument(root).toJson();
}

std::optional<CVImportNotes> CVNotesOfJSON(const QByteArray& bytes) {
    const QJsonObject root = QJsonDocument::fromJson(bytes).object();
    if (root[kFormatKey].toInt() != kFormat)
        return std::nullopt;
    Contents contents;
    readTargets(root, contents);
    readMappings(root, contents);
    readPayees(root, contents);
    readNumbers(root, contents);
    return CVImportNotes(std::move(contents));
}
