#include "importing/panel/CVImportRows.h"

#include "importing/CVPayeeKey.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

CVImportRows::PayeeKeys CVImportRows::keysOf(const CVImportLines& lines) {
    PayeeKeys keys;
    for (const CVImportLine& line : lines) {
        if (!keys.contains(line.payee))
            keys.insert(line.payee, CVPayeeKey(line.payee).text());
    }
    return keys;
}

const QString& CVImportRows::keyOf(const QString& payee) const {
    const auto known = mKeys.constFind(payee);
    return known == mKeys.cend() ? *mKeys.insert(payee, CVPayeeKey(payee).text()) : *known;
}

void CVImportRows::take(CVImportLines lines, const CVImportTargets& targets, PayeeKeys keys) {
    mKeys = std::move(keys);
    mCounts.reset();
    const auto isOneSet = [](const CVImportTargets& to) { return to.income == CVImportTargets::Income::SameSet; };
    const bool turnsIncome = isOneSet(targets) != isOneSet(mTargets);
    QHash<int, std::vector<Row>> changed = std::exchange(mAbsent, {});
    for (Row& row : mRows) {
        if (row.changes || row.whole)
            changed[row.line.number].push_back(std::move(row));
    }
    mTargets = targets;
    mRows.clear();
    mRows.reserve(lines.size());
    for (CVImportLine& line : lines) {
        const auto former = changed.constFind(line.number);
        if (former == changed.cend() || line.note == CVImportLine::Note::Unreadable ||
            isOfAnotherAmount(former->front(), line)) {
            const qint64 proposed = line.hundredths;
            mRows.push_back({std::move(line), proposed});
            continue;
        }
        for (const Row& row : *former)
            mRows.push_back(carriedOver(row, line, turnsIncome));
        changed.erase(former);
    }
    mAbsent = std::move(changed);
}

void CVImportRows::clear() {
    mRows.clear();
    mAbsent.clear();
    mCounts.reset();
}

CVImportLines CVImportRows::linesToFind() const {
    CVImportLines lines;
    lines.reserve(mRows.size());
    for (const Row& row : mRows) {
        lines.push_back(row.line);
        if (row.whole)
            lines.back().day.reset();
    }
    return lines;
}

bool CVImportRows::areToBeFound() const {
    static constexpr Changes kPlace = Changes(Change::Day) | Change::Amount | Change::Side;
    return std::any_of(mRows.begin(), mRows.end(), [](const Row& row) { return row.changes & kPlace; });
}

void CVImportRows::takeFound(const CVImportLines& found) {
    if (found.size() != mRows.size())
        return;
    mCounts.reset();
    for (std::size_t at = 0; at < found.size(); ++at) {
        Row& row = mRows[at];
        if (row.whole)
            continue;
        row.line.note = found[at].note;
        row.line.noteText = found[at].noteText;
        row.line.recorded = found[at].recorded;
        if (!row.changes.testFlag(Change::Checked))
            row.line.checked = found[at].checked;
    }
}

/// The parts of another amount would be wrong ones.
bool CVImportRows::isOfAnotherAmount(const Row& former, const CVImportLine& line) {
    return former.whole && std::abs(former.proposed) != std::abs(line.hundredths);
}

/// `turnsIncome`: the amounts of money in have the other sign than before.
CVImportRows::Row CVImportRows::carriedOver(const Row& former, const CVImportLine& line, bool turnsIncome) const {
    Row row{line, line.hundredths, former.changes};
    if (former.whole)
        row.whole = std::make_shared<Row>(carriedOver(*former.whole, line, turnsIncome));
    const CVImportLine& old = former.line;
    const auto keep = [&former](Change change, auto& value, const auto& kept) {
        if (former.changes.testFlag(change))
            value = kept;
    };
    keep(Change::Checked, row.line.checked, old.checked);
    keep(Change::Day, row.line.day, old.day);
    keep(Change::Payee, row.line.payee, old.payee);
    keep(Change::For, row.line.xfor, old.xfor);
    keep(Change::Category, row.line.category, old.category);
    if (former.changes.testFlag(Change::Side) && row.line.isIncome != old.isIncome)
        CVChangeSide(row.line, mTargets);
    if (former.changes.testFlag(Change::Amount))
        row.line.hundredths = turnsIncome && row.line.isIncome ? -old.hundredths : old.hundredths;
    return row;
}

bool CVImportRows::hasChanges() const {
    return !mAbsent.isEmpty() ||
           std::any_of(mRows.begin(), mRows.end(), [](const Row& row) { return row.changes || row.whole; });
}

bool CVImportRows::canBeRecorded(std::size_t row) const {
    return isReadable(row) && !(at(row).isIncome && mTargets.income == CVImportTargets::Income::LeftOut);
}

bool CVImportRows::is(std::size_t row, Kind kind) const {
    const CVImportLine& line = at(row);
    switch (kind) {
    case Kind::All:
        break;
    case Kind::ToImport:
        return willBeRecorded(row);
    case Kind::WithoutCategory:
        return willBeRecorded(row) && line.category.isEmpty();
    case Kind::Guessed:
        return willBeRecorded(row) && line.sure == CVSureness::Likely && !isChanged(row, Change::Category) &&
               !line.category.isEmpty();
    case Kind::PerhapsRecorded:
        return line.note == CVImportLine::Note::PerhapsRecorded;
    case Kind::RecordedAlready:
        return line.note == CVImportLine::Note::RecordedAlready;
    case Kind::LeftOut:
        return isReadable(row) && !willBeRecorded(row) && line.note != CVImportLine::Note::RecordedAlready;
    case Kind::Unreadable:
        return line.note == CVImportLine::Note::Unreadable;
    }
    return true;
}

int CVImportRows::count(Kind kind) const {
    if (!mCounts) {
        mCounts.emplace();
        for (std::size_t row = 0; row < size(); ++row) {
            for (std::size_t i = 0; i < kKinds; ++i)
                (*mCounts)[i] += is(row, static_cast<Kind>(i)) ? 1 : 0;
        }
    }
    return (*mCounts)[static_cast<std::size_t>(kind)];
}

CVImportLines CVImportRows::lines() const {
    CVImportLines lines;
    lines.reserve(mRows.size());
    for (std::size_t row = 0; row < size(); ++row) {
        lines.push_back(at(row));
        lines.back().checked = willBeRecorded(row);
    }
    return lines;
}

CVImportLine& CVImportRows::changed(std::size_t row, Change how) {
    mCounts.reset();
    mRows[row].changes |= how;
    return mRows[row].line;
}

void CVImportRows::setChecked(std::size_t row, bool isChecked) {
    changed(row, Change::Checked).checked = isChecked;
}

void CVImportRows::setDay(std::size_t row, const QBDate& day) {
    changed(row, Change::Day).day = day;
}

void CVImportRows::setHundredths(std::size_t row, qint64 hundredths) {
    changed(row, Change::Amount).hundredths = hundredths;
}

void CVImportRows::setPayee(std::size_t row, const QString& payee) {
    changed(row, Change::Payee).payee = payee;
}

void CVImportRows::setFor(std::size_t row, const QString& xfor) {
    changed(row, Change::For).xfor = xfor;
}

void CVImportRows::setCategory(std::size_t row, const QString& category) {
    changed(row, Change::Category).category = category;
}

void CVImportRows::setIncome(std::size_t row, bool isIncome) {
    if (at(row).isIncome == isIncome)
        return;
    CVImportLine& line = changed(row, Change::Side);
    CVChangeSide(line, mTargets);
    // Who takes a line out of what is left out wants to record it.
    if (mTargets.income == CVImportTargets::Income::LeftOut && !isIncome &&
        line.note != CVImportLine::Note::RecordedAlready)
        line.checked = true;
}

std::vector<std::size_t> CVImportRows::othersOfPayee(std::size_t row) const {
    const QString key = keyOf(at(row).payee);
    std::vector<std::size_t> others;
    if (key.isEmpty())
        return others;
    for (std::size_t other = 0; other < size(); ++other) {
        if (other == row || isPart(other) || !canBeRecorded(other) || isChanged(other, Change::Category) ||
            at(other).category == at(row).category)
            continue;
        if (keyOf(at(other).payee) == key)
            others.push_back(other);
    }
    return others;
}

void CVImportRows::giveCategory(const std::vector<std::size_t>& rows, const QString& category) {
    for (const std::size_t row : rows)
        setCategory(row, category);
}

void CVImportRows::giveToAllWithout(const QString& category) {
    for (std::size_t row = 0; row < size(); ++row) {
        if (is(row, Kind::WithoutCategory))
            setCategory(row, category);
    }
}

void CVImportRows::split(std::size_t row, const std::vector<Part>& parts) {
    mCounts.reset();
    const auto whole = std::make_shared<const Row>(std::move(mRows[row]));
    std::vector<Row> rows;
    for (const Part& part : parts) {
        Row share = *whole;
        share.whole = whole;
        share.line.hundredths = part.hundredths;
        share.line.category = part.category;
        share.changes |= {Change::Amount, Change::Category};
        rows.push_back(std::move(share));
    }
    const auto place = mRows.erase(mRows.begin() + static_cast<std::ptrdiff_t>(row));
    mRows.insert(place, std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
}

void CVImportRows::join(std::size_t row) {
    const auto whole = mRows[row].whole;
    if (!whole)
        return;
    mCounts.reset();
    const auto isOne = [number = whole->line.number](const Row& other) {
        return other.whole && other.line.number == number;
    };
    const auto first = std::find_if(mRows.begin(), mRows.end(), isOne);
    *first = *whole;
    mRows.erase(std::remove_if(first + 1, mRows.end(), isOne), mRows.end());
}
