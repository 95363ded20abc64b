#pragma once

#include "preferences/CVPreferencePane.h"

class CVAlerts;
class QLineEdit;

/// How the program looks for newer versions, and what it tells then. References the alerts, which outlive it.
class CVUpdatePane final : public CVPreferencePane {
    Q_OBJECT

public:
    CVUpdatePane(CVPreferenceStore& store, CVAlerts& alerts, QWidget* parent = nullptr);

    void load() override;

    void setCheckForUpdates(bool isOn);
    void setCheckForUpdatesFreq(int index);
    void includeSysInfo(bool isOn);
    /// Shows what a check sends, from a text in the rich text format.
    void learnMore(const QString& resource = QStringLiteral(":/SystemInfo.rtf"));

signals:
    void checkRequested();

private:
    void addButtons();
    /// Shows when the last check was.
    void checkedForUpdates();

    CVAlerts& mAlerts;
    QCheckBox& mCheckForUpdates;
    QComboBox& mCheckForUpdatesFreq;
    QCheckBox& mIncludeSysInfo;
    QLineEdit* mUpdateStatus;
    /// With "%1" in the place of the time.
    QString _cv_formatForUpdateStatus;
};
