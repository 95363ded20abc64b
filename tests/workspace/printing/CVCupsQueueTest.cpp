#include "workspace/printing/CVCupsQueue.h"

#include <QFile>
#include <QPageSize>
#include <QPrinter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// No print server runs in the tests.
TEST(CVCupsQueue, TellsWhyAQueueDidNotTakeThePages) {
    qputenv("CUPS_SERVER", "/dev/null");
    const QTemporaryDir folder;
    QFile pages(folder.filePath("pages.pdf"));
    ASSERT_TRUE(pages.open(QIODevice::WriteOnly) && pages.write("%PDF-1.4\n") > 0);
    pages.close();
    QPrinter printer;
    const auto refusal = CVCupsQueue().print(pages.fileName(), QPageSize(QPageSize::A4), printer);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_FALSE(refusal->isEmpty());
}

} // namespace
