#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

/// A kind of file.
struct CVFileKind {
    /// In words.
    QString name;
    /// The suffix of its files without the dot.
    QString suffix;
};

/// What a panel shows that asks where to save a file.
struct CVSavePanelRequest {
    QString title;
    /// The text of the button that saves.
    QString prompt;
    /// The file name without its suffix.
    QString proposedName;
    /// The first one is chosen at first. The suffix of the chosen one is added to a file name that lacks one.
    QList<CVFileKind> kinds;
};

/// Where to save a file.
struct CVSaveLocation {
    QString path;
    /// The index of the chosen kind. Where it is still the first one, the suffix of `path` counts, if it is that of
    /// another kind.
    qsizetype kind = 0;
};

/// What a panel shows that asks for a folder.
struct CVFolderPanelRequest {
    QString title;
    /// The text of the button that chooses the folder.
    QString prompt;
    /// The folder that is shown first; empty for the user's documents folder.
    QString startFolder;
};

/// What a panel shows that asks for a file to read.
struct CVOpenPanelRequest {
    QString title;
    /// The text of the button that chooses the file.
    QString prompt;
    /// The usual kind of file in words, and its suffixes without the dot; others can be chosen too.
    QString kind;
    QStringList suffixes;
};

/// Panels that ask for files and block their window. Other events run while a panel is shown, so the caller checks its
/// state again afterwards.
class CVFilePanels {
public:
    /// What the user chose; absent when the user cancelled.
    [[nodiscard]] virtual std::optional<CVSaveLocation> chooseSaveLocation(QWidget& window,
                                                                           const CVSavePanelRequest& request) = 0;
    /// The existing folder that the user chose; absent when the user cancelled.
    [[nodiscard]] virtual std::optional<QString> chooseFolder(QWidget& window, const CVFolderPanelRequest& request) = 0;
    /// The existing file that the user chose; absent when the user cancelled.
    [[nodiscard]] virtual std::optional<QString> chooseFile(QWidget& window, const CVOpenPanelRequest& request) = 0;

protected:
    ~CVFilePanels() = default;
};
