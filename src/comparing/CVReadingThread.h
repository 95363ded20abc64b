#pragma once

#include "base/CVLatestWork.h"

#include <functional>
#include <memory>

class CVDocumentReader;

/// Reads and compares budgets on a thread of its own, one piece of work at a time. Used from the main thread; the work
/// touches no document of the program. Destroying the object stops the thread: a reading is cancelled, and only one
/// that is just being compared is awaited.
class CVReadingThread final {
public:
    /// Called on the main thread, from the event loop, with what the work has found.
    using Told = CVLatestWork::Told;
    /// Called on the thread; `reader` reads budgets, which fails once the work is cancelled.
    using Work = std::function<Told(CVDocumentReader& reader)>;

    CVReadingThread();
    ~CVReadingThread();
    CVReadingThread(const CVReadingThread&) = delete;
    CVReadingThread& operator=(const CVReadingThread&) = delete;

    /// Begins this work. What was begun before is cancelled, and what it found is no longer told.
    void start(Work work);
    void cancel() { mWork.cancel(); }

private:
    /// Made and used on the thread alone.
    std::unique_ptr<CVDocumentReader> mReader;
    /// Declared last, so that the reader exists as long as the thread runs.
    CVLatestWork mWork;
};
