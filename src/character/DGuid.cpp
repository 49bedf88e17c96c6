#include "DGuid.h"

namespace DGuid {

int Compare(const QUuid& a, const QUuid& b) {
    // The RFC byte order writes data1..data3 big-endian, so comparing the fields as numbers
    // gives the byte order without building the byte arrays.
    if (a.data1 != b.data1)
        return a.data1 < b.data1 ? -1 : 1;
    if (a.data2 != b.data2)
        return a.data2 < b.data2 ? -1 : 1;
    if (a.data3 != b.data3)
        return a.data3 < b.data3 ? -1 : 1;
    for (int i = 0; i < 8; ++i) {
        if (a.data4[i] != b.data4[i])
            return a.data4[i] < b.data4[i] ? -1 : 1;
    }
    return 0;
}

} // namespace DGuid
