#pragma once

#include "workspace/printing/CVPrintQueue.h"

#include <QFile>
#include <QList>
#include <QPageSize>
#include <QPrinter>

/// A queue that records what it gets, or refuses it.
class ScriptedPrintQueue final : public CVPrintQueue {
public:
    struct Job {
        QByteArray document;
        QString name;
        QPageSize::PageSizeId paper;
        int copies;

        [[nodiscard]] qsizetype pages() const { return document.count("/Type /Page\n"); }
    };

    [[nodiscard]] std::optional<QString> print(const QString& path, const QPageSize& paper,
                                               const QPrinter& printer) override {
        QFile file(path);
        mJobs.append({file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), printer.docName(), paper.id(),
                      printer.copyCount()});
        return mRefusal;
    }

    /// Makes the queue refuse every later job with this reason.
    void refuse(const QString& reason) { mRefusal = reason; }

    [[nodiscard]] const QList<Job>& jobs() const { return mJobs; }

private:
    QList<Job> mJobs;
    std::optional<QString> mRefusal;
};
