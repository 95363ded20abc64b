#pragma once

#include <QString>

#include <cstring>

/// Whether an element or attribute has exactly that name. The first letter is compared before the rest, because reading
/// a million transactions asks tens of millions of times: 10 million take 20 ms, with std::strcmp alone 37 ms.
[[nodiscard]] inline bool CVIsNamed(const char* name, const char* expected) {
    return *name == *expected && std::strcmp(name, expected) == 0;
}

/// Attributes of an element as alternating names and values, ended by a null name; null when there are none.
using CVXMLAttributes = const char* const*;

/// What a file holds and this program does not write again as it stands there.
enum class CVPartly {
    /// The value of an attribute, of which something else was understood than it says.
    Value,
    UnknownAttribute,
    UnknownElement,
    /// An element that replaces an earlier one.
    Repeated,
    /// A category or set with the ID of an earlier one.
    RepeatedID,
    /// Text that belongs to no field.
    Text,
    /// Text that went into another field than the one in which it stands.
    MisplacedText,
    /// Text with a character that cannot be saved.
    Character,
    Comment,
    Instruction,
    DocumentType,
    /// What is no XML, but did not keep the file from being read.
    Error,
    /// A zero byte, at which the reading ends.
    ZeroByte
};

/// The functions of the parser of a data file that the record being filled may call.
class CVParsingDelegate {
public:
    /// Turns the collecting of character data on or off.
    virtual void setStoringCharacters(bool storing) = 0;
    /// Sets whether everything up to the end of the element that `setUnknownTag` names is skipped.
    virtual void setWorkingOnUnknownTag(bool unknown) = 0;
    virtual void setUnknownTag(const char* name) = 0;
    /// The characters collected since the last call, which are then forgotten; null when they are not valid UTF-8.
    [[nodiscard]] virtual QString tempParsingString() = 0;
    /// Tells the parser that the record is complete.
    virtual void popParsingObjectForEndingElement(const char* name) = 0;
    /// Notes something of an element or attribute of that name that will not be written again. `value` may be null.
    virtual void notePartly(CVPartly what, const char* name, const char* value) = 0;

protected:
    ~CVParsingDelegate() = default;
};

/// A record under construction: it reads its own elements, one start and end at a time. Names are NUL-terminated UTF-8.
class CVParsingObject {
public:
    virtual void parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                             CVXMLAttributes attributes) = 0;
    virtual void parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) = 0;

protected:
    ~CVParsingObject() = default;
};
