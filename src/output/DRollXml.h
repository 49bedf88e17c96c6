#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

// The `roll-lists` document: the dice window's list of expressions and what each rolled.
class DRollXml {
public:
    DRollXml() = delete;

    struct RollList {
        QString expression;
        QStringList rolls;
    };

    static void Write(const QList<RollList>& lists, QTextStream& out, const QString& styleSheet);
};
