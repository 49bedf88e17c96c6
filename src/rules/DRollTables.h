#pragma once

#include <QList>
#include <QString>

// The two small tables that name how ability scores are made: "[types Roll Methods]" (the ids
// are DRollMethodType values) and "[types Roll Campaigns]" (point-buy budgets).
class DRollTables {
public:
    struct Row {
        int id = -1;
        QString name;
        int points = 0; // a campaign's budget; 0 for a method
    };

    DRollTables() = delete;

    // In id order; empty, after one report, when the table cannot be read.
    static QList<Row> Methods();
    static QList<Row> Campaigns();
};
