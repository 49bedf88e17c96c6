#pragma once

#include "RuleTable.h"
#include "SchemaParser.h"

#include <QList>
#include <QString>

#include <functional>

// Builds the rules database from its text sources:
//   SOURCE/tables.txt      the table registry (index and name)
//   SOURCE/schema/*.sql    the tables' definitions
//   SOURCE/rows/*.tsv      the rows, one file per table, named after the table without brackets
class RulesDbBuilder {
public:
    // Throws BuildError at the first fault; the output is then left as it was.
    void build(const QString& sourceDir, const QString& outputPath) const;
    // The same checks, then the tables go into PostgreSQL (see PostgresWriter).
    void buildPostgres(const QString& sourceDir, const QString& connectionText) const;

private:
    using Writer = std::function<void(const QList<RuleTable>&, const QList<SchemaParser::Index>&)>;
    void load(const QString& sourceDir, const Writer& write) const;
};
