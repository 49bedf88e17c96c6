#pragma once

#include "DClassInfo.h"
#include "DDatabase.h"

#include <QString>
#include <QUuid>

#include <cstdlib>

namespace hoardbench {

// The installed data the benchmarks read: $HOARD_DATA, else the build's own.
inline QString dataDir() {
    const char* fromEnvironment = std::getenv("HOARD_DATA");
    return fromEnvironment ? QString::fromLocal8Bit(fromEnvironment)
                           : QStringLiteral(HOARD_DATA_BUILD_DIR);
}

// The guid of the class of that name in the started rules database; null if none.
inline QUuid classGuid(const QString& name) {
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (static_cast<const DClassInfo*>(info)->mName == name)
            return guid;
    }
    return QUuid();
}

} // namespace hoardbench
