#include "comparing/CVReadingThread.h"

#include "model/CVCategory.h"
#include "storage/CVDocumentReader.h"

#include <utility>

CVReadingThread::CVReadingThread() {
    // Read once and kept: a damaged budget would otherwise read them on the thread, unguarded.
    (void)CVCategory::standardCategoryNames();
}

CVReadingThread::~CVReadingThread() = default;

void CVReadingThread::start(Work work) {
    mWork.start([this, work = std::move(work)](const CVLatestWork::IsWanted& isWanted) {
        if (!mReader)
            mReader = std::make_unique<CVDocumentReader>();
        mReader->setProgress([isWanted](double) { return isWanted(); });
        return work(*mReader);
    });
}
