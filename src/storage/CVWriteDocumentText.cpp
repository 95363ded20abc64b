#include "storage/CVWriteDocumentText.h"

#include "model/CVDocumentText.h"

#include <QIODevice>

CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text,
                                    const std::optional<CVFileSignature>& expected, CVFormerFile former) {
    const auto write = [&text](QIODevice& output) {
        for (const CVTextSlice& piece : text.pieces())
            output.write(piece.bytes().data(), piece.length);
        return true;
    };
    return CVReplaceExpectedFile(path, write, expected, former);
}
