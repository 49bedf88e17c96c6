#pragma once

#include <QUuid>

// Helpers for GUIDs as the records store them: sixteen bytes in RFC 4122 order.
namespace DGuid {

// Negative, zero or positive as `a` sorts before, with or after `b` when both are compared
// as their sixteen bytes, first byte first. QUuid's own operator< looks at the variant
// first, which would give another order than the stored bytes.
int Compare(const QUuid& a, const QUuid& b);

inline bool Less(const QUuid& a, const QUuid& b) {
    return Compare(a, b) < 0;
}

// A GUID field may hold a whole number in its first four bytes instead of a GUID.
inline qint32 GetLong(const QUuid& guid) {
    return qint32(guid.data1);
}
// Writes the number into the first four bytes and leaves the other twelve alone.
inline void SetLong(QUuid& guid, qint32 value) {
    guid.data1 = quint32(value);
}

} // namespace DGuid
