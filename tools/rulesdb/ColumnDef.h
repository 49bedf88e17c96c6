#pragma once

#include <QString>

// One column of a rules table as the schema declares it.
struct ColumnDef {
    enum class Type { Integer, Real, Varchar, Text };

    QString name;
    Type type = Type::Text;
    int length = 0; // VARCHAR(n); 0 otherwise
    bool notNull = false;
    bool hasDefault = false;
    QString defaultValue; // the literal as written, quotes removed
    QString refTable;     // REFERENCES target, empty if none
    QString refColumn;

    // VARCHAR(38) holds a GUID in the braced upper-case form.
    bool isGuid() const { return type == Type::Varchar && length == 38; }
    bool isReference() const { return !refTable.isEmpty(); }
    // A cell may be left empty: it becomes the default or NULL.
    bool isRequired() const { return notNull && !hasDefault; }
};
