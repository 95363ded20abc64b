#include "storage/CVCommonState.h"

#include <QFile>

#include <utility>

namespace {

/// Compressing at the fastest level makes a budget ten times smaller, at about 100 MB a second.
constexpr int kFastest = 1;
/// Larger pieces become hardly smaller, and the memory for one is not given back to the system.
constexpr qint64 kPieceSize = qint64(128) * 1024;

} // namespace

std::optional<CVCommonState> CVCommonState::ofFile(const QString& path, const CVFileSignature& signature) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        CVFileSignature::ofOpenFile(file.handle()) != signature)
        return std::nullopt;
    Pieces pieces;
    qint64 size = 0;
    for (;;) {
        const QByteArray piece = file.read(kPieceSize);
        if (piece.isEmpty())
            break;
        size += piece.size();
        pieces.push_back(qCompress(piece, kFastest));
        // The compressed bytes would keep the room that the whole piece could have needed.
        pieces.back().squeeze();
    }
    if (file.error() != QFileDevice::NoError || size != signature.size ||
        CVFileSignature::ofOpenFile(file.handle()) != signature)
        return std::nullopt;
    return CVCommonState(size, std::move(pieces));
}

/// Hands out the bytes in order until `take` answers false; whether it took all.
template <typename Take>
bool CVCommonState::eachPiece(Take take) const {
    if (const auto* const text = std::get_if<CVDocumentText>(&mBytes)) {
        for (const CVTextSlice& slice : text->pieces()) {
            if (!take(slice.bytes()))
                return false;
        }
        return true;
    }
    for (const QByteArray& piece : std::get<Pieces>(mBytes)) {
        if (!take(qUncompress(piece)))
            return false;
    }
    return true;
}

bool CVCommonState::isIn(const QString& path) const {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() != mSize)
        return false;
    return eachPiece([&file](QByteArrayView piece) { return file.read(piece.size()) == piece; }) && file.atEnd();
}

CVDocumentText CVCommonState::text() const {
    if (const auto* const text = std::get_if<CVDocumentText>(&mBytes))
        return *text;
    CVDocumentText text;
    CVTextArena arena;
    (void)eachPiece([&](QByteArrayView piece) {
        text.append(arena.add(piece.size(), [piece](char* out) { return std::copy(piece.begin(), piece.end(), out); }));
        return true;
    });
    return text;
}
