#include "shared/widgets/CVFileDialogs.h"

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
