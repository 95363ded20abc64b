#pragma once

#include "preferences/CVPreferencePane.h"

#include <QStringList>

#include <optional>

class CVAlerts;
class CVPreferenceHost;
class CVWholeNumberField;
class QLineEdit;
class QPushButton;

/// The settings of the earlier versions of the data file, a part of the data file's pane: whether they are kept, how
/// much room they may take and how much they take, and their removal. References the host and the alerts, which outlive
/// it.
class CVVersionsPane final : public CVPreferencePane {
    Q_OBJECT

public:
    CVVersionsPane(CVPreferenceStore& store, CVPreferenceHost& host, CVAlerts& alerts, QWidget* parent);

    void load() override;
    void endEditing() override;

    /// Whether versions may be deleted; they may at first.
    void setMayDelete(bool mayDelete);
    /// Shows how much room the versions take.
    void showSize();
    /// Deletes the versions, and the copies of files that could not be read, once the user has confirmed it.
    void deleteVersions();

protected:
    bool event(QEvent* event) override;

private:
    /// The files that are kept of the data file and what they take.
    struct Files {
        int versions = 0;
        QStringList keptCopies;
        qint64 size = 0;

        [[nodiscard]] qsizetype count() const { return versions + keptCopies.size(); }
        /// "1.2 MB in 3 files".
        [[nodiscard]] QString text() const;
    };

    void addDeleteButton();
    void keepVersions(bool isOn);
    void setLimit(int megabytes);
    [[nodiscard]] std::optional<QString> dataFile() const;
    [[nodiscard]] Files files() const;
    [[nodiscard]] bool confirm(const Files& files);

    CVPreferenceHost& mHost;
    CVAlerts& mAlerts;
    QCheckBox& mKeepVersions;
    CVWholeNumberField* mLimit;
    QLineEdit* mSize;
    QPushButton* mDelete;
    bool mMayDelete = true;
};
