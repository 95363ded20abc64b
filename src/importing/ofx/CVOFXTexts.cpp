#include "importing/ofx/CVOFXTexts.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct OFXTextsText {
    Q_DECLARE_TR_FUNCTIONS(CVOFXTexts)
};

/// Whether `name`, as long as it stands in the file, is the beginning of `whole`, cut by the bank.
bool isCutOf(const QString& name, const QString& whole) {
    constexpr qsizetype kUsualCut = 32;
    const QString plain = name.simplified();
    if (plain.isEmpty() || whole.size() <= plain.size() || !whole.startsWith(plain))
        return false;
    const bool isWithinWord = plain.back().isLetterOrNumber() && whole.at(plain.size()).isLetterOrNumber();
    return name.size() >= kUsualCut || isWithinWord;
}

void addTo(QString& text, const QString& more) {
    if (!more.isEmpty() && !text.contains(more))
        text += text.isEmpty() ? more : QString(u' ' + more);
}

/// Whether the number of a check says nothing, or is said elsewhere.
bool isIdle(const QString& number, const CVOFXEntry& entry, const CVOFXTexts& texts) {
    QStringView digits(number);
    while (digits.startsWith(u'0'))
        digits = digits.sliced(1);
    return digits.isEmpty() || entry.id.contains(digits) || texts.payee.contains(digits) ||
           texts.purpose.contains(digits);
}

QString numberInWords(const CVOFXEntry& entry) {
    return entry.type == u"CHECK" ? OFXTextsText::tr("Check %1").arg(entry.number)
                                  : OFXTextsText::tr("No. %1").arg(entry.number);
}

/// Adds a text that may be the whole of the payee's.
void addWhole(CVOFXTexts& texts, const QString& cut, const QString& whole) {
    const QString plain = whole.simplified();
    if (texts.payee.isEmpty() || isCutOf(cut, plain))
        texts.payee = plain;
    else if (plain != texts.payee)
        addTo(texts.purpose, plain);
}

} // namespace

CVOFXTexts CVTextsOfOFXEntry(const CVOFXEntry& entry) {
    const QString& name = entry.payeeName.isEmpty() ? entry.name : entry.payeeName;
    CVOFXTexts texts{name.simplified(), {}};
    if (entry.name.simplified() != texts.payee)
        addTo(texts.purpose, entry.name.simplified());
    addWhole(texts, name, entry.fullName);
    addWhole(texts, name, entry.memo);
    addTo(texts.purpose, entry.address.simplified());
    if (!entry.number.isEmpty() && !isIdle(entry.number, entry, texts))
        addTo(texts.purpose, numberInWords(entry));
    // Better than nothing: "ATM".
    if (texts.payee.isEmpty() && texts.purpose.isEmpty())
        texts.purpose = entry.type;
    return texts;
}
