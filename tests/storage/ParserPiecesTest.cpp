#include "storage/ParsedBudget.h"

#include <gtest/gtest.h>

/// A file with the declaration that Corvella writes is read piece by piece, any other at once. Nobody can tell.

namespace {

const QByteArray kReadInPieces = R"(<?xml version="1.0" encoding="UTF-8"?>)";
const QByteArray kReadAtOnce = R"(<?xml version='1.0' encoding="UTF-8"?>)";

/// Longer than several pieces, with characters of one to four bytes and references at each place of a piece.
QByteArray body() {
    QByteArray text = "\n<CorvellaDocument>\n";
    for (int i = 0; i < 400; ++i)
        text += "<Transaction categoryID=\"" + QByteArray::number(i) +
                "\"><Data date=\"2014/03/07\" amount=\"1.50\" /><PayToFrom>Bäcker &amp; S" + QByteArray(i % 7, 'o') +
                "hn €𝄞&#13;</PayToFrom><For>]]&gt;</For></Transaction>\r\n";
    return text + "</CorvellaDocument>\n";
}

QStringList outcomeOf(const QByteArray& bytes) {
    ParsedBudget budget(bytes);
    return QStringList{budget.read() ? "read" : "not read", budget.parser().readWhole() ? "whole" : "not whole",
                       budget.message()} +
           budget.log() + budget.records();
}

void expectSameOutcome(const QByteArray& text) {
    EXPECT_EQ(outcomeOf(kReadInPieces + text), outcomeOf(kReadAtOnce + text));
}

TEST(ParserPieces, MakeNoDifferenceToAWholeFile) {
    ParsedBudget budget(kReadInPieces + body());
    ASSERT_TRUE(budget.read());
    ASSERT_EQ(budget.document().transactions().size(), 400U);
    EXPECT_EQ(budget.document().transactions()[2]->payTo(), QString::fromUtf8("Bäcker & Soohn €𝄞\n"));
    expectSameOutcome(body());
}

TEST(ParserPieces, MakeNoDifferenceToACutFile) {
    const QByteArray whole = body();
    for (qsizetype length = 3900; length < 4200; ++length)
        expectSameOutcome(whole.first(length));
}

TEST(ParserPieces, MakeNoDifferenceToDamagedBytes) {
    for (const QByteArray& damage :
         {QByteArray(1, '\0'), QByteArray("\xFF"), QByteArray("<"), QByteArray("&"), QByteArray("&nothing;"),
          QByteArray("]]>"), QByteArray("<!--"), QByteArray("<!-- -->"), QByteArray("<![CDATA[<]]>")}) {
        for (qsizetype at = 3900; at < 4200; at += 7)
            expectSameOutcome(body().insert(at, damage));
    }
}

TEST(ParserPieces, MakeNoDifferenceToEntitiesOfTheFile) {
    expectSameOutcome(R"(<!DOCTYPE b [<!ENTITY e "text"><!ENTITY f "&e;&e;">]><CorvellaDocument>)"
                      R"(<Category id="1">&e;</Category></CorvellaDocument>)");
}

} // namespace
