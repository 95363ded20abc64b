#include "storage/CVPartlyNotes.h"

#include <algorithm>

namespace {

constexpr qint64 kMostLines = 5;
constexpr qsizetype kLongestShown = 40;
/// In bytes; a letter takes at most four.
constexpr std::size_t kMostDecoded = 4 * kLongestShown + 4;

/// What stood in the file, in one line of letters that can be shown.
QString shown(std::string_view bytes) {
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(std::min(bytes.size(), kMostDecoded)));
    for (QChar& c : text) {
        if (!c.isPrint() && !c.isSurrogate())
            c = u' ';
    }
    text = text.simplified();
    if (text.size() <= kLongestShown)
        return text;
    return text.left(text[kLongestShown - 1].isHighSurrogate() ? kLongestShown - 1 : kLongestShown) + u'…';
}

} // namespace

void CVPartlyNotes::add(CVPartly what, int line, std::string_view name, std::string_view value) {
    if (++mRead.count <= kMostLines)
        mRead.lines.append(sentence(what, QString::number(line), shown(name), shown(value)));
}

/// Each text takes all its arguments at once, because the file may say "%2".
QString CVPartlyNotes::sentence(CVPartly what, const QString& line, const QString& name, const QString& value) {
    switch (what) {
    case CVPartly::Value:
        return tr("Line %1: %2=\"%3\" was not understood as a whole.").arg(line, name, value);
    case CVPartly::UnknownAttribute:
        return tr("Line %1: %2=\"%3\" is unknown.").arg(line, name, value);
    case CVPartly::UnknownElement:
        return tr("Line %1: <%2> is unknown.").arg(line, name);
    case CVPartly::Repeated:
        return tr("Line %1: another “%2” replaces what stood before it.").arg(line, name);
    case CVPartly::RepeatedID:
        return tr("Line %1: <%2 id=\"%3\"> is left out, because an earlier one has this number.")
            .arg(line, name, value);
    case CVPartly::Text:
        return tr("Line %1: the text “%2” belongs to no field.").arg(line, value);
    case CVPartly::MisplacedText:
        return tr("Line %1: the text “%2” came into another field.").arg(line, value);
    case CVPartly::Character:
        return tr("Line %1: a character of the text “%2” cannot be saved.").arg(line, value);
    case CVPartly::Comment:
        return tr("The comment “%1” is left out.").arg(value);
    case CVPartly::Instruction:
        return tr("Line %1: the processing instruction “%2” is left out.").arg(line, name);
    case CVPartly::DocumentType:
        return tr("Line %1: the document type “%2” is left out.").arg(line, name);
    case CVPartly::Error:
        return tr("Line %1: %2").arg(line, value);
    case CVPartly::ZeroByte:
        return tr("A zero byte ended the reading; what stands behind it is left out.");
    }
    return {};
}
