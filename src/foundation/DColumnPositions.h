#pragma once

#include "ResultSet.h"

#include <array>
#include <cstddef>

// Positions of the named columns of a result set, in the order of `names`. Throws
// odbc::SQLException for a column that is not there.
template <std::size_t N>
std::array<int, N> DFindColumnPositions(odbc::ResultSet* resultSet,
                                        const std::array<const char*, N>& names) {
    std::array<int, N> positions{};
    for (std::size_t i = 0; i < N; ++i)
        positions[i] = resultSet->findColumn(QString::fromLatin1(names[i]));
    return positions;
}
