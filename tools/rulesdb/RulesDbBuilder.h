#pragma once

#include <QString>

// Builds the rules database from its text sources:
//   SOURCE/tables.txt      the table registry (index and name)
//   SOURCE/schema/*.sql    the tables' definitions
//   SOURCE/rows/*.tsv      the rows, one file per table, named after the table without brackets
class RulesDbBuilder {
public:
    // Throws BuildError at the first fault; the output is then left as it was.
    void build(const QString& sourceDir, const QString& outputPath) const;
};
