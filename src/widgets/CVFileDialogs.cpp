#include "widgets/CVFileDialogs.h"

#include <QFileDialog>
#include <QStandardPaths>

std::optional<QString> CVFileDialogs::chooseSaveLocation(QWidget& window, const CVSavePanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(request.kind, request.suffix));
    dialog.setDefaultSuffix(request.suffix);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(request.proposedName + QLatin1Char('.') + request.suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

std::optional<QString> CVFileDialogs::chooseFolder(QWidget& window, const CVFolderPanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setDirectory(request.startFolder.isEmpty()
                            ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                            : request.startFolder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

std::optional<QString> CVFileDialogs::chooseFile(QWidget& window, const CVOpenPanelRequest& request) {
    QFileDialog dialog(&window, request.title);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    QStringList patterns;
    for (const QString& suffix : request.suffixes)
        patterns.append(QStringLiteral("*.%1 *.%2").arg(suffix, suffix.toUpper()));
    dialog.setNameFilters({QStringLiteral("%1 (%2)").arg(request.kind, patterns.join(u' ')), tr("All files (*)")});
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}
