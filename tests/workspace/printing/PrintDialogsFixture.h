#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/ProgressDelay.h"
#include "kit/ScriptedPrintQueue.h"
#include "reports/CVReportView.h"
#include "workspace/printing/CVPrintDialogs.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

/// Answers the toolkit's dialogs while they are shown, on a machine without printers.
struct PrintDialogs : testing::Test {
    static void SetUpTestSuite() { qputenv("CUPS_SERVER", "/dev/null"); }

    [[nodiscard]] std::unique_ptr<const CVReport> report(std::size_t transactions) const {
        return CVReport::initWithTransactions(
            CVTransactions(transactions, makeTransaction({.amount = 1, .payTo = "Market"})));
    }

    /// Calls a function with the dialog of that kind once it is shown.
    template <typename Dialog>
    void whenShown(std::function<void(Dialog&)> act) {
        auto* const timer = new QTimer(&window);
        QObject::connect(timer, &QTimer::timeout, &window, [timer, act = std::move(act)] {
            if (auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
                timer->stop();
                act(*dialog);
            }
        });
        timer->start(10);
    }

    /// Cancels the progress panel as soon as it is shown. `wasShown`, which outlives the dialog, tells whether it was.
    void cancelProgress(bool& wasShown) {
        whenShown<QProgressDialog>([&wasShown](QProgressDialog& progress) {
            wasShown = true;
            progress.cancel();
        });
    }

    /// Chooses to print to a file, as a user does in the dialog.
    void chooseFile(int from = 0, int to = 0) {
        whenShown<QPrintDialog>([this, from, to](QPrintDialog& dialog) {
            dialog.printer()->setOutputFileName(path);
            dialog.printer()->setFromTo(from, to);
            dialog.done(QDialog::Accepted);
        });
    }

    /// Prints on paper without changing anything in the dialog. The toolkit's dialog replaces the paper of the page
    /// set-up by `paperOfQueue`.
    void choosePrinter(QPageSize::PageSizeId paperOfQueue = QPageSize::Letter) {
        whenShown<QPrintDialog>([paperOfQueue](QPrintDialog& dialog) {
            dialog.printer()->setPageSize(QPageSize(paperOfQueue));
            dialog.done(QDialog::Accepted);
        });
    }

    [[nodiscard]] QByteArray printed() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] qsizetype pages() const { return printed().count("/Type /Page\n"); }

    QWidget window;
    QTemporaryDir folder;
    QString path = folder.filePath("report.pdf");
    CVPrintInfo printInfo;
    ScriptedPrintQueue queue;
    CVPrintDialogs dialogs{queue};
};
