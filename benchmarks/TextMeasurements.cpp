#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVMeasurements.h"
#include "base/QBXMLText.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentXML.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A transaction in the form that is fastest to write; its texts are already escaped.
struct PlainTransaction {
    long year;
    int month;
    int day;
    double amount;
    unsigned categoryID;
    unsigned setID;
    bool tax;
    bool flag;
    std::string payTo;
    std::string remark;
};

std::string escaped(const QString& text) {
    QByteArray bytes;
    xml_appendStringEncodedForXML(bytes, text);
    return bytes.toStdString();
}

std::vector<PlainTransaction> plainCopy(const CVDocument& document) {
    std::vector<PlainTransaction> plain;
    plain.reserve(document.transactions().size());
    for (const auto& transaction : document.transactions()) {
        const QBDate date = transaction->effectiveDate().value();
        plain.push_back({static_cast<long>(date.yearOfCommonEra()), date.monthOfYear(), date.dayOfMonth(),
                         transaction->amount(), transaction->categoryID(), transaction->transactionSetID(),
                         transaction->taxFlag(), transaction->userFlag(), escaped(transaction->payTo()),
                         escaped(transaction->xfor())});
    }
    return plain;
}

template <typename Number, typename... Format>
void append(std::string& text, Number number, Format... format) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, format...).ptr;
    text.append(digits.data(), end);
}

void appendTwoDigits(std::string& text, int number) {
    if (number < 10)
        text += '0';
    append(text, number);
}

void append(std::string& text, const PlainTransaction& transaction) {
    text += R"(<Transaction categoryID=")";
    append(text, transaction.categoryID);
    text += R"(" flag=")";
    text += transaction.flag ? '1' : '0';
    text += R"(" tax_flag=")";
    text += transaction.tax ? '1' : '0';
    text += R"(" transaction_set_id=")";
    append(text, transaction.setID);
    text += R"("><Data date=")";
    append(text, transaction.year);
    text += '/';
    appendTwoDigits(text, transaction.month);
    text += '/';
    appendTwoDigits(text, transaction.day);
    text += R"(" amount=")";
    append(text, transaction.amount, std::chars_format::fixed, 2);
    text += R"(" /><PayToFrom>)";
    text += transaction.payTo;
    text += "</PayToFrom><For>";
    text += transaction.remark;
    text += "</For></Transaction>\n";
}

/// The text before and after the transactions, and the transactions as plain records.
struct PlainDocument {
    std::string head;
    std::string tail;
    std::vector<PlainTransaction> transactions;
    std::size_t size;

    PlainDocument(const CVDocument& document, const QByteArray& text)
        : transactions(plainCopy(document))
        , size(static_cast<std::size_t>(text.size())) {
        constexpr std::string_view kLastWord = "</Transaction>\n";
        const std::string_view all(text.constData(), size);
        const std::size_t begin = all.find("<Transaction ");
        const std::size_t end = all.rfind(kLastWord) + kLastWord.size();
        head = all.substr(0, begin);
        tail = all.substr(end);
    }

    [[nodiscard]] std::string text() const {
        std::string text;
        text.reserve(size);
        text += head;
        for (const PlainTransaction& transaction : transactions)
            append(text, transaction);
        text += tail;
        return text;
    }
};

/// Changes a transaction and changes it back, so that its text must be rendered again.
void touch(CVTransaction& transaction) {
    const bool flag = transaction.userFlag();
    transaction.setUserFlag(!flag);
    transaction.setUserFlag(flag);
}

struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

/// Compares `make`, which renders a text or a part of it after one change, with a copy of the text to fresh memory.
template <typename Result>
void measureOneChanged(benchmark::State& state, std::size_t transactions, Result (*make)(const CVDocument&)) {
    CVBudgetFixture fixture(transactions);
    const QByteArray text = fixture.text();
    const auto size = static_cast<std::size_t>(text.size());
    std::unique_ptr<char, FreeBlock> copy;
    Result made;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        copy = nullptr;
        made = Result();
        // Returns memory that the last round freed to the system, so that the next copy goes to fresh memory.
        malloc_trim(0);
        const auto& all = fixture.document().transactions();
        touch(*all[all.size() / 2]);
    };
    comparison.yardstick = [&] {
        copy.reset(static_cast<char*>(std::malloc(size)));
        std::memcpy(copy.get(), text.constData(), size);
        benchmark::DoNotOptimize(copy.get());
        benchmark::ClobberMemory();
    };
    comparison.subject = [&] { made = make(fixture.document()); };
    comparison.run(state);
}

} // namespace

void CVMeasureTextUncached(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    const QByteArray expected = fixture.text();
    const PlainDocument plain(fixture.document(), expected);
    std::string plainText;
    QByteArray text;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        plainText = std::string();
        text = QByteArray();
        for (const auto& transaction : fixture.document().transactions())
            touch(*transaction);
    };
    comparison.yardstick = [&] { plainText = plain.text(); };
    comparison.subject = [&] { text = fixture.text(); };
    comparison.run(state);
    if (plain.text() != fixture.text().toStdString())
        state.SkipWithError("the yardstick writes another text");
}

void CVMeasureTextOneChanged(benchmark::State& state, std::size_t transactions) {
    measureOneChanged<QByteArray>(
        state, transactions, [](const CVDocument& document) { return CVDocumentXMLRepresentation(document).joined(); });
}

void CVMeasureSnapshotOneChanged(benchmark::State& state, std::size_t transactions) {
    measureOneChanged<CVDocumentText>(state, transactions, CVDocumentXMLRepresentation);
}
