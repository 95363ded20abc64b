#pragma once

#include "reports/CVReportView.h"
#include "reports/CVTextOfReport.h"
#include "workspace/printing/CVPrintPanels.h"

#include <QList>

#include <functional>

/// Panels that print nothing, record what they show and answer from a script.
class ScriptedPrintPanels final : public CVPrintPanels {
public:
    enum class Panel { Print, Preview };
    struct Shown {
        Panel panel;
        CVReportType type;
        /// The report as the command line writes it.
        QString text;
        int pages;
        QPageLayout::Orientation orientation;
        QPageSize::PageSizeId paper;
    };

    void spare(std::function<QStringList()> dataFiles) override { mDataFiles = std::move(dataFiles); }
    [[nodiscard]] std::optional<QString> print(QWidget& /*window*/, CVReportView& view) override {
        return show(Panel::Print, view);
    }
    [[nodiscard]] std::optional<QString> preview(QWidget& /*window*/, CVReportView& view) override {
        return show(Panel::Preview, view);
    }
    void setUpPage(QWidget& /*window*/, CVPrintInfo& printInfo) override {
        mSetUps.append(printInfo);
        if (mNextSetUp)
            printInfo = *mNextSetUp;
    }

    /// Makes every later printing fail with this reason.
    void fail(const QString& reason) { mFailure = reason; }
    /// Makes this the result of every later page set-up.
    void chooseSetUp(const CVPrintInfo& printInfo) { mNextSetUp = printInfo; }
    /// Runs `action` while a panel is shown.
    void meanwhile(std::function<void()> action) { mMeanwhile = std::move(action); }

    [[nodiscard]] const QList<Shown>& shown() const { return mShown; }
    /// The files that no PDF file may overwrite.
    [[nodiscard]] QStringList spared() const { return mDataFiles ? mDataFiles() : QStringList(); }
    /// The settings that each page set-up showed before the user changed them.
    [[nodiscard]] const QList<CVPrintInfo>& setUps() const { return mSetUps; }

private:
    std::optional<QString> show(Panel panel, const CVReportView& view) {
        if (mMeanwhile)
            mMeanwhile();
        mShown.append({panel, view.report().type(), QString::fromUtf8(CVTextOfReport(view.report())),
                       view.knowsPageRange(), view.printInfo().orientation, view.printInfo().paper.id()});
        return mFailure;
    }

    std::function<QStringList()> mDataFiles;
    QList<Shown> mShown;
    QList<CVPrintInfo> mSetUps;
    std::optional<QString> mFailure;
    std::optional<CVPrintInfo> mNextSetUp;
    std::function<void()> mMeanwhile;
};
