#pragma once

#include "files/CVFileResult.h"

#include <QList>
#include <QString>

/// A new file beside the place where its content is to stand. Its name, ".NAME.saving-HOST-PID-xxxxxx", says for which
/// file and by which process it was made, so that one that a killed process has left is recognised. The file is removed
/// with the object, unless the name was released.
class CVTemporaryFile final {
public:
    /// Makes the file for `place` with these permission bits, less the user's file mode mask.
    CVTemporaryFile(const QString& place, unsigned mode);
    ~CVTemporaryFile();
    CVTemporaryFile(const CVTemporaryFile&) = delete;
    CVTemporaryFile& operator=(const CVTemporaryFile&) = delete;

    /// Whether the file could be made, else why not.
    [[nodiscard]] const CVFileResult& opened() const { return mOpened; }
    [[nodiscard]] int descriptor() const { return mDescriptor; }
    [[nodiscard]] const QString& path() const { return mPath; }
    /// Leaves the name as it is: the file has another place by now, or something else bears the name.
    void release() { mIsOwner = false; }

    /// A name that nothing bears, for a file that is to stand beside `place` for a moment. A `place` with such a name
    /// stands for the file that it was made for.
    [[nodiscard]] static QString nameBeside(const QString& place);

    /// The part of a file's name that stands in the name of a temporary file: all but of very long ones.
    [[nodiscard]] static QString shortened(const QString& fileName);

    struct Leftover {
        QString path;
        /// The name of the file that it was made for, `shortened`.
        QString madeFor;
    };
    /// The files that killed processes of this machine have left in the folder, and those of this process. A number
    /// that another process has by now hides a file until a later call.
    [[nodiscard]] static QList<Leftover> leftIn(const QString& folder);

private:
    QString mPath;
    int mDescriptor = -1;
    CVFileResult mOpened;
    bool mIsOwner = false;
};
