#include "commands/CVDryRunText.h"

#include "commands/CVStraightQuotes.h"

#include <QCoreApplication>

#include <cstdlib>

namespace {

struct DryRunText {
    Q_DECLARE_TR_FUNCTIONS(CVDryRunText)
};

using Note = CVImportLine::Note;

/// A cell of comma-separated text.
QString cellOfText(QString text) {
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r'))
        return text;
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString amountOfText(qint64 hundredths) {
    constexpr int kDecimalBase = 10;
    const qint64 size = std::abs(hundredths);
    return QStringLiteral("%1%2.%3")
        .arg(hundredths < 0 ? QStringLiteral("-") : QString())
        .arg(size / 100)
        .arg(size % 100, 2, kDecimalBase, QLatin1Char('0'));
}

/// Money out is positive, unless the signs of the statement are wanted; the set that it goes into does not matter.
QString amountOfLine(const CVImportLine& line, const CVImportRequest& request) {
    if (line.note == Note::Unreadable)
        return {};
    const bool isTurned = line.isIncome && request.income != CVImportRequest::Income::SameSet;
    const qint64 out = isTurned ? -line.hundredths : line.hundredths;
    return amountOfText(request.isSigned ? -out : out);
}

QString dayOfText(const QBDate& day) {
    return QString::fromLatin1(day.corvellaXMLRepresentation()).replace(u'/', u'-');
}

/// A word of the format, in every language.
QString sureOfText(CVSureness sure) {
    return sure == CVSureness::Sure     ? QStringLiteral("sure")
           : sure == CVSureness::Likely ? QStringLiteral("likely")
                                        : QString();
}

QString noteOfLine(const CVImportLine& line, const CVStatementLine& read) {
    if (line.note == Note::Unreadable && !read.unreadable.isEmpty())
        return DryRunText::tr("line %1 cannot be read: %2")
            .arg(QString::number(line.number), CVStraightQuotes(read.unreadable));
    const bool lacksCategory = line.checked && line.category.isEmpty() && line.note != Note::NoCategory;
    return lacksCategory ? DryRunText::tr("%1; no category yet").arg(line.noteText) : CVStraightQuotes(line.noteText);
}

} // namespace

QString CVDryRunText(const CVImportLines& lines, const CVStatement& statement, const CVImportRequest& request) {
    QString text = QStringLiteral("date,amount,payee,for,category,sure,note\n");
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const CVImportLine& line = lines[at];
        const QStringList cells{line.day ? dayOfText(*line.day) : QString(),
                                amountOfLine(line, request),
                                line.payee,
                                line.xfor,
                                line.category,
                                line.category.isEmpty() ? QString() : sureOfText(line.sure),
                                noteOfLine(line, statement.lines[at])};
        QStringList quoted;
        for (const QString& cell : cells)
            quoted.append(cellOfText(cell));
        text += quoted.join(u',') + u'\n';
    }
    return text;
}
