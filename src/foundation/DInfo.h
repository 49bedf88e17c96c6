#pragma once

#include "FCObject.h"

#include <QUuid>

namespace odbc {
class ResultSet;
}

// Base of rule records: the in-memory form of one row of the rules database. SetData reads
// the row by column name and may throw odbc::SQLException when a column is missing; the
// database layer catches it.
class DInfo : public FCObject {
    FC_DECLARE_CLASS(DInfo)
public:
    virtual void SetData(odbc::ResultSet* resultSet);
    // The integer key; negative means none, and rule maps drop such a record.
    virtual int GetPrimaryKey() const { return -1; }
    // The GUID key; null means none.
    virtual QUuid GetPrimaryKeyGuid() const { return QUuid(); }
};
