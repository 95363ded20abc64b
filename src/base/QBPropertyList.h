#pragma once

#include <QByteArray>
#include <QVariant>

/// The value that a property list (XML or binary) holds: maps, lists, strings, numbers, booleans and data. Invalid when
/// the bytes are no property list, one of more than 1 MiB, or one that libplist cannot read safely (see
/// QBSoundBinaryList.h); an item of another kind, such as a date, is an invalid value in its place.
[[nodiscard]] QVariant QBPropertyListFromData(const QByteArray& bytes);
