#pragma once

#include "widgets/CVFilePanels.h"

/// Shows the toolkit's file dialogs.
class CVFileDialogs final : public CVFilePanels {
public:
    [[nodiscard]] std::optional<QString> chooseSaveLocation(QWidget& window,
                                                            const CVSavePanelRequest& request) override;
    [[nodiscard]] std::optional<QString> chooseFolder(QWidget& window, const CVFolderPanelRequest& request) override;
};
