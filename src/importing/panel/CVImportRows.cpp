#include "importing/panel/CVImportRows.h"

#include "importing/CVPayeeKey.h"

#include <QHash>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

void CVImportRows::take(CVImportLines lines, const CVImportTargets& targets) {
    const auto isOneSet = [](const CVImportTargets& to) { return to.income == CVImportTargets::Income::SameSet; };
    const bool turnsIncome = isOneSet(targets) != isOneSet(mTargets);
    QHash<int, std::vector<Row>> changed;
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
    return std::any_of(mRows.begin(), mRows.end(), [](const Row& row) { return row.changes || row.whole; });
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
    int count = 0;
    for (std::size_t row = 0; row < size(); ++row)
        count += is(row, kind) ? 1 : 0;
    return count;
}

CVImportCounts CVImportRows::counts() const {
    return {count(Kind::ToImport),        count(Kind::RecordedAlready), count(Kind::PerhapsRecorded),
            count(Kind::WithoutCategory), count(Kind::Guessed),         count(Kind::LeftOut),
            count(Kind::Unreadable)};
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

void CVImportRows::setChecked(std::size_t row, bool isChecked) {
    mRows[row].line.checked = isChecked;
    mRows[row].changes |= Change::Checked;
}

void CVImportRows::setDay(std::size_t row, const QBDate& day) {
    mRows[row].line.day = day;
    mRows[row].changes |= Change::Day;
}

void CVImportRows::setHundredths(std::size_t row, qint64 hundredths) {
    mRows[row].line.hundredths = hundredths;
    mRows[row].changes |= Change::Amount;
}

void CVImportRows::setPayee(std::size_t row, const QString& payee) {
    mRows[row].line.payee = payee;
    mRows[row].changes |= Change::Payee;
}

void CVImportRows::setFor(std::size_t row, const QString& xfor) {
    mRows[row].line.xfor = xfor;
    mRows[row].changes |= Change::For;
}

void CVImportRows::setCategory(std::size_t row, const QString& category) {
    mRows[row].line.category = category;
    mRows[row].changes |= Change::Category;
}

void CVImportRows::setIncome(std::size_t row, bool isIncome) {
    Row& changed = mRows[row];
    if (changed.line.isIncome == isIncome)
        return;
    CVChangeSide(changed.line, mTargets);
    changed.changes |= Change::Side;
    // Who takes a line out of what is left out wants to record it.
    if (mTargets.income == CVImportTargets::Income::LeftOut && !isIncome &&
        changed.line.note != CVImportLine::Note::RecordedAlready)
        changed.line.checked = true;
}

std::vector<std::size_t> CVImportRows::othersOfPayee(std::size_t row) const {
    const CVPayeeKey key(at(row).payee);
    std::vector<std::size_t> others;
    if (key.isEmpty())
        return others;
    QHash<QString, bool> isSame;
    for (std::size_t other = 0; other < size(); ++other) {
        if (other == row || isPart(other) || !canBeRecorded(other) || isChanged(other, Change::Category) ||
            at(other).category == at(row).category)
            continue;
        auto known = isSame.find(at(other).payee);
        if (known == isSame.end())
            known = isSame.insert(at(other).payee, CVPayeeKey(at(other).payee) == key);
        if (*known)
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
    const auto isOne = [number = whole->line.number](const Row& other) {
        return other.whole && other.line.number == number;
    };
    const auto first = std::find_if(mRows.begin(), mRows.end(), isOne);
    *first = *whole;
    mRows.erase(std::remove_if(first + 1, mRows.end(), isOne), mRows.end());
}
