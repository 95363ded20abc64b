#pragma once

#include "reports/CVReportText.h"
#include "reports/CVReportView.h"
#include "workspace/printing/CVPrintPanels.h"

#include <QList>

#include <functional>

/// Panels that print nothing: they remember what they were shown, and answer from a script.
class ScriptedPrintPanels final : public CVPrintPanels {
public:
    enum class Panel { Print, Preview };
    struct Shown {
        Panel panel;
        CVReportType type;
        /// As the command line would write it.
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

    /// What goes wrong with every printing from now on.
    void fail(const QString& reason) { mFailure = reason; }
    /// What the user sets up whenever asked.
    void chooseSetUp(const CVPrintInfo& printInfo) { mNextSetUp = printInfo; }
    /// Happens while a panel is shown.
    void meanwhile(std::function<void()> action) { mMeanwhile = std::move(action); }

    [[nodiscard]] const QList<Shown>& shown() const { return mShown; }
    /// The files whose places no file of pages may take.
    [[nodiscard]] QStringList spared() const { return mDataFiles ? mDataFiles() : QStringList(); }
    /// As they were before the user changed them.
    [[nodiscard]] const QList<CVPrintInfo>& setUps() const { return mSetUps; }

private:
    std::optional<QString> show(Panel panel, const CVReportView& view) {
        if (mMeanwhile)
            mMeanwhile();
        mShown.append({panel, view.report().type(), QString::fromUtf8(CVReportText(view.report())),
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
