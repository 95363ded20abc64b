#include "commands/CVStatementOptions.h"

#include "importing/statements/CVStatementText.h"

#include <QCoreApplication>

#include <array>
#include <vector>

namespace {

struct StatementOptionsText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementOptions)
};

constexpr QLatin1StringView kNone("none");

/// Gives the column that `value` counts from 1 a role.
QString readColumn(const QString& value, const char* name, CVColumnRole role, CVStatementOptions& options) {
    constexpr int kMostColumns = 2000;
    bool isNumber = false;
    const int column = value.toInt(&isNumber);
    if (!isNumber || column < 1 || column > kMostColumns)
        return StatementOptionsText::tr("--%1 takes the number of a column, from 1").arg(QLatin1String(name));
    auto columns = options.mapping.columns.value_or(std::vector<CVColumnRole>());
    if (columns.size() < static_cast<std::size_t>(column))
        columns.resize(static_cast<std::size_t>(column), CVColumnRole::Guessed);
    CVColumnRole& old = columns[static_cast<std::size_t>(column) - 1];
    if (old != CVColumnRole::Guessed)
        return StatementOptionsText::tr("column %1 is named twice").arg(column);
    old = role;
    options.mapping.columns = columns;
    return {};
}

struct ColumnOption {
    const char* name;
    CVColumnRole role;
};

constexpr std::array<ColumnOption, 15> kColumnOptions{{{"date", CVColumnRole::Day},
                                                       {"value-date", CVColumnRole::OtherDay},
                                                       {"amount", CVColumnRole::Amount},
                                                       {"in", CVColumnRole::MoneyIn},
                                                       {"out", CVColumnRole::MoneyOut},
                                                       {"marker", CVColumnRole::Marker},
                                                       {"fee", CVColumnRole::Fee},
                                                       {"payee", CVColumnRole::Payee},
                                                       {"payer", CVColumnRole::Payer},
                                                       {"for", CVColumnRole::Purpose},
                                                       {"category", CVColumnRole::Category},
                                                       {"balance", CVColumnRole::Balance},
                                                       {"currency", CVColumnRole::Currency},
                                                       {"bank-id", CVColumnRole::BankID},
                                                       {"ignore", CVColumnRole::Ignored}}};

QString readDateOrder(const QString& value, CVStatementOptions& options) {
    if (value == QLatin1String("dmy"))
        options.mapping.dayOrder = CVDayOrder::DayMonthYear;
    else if (value == QLatin1String("mdy"))
        options.mapping.dayOrder = CVDayOrder::MonthDayYear;
    else if (value == QLatin1String("ymd"))
        options.mapping.dayOrder = CVDayOrder::YearMonthDay;
    else
        return StatementOptionsText::tr("--date-order takes dmy, mdy or ymd");
    return {};
}

QString readDecimal(const QString& value, CVStatementOptions& options) {
    if (value == QLatin1String("point") || value == QLatin1String("."))
        options.mapping.decimalMark = u'.';
    else if (value == QLatin1String("comma") || value == QLatin1String(","))
        options.mapping.decimalMark = u',';
    else
        return StatementOptionsText::tr("--decimal takes point or comma");
    return {};
}

QString readSign(const QString& value, CVStatementOptions& options) {
    if (value != QLatin1String("normal") && value != QLatin1String("inverted"))
        return StatementOptionsText::tr("--sign takes normal or inverted");
    options.mapping.positiveIsOut = value == QLatin1String("inverted");
    return {};
}

QString readYear(const QString& value, CVStatementOptions& options) {
    constexpr int kFirstYear = 1900;
    constexpr int kLastYear = 2199;
    QList<int> years;
    for (const QString& text : value.split(u'-')) {
        bool isNumber = false;
        years.append(text.toInt(&isNumber));
        if (!isNumber || years.constLast() < kFirstYear || years.constLast() > kLastYear || years.size() > 2)
            return StatementOptionsText::tr("--year takes a year of four digits, or that of the first line and another "
                                            "one, such as 2026-2025");
    }
    options.mapping.year = years.constFirst();
    if (years.size() > 1)
        options.mapping.otherYear = years.constLast();
    return {};
}

QString readHeader(const QString& value, CVStatementOptions& options) {
    bool isNumber = false;
    const int line = value == kNone ? 0 : value.toInt(&isNumber);
    if (value != kNone && (!isNumber || line < 1))
        return StatementOptionsText::tr("--header takes the line of the file, from 1, or none");
    options.mapping.headerLine = line;
    return {};
}

QString readEncoding(const QString& value, CVStatementOptions& options) {
    for (const QByteArray& encoding : CVEncodingsOfStatements()) {
        if (value.compare(QLatin1String(encoding), Qt::CaseInsensitive) == 0) {
            options.mapping.encoding = encoding;
            return {};
        }
    }
    return StatementOptionsText::tr("--encoding takes one of %1")
        .arg(QString::fromLatin1(CVEncodingsOfStatements().join(", ")));
}

QString readSeparator(const QString& value, CVStatementOptions& options) {
    struct Separator {
        const char* name;
        char separator;
    };
    constexpr std::array<Separator, 4> kSeparators{{{"comma", ','}, {"semicolon", ';'}, {"tab", '\t'}, {"bar", '|'}}};
    for (const auto& [name, separator] : kSeparators) {
        if (value == QLatin1String(name)) {
            options.mapping.separator = separator;
            return {};
        }
    }
    return StatementOptionsText::tr("--separator takes comma, semicolon, tab or bar");
}

QString readOutMarker(const QString& value, CVStatementOptions& options) {
    options.mapping.outMarker = value;
    return value.isEmpty() ? StatementOptionsText::tr("--out-marker takes a word") : QString();
}

QString readAccount(const QString& value, CVStatementOptions& options) {
    options.mapping.account = value;
    return {};
}

constexpr std::array<CVOption<CVStatementOptions>, 9> kReadingOptions{{{"date-order", readDateOrder},
                                                                       {"account", readAccount},
                                                                       {"decimal", readDecimal},
                                                                       {"sign", readSign},
                                                                       {"year", readYear},
                                                                       {"header", readHeader},
                                                                       {"encoding", readEncoding},
                                                                       {"separator", readSeparator},
                                                                       {"out-marker", readOutMarker}}};

} // namespace

void CVStatementOptions::declare(QCommandLineParser& parser) {
    CVDeclareOptions<CVStatementOptions>(parser, kReadingOptions);
    for (const auto& [name, role] : kColumnOptions)
        parser.addOption({QLatin1String(name), QString(), QStringLiteral("COLUMN")});
}

QString CVStatementOptions::read(const QCommandLineParser& parser) {
    QString problem = CVReadOptions<CVStatementOptions>(parser, kReadingOptions, *this);
    for (const auto& [name, role] : kColumnOptions) {
        for (const QString& value : parser.values(QLatin1String(name))) {
            if (problem.isEmpty())
                problem = readColumn(value, name, role, *this);
        }
    }
    return problem;
}
