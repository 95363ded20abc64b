#include "ReadInto.h"

#include "kit/BudgetBuilder.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

void readInto(BudgetBuilder& read, const CVDocument& document) {
    CVDocumentParserDelegate parser(&read.document());
    ASSERT_TRUE(parser.prepareFromData(CVDocumentXMLRepresentation(document).joined().leftJustified(64)) &&
                parser.parseDocumentData());
}
