#include "importing/CVPayeeKey.h"

#include "importing/CVPayeeWords.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// A number of fewer digits may belong to a name, as of a street or a studio.
constexpr int kDigitsOfNumber = 3;
/// A longer number is that of a contract or a booking.
constexpr int kMostDigitsOfShop = 5;
constexpr std::ptrdiff_t kMostWordsOfTown = 4;
/// A shorter word before a number is what kind of number it is.
constexpr int kLettersBeforeNumber = 4;

/// Few words are longer, in letters.
constexpr qsizetype kUsualWord = 16;

enum class PayeeWord { Name, Beside, Number };

struct WordOfPayee {
    QString text;
    PayeeWord kind = PayeeWord::Name;
    int digits = 0;
};

/// Letters that have no accent to lose but are written in other letters where a machine has none.
QLatin1StringView plainLetters(char16_t letter) {
    constexpr char16_t kFirstBeyondASCII = 0x80;
    struct Row {
        char16_t letter = 0;
        QLatin1StringView plain;
    };
    static constexpr std::array kRows{
        Row{u'ß', QLatin1StringView("ss")}, Row{u'ø', QLatin1StringView("o")},  Row{u'æ', QLatin1StringView("ae")},
        Row{u'œ', QLatin1StringView("oe")}, Row{u'ł', QLatin1StringView("l")},  Row{u'đ', QLatin1StringView("d")},
        Row{u'ı', QLatin1StringView("i")},  Row{u'þ', QLatin1StringView("th")},
    };
    if (letter < kFirstBeyondASCII)
        return {};
    const auto* const row =
        std::find_if(kRows.begin(), kRows.end(), [letter](const Row& each) { return each.letter == letter; });
    return row == kRows.end() ? QLatin1StringView() : row->plain;
}

bool isApostrophe(QChar c) {
    return c == u'\'' || c == u'’' || c == u'`' || c == u'´';
}

/// What follows two slashes is the town; those of an address in the net follow a colon.
QString withoutTownBehindSlashes(const QString& payee) {
    for (qsizetype at = payee.indexOf(QLatin1String("//")); at > 0; at = payee.indexOf(QLatin1String("//"), at + 2)) {
        const bool hasName = std::any_of(payee.begin(), payee.begin() + at, [](QChar c) { return c.isLetter(); });
        if (hasName && payee[at - 1] != u':')
            return payee.left(at);
    }
    return payee;
}

/// Whether a word is a day and a month that were written together.
bool isDateInOneWord(const QString& word, int digits) {
    if (digits == 0)
        return false;
    QString letters = word;
    letters.removeIf([](QChar c) { return c.isNumber(); });
    return CVIsWordOfMonth(letters);
}

bool isMask(const QString& word) {
    return word.size() > 1 && std::all_of(word.begin(), word.end(), [](QChar c) { return c == u'x'; });
}

PayeeWord kindOf(const QString& word, int digits) {
    const auto letters = static_cast<int>(word.size()) - digits;
    if (letters == 0 || digits >= kDigitsOfNumber || digits > letters || isDateInOneWord(word, digits))
        return PayeeWord::Number;
    return isMask(word) || CVIsWordBesidePayee(word) ? PayeeWord::Beside : PayeeWord::Name;
}

/// A long number is a word by itself even where no blank stands before it.
void addWords(std::vector<WordOfPayee>& words, WordOfPayee word) {
    const qsizetype letters = word.text.size() - word.digits;
    const bool endsInNumber =
        word.digits >= kDigitsOfNumber && letters >= kLettersBeforeNumber &&
        std::none_of(word.text.begin(), word.text.begin() + letters, [](QChar c) { return c.isNumber(); });
    if (endsInNumber) {
        const QString number = word.text.sliced(letters);
        word.text.truncate(letters);
        words.push_back({word.text, kindOf(word.text, 0), 0});
        words.push_back({number, PayeeWord::Number, word.digits});
        return;
    }
    word.kind = kindOf(word.text, word.digits);
    words.push_back(std::move(word));
}

/// All words, in small letters without accents.
std::vector<WordOfPayee> wordsOf(const QString& payee) {
    std::vector<WordOfPayee> words;
    WordOfPayee word;
    const auto end = [&words, &word] {
        if (!word.text.isEmpty())
            addWords(words, std::exchange(word, {}));
    };
    const QString text = withoutTownBehindSlashes(payee).normalized(QString::NormalizationForm_KD).toCaseFolded();
    for (const QChar c : text) {
        if (c.isMark() || isApostrophe(c))
            continue;
        // The halves of a character beyond the basic plane are no letters by themselves.
        if (!c.isLetterOrNumber() && !c.isSurrogate()) {
            end();
            continue;
        }
        if (word.text.isEmpty())
            word.text.reserve(kUsualWord);
        if (const auto plain = plainLetters(c.unicode()); !plain.isEmpty())
            word.text += plain;
        else
            word.text += c;
        word.digits += c.isNumber() ? 1 : 0;
    }
    end();
    return words;
}

/// A month beside a number is a part of a date.
void markMonths(std::vector<WordOfPayee>& words) {
    for (std::size_t at = 0; at < words.size(); ++at) {
        const bool followsNumber = at > 0 && words[at - 1].digits > 0 && words[at - 1].kind == PayeeWord::Number;
        const bool precedesNumber = at + 1 < words.size() && words[at + 1].kind == PayeeWord::Number;
        if ((followsNumber || precedesNumber) && words[at].kind == PayeeWord::Name && CVIsWordOfMonth(words[at].text))
            words[at].kind = PayeeWord::Number;
    }
}

/// The number of a shop stands alone: several numbers are a date, a time, or what the bank calls the line.
bool isNumberOfShop(const std::vector<WordOfPayee>& words, std::size_t at) {
    const auto isNumber = [&words](std::size_t place) {
        return place < words.size() && words[place].kind == PayeeWord::Number;
    };
    const WordOfPayee& word = words[at];
    return isNumber(at) && !isNumber(at - 1) && !isNumber(at + 1) && word.digits == word.text.size() &&
           word.digits >= kDigitsOfNumber && word.digits <= kMostDigitsOfShop;
}

/// Where the name ends: at the number of a shop, behind which few words say where it is.
std::size_t endOfName(const std::vector<WordOfPayee>& words) {
    const auto isName = [](const WordOfPayee& word) { return word.kind == PayeeWord::Name; };
    const auto firstName = std::find_if(words.begin(), words.end(), isName);
    for (auto at = static_cast<std::size_t>(firstName - words.begin()); at < words.size(); ++at) {
        if (isNumberOfShop(words, at) &&
            std::count_if(words.begin() + static_cast<std::ptrdiff_t>(at), words.end(), isName) <= kMostWordsOfTown)
            return at;
    }
    return words.size();
}

template <typename Stays>
std::vector<QString> textsOf(const std::vector<WordOfPayee>& words, std::size_t end, Stays stays) {
    std::vector<QString> texts;
    for (std::size_t at = 0; at < end; ++at) {
        if (stays(words[at].kind))
            texts.push_back(words[at].text);
    }
    return texts;
}

qsizetype lettersOf(const std::vector<QString>& words) {
    qsizetype letters = 0;
    for (const QString& word : words)
        letters += word.size();
    return letters;
}

using PairsOfLetters = QVarLengthArray<quint32, 64>;

PairsOfLetters pairsOf(QStringView text) {
    constexpr int kBitsOfLetter = 16;
    PairsOfLetters pairs;
    for (qsizetype at = 0; at + 1 < text.size(); ++at)
        pairs.append(static_cast<quint32>(text[at].unicode()) << kBitsOfLetter | text[at + 1].unicode());
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

/// The part of their pairs of neighbouring letters that two texts share, from `least` to 1; else 0.
double likenessOfLetters(QStringView a, QStringView b, double least) {
    const auto countOfPairs = static_cast<double>(a.size() + b.size() - 2);
    // Texts of such different lengths cannot share as much.
    if (std::min(a.size(), b.size()) < 2 ||
        2.0 * static_cast<double>(std::min(a.size(), b.size()) - 1) < least * countOfPairs)
        return 0;
    const auto ofA = pairsOf(a);
    const auto ofB = pairsOf(b);
    PairsOfLetters common;
    std::set_intersection(ofA.begin(), ofA.end(), ofB.begin(), ofB.end(), std::back_inserter(common));
    const double likeness = 2.0 * static_cast<double>(common.size()) / countOfPairs;
    return likeness >= least ? likeness : 0;
}

double likenessOfWords(const QString& a, const QString& b) {
    constexpr qsizetype kShortestBegin = 4;
    constexpr double kCutOff = 0.95;
    constexpr double kSameWord = 0.7;
    if (a[0] != b[0])
        return 0;
    if (a == b)
        return 1;
    const QString& shorter = a.size() < b.size() ? a : b;
    if (shorter.size() >= kShortestBegin && (a.size() < b.size() ? b : a).startsWith(shorter))
        return kCutOff;
    return likenessOfLetters(a, b, kSameWord);
}

/// How many letters of the shorter name are in words of the longer one.
double lettersInCommon(const std::vector<QString>& shorter, const std::vector<QString>& longer) {
    std::vector<bool> taken(longer.size());
    double common = 0;
    for (const QString& word : shorter) {
        double best = 0;
        std::size_t place = 0;
        for (std::size_t at = 0; at < longer.size(); ++at) {
            const double likeness = taken[at] ? 0 : likenessOfWords(word, longer[at]);
            if (likeness > best) {
                best = likeness;
                place = at;
            }
        }
        if (best > 0)
            taken[place] = true;
        common += best * static_cast<double>(word.size());
    }
    return common;
}

} // namespace

CVPayeeKey::CVPayeeKey(const QString& payee) {
    auto words = wordsOf(payee);
    markMonths(words);
    mWords = textsOf(words, endOfName(words), [](PayeeWord kind) { return kind == PayeeWord::Name; });
    // A name that consists of such words alone is a name all the same.
    if (mWords.empty())
        mWords = textsOf(words, words.size(), [](PayeeWord kind) { return kind != PayeeWord::Number; });
    if (mWords.empty())
        mWords = textsOf(words, words.size(), [](PayeeWord /*kind*/) { return true; });
    for (const QString& word : mWords)
        mText += mText.isEmpty() ? word : u' ' + word;
}

double CVPayeeKey::likeness(const CVPayeeKey& other) const {
    // The part of the longer name that counts, because banks append towns and branches.
    constexpr double kShareOfLonger = 0.25;
    // What each name has for itself alone speaks against both being the same.
    constexpr double kAgainst = 0.5;
    constexpr double kRunTogether = 0.8;
    if (isEmpty() || other.isEmpty())
        return 0;
    if (mText == other.mText)
        return 1;
    const qsizetype letters = lettersOf(mWords);
    const qsizetype lettersOfOther = lettersOf(other.mWords);
    const bool isShorter = letters < lettersOfOther || (letters == lettersOfOther && mText < other.mText);
    const auto shorter = static_cast<double>(std::min(letters, lettersOfOther));
    const auto longer = static_cast<double>(std::max(letters, lettersOfOther));
    const double common = isShorter ? lettersInCommon(mWords, other.mWords) : lettersInCommon(other.mWords, mWords);
    const double byWords =
        common / ((1 - kShareOfLonger) * shorter + kShareOfLonger * longer + kAgainst * (shorter - common));
    if (byWords >= kLikely)
        return byWords;
    const double byLetters =
        likenessOfLetters(QString(mText).remove(u' '), QString(other.mText).remove(u' '), kRunTogether);
    return std::max(byLetters, byWords);
}
