#pragma once

#include "TableDef.h"

#include <QList>
#include <QString>

// Reads the schema sources: CREATE TABLE statements in a small, engine-neutral SQL subset
// (column types INTEGER, REAL, VARCHAR(n), TEXT; NOT NULL, DEFAULT, PRIMARY KEY, UNIQUE,
// REFERENCES) and CREATE INDEX statements, which are kept as written.
class SchemaParser {
public:
    struct Index {
        QString sql;
        QString file;
        int line = 0;
    };

    // Parses one file and appends what it declares; throws BuildError on a syntax fault.
    void parseFile(const QString& path);
    void parseText(const QString& text, const QString& fileName);

    const QList<TableDef>& tables() const { return mTables; }
    const QList<Index>& indexes() const { return mIndexes; }

private:
    struct Token {
        enum class Kind { Word, Quoted, String, Punct, End };
        Kind kind = Kind::End;
        QString text;
        int line = 0;
        qsizetype offset = 0;
    };

    void tokenize(const QString& text);
    const Token& peek() const { return mTokens[mPos]; }
    Token take();
    bool takeKeyword(const char* keyword);
    void expectKeyword(const char* keyword);
    bool takePunct(QChar punct);
    void expectPunct(QChar punct);
    QString takeName(const char* what);
    [[noreturn]] void fail(const Token& at, const QString& message) const;

    void parseStatement(const QString& text);
    void parseTable(int line);
    void parseIndex(const QString& text, const Token& start);
    QStringList parseNameList();
    void parseColumn(TableDef& table);
    void parseColumnType(ColumnDef& column);
    void parseColumnConstraints(TableDef& table, ColumnDef& column);

    QList<TableDef> mTables;
    QList<Index> mIndexes;
    QList<Token> mTokens;
    qsizetype mPos = 0;
    QString mFile;
};
