#pragma once

#include <QString>

// Stable GUIDs for rule rows that the sources do not give one: a name-based (version 5) UUID
// of the project's namespace and "table name/row name".
class NameGuid {
public:
    static QString forRow(const QString& table, const QString& rowName);

    // The braced upper-case text form that the database stores.
    static QString format(const QString& guidText);

    // Whether text is a GUID in braces (either case).
    static bool isGuidText(const QString& text);
};
