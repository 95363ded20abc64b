#include "workspace/CVPayeeMemory.h"

#include "importing/CVCategoryMemory.h"
#include "importing/CVRecordedLines.h"
#include "model/CVDocument.h"

#include <utility>

namespace {

/// The memory of so many transactions is made in a few milliseconds.
constexpr std::size_t kMostWithoutThread = 5'000;

/// A memory that has done already what it would do for the first payee that it does not know.
std::unique_ptr<CVCategoryMemory> makeMemory(const std::shared_ptr<const CVRecordedLines>& recorded) {
    auto memory = std::make_unique<CVCategoryMemory>(recorded);
    (void)memory->of(QStringLiteral("?"));
    return memory;
}

} // namespace

CVPayeeMemory::CVPayeeMemory(const CVDocument& document) : mDocument(document) {}

CVPayeeMemory::~CVPayeeMemory() = default;

void CVPayeeMemory::prepare() {
    if (mMemory || mIsBeingMade)
        return;
    // What was recorded is copied at once: the thread never sees the budget.
    auto recorded = std::make_shared<const CVRecordedLines>(mDocument);
    if (mDocument.transactions().size() <= kMostWithoutThread) {
        mMemory = makeMemory(recorded);
        mFormerMemory.reset();
        return;
    }
    mIsOutdated = false;
    mIsBeingMade = true;
    mWork.start([this, recorded](const CVLatestWork::IsWanted&) -> CVLatestWork::Told {
        // A function that is called later can only hold what can be copied.
        const auto made = std::make_shared<std::unique_ptr<CVCategoryMemory>>(makeMemory(recorded));
        return [this, made] { take(std::move(*made)); };
    });
}

void CVPayeeMemory::forget() {
    if (mMemory)
        mFormerMemory = std::move(mMemory);
    mIsOutdated = mIsBeingMade;
}

void CVPayeeMemory::take(std::unique_ptr<CVCategoryMemory> made) {
    mIsBeingMade = false;
    if (mIsOutdated)
        return prepare();
    mMemory = std::move(made);
    mFormerMemory.reset();
    emit ready();
}
