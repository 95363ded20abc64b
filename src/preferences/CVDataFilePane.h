#pragma once

#include "preferences/CVPreferencePane.h"
#include "widgets/CVAlerts.h"

#include <optional>

class CVDocument;
class CVFilePanels;
class CVPreferenceHost;
class CVVersionsPane;
class QLineEdit;
class QPushButton;

/// The settings of the data file: shows its location, moves it, clears it. References the document, which may be
/// replaced, and the host, the alerts and the panels, which outlive it.
class CVDataFilePane final : public CVPreferencePane {
    Q_OBJECT

public:
    CVDataFilePane(CVPreferenceStore& store, CVDocument& document, CVPreferenceHost& host, CVAlerts& alerts,
                   CVFilePanels& panels, QWidget* parent = nullptr);

    void load() override;
    void endEditing() override;
    void setDocument(CVDocument& document);

    /// Lets the user choose a folder, then moves the budget there or opens the budget that is already there. A budget
    /// that is only looked at is not moved: another one is opened or begun there.
    void changeFileLocation();
    /// Empties the budget once the user has confirmed it twice.
    void clearDataFile();

signals:
    /// The budget, which held that many transactions, was emptied and some settings were reset.
    void cleared(int transactions);

private:
    enum class Replace : bool { No, Yes };

    QPushButton* addButton(const QString& text, const QString& name, const QString& hint);
    /// Disables what would change the budget when it is only looked at.
    void updateButtons();
    /// The new path of the budget; absent when the user cancelled.
    [[nodiscard]] std::optional<QString> choosePath();
    void _cv_set_file_location_field();
    void _cv_change_document_path(const QString& path, Replace replace);
    void moveDocument(const QString& path);
    void moveVersions(const QString& from, const QString& to);
    void openElsewhere(const QString& path, bool isThere);
    void useDocument(const QString& path, bool isThere = true);
    [[nodiscard]] bool keepLocation(const QString& path, const std::optional<QString>& former);
    [[nodiscard]] CVAlert::Answer askWhatToUse(const QString& folder);

    CVDocument* mDocument;
    CVPreferenceHost& mHost;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    QLineEdit* mDataFileLocation;
    QPushButton* mClear = nullptr;
    CVVersionsPane* mVersions;
};
