#include "importing/delimited/CVStatementRows.h"

#include "importing/statements/CVHeadingWords.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr qsizetype kLongestQuoted = 16384;
constexpr qsizetype kLongestRow = qsizetype{1024} * 1024;
constexpr qsizetype kMostCells = 2000;
constexpr qsizetype kMostCellsOfAll = 4'000'000;
constexpr int kMostBrokenQuotes = 1000;

struct StatementRowsText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementRows)
};

/// Reads rows character by character. A library for quoted fields would take the rest of the file for one field where a
/// quote has no partner, would pass over empty lines, and counts no lines.
class RowReader {
public:
    RowReader(const QString& text, char separator) : mText(text), mSeparator(QLatin1Char(separator)) {}

    [[nodiscard]] bool atEnd() const { return mAt >= mText.size(); }
    [[nodiscard]] qsizetype position() const { return mAt; }
    [[nodiscard]] int line() const { return mLine; }
    [[nodiscard]] bool hasTooManyBrokenQuotes() const { return mBrokenQuotes > kMostBrokenQuotes; }

    CVStatementRow row() {
        CVStatementRow row{mLine, {}};
        do
            row.cells.append(cell());
        while (takeSeparator() && row.cells.size() <= kMostCells);
        takeLineEnd();
        return row;
    }

private:
    [[nodiscard]] bool isLineEnd(qsizetype at) const {
        return at >= mText.size() || mText.at(at) == u'\n' || mText.at(at) == u'\r';
    }
    [[nodiscard]] bool isBlank(qsizetype at) const {
        return at < mText.size() && mText.at(at) != mSeparator && mText.at(at).isSpace() && !isLineEnd(at);
    }
    [[nodiscard]] qsizetype behindBlanks(qsizetype at) const {
        while (isBlank(at))
            ++at;
        return at;
    }
    [[nodiscard]] bool isEndOfCell(qsizetype at) const { return isLineEnd(at) || mText.at(at) == mSeparator; }

    QString cell() {
        const qsizetype start = behindBlanks(mAt);
        if (start < mText.size() && mText.at(start) == u'"') {
            if (auto quoted = quotedCell(start))
                return *std::exchange(quoted, std::nullopt);
            ++mBrokenQuotes;
        }
        const qsizetype begin = mAt;
        while (!isEndOfCell(mAt))
            ++mAt;
        QString text = mText.sliced(begin, mAt - begin).trimmed();
        // The other half of a broken quote says nothing.
        if (text.count(u'"') == 1 && (text.startsWith(u'"') || text.endsWith(u'"')))
            text.remove(u'"');
        return text;
    }

    /// The cell whose quote opens at `open`; absent where the quote has no partner.
    std::optional<QString> quotedCell(qsizetype open) {
        QString text;
        int lines = 0;
        for (qsizetype at = open + 1; at < mText.size() && at - open < kLongestQuoted; ++at) {
            const QChar character = mText.at(at);
            if (character != u'"') {
                lines +=
                    character == u'\n' || (character == u'\r' && (at + 1 >= mText.size() || mText.at(at + 1) != u'\n'))
                        ? 1
                        : 0;
                text += character;
                continue;
            }
            const qsizetype behind = behindBlanks(at + 1);
            if (at + 1 < mText.size() && mText.at(at + 1) == u'"') {
                text += u'"';
                ++at;
            } else if (isEndOfCell(behind)) {
                mAt = behind;
                mLine += lines;
                return text.trimmed();
            } else if (text.endsWith(u'\n') || text.endsWith(u'\r')) {
                // A quote at the start of a line opens the next row: the first one was never closed.
                return std::nullopt;
            } else {
                text += character;
            }
        }
        return std::nullopt;
    }

    bool takeSeparator() {
        if (atEnd() || mText.at(mAt) != mSeparator)
            return false;
        ++mAt;
        return true;
    }

    void takeLineEnd() {
        if (!atEnd() && mText.at(mAt) == u'\r')
            ++mAt;
        else if (!atEnd() && mText.at(mAt) == u'\n') {
            ++mAt;
            ++mLine;
            return;
        }
        if (!atEnd() && mText.at(mAt) == u'\n')
            ++mAt;
        ++mLine;
    }

    const QString& mText;
    QChar mSeparator;
    qsizetype mAt = 0;
    int mLine = 1;
    int mBrokenQuotes = 0;
};

/// How well the text reads with a separator: the rows with a day and an amount, then the known headings, then the
/// cells.
struct SeparatorScore {
    int lines = 0;
    int headings = 0;
    qsizetype cells = 0;

    friend auto operator<=>(const SeparatorScore&, const SeparatorScore&) = default;
};

int countOfKnownHeadings(const CVStatementRow& row) {
    return static_cast<int>(std::count_if(row.cells.begin(), row.cells.end(), [](const QString& cell) {
        return CVHeadingOf(cell).role != CVColumnRole::Guessed;
    }));
}

SeparatorScore scoreOf(const QString& sample, char separator) {
    constexpr qsizetype kRowsOfSample = 100;
    SeparatorScore score;
    for (const auto& row : CVReadStatementRows(sample, separator, kRowsOfSample).rows) {
        bool hasDay = false;
        bool hasAmount = false;
        for (const QString& cell : row.cells) {
            const bool isDay = !cell.isEmpty() && CVReadStatementDay(cell).has_value();
            hasDay = hasDay || isDay;
            hasAmount = hasAmount || (!isDay && CVMarkEvidenceOf(cell).isAmount());
        }
        const bool isLine = hasDay && hasAmount;
        score.lines += isLine ? 1 : 0;
        score.headings = std::max(score.headings, isLine ? 0 : countOfKnownHeadings(row));
        score.cells = std::max(score.cells, row.cells.size());
    }
    return score;
}

} // namespace

bool CVStatementRow::isBlank() const {
    return std::all_of(cells.begin(), cells.end(), [](const QString& cell) { return cell.isEmpty(); });
}

CVStatementRows CVReadStatementRows(const QString& text, char separator, qsizetype most,
                                    const CVStopReadingRows& stop) {
    CVStatementRows result;
    RowReader reader(text, separator);
    qsizetype cells = 0;
    while (!reader.atEnd() && static_cast<qsizetype>(result.rows.size()) < most) {
        const qsizetype start = reader.position();
        const int line = reader.line();
        result.rows.push_back(reader.row());
        cells += result.rows.back().cells.size();
        if (reader.position() - start > kLongestRow || result.rows.back().cells.size() > kMostCells) {
            result.problem =
                StatementRowsText::tr("This is no statement: line %1 is longer than any of a bank.").arg(line);
            return result;
        }
        if (reader.hasTooManyBrokenQuotes()) {
            result.problem =
                StatementRowsText::tr("This is no statement: the quotes up to line %1 do not match.").arg(line);
            return result;
        }
        if (cells > kMostCellsOfAll) {
            result.problem = StatementRowsText::tr("This statement is too large. Please import it in parts.");
            return result;
        }
        if (stop && result.rows.size() % 256 == 0 && stop(reader.position()))
            return result;
    }
    return result;
}

char CVSeparatorOf(const QString& text) {
    constexpr qsizetype kSampleForSeparator = qsizetype{128} * 1024;
    constexpr std::array<char, 4> kSeparators{',', ';', '\t', '|'};
    const QString sample = text.first(std::min(text.size(), kSampleForSeparator));
    char best = ',';
    SeparatorScore most;
    for (const char separator : kSeparators) {
        const SeparatorScore score = scoreOf(sample, separator);
        if (score > most) {
            most = score;
            best = separator;
        }
    }
    return best;
}
