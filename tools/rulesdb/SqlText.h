#pragma once

#include "ColumnDef.h"

#include <QString>
#include <QStringList>

// Pieces of schema statements that the SQLite and PostgreSQL writers spell alike.
namespace SqlText {

// The column's type; `realType` is the engine's name for an eight-byte float.
QString Type(const ColumnDef& column, const QString& realType);
// The column's default as a literal: numbers as written, text quoted.
QString Default(const ColumnDef& column);
// "a, b, c" with each name quoted by `quote`.
QString NameList(const QStringList& names, QString (*quote)(const QString&));

} // namespace SqlText
