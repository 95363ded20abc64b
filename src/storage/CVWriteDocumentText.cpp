#include "storage/CVWriteDocumentText.h"

#include "model/CVDocumentText.h"

#include <QIODevice>

CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text) {
    return CVReplaceFile(path, [&text](QIODevice& output) {
        for (const CVTextSlice& piece : text.pieces())
            output.write(piece.bytes().data(), piece.length);
        return true;
    });
}
