#include "SchemaParser.h"

#include "BuildError.h"

#include <QFile>

namespace {

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'.';
}

} // namespace

void SchemaParser::parseFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw BuildError(path, 0, QStringLiteral("cannot read the file"));
    parseText(QString::fromUtf8(file.readAll()), path);
}

void SchemaParser::parseText(const QString& text, const QString& fileName) {
    mFile = fileName;
    tokenize(text);
    mPos = 0;
    while (peek().kind != Token::Kind::End)
        parseStatement(text);
}

void SchemaParser::tokenize(const QString& text) {
    mTokens.clear();
    int line = 1;
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n) {
        const QChar c = text[i];
        if (c == u'\n') {
            ++line;
            ++i;
        } else if (c.isSpace()) {
            ++i;
        } else if (c == u'-' && i + 1 < n && text[i + 1] == u'-') {
            while (i < n && text[i] != u'\n')
                ++i;
        } else if (c == u'[' || c == u'\'') {
            const QChar close = c == u'[' ? u']' : u'\'';
            const qsizetype end = text.indexOf(close, i + 1);
            if (end < 0 || text.mid(i, end - i).contains(u'\n'))
                throw BuildError(mFile, line, QStringLiteral("unclosed %1").arg(c));
            const auto kind = c == u'[' ? Token::Kind::Quoted : Token::Kind::String;
            const QString body = text.mid(i + 1, end - i - 1);
            mTokens.append({kind, c == u'[' ? text.mid(i, end - i + 1) : body, line, i});
            i = end + 1;
        } else if (isWordChar(c) ||
                   ((c == u'-' || c == u'+') && i + 1 < n && text[i + 1].isDigit())) {
            const qsizetype start = i++;
            while (i < n && isWordChar(text[i]))
                ++i;
            mTokens.append({Token::Kind::Word, text.mid(start, i - start), line, start});
        } else if (c == u'(' || c == u')' || c == u',' || c == u';') {
            mTokens.append({Token::Kind::Punct, QString(c), line, i});
            ++i;
        } else {
            throw BuildError(mFile, line, QStringLiteral("unexpected character '%1'").arg(c));
        }
    }
    mTokens.append({Token::Kind::End, QString(), line, n});
}

SchemaParser::Token SchemaParser::take() {
    Token token = mTokens[mPos];
    if (token.kind != Token::Kind::End)
        ++mPos;
    return token;
}

bool SchemaParser::takeKeyword(const char* keyword) {
    const Token& token = peek();
    if (token.kind != Token::Kind::Word ||
        token.text.compare(QLatin1String(keyword), Qt::CaseInsensitive) != 0)
        return false;
    ++mPos;
    return true;
}

void SchemaParser::expectKeyword(const char* keyword) {
    if (!takeKeyword(keyword))
        fail(peek(), QStringLiteral("expected %1").arg(QLatin1String(keyword)));
}

bool SchemaParser::takePunct(QChar punct) {
    if (peek().kind != Token::Kind::Punct || peek().text != punct)
        return false;
    ++mPos;
    return true;
}

void SchemaParser::expectPunct(QChar punct) {
    const Token token = take();
    if (token.kind != Token::Kind::Punct || token.text != punct)
        fail(token, QStringLiteral("expected '%1'").arg(punct));
}

QString SchemaParser::takeName(const char* what) {
    const Token token = take();
    if (token.kind == Token::Kind::Word)
        return token.text;
    if (token.kind == Token::Kind::Quoted)
        return token.text.mid(1, token.text.size() - 2);
    fail(token, QStringLiteral("expected %1").arg(QLatin1String(what)));
}

void SchemaParser::fail(const Token& at, const QString& message) const {
    const QString found = at.kind == Token::Kind::End ? QStringLiteral("end of file") : at.text;
    throw BuildError(mFile, at.line, QStringLiteral("%1, found '%2'").arg(message, found));
}

void SchemaParser::parseStatement(const QString& text) {
    const Token start = peek();
    expectKeyword("CREATE");
    if (takeKeyword("TABLE")) {
        parseTable(start.line);
        return;
    }
    takeKeyword("UNIQUE");
    if (peek().kind == Token::Kind::Word &&
        peek().text.compare(QLatin1String("INDEX"), Qt::CaseInsensitive) == 0) {
        parseIndex(text, start);
        return;
    }
    fail(peek(), QStringLiteral("expected TABLE or INDEX"));
}

void SchemaParser::parseTable(int line) {
    const Token nameToken = take();
    if (nameToken.kind != Token::Kind::Quoted)
        fail(nameToken, QStringLiteral("expected a [bracketed] table name"));
    TableDef table;
    table.name = nameToken.text;
    table.file = mFile;
    table.line = line;
    expectPunct(u'(');
    do {
        if (takeKeyword("PRIMARY")) {
            expectKeyword("KEY");
            if (!table.primaryKey.isEmpty())
                fail(peek(), QStringLiteral("a second primary key"));
            table.primaryKey = parseNameList();
        } else if (takeKeyword("UNIQUE")) {
            table.uniqueKeys.append(parseNameList());
        } else {
            parseColumn(table);
        }
    } while (takePunct(u','));
    expectPunct(u')');
    expectPunct(u';');
    for (const QStringList& key : QList<QStringList>{table.primaryKey} + table.uniqueKeys) {
        for (const QString& column : key) {
            if (table.columnIndex(column) < 0)
                throw BuildError(mFile, line,
                                 QStringLiteral("key names unknown column %1").arg(column));
        }
    }
    mTables.append(table);
}

void SchemaParser::parseIndex(const QString& text, const Token& start) {
    while (peek().kind != Token::Kind::End &&
           !(peek().kind == Token::Kind::Punct && peek().text == u';'))
        take();
    const Token end = take();
    if (end.kind == Token::Kind::End)
        fail(end, QStringLiteral("expected ';'"));
    mIndexes.append({text.mid(start.offset, end.offset - start.offset), mFile, start.line});
}

QStringList SchemaParser::parseNameList() {
    QStringList names;
    expectPunct(u'(');
    do {
        names.append(takeName("a column name"));
    } while (takePunct(u','));
    expectPunct(u')');
    return names;
}

void SchemaParser::parseColumn(TableDef& table) {
    const Token at = peek();
    ColumnDef column;
    column.name = takeName("a column name");
    if (table.columnIndex(column.name) >= 0)
        fail(at, QStringLiteral("column declared twice"));
    parseColumnType(column);
    parseColumnConstraints(table, column);
    table.columns.append(column);
}

void SchemaParser::parseColumnType(ColumnDef& column) {
    const Token typeToken = take();
    const QString type = typeToken.text.toUpper();
    if (type == QLatin1String("INTEGER")) {
        column.type = ColumnDef::Type::Integer;
    } else if (type == QLatin1String("REAL")) {
        column.type = ColumnDef::Type::Real;
    } else if (type == QLatin1String("TEXT")) {
        column.type = ColumnDef::Type::Text;
    } else if (type == QLatin1String("VARCHAR")) {
        column.type = ColumnDef::Type::Varchar;
        expectPunct(u'(');
        const Token length = take();
        bool ok = false;
        column.length = length.text.toInt(&ok);
        if (!ok || column.length <= 0)
            fail(length, QStringLiteral("expected a length"));
        expectPunct(u')');
    } else {
        fail(typeToken, QStringLiteral("expected INTEGER, REAL, VARCHAR(n) or TEXT"));
    }
}

void SchemaParser::parseColumnConstraints(TableDef& table, ColumnDef& column) {
    for (;;) {
        if (takeKeyword("NOT")) {
            expectKeyword("NULL");
            column.notNull = true;
        } else if (takeKeyword("NULL")) {
            column.notNull = false;
        } else if (takeKeyword("DEFAULT")) {
            const Token value = take();
            if (value.kind != Token::Kind::Word && value.kind != Token::Kind::String)
                fail(value, QStringLiteral("expected a default value"));
            column.hasDefault = true;
            column.defaultValue = value.text;
        } else if (takeKeyword("PRIMARY")) {
            expectKeyword("KEY");
            if (!table.primaryKey.isEmpty())
                fail(peek(), QStringLiteral("a second primary key"));
            table.primaryKey = QStringList{column.name};
        } else if (takeKeyword("UNIQUE")) {
            table.uniqueKeys.append(QStringList{column.name});
        } else if (takeKeyword("REFERENCES")) {
            const Token target = take();
            if (target.kind != Token::Kind::Quoted)
                fail(target, QStringLiteral("expected a [bracketed] table name"));
            column.refTable = target.text;
            expectPunct(u'(');
            column.refColumn = takeName("a column name");
            expectPunct(u')');
        } else {
            return;
        }
    }
}
