#pragma once

#include "widgets/CVFilePanels.h"

#include <QList>

/// Answers panels with paths from a script, in order, and records the requests. A panel without an answer left is
/// cancelled.
class ScriptedPanels final : public CVFilePanels {
public:
    std::optional<CVSaveLocation> chooseSaveLocation(QWidget& /*window*/, const CVSavePanelRequest& request) override {
        mAsked.append(request);
        return mAnswers.isEmpty() ? std::nullopt : std::optional(CVSaveLocation{mAnswers.takeFirst(), mKind});
    }

    std::optional<QString> chooseFolder(QWidget& /*window*/, const CVFolderPanelRequest& request) override {
        mFoldersAsked.append(request);
        return mAnswers.isEmpty() ? std::nullopt : std::optional(mAnswers.takeFirst());
    }

    std::optional<QString> chooseFile(QWidget& /*window*/, const CVOpenPanelRequest& request) override {
        mFilesAsked.append(request);
        return mAnswers.isEmpty() ? std::nullopt : std::optional(mAnswers.takeFirst());
    }

    void answer(const QString& path) { mAnswers.append(path); }
    /// The index of the kind that the panels for saving give from now on.
    void chooseKind(qsizetype kind) { mKind = kind; }
    [[nodiscard]] const QList<CVSavePanelRequest>& asked() const { return mAsked; }
    [[nodiscard]] const QList<CVFolderPanelRequest>& foldersAsked() const { return mFoldersAsked; }
    [[nodiscard]] const QList<CVOpenPanelRequest>& filesAsked() const { return mFilesAsked; }

private:
    QList<QString> mAnswers;
    qsizetype mKind = 0;
    QList<CVSavePanelRequest> mAsked;
    QList<CVFolderPanelRequest> mFoldersAsked;
    QList<CVOpenPanelRequest> mFilesAsked;
};
