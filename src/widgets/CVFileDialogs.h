#pragma once

#include "widgets/CVFilePanels.h"

#include <QCoreApplication>

/// Shows the toolkit's file dialogs.
class CVFileDialogs final : public CVFilePanels {
    Q_DECLARE_TR_FUNCTIONS(CVFileDialogs)

public:
    [[nodiscard]] std::optional<CVSaveLocation> chooseSaveLocation(QWidget& window,
                                                                   const CVSavePanelRequest& request) override;
    [[nodiscard]] std::optional<QString> chooseFolder(QWidget& window, const CVFolderPanelRequest& request) override;
    [[nodiscard]] std::optional<QString> chooseFile(QWidget& window, const CVOpenPanelRequest& request) override;
};
