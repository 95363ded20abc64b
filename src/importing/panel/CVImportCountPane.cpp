#include "importing/panel/CVImportCountPane.h"

#include "format/QBLocale.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVWrappingLayout.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

CVImportCountPane::CVImportCountPane(QWidget* parent) : QWidget(parent) {
    auto* const layout = new CVWrappingLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        auto* const button = new CVCompactButton(QString(), this);
        button->setObjectName(QStringLiteral("mCountButton%1").arg(i));
        button->setFlat(true);
        button->setCheckable(true);
        button->setAutoDefault(false);
        button->hide();
        auto* const part = new QHBoxLayout;
        part->addWidget(button);
        layout->addPart(part);
        mButtons[i] = button;
        connect(button, &QPushButton::toggled, this, [this, i](bool isOn) { toggle(i, isOn); });
    }
    auto* const rest = new QHBoxLayout;
    layout->addPart(rest, 1);
}

void CVImportCountPane::show(const CVImportRows& lines) {
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        const int count = lines.count(kKinds[i]);
        mButtons[i]->setText(text(kKinds[i], count));
        mButtons[i]->setAccessibleName(tr("Show only: %1").arg(mButtons[i]->text()));
        mButtons[i]->setToolTip(tr("Show only these lines, or all again"));
        // One that is chosen stays, so that the user can show all lines again.
        mButtons[i]->setVisible(count > 0 || mButtons[i]->isChecked());
    }
}

void CVImportCountPane::toggle(std::size_t place, bool isOn) {
    for (std::size_t i = 0; isOn && i < mButtons.size(); ++i) {
        const QSignalBlocker blocker(mButtons[i]);
        mButtons[i]->setChecked(i == place);
    }
    emit kindChosen(isOn ? kKinds[place] : CVImportRows::Kind::All);
}

QString CVImportCountPane::text(CVImportRows::Kind kind, int count) {
    const QString number = QBLocaleInForce().toString(count);
    switch (kind) {
    case CVImportRows::Kind::All:
        break;
    case CVImportRows::Kind::ToImport:
        return tr("%1 to import").arg(number);
    case CVImportRows::Kind::WithoutCategory:
        return tr("%1 without a category").arg(number);
    case CVImportRows::Kind::Guessed:
        return tr("%1 with a guessed category").arg(number);
    case CVImportRows::Kind::PerhapsRecorded:
        return tr("%1 perhaps recorded").arg(number);
    case CVImportRows::Kind::RecordedAlready:
        return tr("%1 recorded already").arg(number);
    case CVImportRows::Kind::LeftOut:
        return tr("%1 left out").arg(number);
    case CVImportRows::Kind::Unreadable:
        return tr("%1 cannot be read").arg(number);
    }
    return {};
}
