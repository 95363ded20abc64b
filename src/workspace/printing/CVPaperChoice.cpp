#include "workspace/printing/CVPaperChoice.h"

#include <QChildEvent>
#include <QComboBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace {

/// The pop-up of paper sizes in this dialog, not in a dialog opened from it; null where there is none.
QComboBox* papersOf(const QDialog& dialog) {
    auto* const papers = dialog.findChild<QComboBox*>(QStringLiteral("pageSizeCombo"));
    return papers && papers->window() == &dialog ? papers : nullptr;
}

} // namespace

CVPaperChoice::CVPaperChoice(QDialog& dialog, const QPageSize& paper) : QObject(&dialog), mPaper(paper) {
    watch(dialog);
}

QPageSize CVPaperChoice::paperOn(const QPrinter& printer) const {
    return mPaper.isValid() ? mPaper : printer.pageLayout().pageSize();
}

bool CVPaperChoice::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ChildPolished) {
        if (auto* const dialog = qobject_cast<QDialog*>(static_cast<QChildEvent*>(event)->child()))
            watch(*dialog);
    } else if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* const papers = papersOf(static_cast<QDialog&>(*watched)))
            offerPaper(*papers);
    }
    return QObject::eventFilter(watched, event);
}

void CVPaperChoice::watch(QDialog& dialog) {
    dialog.installEventFilter(this);
    if (qobject_cast<QPrintDialog*>(&dialog)) {
        connect(&dialog, &QDialog::accepted, this, &CVPaperChoice::settle);
        connect(&dialog, &QDialog::rejected, this, [this] { mChosen.reset(); });
        return;
    }
    connect(&dialog, &QDialog::accepted, this, [this, &dialog] { choosePaper(dialog); });
}

void CVPaperChoice::offerPaper(QComboBox& papers) {
    const QPageSize offered = mChosen.value_or(mPaper);
    if (!offered.isValid())
        return;
    for (int i = 0; i < papers.count(); ++i) {
        if (papers.itemData(i).value<QPageSize>().isEquivalentTo(offered))
            return papers.setCurrentIndex(i);
    }
    papers.addItem(offered.name(), QVariant::fromValue(offered));
    papers.setCurrentIndex(papers.count() - 1);
}

void CVPaperChoice::choosePaper(const QDialog& dialog) {
    const auto* const papers = papersOf(dialog);
    if (!papers)
        return;
    mChosen = papers->currentData().value<QPageSize>();
    if (qobject_cast<const QPageSetupDialog*>(&dialog))
        settle();
}

void CVPaperChoice::settle() {
    mPaper = mChosen.value_or(mPaper);
    mChosen.reset();
}
