#pragma once

#include <QString>
#include <QStringList>
#include <QUuid>

class QSqlQuery;
class QVariant;

namespace odbc {

// The rows of one executed query. Owned by the statement that produced it and valid until that
// statement runs again or is deleted. Columns are numbered from 1; names match case-insensitively.
class ResultSet {
public:
    static constexpr int TYPE_FORWARD_ONLY = 1003;
    static constexpr int TYPE_SCROLL_INSENSITIVE = 1004;
    static constexpr int CONCUR_READ_ONLY = 1007;

    ResultSet(QSqlQuery& query, bool scrollable);
    ResultSet(const ResultSet&) = delete;
    ResultSet& operator=(const ResultSet&) = delete;
    ~ResultSet();

    bool next();
    // Moves to a 1-based row; negative rows count from the end, 0 is before the first row.
    bool absolute(int row);

    int findColumn(const QString& name) const;
    int getColumnCount() const { return static_cast<int>(mColumnNames.size()); }
    QString getColumnName(int column) const;

    int getInt(int column);
    qint64 getLong(int column);
    QString getString(int column);
    bool getBoolean(int column);
    float getFloat(int column);
    double getDouble(int column);
    QUuid getGUID(int column);

    int getInt(const QString& name) { return getInt(findColumn(name)); }
    qint64 getLong(const QString& name) { return getLong(findColumn(name)); }
    QString getString(const QString& name) { return getString(findColumn(name)); }
    bool getBoolean(const QString& name) { return getBoolean(findColumn(name)); }
    float getFloat(const QString& name) { return getFloat(findColumn(name)); }
    double getDouble(const QString& name) { return getDouble(findColumn(name)); }
    QUuid getGUID(const QString& name) { return getGUID(findColumn(name)); }

    // Whether the value read last was SQL NULL.
    bool wasNull() const { return mWasNull; }

private:
    QVariant value(int column);
    void checkColumn(int column) const;

    QSqlQuery& mQuery;
    QStringList mColumnNames;
    bool mScrollable;
    bool mWasNull = false;
};

} // namespace odbc
