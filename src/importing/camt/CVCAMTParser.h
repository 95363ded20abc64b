#pragma once

#include "importing/camt/CVCAMTBuilder.h"
#include "importing/statements/CVStopRequested.h"

#include <QByteArray>

/// How the reading of a message ended.
struct CVCAMTParsed {
    enum class End {
        Whole,
        Stopped,
        /// It is not well-formed, or ends too early.
        Damaged,
        /// It declares entities of its own, which no bank does.
        HasDeclarations,
        TooLong
    };

    End end = End::Whole;
    /// Where it is damaged.
    int line = 0;
    CVCAMTFile file = {};
};

/// Reads a message in UTF-8, whatever encoding it declares. Nothing outside of it is read, and no entity but the five
/// of XML itself is known.
[[nodiscard]] CVCAMTParsed CVParseCAMT(const QByteArray& utf8, const CVStopRequested& stop);
