#include "importing/CVReadStatement.h"
#include "kit/Printers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

namespace {

const QString kFolder = QStringLiteral(CORVELLA_SOURCE_DIR "/tests/importing/statements/files");

/// A statement and what a careful person reads in it.
struct StatementFile {
    QString name;
};

void PrintTo(const StatementFile& file, std::ostream* out) {
    *out << file.name.toStdString();
}

std::vector<StatementFile> statementFiles() {
    const QString ending = QStringLiteral(".expected.json");
    std::vector<StatementFile> files;
    for (const QString& name : QDir(kFolder).entryList({u'*' + ending}, QDir::Files, QDir::Name))
        files.push_back({name.chopped(ending.size())});
    return files;
}

QByteArray bytesOf(const QString& name) {
    QFile file(kFolder + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray statementOf(const StatementFile& file) {
    for (const auto* const ending : {".csv", ".tsv", ".txt", ".ofx", ".qfx", ".qif", ".xml"}) {
        if (QFile::exists(kFolder + u'/' + file.name + QLatin1String(ending)))
            return bytesOf(file.name + QLatin1String(ending));
    }
    return {};
}

/// The name that the file of expectations has for the subject of a question.
QString nameOf(CVStatementQuestion::About about) {
    using enum CVStatementQuestion::About;
    switch (about) {
    case Account:
        return QStringLiteral("account");
    case DayOrder:
        return QStringLiteral("day-order");
    case DecimalMark:
        return QStringLiteral("decimal-mark");
    case Sign:
        return QStringLiteral("sign");
    case Year:
        return QStringLiteral("year");
    case DayColumn:
        return QStringLiteral("day-column");
    case AmountColumn:
        return QStringLiteral("amount-column");
    case MoneyOutColumn:
        return QStringLiteral("money-out-column");
    case FeeColumn:
        return QStringLiteral("fee-column");
    }
    return {};
}

/// What is known once the question is answered as expected.
CVStatementMapping answered(CVStatementMapping mapping, const QString& about, const QJsonValue& answer) {
    const QString text = answer.toVariant().toString();
    const auto giveColumn = [&](CVColumnRole role) {
        std::vector<CVColumnRole> columns(static_cast<std::size_t>(answer.toInt()), CVColumnRole::Guessed);
        columns.back() = role;
        mapping.columns = columns;
    };
    if (about == u"day-order")
        mapping.dayOrder = text == u"mdy"   ? CVDayOrder::MonthDayYear
                           : text == u"ymd" ? CVDayOrder::YearMonthDay
                                            : CVDayOrder::DayMonthYear;
    else if (about == u"decimal-mark")
        mapping.decimalMark = text == u"comma" ? u',' : u'.';
    else if (about == u"sign")
        mapping.positiveIsOut = text == u"positive-out";
    else if (about == u"account")
        mapping.account = text;
    else if (about == u"year")
        mapping.year = answer.toInt();
    else if (about == u"day-column")
        giveColumn(CVColumnRole::Day);
    else if (about == u"amount-column")
        giveColumn(CVColumnRole::Amount);
    else if (about == u"money-out-column")
        giveColumn(CVColumnRole::MoneyOut);
    return mapping;
}

QString plainText(QString text) {
    text.removeIf([](QChar c) { return !c.isLetterOrNumber(); });
    return text.toLower();
}

/// Whether the beginning of a text stands in the line.
bool isKept(const QString& wanted, const CVStatementLine& line) {
    constexpr qsizetype kBeginning = 12;
    const QString all = plainText(line.payee + line.purpose + line.category + line.bankID);
    return all.contains(plainText(wanted).left(kBeginning));
}

qint64 hundredthsOfText(QString text) {
    return text.remove(u'.').toLongLong();
}

QString isoDayOf(const CVStatementLine& line) {
    return QString::fromLatin1(line.day->corvellaXMLRepresentation()).replace(u'/', u'-');
}

/// The expected lines without those that may be left out and are, such as the balance with which an account begins.
QJsonArray wantedLines(const QJsonObject& expected, const std::vector<CVStatementLine>& lines) {
    QJsonArray wanted;
    for (const auto& each : expected.value(QStringLiteral("lines")).toArray()) {
        const QJsonObject want = each.toObject();
        const auto at = static_cast<std::size_t>(wanted.size());
        const bool isThere = at < lines.size() && isoDayOf(lines[at]) == want.value(QStringLiteral("day")).toString() &&
                             *lines[at].hundredths == hundredthsOfText(want.value(QStringLiteral("amount")).toString());
        if (isThere || !want.value(QStringLiteral("optional")).toBool())
            wanted.append(want);
    }
    return wanted;
}

/// Whether the lines that cannot be read are those expected. Entries that are not booked yet are told so too.
bool areUnreadable(const QJsonArray& lines, const QJsonObject& expected) {
    const QJsonArray wanted = expected.value(QStringLiteral("unreadable")).toArray();
    const QJsonArray pending = expected.value(QStringLiteral("pending")).toArray();
    return lines == wanted || (!pending.isEmpty() && lines.size() == wanted.size() + pending.size());
}

/// Whether the line has the expected text or the one that is as good. Nothing is expected where nothing is said.
bool hasText(const QString& text, const QJsonObject& want, const QString& key) {
    const QJsonValue wanted = want.value(key);
    return wanted.isUndefined() || text == wanted.toString() ||
           text == want.value(key + QStringLiteral("_also")).toString();
}

/// Another account is no category, and a part has the number of the whole and its place.
QStringList differencesOfDetails(const CVStatementLine& line, const QJsonObject& want) {
    QStringList differences;
    const bool isTransfer = want.contains(QStringLiteral("transfer"));
    if (isTransfer ? !line.category.isEmpty() : !hasText(line.category, want, QStringLiteral("category")))
        differences.append(QStringLiteral("line %1: category %2").arg(line.number).arg(line.category));
    const QString number = line.bankID.section(u'#', 0, 0);
    if (!hasText(number, want, QStringLiteral("id")) || !hasText(number, want, QStringLiteral("number")))
        differences.append(QStringLiteral("line %1: number %2").arg(line.number).arg(line.bankID));
    return differences;
}

/// What the statement says otherwise than expected.
QStringList differencesOf(const CVStatement& statement, const QJsonObject& expected) {
    // What "gap" names is not read yet as a careful person does; days and amounts are right all the same.
    const bool hasGap = expected.contains(QStringLiteral("gap"));
    QStringList differences;
    std::vector<CVStatementLine> lines;
    QJsonArray unreadable;
    for (const auto& line : statement.lines) {
        if (line.unreadable.isEmpty())
            lines.push_back(line);
        else
            unreadable.append(line.number);
    }
    const QJsonArray wanted = wantedLines(expected, lines);
    if (static_cast<qsizetype>(lines.size()) != wanted.size())
        differences.append(QStringLiteral("%1 lines for %2").arg(lines.size()).arg(wanted.size()));
    for (qsizetype at = 0; at < std::min(static_cast<qsizetype>(lines.size()), wanted.size()); ++at) {
        const auto& line = lines[static_cast<std::size_t>(at)];
        const QJsonObject want = wanted.at(at).toObject();
        const QString day = isoDayOf(line);
        if (day != want.value(QStringLiteral("day")).toString())
            differences.append(QStringLiteral("line %1: day %2").arg(line.number).arg(day));
        if (*line.hundredths != hundredthsOfText(want.value(QStringLiteral("amount")).toString()))
            differences.append(QStringLiteral("line %1: amount %2").arg(line.number).arg(*line.hundredths));
        differences.append(differencesOfDetails(line, want));
        for (const auto* const key : {"payee", "purpose"}) {
            if (!hasGap && !isKept(want.value(QLatin1String(key)).toString(), line))
                differences.append(QStringLiteral("line %1: no %2").arg(line.number).arg(QLatin1String(key)));
        }
    }
    if (!hasGap && !areUnreadable(unreadable, expected))
        differences.append(QStringLiteral("other lines cannot be read"));
    return differences;
}

class StatementFiles : public testing::TestWithParam<StatementFile> {};

TEST_P(StatementFiles, AreReadAsACarefulPersonReadsThem) {
    const QJsonObject expected =
        QJsonDocument::fromJson(bytesOf(GetParam().name + QStringLiteral(".expected.json"))).object();
    const QByteArray bytes = statementOf(GetParam());
    ASSERT_FALSE(bytes.isEmpty());
    ASSERT_FALSE(expected.isEmpty());
    CVStatement statement = CVReadStatement(bytes);
    ASSERT_EQ(statement.problem, QString());
    const QJsonObject needs = expected.value(QStringLiteral("needs")).toObject();
    // Where nothing is needed, a question is too many; where something is, a right reading without it is welcome.
    if (!statement.questions.empty()) {
        QStringList asked;
        for (const auto& question : statement.questions)
            asked.append(nameOf(question.about));
        if (expected.contains(QStringLiteral("gap")))
            return;
        ASSERT_EQ(asked, QStringList{needs.value(QStringLiteral("about")).toString()})
            << statement.questions.front().text.toStdString();
        const CVStatementMapping known = answered({}, asked.constFirst(), needs.value(QStringLiteral("answer")));
        statement = CVReadStatement(bytes, known);
        ASSERT_TRUE(statement.questions.empty()) << statement.questions.front().text.toStdString();
    }
    EXPECT_EQ(differencesOf(statement, expected).join(QStringLiteral("; ")), QString());
    const QJsonObject accounts = expected.value(QStringLiteral("accounts")).toObject();
    for (const QString& account : accounts.keys()) {
        QJsonObject other{{QStringLiteral("lines"), accounts.value(account)}};
        if (needs.value(QStringLiteral("answer")) == account)
            other[QStringLiteral("unreadable")] = expected.value(QStringLiteral("unreadable"));
        const CVStatement ofAccount = CVReadStatement(bytes, answered({}, QStringLiteral("account"), account));
        EXPECT_EQ(differencesOf(ofAccount, other).join(QStringLiteral("; ")), QString()) << account.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(all, StatementFiles, testing::ValuesIn(statementFiles()));
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(StatementFiles);

} // namespace
