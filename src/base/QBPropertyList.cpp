#include "base/QBPropertyList.h"

#include "base/QBSoundBinaryList.h"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace {

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};
struct MallocDeleter {
    // libplist allocates its texts with malloc and leaves them to the caller.
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};
using PlistText = std::unique_ptr<char, MallocDeleter>;

/// In bytes; libplist would run out of stack on longer bytes that hold nothing but nested lists.
constexpr qsizetype kLargestList = qsizetype(1) << 20;
/// How libplist tells a binary list from XML.
constexpr QByteArrayView kBinaryStart("bplist");
/// Lists that are nested more deeply are left out, because each level costs stack and no honest list needs them.
constexpr int kDeepestLevel = QBSoundBinaryList::kDeepestLevel;

QVariant valueOf(plist_t node, int level);

QVariant listOf(plist_t node, int level) {
    QVariantList list;
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const std::unique_ptr<void, MallocDeleter> positionOwner(position);
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, position, &item);
        if (!item)
            return list;
        list.append(valueOf(item, level));
    }
}

QVariant mapOf(plist_t node, int level) {
    QVariantMap map;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const std::unique_ptr<void, MallocDeleter> positionOwner(position);
    for (;;) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, position, &key, &item);
        const PlistText keyOwner(key);
        if (!key)
            return map;
        map.insert(QString::fromUtf8(key), valueOf(item, level));
    }
}

/// Reads by pointer and length, because libplist ends the process when it copies a text with a NUL.
QVariant textOf(plist_t node) {
    uint64_t length = 0;
    const char* const text = plist_get_string_ptr(node, &length);
    return text ? QVariant(QString::fromUtf8(text, static_cast<qsizetype>(length))) : QVariant();
}

QVariant dataOf(plist_t node) {
    char* bytes = nullptr;
    uint64_t length = 0;
    plist_get_data_val(node, &bytes, &length);
    const PlistText owner(bytes);
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

QVariant valueOf(plist_t node, int level) {
    if (level > kDeepestLevel)
        return {};
    switch (plist_get_node_type(node)) {
    case PLIST_ARRAY:
        return listOf(node, level + 1);
    case PLIST_DICT:
        return mapOf(node, level + 1);
    case PLIST_STRING:
        return textOf(node);
    case PLIST_DATA:
        return dataOf(node);
    case PLIST_BOOLEAN: {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return QVariant::fromValue<qulonglong>(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    default:
        return {};
    }
}

/// Whether libplist can read the bytes without harm. XML with a NUL is refused, and libplist reads no reference that
/// stands for a NUL.
bool isSound(const QByteArray& bytes) {
    if (bytes.isEmpty() || bytes.size() > kLargestList)
        return false;
    return bytes.startsWith(kBinaryStart) ? QBIsSoundBinaryList(bytes) : !bytes.contains('\0');
}

} // namespace

QVariant QBPropertyListFromData(const QByteArray& bytes) {
    if (!isSound(bytes))
        return {};
    plist_t root = nullptr;
    plist_from_memory(bytes.constData(), static_cast<uint32_t>(bytes.size()), &root);
    const std::unique_ptr<void, PlistDeleter> owner(root);
    return root ? valueOf(root, 0) : QVariant();
}
