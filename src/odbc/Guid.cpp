#include "Guid.h"

namespace odbc {

QString guidText(const QUuid& guid) {
    return guid.toString(QUuid::WithBraces).toUpper();
}

QString toStringODBC(const QUuid& guid) {
    return QLatin1Char('\'') + guidText(guid) + QLatin1Char('\'');
}

} // namespace odbc
