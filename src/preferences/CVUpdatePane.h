#pragma once

#include "preferences/CVPreferencePane.h"

class CVAlerts;
class QLineEdit;

/// The settings of the check for newer versions and the time of the last check. References the alerts, which outlive
/// it.
class CVUpdatePane final : public CVPreferencePane {
    Q_OBJECT

public:
    CVUpdatePane(CVPreferenceStore& store, CVAlerts& alerts, QWidget* parent = nullptr);

    void load() override;

    void setCheckForUpdates(bool isOn);
    void setCheckForUpdatesFreq(int index);
    void includeSysInfo(bool isOn);
    /// Shows what a check sends. `resource` is a text in the rich text format.
    void learnMore(const QString& resource = QStringLiteral(":/SystemInfo.rtf"));

signals:
    void checkRequested();

private:
    void addButtons();
    /// Shows the time of the last check.
    void checkedForUpdates();

    CVAlerts& mAlerts;
    QCheckBox& mCheckForUpdates;
    QComboBox& mCheckForUpdatesFreq;
    QCheckBox& mIncludeSysInfo;
    QLineEdit* mUpdateStatus;
    /// The status text with "%1" for the time.
    QString _cv_formatForUpdateStatus;
};
