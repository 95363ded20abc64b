#include "transfer/CVReadTransferJSON.h"

#include "transfer/CVTransferFaults.h"
#include "transfer/CVTransferObjects.h"
#include "transfer/CVTransferProgress.h"
#include "transfer/CVTransferValues.h"
#include "transfer/CVTransferredRecords.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace {

struct ReadTransferJSONText {
    Q_DECLARE_TR_FUNCTIONS(CVReadTransferJSON)
};

/// Puts a value into the line; false where it is of another kind. A day or an amount of the right kind that says none
/// is told by `fault`.
using TakeValue = bool (*)(const QJsonValue& value, CVTransferLine& line, QString& fault);

template <QString CVTransferLine::*member>
bool takeText(const QJsonValue& value, CVTransferLine& line, QString& /*fault*/) {
    line.*member = value.toString();
    return value.isString();
}

template <bool CVTransferLine::*member>
bool takeFlag(const QJsonValue& value, CVTransferLine& line, QString& /*fault*/) {
    line.*member = value.toBool();
    return value.isBool();
}

bool takeDay(const QJsonValue& value, CVTransferLine& line, QString& fault) {
    const QString text = value.toString();
    line.day = CVTransferValues::dayOfText(text.toStdString());
    if (value.isString() && !line.day)
        fault = CVTransferFaults::noDay(text);
    return value.isString() || value.isNull();
}

bool takeAmount(const QJsonValue& value, CVTransferLine& line, QString& fault) {
    const QString text = value.toString();
    const auto amount =
        value.isDouble() ? std::optional(value.toDouble()) : CVTransferValues::amountOfText(text.toStdString());
    line.amount = amount.value_or(0);
    if (value.isString() && !amount)
        fault = CVTransferFaults::noAmount(text);
    return value.isDouble() || value.isString();
}

struct Member {
    const char* key;
    TakeValue take;
};

constexpr std::array<Member, 8> kMembers{{{"date", takeDay},
                                          {"amount", takeAmount},
                                          {"category", takeText<&CVTransferLine::category>},
                                          {"paidTo", takeText<&CVTransferLine::payTo>},
                                          {"for", takeText<&CVTransferLine::xfor>},
                                          {"tax", takeFlag<&CVTransferLine::taxFlag>},
                                          {"flagged", takeFlag<&CVTransferLine::userFlag>},
                                          {"set", takeText<&CVTransferLine::set>}}};

/// The first key that no transaction has.
QString unknownKey(const QJsonObject& object) {
    const QStringList keys = object.keys();
    const auto unknown = std::find_if(keys.begin(), keys.end(), [](const QString& key) {
        return std::none_of(kMembers.begin(), kMembers.end(),
                            [&key](const Member& member) { return key == QLatin1StringView(member.key); });
    });
    return unknown == keys.end() ? QString() : *unknown;
}

/// Why the object cannot be read; empty when it can.
QString readObject(const QJsonObject& object, CVTransferLine& line) {
    for (const Member& member : kMembers) {
        const QLatin1StringView key(member.key);
        const auto value = object.find(key);
        if (value == object.end())
            return ReadTransferJSONText::tr("it has no %1").arg(CVTransferFaults::quoted(key));
        QString fault;
        if (!member.take(*value, line, fault))
            return ReadTransferJSONText::tr("%1 has a value of another kind").arg(CVTransferFaults::quoted(key));
        if (!fault.isEmpty())
            return fault;
    }
    if (object.size() > static_cast<qsizetype>(kMembers.size()))
        return ReadTransferJSONText::tr("%1 is unknown").arg(CVTransferFaults::quoted(unknownKey(object)));
    return line.isStorable() ? QString() : CVTransferFaults::notStorable();
}

/// The library takes a byte-order mark away that a text begins with, unless it is escaped.
QJsonDocument documentOf(QByteArrayView object) {
    QByteArray text = object.toByteArray();
    return QJsonDocument::fromJson(text.replace("\"\xEF\xBB\xBF", "\"\\ufeff"));
}

QString noJSON() {
    return ReadTransferJSONText::tr("it is no JSON of transactions");
}

} // namespace

bool CVIsTransferJSON(QByteArrayView text) {
    CVTransferObjects objects(text);
    const QByteArrayView begin = text.trimmed();
    return begin.startsWith('[') &&
           (begin.sliced(1).trimmed().startsWith('{') || (!objects.next() && !objects.isBroken()));
}

CVTransferredBudget CVReadTransferJSON(QByteArrayView text, const std::function<bool()>& stop) {
    CVTransferObjects objects(text);
    CVTransferredRecords records;
    for (std::size_t done = 1; objects.next(); ++done) {
        if (done % kCVBetweenTransferReports == 0 && stop && stop())
            return {};
        const auto object = documentOf(objects.object());
        CVTransferLine line;
        if (!object.isObject())
            return {.problem = CVTransferFaults::ofLine(objects.line(), noJSON())};
        if (const QString fault = readObject(object.object(), line); !fault.isEmpty())
            return {.problem = CVTransferFaults::ofLine(objects.line(), fault)};
        records.add(line);
    }
    if (objects.isBroken())
        return {.problem = CVTransferFaults::ofLine(objects.line(), noJSON())};
    return {.budget = records.finish()};
}
