#include "storage/CVWriteDocumentText.h"

#include "model/CVDocumentText.h"

#include <QIODevice>

CVFileContent CVContentOfDocumentText(const CVDocumentText& text) {
    return [&text](QIODevice& output) {
        for (const CVTextSlice& piece : text.pieces())
            output.write(piece.bytes().data(), piece.length);
        return true;
    };
}

CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text,
                                    const std::optional<CVFileSignature>& expected, CVFormerFile former) {
    return CVReplaceExpectedFile(path, CVContentOfDocumentText(text), expected, former);
}
