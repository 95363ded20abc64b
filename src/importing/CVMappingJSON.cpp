#include "importing/CVMappingJSON.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace {

const QString kEncodingKey = QStringLiteral("encoding");
const QString kSeparatorKey = QStringLiteral("separator");
const QString kHeaderKey = QStringLiteral("header line");
const QString kColumnsKey = QStringLiteral("columns");
const QString kDayOrderKey = QStringLiteral("day order");
const QString kDecimalKey = QStringLiteral("decimal mark");
const QString kPositiveKey = QStringLiteral("positive is out");
const QString kOutMarkerKey = QStringLiteral("marker of money out");

template <typename Value>
struct NamedValue {
    Value value;
    QLatin1StringView name;
};

/// The names stand in files: a name that is there stays.
constexpr std::array kRoleNames{
    NamedValue<CVColumnRole>{CVColumnRole::Ignored, QLatin1StringView("ignored")},
    NamedValue<CVColumnRole>{CVColumnRole::Day, QLatin1StringView("day")},
    NamedValue<CVColumnRole>{CVColumnRole::OtherDay, QLatin1StringView("other day")},
    NamedValue<CVColumnRole>{CVColumnRole::Amount, QLatin1StringView("amount")},
    NamedValue<CVColumnRole>{CVColumnRole::MoneyIn, QLatin1StringView("money in")},
    NamedValue<CVColumnRole>{CVColumnRole::MoneyOut, QLatin1StringView("money out")},
    NamedValue<CVColumnRole>{CVColumnRole::Marker, QLatin1StringView("marker")},
    NamedValue<CVColumnRole>{CVColumnRole::Fee, QLatin1StringView("fee")},
    NamedValue<CVColumnRole>{CVColumnRole::Payee, QLatin1StringView("payee")},
    NamedValue<CVColumnRole>{CVColumnRole::Payer, QLatin1StringView("payer")},
    NamedValue<CVColumnRole>{CVColumnRole::Purpose, QLatin1StringView("purpose")},
    NamedValue<CVColumnRole>{CVColumnRole::Category, QLatin1StringView("category")},
    NamedValue<CVColumnRole>{CVColumnRole::Balance, QLatin1StringView("balance")},
    NamedValue<CVColumnRole>{CVColumnRole::Currency, QLatin1StringView("currency")},
    NamedValue<CVColumnRole>{CVColumnRole::BankID, QLatin1StringView("number")},
    NamedValue<CVColumnRole>{CVColumnRole::Guessed, QLatin1StringView("guessed")},
};

constexpr std::array kDayOrderNames{
    NamedValue<CVDayOrder>{CVDayOrder::DayMonthYear, QLatin1StringView("day, month, year")},
    NamedValue<CVDayOrder>{CVDayOrder::MonthDayYear, QLatin1StringView("month, day, year")},
    NamedValue<CVDayOrder>{CVDayOrder::YearMonthDay, QLatin1StringView("year, month, day")},
};

template <typename Table, typename Value>
QString nameOfValue(const Table& table, Value value) {
    const auto* const row =
        std::find_if(table.begin(), table.end(), [value](const auto& each) { return each.value == value; });
    return row == table.end() ? QString() : QString(row->name);
}

template <typename Value, std::size_t Size>
std::optional<Value> valueOfName(const std::array<NamedValue<Value>, Size>& table, const QString& name) {
    const auto* const row =
        std::find_if(table.begin(), table.end(), [&name](const auto& each) { return each.name == name; });
    return row == table.end() ? std::nullopt : std::optional(row->value);
}

/// Whether all names of columns are known.
bool readColumns(const QJsonValue& value, CVStatementMapping& mapping) {
    if (value.isUndefined())
        return true;
    std::vector<CVColumnRole> roles;
    for (const auto& name : value.toArray()) {
        const auto role = valueOfName(kRoleNames, name.toString());
        if (!role)
            return false;
        roles.push_back(*role);
    }
    mapping.columns = std::move(roles);
    return true;
}

} // namespace

QJsonObject CVJSONOfMapping(const CVStatementMapping& mapping) {
    QJsonObject object;
    if (mapping.encoding)
        object[kEncodingKey] = QString::fromLatin1(*mapping.encoding);
    if (mapping.separator)
        object[kSeparatorKey] = QString(QLatin1Char(*mapping.separator));
    if (mapping.headerLine)
        object[kHeaderKey] = *mapping.headerLine;
    if (mapping.columns) {
        QJsonArray columns;
        for (const CVColumnRole role : *mapping.columns)
            columns.append(nameOfValue(kRoleNames, role));
        object[kColumnsKey] = columns;
    }
    if (mapping.dayOrder)
        object[kDayOrderKey] = nameOfValue(kDayOrderNames, *mapping.dayOrder);
    if (mapping.decimalMark)
        object[kDecimalKey] = QString(*mapping.decimalMark);
    if (mapping.positiveIsOut)
        object[kPositiveKey] = *mapping.positiveIsOut;
    if (mapping.outMarker)
        object[kOutMarkerKey] = *mapping.outMarker;
    return object;
}

std::optional<CVStatementMapping> CVMappingOfJSON(const QJsonObject& object) {
    CVStatementMapping mapping;
    if (!readColumns(object[kColumnsKey], mapping))
        return std::nullopt;
    if (object.contains(kDayOrderKey)) {
        mapping.dayOrder = valueOfName(kDayOrderNames, object[kDayOrderKey].toString());
        if (!mapping.dayOrder)
            return std::nullopt;
    }
    const QString separator = object[kSeparatorKey].toString();
    const QString decimal = object[kDecimalKey].toString();
    if (separator.size() > 1 || decimal.size() > 1)
        return std::nullopt;
    if (!separator.isEmpty())
        mapping.separator = separator[0].toLatin1();
    if (!decimal.isEmpty())
        mapping.decimalMark = decimal[0];
    if (const QString encoding = object[kEncodingKey].toString(); !encoding.isEmpty())
        mapping.encoding = encoding.toLatin1();
    if (object[kHeaderKey].isDouble())
        mapping.headerLine = object[kHeaderKey].toInt();
    if (object[kPositiveKey].isBool())
        mapping.positiveIsOut = object[kPositiveKey].toBool();
    if (object[kOutMarkerKey].isString())
        mapping.outMarker = object[kOutMarkerKey].toString();
    return mapping;
}
