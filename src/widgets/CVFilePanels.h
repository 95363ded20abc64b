#pragma once

#include <QString>

#include <optional>

class QWidget;

/// What a panel that asks where to save shows.
struct CVSavePanelRequest {
    QString title;
    /// Of the button that saves.
    QString prompt;
    /// Without the suffix.
    QString proposedName;
    /// Without the dot; added to a name that lacks it.
    QString suffix;
    /// The kind of file in words.
    QString kind;
};

/// What a panel that asks for a folder shows.
struct CVFolderPanelRequest {
    QString title;
    /// Of the button that chooses.
    QString prompt;
    /// Empty: wherever the panel likes.
    QString startFolder;
};

/// Panels that ask for files, shown as sheets of a window. While one is shown other events run: whoever asked looks at
/// the world anew afterwards.
class CVFilePanels {
public:
    /// The path that the user chose; absent when they cancelled.
    [[nodiscard]] virtual std::optional<QString> chooseSaveLocation(QWidget& window,
                                                                    const CVSavePanelRequest& request) = 0;
    /// The folder that the user chose, which exists; absent when they cancelled.
    [[nodiscard]] virtual std::optional<QString> chooseFolder(QWidget& window, const CVFolderPanelRequest& request) = 0;

protected:
    ~CVFilePanels() = default;
};
