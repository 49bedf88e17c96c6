#pragma once

#include <QString>
#include <QUuid>

namespace odbc {

// The stored text of a GUID: braced and upper-case, e.g. {2F44209F-DA52-4037-83BB-7DDFD24D4CE1}.
QString guidText(const QUuid& guid);

// The SQL literal of a GUID for statement text: guidText in single quotes.
QString toStringODBC(const QUuid& guid);

} // namespace odbc
