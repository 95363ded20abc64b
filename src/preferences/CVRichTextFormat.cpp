#include "preferences/CVRichTextFormat.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace {

/// The characters 0x80 to 0x9F of Windows-1252; all others are those of Latin-1. The five unused codes stand for the
/// control characters of the same number.
constexpr std::u16string_view kWindows1252 = u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039"
                                             u"\u0152\u008D\u017D\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014"
                                             u"\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

struct Character {
    std::string_view word;
    char16_t character;
};

constexpr std::array<Character, 13> kCharacters{{{"par", u'\n'},
                                                 {"line", u'\n'},
                                                 {"tab", u'\t'},
                                                 {"emdash", u'\u2014'},
                                                 {"endash", u'\u2013'},
                                                 {"bullet", u'\u2022'},
                                                 {"lquote", u'\u2018'},
                                                 {"rquote", u'\u2019'},
                                                 {"ldblquote", u'\u201C'},
                                                 {"rdblquote", u'\u201D'},
                                                 {"~", u'\u00A0'},
                                                 {"_", u'\u2011'},
                                                 {"\n", u'\n'}}};

/// The words that begin a group without text of the document.
constexpr std::array<std::string_view, 9> kDestinations{"*",    "fonttbl", "colortbl", "stylesheet", "info",
                                                        "pict", "header",  "footer",   "footnote"};

class Reader {
public:
    explicit Reader(const QByteArray& bytes) : mBytes(bytes.constData(), static_cast<std::size_t>(bytes.size())) {}

    std::optional<QList<CVTextRun>> read() {
        if (!mBytes.starts_with("{\\rtf"))
            return std::nullopt;
        while (mPosition < mBytes.size()) {
            readOne();
            if (mGroups.isEmpty())
                return mRuns;
        }
        return std::nullopt;
    }

private:
    struct Group {
        bool bold = false;
        bool skipped = false;
        /// The number of characters after \uN that readers show which do not know \uN.
        int fallback = 1;
    };

    void readOne() {
        const char character = mBytes[mPosition++];
        if (character == '{' || character == '}')
            mFallbackLeft = 0;
        if (character == '{')
            mGroups.append(mGroups.isEmpty() ? Group() : mGroups.last());
        else if (character == '}')
            mGroups.removeLast();
        else if (character == '\\')
            readControl();
        else if (character != '\r' && character != '\n')
            append(decoded(character));
    }

    void readControl() {
        if (mPosition == mBytes.size())
            return;
        const std::size_t start = mPosition;
        while (mPosition < mBytes.size() && isLetter(mBytes[mPosition]))
            ++mPosition;
        if (mPosition == start)
            return readSymbol(mBytes[mPosition++]);
        const std::string_view word = mBytes.substr(start, mPosition - start);
        const std::optional<int> number = readNumber();
        if (mPosition < mBytes.size() && mBytes[mPosition] == ' ')
            ++mPosition;
        readWord(word, number);
    }

    std::optional<int> readNumber() {
        const std::size_t start = mPosition;
        std::size_t end = start;
        if (end < mBytes.size() && mBytes[end] == '-')
            ++end;
        while (end < mBytes.size() && mBytes[end] >= '0' && mBytes[end] <= '9')
            ++end;
        const QByteArrayView digits(mBytes.data() + start, static_cast<qsizetype>(end - start));
        bool isNumber = false;
        const int number = digits.toByteArray().toInt(&isNumber);
        if (!isNumber)
            return std::nullopt;
        mPosition = end;
        return number;
    }

    void readSymbol(char symbol) {
        if (symbol == '\'') {
            bool isNumber = false;
            const QByteArray digits(mBytes.substr(mPosition, 2).data(),
                                    static_cast<qsizetype>(mBytes.substr(mPosition, 2).size()));
            const int code = digits.toInt(&isNumber, 16);
            mPosition += static_cast<std::size_t>(digits.size());
            if (isNumber)
                append(decoded(static_cast<char>(code)));
        } else if (symbol == '\\' || symbol == '{' || symbol == '}')
            append(QLatin1Char(symbol));
        else
            readWord({&symbol, 1}, std::nullopt);
    }

    void readWord(std::string_view word, std::optional<int> number) {
        const auto* const character =
            std::find_if(kCharacters.begin(), kCharacters.end(), [word](const Character& c) { return c.word == word; });
        if (character != kCharacters.end())
            append(character->character);
        else if (std::find(kDestinations.begin(), kDestinations.end(), word) != kDestinations.end())
            mGroups.last().skipped = true;
        else if (word == "b")
            mGroups.last().bold = number != 0;
        else if (word == "plain")
            mGroups.last().bold = false;
        else if (word == "uc")
            mGroups.last().fallback = std::max(number.value_or(1), 0);
        else if (word == "u" && number) {
            mFallbackLeft = 0;
            // The format writes \uN as a signed 16-bit number.
            append(QChar(static_cast<char16_t>(*number)));
            mFallbackLeft = mGroups.last().fallback;
        }
    }

    void append(QChar character) {
        if (mFallbackLeft > 0) {
            --mFallbackLeft;
            return;
        }
        const Group& group = mGroups.last();
        if (group.skipped)
            return;
        if (mRuns.isEmpty() || mRuns.last().bold != group.bold)
            mRuns.append({QString(), group.bold});
        mRuns.last().text += character;
    }

    static bool isLetter(char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    }

    static QChar decoded(char byte) {
        const auto code = static_cast<unsigned char>(byte);
        constexpr unsigned char kFirst = 0x80;
        const std::size_t index = code - std::size_t(kFirst);
        return code >= kFirst && index < kWindows1252.size() ? QChar(kWindows1252[index]) : QLatin1Char(byte);
    }

    std::string_view mBytes;
    std::size_t mPosition = 0;
    QList<Group> mGroups;
    QList<CVTextRun> mRuns;
    int mFallbackLeft = 0;
};

} // namespace

std::optional<QList<CVTextRun>> CVReadRichText(const QByteArray& bytes) {
    return Reader(bytes).read();
}
