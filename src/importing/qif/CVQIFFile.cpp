#include "importing/qif/CVQIFFile.h"

#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"
#include "importing/statements/CVStatementWords.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace {

/// A payment has about ten lines, and no statement has more payments than this allows.
constexpr int kMostQIFLines = 2'000'000;

constexpr QStringView kQIFCodes = u"DTUCNPMALSE$%FXYIQOKR";

enum class Section { BeforeFirst, Account, Payments, Investments, List };

bool isQIFHeader(QStringView line) {
    constexpr std::array kHeaders{u"!Type:", u"!Account", u"!Option:", u"!Clear:"};
    return std::any_of(kHeaders.begin(), kHeaders.end(),
                       [line](QStringView name) { return line.startsWith(name, Qt::CaseInsensitive); });
}

/// The end of the line that begins there, without its line break, which may be a carriage return alone.
qsizetype endOfLine(QStringView text, qsizetype at) {
    while (at < text.size() && text[at] != u'\r' && text[at] != u'\n')
        ++at;
    return at;
}

/// What follows a name at the beginning of a header; null for other headers.
QStringView behind(QStringView header, QStringView name) {
    if (!header.startsWith(name, Qt::CaseInsensitive))
        return {};
    return header.sliced(name.size()).trimmed();
}

/// Types that are not listed are payments, so that nothing is left out without a word.
Section sectionOf(QStringView type) {
    constexpr std::array kLists{u"cat",    u"class", u"memorized", u"security", u"prices",
                                u"budget", u"tag",   u"template",  u"payee"};
    constexpr std::array kInvestments{u"invst", u"port", u"401"};
    const auto isOf = [type](QStringView name) { return type.startsWith(name, Qt::CaseInsensitive); };
    if (std::any_of(kLists.begin(), kLists.end(), isOf))
        return Section::List;
    return std::any_of(kInvestments.begin(), kInvestments.end(), isOf) ? Section::Investments : Section::Payments;
}

class QIFTaker {
public:
    CVQIFFile take(QStringView text, const CVStopReadingQIF& stop) {
        constexpr int kBetweenQuestions = 1024;
        for (qsizetype at = 0; at < text.size();) {
            const qsizetype end = endOfLine(text, at);
            ++mLine;
            takeLine(text.sliced(at, end - at).trimmed());
            const bool isPair = end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n';
            at = end + (isPair ? 2 : 1);
            mFile.isTooLong = mLine >= kMostQIFLines && at < text.size();
            if (mFile.isTooLong || (stop && mLine % kBetweenQuestions == 0 && stop(at)))
                break;
        }
        finish(false);
        return std::move(mFile);
    }

private:
    void takeLine(QStringView line) {
        if (line.isEmpty())
            return;
        if (line.front() == u'^')
            finish(true);
        else if (isQIFHeader(line))
            takeHeader(line);
        else
            takeField(line);
    }

    void takeField(QStringView line) {
        if (mFields.empty())
            mFirstLine = mLine;
        if (kQIFCodes.contains(line.front()))
            mFields.push_back({line.front(), line.sliced(1).trimmed()});
        else
            mFields.push_back({{}, line});
    }

    void takeHeader(QStringView header) {
        finish(false);
        if (const QStringView type = behind(header, u"!Type:"); !type.isNull()) {
            beginType(type);
        } else if (!behind(header, u"!Account").isNull()) {
            mSection = Section::Account;
            mRecords = 0;
        }
    }

    void beginType(QStringView type) {
        mSection = sectionOf(type);
        mFile.hasLists = mFile.hasLists || mSection == Section::List;
        if (mSection != Section::Payments && mSection != Section::Investments)
            return;
        // Several records are the list of all accounts; one names the account of what follows.
        const bool isOther = type.compare(mType, Qt::CaseInsensitive) != 0;
        if (mRecords == 1)
            mName = mNameInBlock;
        else if (isOther)
            mName.clear();
        mRecords = 0;
        if (isOther)
            mType = type.toString();
        mMayBeOpening = mName.isEmpty();
    }

    void finish(bool isEnded) {
        CVQIFFields fields = std::move(mFields);
        mFields.clear();
        if (fields.empty())
            return;
        switch (mSection) {
        case Section::BeforeFirst:
            // What is above the first header may be anything.
            if (isEnded || CVIsQIFPayment(fields))
                addEntry(std::move(fields));
            break;
        case Section::Account:
            takeAccount(std::move(fields));
            break;
        case Section::Payments:
            addEntry(std::move(fields));
            break;
        case Section::Investments:
            ++mFile.investments;
            break;
        case Section::List:
            break;
        }
    }

    void takeAccount(CVQIFFields fields) {
        const auto name =
            std::find_if(fields.begin(), fields.end(), [](const auto& field) { return field.code == u'N'; });
        if (CVIsQIFPayment(fields)) {
            beginType(mTypeInBlock);
            addEntry(std::move(fields));
        } else if (name != fields.end()) {
            ++mRecords;
            mNameInBlock = name->text.toString();
            const auto type =
                std::find_if(fields.begin(), fields.end(), [](const auto& field) { return field.code == u'T'; });
            mTypeInBlock = type == fields.end() ? QString() : type->text.toString();
        }
    }

    void addEntry(CVQIFFields fields) {
        if (mMayBeOpening)
            mName = nameInOpeningBalance(fields);
        mMayBeOpening = false;
        mFile.entries.push_back({mFirstLine, accountInForce(), std::move(fields)});
    }

    /// The first entry of an account without a header of its own may be a transfer to itself, which names it.
    [[nodiscard]] static QString nameInOpeningBalance(const CVQIFFields& fields) {
        QString name;
        bool isOpening = false;
        for (const auto& [code, text] : fields) {
            if (code == u'P')
                isOpening = CVNamesBalanceRow(text.toString());
            if (code == u'L' && text.startsWith(u'[') && text.endsWith(u']') && text.size() > 2)
                name = text.sliced(1).chopped(1).toString();
        }
        return isOpening ? name : QString();
    }

    std::size_t accountInForce() {
        const bool isNamed = !mName.isEmpty();
        const QString& name = isNamed ? mName : mType;
        const auto known = mPlaces.constFind(name);
        if (known != mPlaces.cend())
            return *known;
        mFile.accounts.push_back({name, isNamed});
        mPlaces.insert(name, mFile.accounts.size() - 1);
        return mFile.accounts.size() - 1;
    }

    CVQIFFile mFile;
    Section mSection = Section::BeforeFirst;
    int mLine = 0;
    int mFirstLine = 0;
    CVQIFFields mFields;
    /// Of the account whose entries follow.
    QString mName;
    QString mType;
    bool mMayBeOpening = false;
    /// Of the last block of accounts.
    int mRecords = 0;
    QString mNameInBlock;
    QString mTypeInBlock;
    QHash<QString, std::size_t> mPlaces;
};

} // namespace

QStringList CVQIFEntry::cells() const {
    QStringList cells;
    for (const auto& [code, text] : fields)
        cells.append(code.isNull() ? text.toString() : code + text.toString());
    return cells;
}

CVQIFFile CVTakeQIFApart(QStringView text, const CVStopReadingQIF& stop) {
    return QIFTaker().take(text, stop);
}

bool CVHasQIFHeader(QStringView text) {
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = endOfLine(text, at);
        if (isQIFHeader(text.sliced(at, end - at).trimmed()))
            return true;
        at = end + 1;
    }
    return false;
}

bool CVBeginsAsQIF(QStringView text) {
    const CVQIFFile file = CVTakeQIFApart(text);
    return !file.entries.empty() && CVIsQIFPayment(file.entries.front().fields);
}

bool CVIsQIFPayment(const CVQIFFields& fields) {
    bool hasDay = false;
    bool hasAmount = false;
    for (const auto& [code, text] : fields) {
        hasDay = hasDay || (code == u'D' && CVReadDayOfColumn(CVQIFDayText(text)));
        hasAmount = hasAmount || ((code == u'T' || code == u'U') && CVMarkEvidenceOf(text).isAmount());
    }
    return hasDay && hasAmount;
}

QString CVQIFDayText(QStringView text) {
    QString day = text.toString();
    const qsizetype at = std::max(day.lastIndexOf(u'\''), day.lastIndexOf(u'\u2019'));
    if (at < 0)
        return day;
    const QString year = day.sliced(at + 1).trimmed();
    return day.first(at + 1) + (year.size() == 1 ? u'0' + year : year);
}
