#pragma once

#include "base/CVLatestWork.h"

#include <memory>

class CVCategoryMemory;
class CVDocument;

/// Keeps the memory of what was recorded for each payee, made anew after a change of the budget once somebody asks. A
/// memory of a large budget is made on a thread, so that typing never waits for it. References the document, which
/// outlives it.
class CVPayeeMemory final : public QObject {
    Q_OBJECT

public:
    explicit CVPayeeMemory(const CVDocument& document);
    /// Waits for a memory that is being made.
    ~CVPayeeMemory() override;

    /// The memory; null while it is being made.
    [[nodiscard]] const CVCategoryMemory* memory() const { return mMemory.get(); }
    /// Makes the memory unless it is there.
    void prepare();
    /// The budget has changed.
    void forget();

signals:
    /// The memory was made on a thread and is there now.
    void ready();

private:
    void take(std::unique_ptr<CVCategoryMemory> made);

    const CVDocument& mDocument;
    std::unique_ptr<CVCategoryMemory> mMemory;
    /// What was forgotten. It goes when the next memory comes, because recording should not wait for that: a large one
    /// takes milliseconds.
    std::unique_ptr<CVCategoryMemory> mFormerMemory;
    bool mIsBeingMade = false;
    /// The budget has changed since the thread began.
    bool mIsOutdated = false;
    /// Declared last, so that all other members exist as long as the thread runs.
    CVLatestWork mWork;
};
